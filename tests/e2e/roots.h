// tests/e2e/roots.h: windows whose pages a test builds from nodes, below the script classes: for what no page text and
// no method of a window can ask for yet.
#pragma once

#include "controls/guiwidget.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "tests/e2e/fixture.h"

/// Runs `work` on the GUI thread and waits for it; the script thread serves handlers meanwhile.
inline void onGuiThread(std::function<void()> work)
{
    static std::function<void()> current;
    current = std::move(work);
    ScriptMethod run = [](LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) {
        auto mine = std::move(current); // the work may lead to another call of this
        mine();
    };
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(run, pGUI->getManager(), nullptr, nullptr, args, result);
}

/// A page root with the page's script object alone, or without one; its window closes with it. GUI thread.
struct BareRoot : guiHtmlBase
{
    using guiHtml::operator=;
    explicit BareRoot(ScriptObject* page) : guiHtmlBase(page, nullptr, nullptr, sstring()) {}
    ~BareRoot() override { destroyWidget(); }
};

/// A BareRoot for a test's body, made and destroyed on the GUI thread. Needs a NativeHost that outlives it.
class RootWindow
{
public:
    /// `page`: whom its events go to; not owned, may be null.
    explicit RootWindow(std::string const& title, ScriptObject* page = nullptr)
    {
        onGuiThread([&] {
            m_root = std::make_unique<BareRoot>(page);
            m_root->setTitle(sstring(title.c_str()));
        });
    }
    ~RootWindow()
    {
        onGuiThread([this] { m_root.reset(); });
    }
    RootWindow(RootWindow const&) = delete;
    RootWindow& operator=(RootWindow const&) = delete;

    BareRoot& root() { return *m_root; }
    void open(bool modal = false) { pGUI->getThread()->callPageOpen(m_root.get(), modal); }
    void close() { pGUI->getThread()->callPageClose(m_root.get()); }

private:
    std::unique_ptr<BareRoot> m_root;
};
