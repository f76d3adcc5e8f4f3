// script/guisession.cpp: see the header.
#include "script/guisession.h"

#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "foundation/vela-qt.h"
#include "runtime/gui.h"
#include "runtime/guiscriptwork.h"
#include "script/guidialogs.h"

#include <QClipboard>
#include <QGuiApplication>
#include <memory>

namespace {

/// Where the arguments of showDialog stand.
enum dialogArgument
{
    kKind,
    kTitle,
    kText,
    kValue,
    kOption,
    kDone,
    kNames
};

void forgetAnswer(ScriptValue&, void*) {}

/// Calls script's function with the answers, and lets go of it. GUI thread.
void giveAnswer(std::shared_ptr<ScriptObject> const& done, std::vector<sstring> const& answers)
{
    HostPlatform* const platform = pGUI->getPlatform();
    ScriptEngine* const engine = done->getEngine();
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const value(platform->createValue(engine));
    for (sstring const& answer : answers) {
        value->setString(answer);
        args->append(value.get());
    }
    done->callMethodAsync(done.get(), sstring(), args.get(), forgetAnswer, nullptr);
}

bool isDialogRequest(ScriptArgs& args)
{
    for (int i = 0; i < args.count(); ++i)
        if (i == kDone ? !args.get(i)->isFunction() : !args.get(i)->isString())
            return false;
    return args.count() >= kNames;
}

void showDialog_script(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setBool(0);
    if (!isDialogRequest(args))
        return;
    guiDialogRequest request{guiTextOf(args, kKind),  guiTextOf(args, kTitle),  guiTextOf(args, kText),
                             guiTextOf(args, kValue), guiTextOf(args, kOption), {}};
    for (int i = kNames; i < args.count(); ++i)
        request.names.push_back(guiTextOf(args, i));
    std::shared_ptr<ScriptObject> const done = guiKept(args.get(kDone)->toObject(0));
    auto const answer = [done](std::vector<sstring> const& answers) { giveAnswer(done, answers); };
    guiScriptWork_postToGui([request, answer] {
        if (!guiDialog_show(request, answer))
            answer({});
    });
    result.setBool(1);
}

void readClipboard_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    assertOnGuiThread();
    result.setString(qtoss(QGuiApplication::clipboard()->text()));
}

void writeClipboard_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    if (guiIsOneString(args))
        QGuiApplication::clipboard()->setText(sstoq(guiTextOf(args, 0)));
}

constexpr guiScriptMethod kMethods[] = {
    {"showDialog", showDialog_script},
    {"readClipboard", guiCallOnGuiThread<readClipboard_qt>},
    {"writeClipboard", guiCallOnGuiThread<writeClipboard_qt>},
};

} // namespace

void guiSession_complete()
{
    assertOnScriptThread();
    ScriptObject* const session = pGUI->getSession();
    if (!session || session->hasMethod(kMethods[0].name))
        return;
    for (guiScriptMethod const& each : kMethods)
        session->addMethod(each.name, each.method);
}
