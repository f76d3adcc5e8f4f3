// runtime/guiinspector.cpp: see guiinspector.h: the requests, each a function of its own in one table, and the filter
// that sees the keys and the pointer.
#include "runtime/guiinspector.h"

#include "controls/guiwidget.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodesource.h"
#include "runtime/gui.h"
#include "runtime/guidriverwindows.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guiinspectorlook.h"
#include "runtime/guiinspectormark.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

/// What is looked at. GUI thread.
struct inspection
{
    QPointer<QWidget> window;        ///< which is inspected
    QPointer<guiInspectorMark> mark; ///< in it
    guiHtmlBase* own = nullptr;      ///< the inspector's page; only compared
    bool isPicking = false;          ///< a click in the window chooses an element
    QString hovered;                 ///< id of the node under the pointer while picking
    QString picked;                  ///< id of the node that was clicked, until it is told
    guiInspectorAnswer onKeys;       ///< waits for the keys
};

inspection& theInspection()
{
    static inspection only;
    return only;
}

guiHtmlBase* inspectedPage()
{
    QWidget* const window = theInspection().window;
    return window && window->isVisible() ? guiDriver_pageOf(window) : nullptr;
}

QByteArray toJson(QJsonObject const& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

// ---- The mark ----

void hideMark()
{
    if (QWidget* const mark = theInspection().mark)
        mark->hide();
}

QString nameOf(QJsonObject const& about)
{
    QString const tag = about["tag"].toString();
    return tag.isEmpty() ? about["kind"].toString() : tag;
}

void markNode(QJsonObject const& about)
{
    inspection& now = theInspection();
    if (!now.mark)
        now.mark = new guiInspectorMark(now.window);
    QJsonArray const place = about["place"].toArray();
    now.mark->show(QRect(place[0].toInt(), place[1].toInt(), place[2].toInt(), place[3].toInt()), nameOf(about));
}

void markById(guiHtml* page, QString const& id) TARN_ON(velaGuiRole)
{
    if (guiHtml* const node = guiInspector_find(page, id))
        markNode(guiInspector_describe(node));
    else
        hideMark();
}

// ---- The filter ----

constexpr int kTitleBar = 40; // pixels, at most: the frame of a window that is not shown yet is not known

/// The rectangle, moved onto the screen as far as it fits.
QRect onScreen(QRect place, QRect const& screen)
{
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveLeft(std::max(place.left(), screen.left()));
    place.moveTop(std::max(place.top(), screen.top()));
    return place;
}

/// Where a window of this size covers the least of the other one: on its right, its left, or below.
QPoint placeBeside(QWidget const& window, QSize size)
{
    QRect const screen = window.screen()->availableGeometry();
    QRect const taken = window.frameGeometry();
    QSize const whole(size.width(), size.height() + kTitleBar);
    QPoint const corners[] = {{taken.right() + 1, taken.top()},
                              {taken.left() - size.width(), taken.top()},
                              {taken.left(), taken.bottom() + 1}};
    auto const covered = [&taken](QRect const& place) {
        QRect const common = place.intersected(taken);
        return std::int64_t{common.width()} * common.height();
    };
    QRect best = onScreen({corners[0], whole}, screen);
    for (QPoint const& corner : corners)
        if (QRect const place = onScreen({corner, whole}, screen); covered(place) < covered(best))
            best = place;
    return best.topLeft();
}

/// Sees keys and the pointer in front of everything else. Owned by the application.
class inspectorFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        assertOnGuiThread();
        if (auto* const widget = qobject_cast<QWidget*>(watched))
            return useOfWidget(widget, event);
        QWidget const* const window = theInspection().window;
        if (!window || !theInspection().isPicking || watched != window->windowHandle())
            return isEndOfPick(event);
        return usePointer(*event);
    }

