// tests/script/controlscript.h: a window of the C++ host whose controls a test works with as script does.
#pragma once

#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolmenu.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guiwindow.h"

#include <QAbstractButton>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

inline std::function<void()> theWork;

inline void runTheWork(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { theWork(); }

/// Runs `work` on the GUI thread and waits.
inline void onGuiThread(std::function<void()> work)
{
    theWork = std::move(work);
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(runTheWork, pGUI->getManager(), nullptr, nullptr, args, result);
}

class ControlScript : public testing::Test
{
protected:
    ControlScript() { fs::create_directories(folder); }
    ~ControlScript() override { fs::remove_all(folder); }

    void write(std::string const& name, std::string const& text) { std::ofstream(folder / name) << text; }

    NativeWindow open(std::string const& page)
    {
        write("page.html", "<html><body>" + page + "</body></html>");
        NativeWindow window = host.window("page.html");
        EXPECT_TRUE(window.open());
        root = GetWindow(guiWindow_getData(window.object()->getPrivate()));
        return window;
    }

    template <typename Node>
    Node& node(char const* name)
    {
        return dynamic_cast<Node&>(*root->getNamed(name));
    }

    /// A property of the window's form object.
    NativeValue form(std::string_view name) { return formObject().get(name); }
    NativeObject& formObject() { return static_cast<NativeObject&>(*root->getFormObject()); }
    void writeForm()
    {
        onGuiThread([this] { root->writeFormProperty(root->getFormObject()); });
    }
    void readForm()
    {
        onGuiThread([this] { root->readFormProperty(root->getFormObject()); });
    }

    /// Presses a button as a user does and serves the handlers until `done`.
    void click(char const* name, std::function<bool()> done)
    {
        onGuiThread([&] {
            QWidget* widget = root->getNamed(name)->getChildWidget();
            QMetaObject::invokeMethod(
                widget, [widget] { static_cast<QAbstractButton*>(widget)->click(); }, Qt::QueuedConnection);
        });
        EXPECT_TRUE(host.serveUntil(done, 5s));
    }

    fs::path const folder = fs::path(testing::TempDir()) / ("controls-" + std::to_string(getpid()));
    NativeHost host{{.folder = folder}};
    guiHtmlBase* root = nullptr;
};
