// script/guisession.cpp: see the header.
#include "script/guisession.h"

#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "foundation/vela-qt.h"
#include "runtime/gui.h"
#include "runtime/guidriver.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guiinspector.h"
#include "runtime/guireload.h"
#include "runtime/guiscriptwork.h"
#include "script/guianswer.h"
#include "script/guidialogs.h"
#include "script/guinotice.h"
#include "script/guitaskbar.h"
#include "script/guitray.h"
#include "script/guiwindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <functional>
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
    auto const answer = [done](std::vector<sstring> const& answers) { guiGiveAnswer(done, answers); };
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

/// Where the arguments of showTray stand.
enum trayArgument
{
    kNumber,
    kIcon,
    kTip,
    kHeard,
    kItems
};

bool isTrayRequest(ScriptArgs& args)
{
    if (args.count() < kItems || (args.count() - kItems) % 2 != 0)
        return false;
    for (int i = kIcon; i < args.count(); ++i)
        if (i == kHeard ? !args.get(i)->isFunction() : !args.get(i)->isString())
            return false;
    return args.get(kNumber)->isNumber();
}

/// Calls script's function with a number. GUI thread.
void tellPlace(std::shared_ptr<ScriptObject> const& heard, int place)
{
    HostPlatform* const platform = pGUI->getPlatform();
    ScriptEngine* const engine = heard->getEngine();
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const value(platform->createValue(engine));
    value->setInt(place);
    args->append(value.get());
    heard->callMethodAsync(heard.get(), sstring(), args.get(), forgetAnswer, nullptr);
}

void hasTray_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    result.setBool(guiTray_isAvailable());
}

void showTray_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(0);
    if (!isTrayRequest(args))
        return;
    std::shared_ptr<ScriptObject> const heard = guiKept(args.get(kHeard)->toObject(0));
    guiTrayRequest request{
        guiTextOf(args, kIcon), guiTextOf(args, kTip), {}, [heard](int place) { tellPlace(heard, place); }};
    for (int i = kItems; i < args.count(); i += 2)
        request.menu.push_back({guiTextOf(args, i), guiTextOf(args, i + 1)});
    result.setBool(guiTray_show(args.get(kNumber)->toInt(0), request));
}

void removeTray_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (args.count() == 1 && guiIsNumber(args, 0))
        guiTray_remove(args.get(0)->toInt(0));
}

void showOnTaskbar_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    bool const isRequest = args.count() == 4 && guiIsString(args, 0) && guiIsNumber(args, 1) && guiIsNumber(args, 2) &&
                           guiIsSwitch(args, 3);
    result.setBool(isRequest && guiTaskbar_show({guiTextOf(args, 0), args.get(1)->toNumber(-1), args.get(2)->toInt(0),
                                                 guiSwitchOf(args, 3) != 0}));
}

/// Where the arguments of showNotice stand.
enum noticeArgument
{
    kNoticeTitle,
    kNoticeText,
    kNoticeIcon,
    kNoticeMs,
    kNoticeDone,
    kNoticeArguments
};

void showNotice_script(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setBool(args.count() == kNoticeArguments && guiIsString(args, kNoticeTitle) &&
                   guiIsString(args, kNoticeText) && guiIsString(args, kNoticeIcon) && guiIsNumber(args, kNoticeMs) &&
                   args.get(kNoticeDone)->isFunction());
    if (!result.toBool(0))
        return;
    guiNotice const notice{guiTextOf(args, kNoticeTitle), guiTextOf(args, kNoticeText), guiTextOf(args, kNoticeIcon),
                           args.get(kNoticeMs)->toInt(0)};
    std::shared_ptr<ScriptObject> const done = guiKept(args.get(kNoticeDone)->toObject(0));
    guiScriptWork_postToGui([notice, done] {
        guiNotice_show(notice, [done](sstring const& complaint) { guiGiveAnswer(done, {complaint}); });
    });
}

/// A request as JSON, the function that hears the answer, and perhaps the window that it is about. Waits for nothing: a
/// handler that runs meanwhile may wait for what whoever asks does next.
template <void (*run)(QByteArray const& request, guiHtml* page, std::function<void(QByteArray const&)> const& answer)>
void ask_script(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setBool(args.count() >= 2 && args.get(0)->isString() && args.get(1)->isFunction());
    if (!result.toBool(0))
        return;
    ScriptObject* const window = args.count() > 2 ? args.get(2)->toObject(0) : nullptr;
    guiHtml* const page = window ? GetWindow(guiWindow_getData(window->getPrivate())) : nullptr;
    std::shared_ptr<ScriptObject> const done = guiKept(args.get(1)->toObject(0));
    QByteArray const request = sstoq(guiTextOf(args, 0)).toUtf8();
    guiScriptWork_postToGui([request, page, done] {
        run(request, page,
            [done](QByteArray const& answer) { guiGiveAnswer(done, {qtoss(QString::fromUtf8(answer))}); });
    });
}

/// Calls script's function with a window, the full name of a file, and what that was like. Any thread.
void tellFile(std::shared_ptr<ScriptObject> const& heard, ScriptObject* window, sstring const& path,
              sstring const& stamp)
{
    HostPlatform* const platform = pGUI->getPlatform();
    ScriptEngine* const engine = heard->getEngine();
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const value(platform->createValue(engine));
    value->setObject(window);
    args->append(value.get());
    for (sstring const& text : {path, stamp}) {
        value->setString(text);
        args->append(value.get());
    }
    heard->callMethodAsync(heard.get(), sstring(), args.get(), forgetAnswer, nullptr);
}

/// Turns live reload on; the argument is the function that hears of files.
void watchFiles_qt(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(args.count() == 1 && args.get(0)->isFunction());
    if (!result.toBool(0))
        return;
    std::shared_ptr<ScriptObject> const heard = guiKept(args.get(0)->toObject(0));
    guiReload_start([heard](ScriptObject* window, sstring const& path, sstring const& stamp) {
        tellFile(heard, window, path, stamp);
    });
}

constexpr guiScriptMethod kMethods[] = {
    {"showDialog", showDialog_script},
    {"readClipboard", guiCallOnGuiThread<readClipboard_qt>},
    {"writeClipboard", guiCallOnGuiThread<writeClipboard_qt>},
    {"hasTray", guiCallOnGuiThread<hasTray_qt>},
    {"showTray", guiCallOnGuiThread<showTray_qt>},
    {"removeTray", guiCallOnGuiThread<removeTray_qt>},
    {"showOnTaskbar", guiCallOnGuiThread<showOnTaskbar_qt>},
    {"showNotice", showNotice_script},
    {"drive", ask_script<guiDriver_run>},
    {"inspect", ask_script<guiInspector_run>},
    {"watchFiles", guiCallOnGuiThread<watchFiles_qt>},
    {"reload", ask_script<guiReload_run>},
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