private:
    static bool useOfWidget(QWidget* widget, QEvent* event)
    {
        if (event->type() == QEvent::KeyPress)
            return useKey(widget, *static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::WinIdChange)
            standWith(widget);
        return false;
    }

    static bool useKey(QWidget* widget, QKeyEvent const& event)
    {
        inspection& now = theInspection();
        if (event.key() == Qt::Key_Escape && now.isPicking && widget->window() == now.window) {
            now.isPicking = false;
            return true;
        }
        if (event.key() != Qt::Key_I || event.modifiers() != (Qt::ControlModifier | Qt::ShiftModifier))
            return false;
        guiHtmlBase* const page = guiDriver_pageOf(widget->window());
        if (page && page != now.own && !event.isAutoRepeat())
            if (auto const answer = std::exchange(now.onKeys, nullptr))
                answer(toJson({{"window", guiDriver_idOf(widget->window())}}));
        return page != nullptr;
    }

    /// Before the window gives the event to one of its widgets, and the keyboard with it.
    bool usePointer(QEvent const& event)
    {
        assertOnGuiThread();
        if (event.type() != QEvent::MouseMove && event.type() != QEvent::MouseButtonPress)
            return false;
        guiHtmlBase* const page = inspectedPage();
        QPoint const place = static_cast<QMouseEvent const&>(event).position().toPoint();
        guiHtml* const node = page ? guiInspector_nodeAt(page, place) : nullptr;
        if (!node)
            return false;
        if (event.type() == QEvent::MouseMove)
            hover(node);
        else
            pick(node);
        return true;
    }

    static void hover(guiHtml* node) TARN_ON(velaGuiRole)
    {
        QString const id = guiInspector_idOf(node);
        if (std::exchange(theInspection().hovered, id) != id)
            markNode(guiInspector_describe(node));
    }

    void pick(guiHtml* node)
    {
        theInspection().picked = guiInspector_idOf(node);
        theInspection().isPicking = false;
        m_isPressed = true;
    }

    /// The button that has picked goes up.
    bool isEndOfPick(QEvent const* event)
    {
        return event->type() == QEvent::MouseButtonRelease && std::exchange(m_isPressed, false);
    }

    /// The inspector opens beside the window. A modal window lets no other one have input that does not belong to it.
    static void standWith(QWidget* widget)
    {
        inspection const& now = theInspection();
        auto* const own = qobject_cast<guiWidget*>(widget);
        bool const isInspector = own && now.own && own->htmlBase == now.own;
        if (!isInspector || !now.window || !widget->windowHandle())
            return;
        if (now.window->isModal())
            widget->windowHandle()->setTransientParent(now.window->windowHandle());
        widget->move(placeBeside(*now.window, widget->size()));
    }

    bool m_isPressed = false; // by the click that has picked
};

// ---- The requests ----

struct inspectorRequest
{
    QJsonObject const& asked;
    guiHtml* page; // of the inspector; may be gone

    QString text(char const* name) const { return asked[QLatin1String(name)].toString(); }
};

QJsonObject start(inspectorRequest const&)
{
    static bool isStarted = false;
    guiKeepNodeSources();
    if (!std::exchange(isStarted, true))
        qApp->installEventFilter(new inspectorFilter(qApp));
    return {};
}

/// Begins to look at a window.
QJsonObject open(inspectorRequest const& request)
{
    inspection& now = theInspection();
    hideMark();
    QWidget* const window = guiDriver_windowOf(request.asked["window"].toInt());
    now.window = window;
    now.mark = nullptr;
    now.own = request.page && pGUI->contains(request.page) ? guiHtmlBase::of(request.page) : nullptr;
    now.isPicking = window != nullptr;
    now.hovered = now.picked = QString();
    return window ? QJsonObject{{"title", window->windowTitle()}} : QJsonObject{{"isGone", true}};
}

/// Ends looking at a window, unless it is another one by now.
QJsonObject leave(inspectorRequest const& request)
{
    inspection& now = theInspection();
    if (now.window && guiDriver_idOf(now.window) != request.asked["window"].toInt())
        return {};
    delete now.mark;
    now.own = nullptr;
    now.window = nullptr;
    now.isPicking = false;
    return {};
}

QJsonObject pickNext(inspectorRequest const& request)
{
    theInspection().isPicking = request.asked["isOn"].toBool();
    theInspection().hovered = QString();
    return {};
}

QJsonObject tree(inspectorRequest const&)
{
    guiHtmlBase* const page = inspectedPage();
    return page ? QJsonObject{{"nodes", guiInspector_tree(page)}} : QJsonObject{{"isGone", true}};
}

/// What has happened since the last glance, and `node`, the element that is marked unless another one is being picked.
QJsonObject glance(inspectorRequest const& request) TARN_ON(velaGuiRole)
{
    guiHtmlBase* const page = inspectedPage();
    if (!page)
        return {{"isGone", true}};
    inspection& now = theInspection();
    QString const picked = std::exchange(now.picked, QString());
    QString const shown = !picked.isEmpty() ? picked : now.isPicking ? now.hovered : request.text("node");
    markById(page, shown);
    QJsonObject answer{{"shape", guiInspector_shapeOf(page)},
                       {"title", now.window->windowTitle()},
                       {"isPicking", now.isPicking},
                       {"picked", picked}};
    if (guiHtml* const node = guiInspector_find(page, shown))
        answer["node"] = guiInspector_describe(node);
    return answer;
}

struct inspectorVerb
{
    char const* name;
    QJsonObject (*run)(inspectorRequest const& request);
};

constexpr inspectorVerb kVerbs[] = {
    {"start", start}, {"open", open}, {"leave", leave}, {"pick", pickNext}, {"tree", tree}, {"glance", glance},
};

} // namespace

void guiInspector_run(QByteArray const& request, guiHtml* page, guiInspectorAnswer const& answer)
{
    assertOnGuiThread();
    QJsonObject const asked = QJsonDocument::fromJson(request).object();
    if (asked["do"].toString() == u"wait") {
        theInspection().onKeys = answer;
        return;
    }
    for (inspectorVerb const& each : kVerbs)
        if (asked["do"].toString() == QLatin1String(each.name))
            return answer(toJson(each.run({asked, page})));
    answer(toJson({{"problem", QStringLiteral("unknown request")}}));
}
