// runtime/guicloserequest.cpp: see guicloserequest.h.
#include "runtime/guicloserequest.h"

#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guipromises.h"
#include "runtime/guiscriptwork.h"
#include "runtime/guithread.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <functional>
#include <memory>
#include <set>
#include <utility>

namespace {

sstring const& closeEvent()
{
    static sstring const& name = *new sstring("eClose"); // never destroyed: windows close while the process exits
    return name;
}

/// The windows whose handler runs.
std::set<guiHtmlBase const*> theAsked TARN_GUARDED_BY(velaGuiRole);

bool isNo(ScriptValue const& answer) { return answer.isBool() && !answer.toBool(1); }

bool hasHandler(guiHtmlBase const& root)
{
    ScriptObject* page = root.getPageObject();
    return page && root.isOpen() && page->hasMethod(closeEvent());
}

bool isBeingAsked(guiHtmlBase const& root) TARN_ON(velaGuiRole)
{
    return theAsked.contains(&root) || guiPromises_isPending(root, closeEvent());
}

enum class verdict
{
    kYes,
    kNo,
    kLater ///< there is a promise, or the window is being asked already
};

/// Calls the handler. `later` gets the answer of its promise, if the window is still there.
verdict ask(guiHtmlBase& root, std::function<void(guiHtmlBase& root, bool mayClose)> later) TARN_ON(velaGuiRole)
{
    if (!hasHandler(root))
        return verdict::kYes;
    if (isBeingAsked(root))
        return verdict::kLater;
    guiNodeWatch const live(&root);
    auto page = std::make_shared<guiNodeWatch>(&root);
    auto settled = [page, later = std::move(later)](ScriptValue const& value, bool) {
        if (guiHtml* node = page->get())
            later(*guiHtmlBase::of(node), !isNo(value));
    };
    guiOwnedValue answer = guiNewValue();
    theAsked.insert(&root);
    guiCallback_CallEvent(&root, root.getPageObject(), closeEvent(), pGUI->getSession(), answer.get(),
                          {&root, closeEvent(), true, std::move(settled)});
    theAsked.erase(&root);
    if (!live.alive() || root.isReleased())
        return verdict::kNo; // there is nothing left to close
    if (guiPromises_isPending(root, closeEvent()))
        return verdict::kLater;
    return isNo(*answer) ? verdict::kNo : verdict::kYes;
}

void closeLater(guiHtmlBase& root, bool mayClose)
{
    if (mayClose)
        pGUI->getThread()->postClose(&root);
}

bool maySessionEnd(guiHtmlBase& root) TARN_ON(velaGuiRole)
{
    if (theAsked.contains(&root))
        return false; // by a call that can not return before this one does
    guiNodeWatch const live(&root);
    auto const waitForPromise = [&]() TARN_ON(velaGuiRole) {
        while (live.alive() && guiPromises_isPending(root, closeEvent()))
            pGUI->getThread()->pumpOnce();
    };
    waitForPromise(); // that somebody else has asked for
    if (!live.alive())
        return true;
    bool isKept = false;
    verdict const now = ask(root, [&isKept](guiHtmlBase&, bool mayClose) { isKept = !mayClose; });
    waitForPromise();
    return now != verdict::kNo && !isKept;
}

/// Takes the application's event "quit": the windows decide, and the thread ends with the component.
class quitFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        assertOnGuiThread();
        if (event->type() != QEvent::Quit || watched != parent())
            return false;
        guiCloseRequest_askAll();
        return true;
    }
};

} // namespace

bool guiCloseRequest_ask(guiHtmlBase& root) { return ask(root, closeLater) == verdict::kYes; }

void guiCloseRequest_post(guiHtmlBase& root)
{
    if (!hasHandler(root))
        return pGUI->getThread()->postClose(&root);
    guiScriptWork_postToGui([page = std::make_shared<guiNodeWatch>(&root)] {
        assertOnGuiThread();
        guiHtml* node = page->get();
        if (node && guiCloseRequest_ask(*guiHtmlBase::of(node)))
            pGUI->getThread()->postClose(guiHtmlBase::of(node));
    });
}

void guiCloseRequest_askAll()
{
    if (!pGUI)
        return;
    for (guiHtml* page : pGUI->openPages()) {
        if (!pGUI->contains(page) || !guiCloseRequest_ask(*guiHtmlBase::of(page)))
            continue;
        if (pGUI->contains(page))
            guiHtmlBase::of(page)->destroyWidget();
    }
}

bool guiCloseRequest_maySessionEnd()
{
    if (!pGUI)
        return true;
    for (guiHtml* page : pGUI->openPages())
        if (pGUI->contains(page) && !maySessionEnd(*guiHtmlBase::of(page)))
            return false;
    return true;
}

void guiCloseRequest_watch(QGuiApplication& application)
{
    application.installEventFilter(new quitFilter(&application));
    // Without the desktop's leave to ask, nothing can be asked, and nothing kept.
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &application,
        [](QSessionManager& manager) {
            assertOnGuiThread();
            if (!manager.allowsInteraction())
                return;
            bool const mayEnd = guiCloseRequest_maySessionEnd();
            manager.release();
            if (!mayEnd)
                manager.cancel();
        },
        Qt::DirectConnection);
}
