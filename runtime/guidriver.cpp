// runtime/guidriver.cpp: see guidriver.h: the requests, each a function of its own in one table.
#include "runtime/guidriver.h"

#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlcustom.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guidriveraim.h"
#include "runtime/guidriverhand.h"
#include "runtime/guidriverlook.h"
#include "runtime/guidriverpicture.h"
#include "runtime/guidriverrows.h"
#include "runtime/guidriverwindows.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guipostlast.h"
#include "runtime/guipromises.h"
#include "runtime/guithread.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QWidget>
#include <QWindow>

namespace {

QJsonObject problem(QString const& text) { return {{"problem", text}}; }

/// A request about a window that is shown.
struct windowRequest
{
    QWidget* window;
    QJsonObject const& asked;

    QString text(char const* name) const { return asked[QLatin1String(name)].toString(); }
    guiDriverThing thing() const { return guiDriver_find(window, asked["thing"].toObject()); }
};

QJsonObject look(windowRequest const& request)
{
    return {{"title", request.window->windowTitle()},
            {"kind", guiDriver_kindOf(request.window)},
            {"items", guiDriver_look(request.window)}};
}

guiDriverClick clickOf(QString const& name)
{
    if (name == u"again")
        return guiDriverClick::kAgain;
    if (name == u"right")
        return guiDriverClick::kRight;
    return name == u"move" ? guiDriverClick::kMove : guiDriverClick::kLeft;
}

Qt::KeyboardModifiers modifiersOf(QString const& names)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, names.contains(u"Ctrl"));
    modifiers.setFlag(Qt::ShiftModifier, names.contains(u"Shift"));
    modifiers.setFlag(Qt::AltModifier, names.contains(u"Alt"));
    return modifiers;
}

QJsonObject click(windowRequest const& request) TARN_ON(velaGuiRole)
{
    if (QString const cover = guiDriver_coverOf(request.window); !cover.isEmpty())
        return problem(cover);
    guiDriverPlace const place = guiDriver_aim(request.window, request.thing());
    if (!place.problem.isEmpty())
        return problem(place.problem);
    guiDriver_click(request.window, place.at, clickOf(request.text("click")), modifiersOf(request.text("modifiers")));
    return {{"x", place.at.x()}, {"y", place.at.y()}};
}

/// Keys go where the window has them; a menu or list that has popped up takes them before.
QJsonObject getKeyboard(QWidget* window)
{
    if (QString const obstacle = guiDriver_obstacleOf(window); !obstacle.isEmpty())
        return problem(obstacle);
    if (window->isActiveWindow() || window->windowType() == Qt::Popup)
        return {};
    window->raise();
    window->activateWindow();
    return problem(QStringLiteral("without the keyboard: another window is active"));
}

QJsonObject press(windowRequest const& request)
{
    QJsonObject refusal = getKeyboard(request.window);
    if (!refusal.isEmpty())
        return refusal;
    QKeySequence const keys = QKeySequence::fromString(request.text("keys"), QKeySequence::PortableText);
    for (int i = 0; i < keys.count(); ++i)
        if (keys[static_cast<uint>(i)].key() == Qt::Key_unknown)
            return {{"isUnknown", true}};
    if (keys.isEmpty())
        return {{"isUnknown", true}};
    guiDriver_press(request.window, keys);
    return {};
}

QJsonObject type(windowRequest const& request)
{
    QJsonObject refusal = getKeyboard(request.window);
    if (refusal.isEmpty())
        guiDriver_type(request.window, request.text("text"));
    return refusal;
}

QJsonObject read(windowRequest const& request)
{
    guiDriverThing const thing = request.thing();
    guiHtml* const node = thing.node ? thing.node : guiDriver_pageOf(request.window);
    return node ? QJsonObject{{"text", guiDriver_textOf(node)}} : problem(QStringLiteral("gone"));
}

QJsonObject rows(windowRequest const& request) { return guiDriver_rowsOf(request.thing()); }

QJsonObject findRow(windowRequest const& request) { return guiDriver_findRow(request.thing(), request.text("row")); }

QJsonObject savePicture(windowRequest const& request)
{
    return guiDriver_savePicture(request.window, request.text("file"));
}

QJsonObject comparePicture(windowRequest const& request)
{
    return guiDriver_comparePicture(request.window, request.text("file"), request.asked["tolerance"].toInt());
}

/// As the button in the title bar does it.
QJsonObject close(windowRequest const& request)
{
    if (QString const obstacle = guiDriver_obstacleOf(request.window); !obstacle.isEmpty())
        return problem(obstacle);
    QMetaObject::invokeMethod(
        request.window, [window = request.window] { window->close(); }, Qt::QueuedConnection);
    return {};
}

struct windowVerb
{
    char const* name;
    QJsonObject (*run)(windowRequest const& request);
};

constexpr windowVerb kVerbs[] = {
    {"look", look},       {"click", click},         {"press", press},
    {"type", type},       {"read", read},           {"rows", rows},
    {"findRow", findRow}, {"picture", savePicture}, {"compare", comparePicture},
    {"close", close},
};

QJsonObject answerFor(QJsonObject const& asked)
{
    QWidget* const window = guiDriver_windowOf(asked["window"].toInt());
    if (!window)
        return {{"isGone", true}};
    for (windowVerb const& each : kVerbs)
        if (asked["do"].toString() == QLatin1String(each.name))
            return each.run({window, asked});
    return problem(QStringLiteral("unknown request"));
}

// ---- Which windows there are, and whether anything goes on ----

/// `page`: of the window that is asked for; may be gone, or null.
QJsonObject state(guiHtml* page) TARN_ON(velaGuiRole)
{
    guiHtml* const living = page && pGUI->contains(page) ? page : nullptr;
    QJsonObject answer{{"windows", guiDriver_windows()},
                       {"isBusy", pGUI->getThread()->isInputBlocked()},
                       {"promises", static_cast<int>(guiPromises_count()) + guiHtmlCustom::tellingCount()}};
    QWidget* const window = living ? living->getTopLevelWidget() : nullptr;
    if (window && window->isVisible() && window->windowHandle() && window->windowHandle()->isExposed())
        answer["window"] = guiDriver_idOf(window);
    return answer;
}

/// A cursor that blinks would be on some pictures of a field and not on others.
void stopBlinking()
{
    static bool const isDone = [] {
        QApplication::setCursorFlashTime(0);
        return true;
    }();
    static_cast<void>(isDone);
}

} // namespace

void guiDriver_run(QByteArray const& request, guiHtml* page, guiDriverAnswer const& answer)
{
    assertOnGuiThread();
    QJsonObject const asked = QJsonDocument::fromJson(request).object();
    if (!asked["isOnlooker"].toBool())
        stopBlinking();
    if (asked["do"].toString() != u"state")
        return answer(QJsonDocument(answerFor(asked)).toJson(QJsonDocument::Compact));
    guiPostLast([page, answer] {
        assertOnGuiThread();
        answer(QJsonDocument(state(page)).toJson(QJsonDocument::Compact));
    });
}
