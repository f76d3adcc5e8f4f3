// controls/guiwidget.cpp: see guiwidget.h. Almost every call of a node may run script, which may close this window. The
// widget itself lives until its handlers have returned (guieventscope.h), but its page may be unbound meanwhile, so
// each step checks again.
#include "controls/guiwidget.h"

#include "controls/guiclipper.h"
#include "controls/guicontextrequest.h"
#include "controls/guicontrolhost.h"
#include "controls/guieventscope.h"
#include "controls/guifind.h"
#include "controls/guifindbar.h"
#include "controls/guihtmlcustom.h"
#include "controls/guipagelistener.h"
#include "controls/guiscrollkeys.h"
#include "controls/guitabkeys.h"
#include "controls/guitabstops.h"
#include "controls/guitextmenu.h"
#include "controls/guititle.h"
#include "controls/guiwidgetscrollbar.h"
#include "foundation/vela-qt.h"
#include "page/guifindat.h"
#include "page/guihtml.h"
#include "page/guilaterevents.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"
#include "page/guirareattributes.h"
#include "page/guiuserevent.h"

#include <QAction>
#include <QApplication>
#include <QChildEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QToolTip>
#include <QWheelEvent>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace {

/// Discards mouse moves while it exists, so that they do not queue up behind a slow handler.
class mouseMoveBlock
{
public:
    mouseMoveBlock() { guiControlHost::current().disableMM(); }
    ~mouseMoveBlock() { guiControlHost::current().enableMM(); }
    mouseMoveBlock(mouseMoveBlock const&) = delete;
    mouseMoveBlock& operator=(mouseMoveBlock const&) = delete;
};

/// Whether the page paints every pixel of its rectangle, so that nothing has to be painted under it.
bool isOpaque(guiPageRoot const* page)
{
    return page->hasBackgroundColor() && !page->hasString(kStringBackground) && page->m.border == 0 &&
           page->m.space == 0 && !page->getMenuBar();
}

QScrollBar* barOf(guiHtml* node, Qt::Orientation orientation)
{
    guiHtml::scroll_t const& scroll = node->getScroll();
    return orientation == Qt::Vertical ? scroll.barY.data() : scroll.barX.data();
}

/// The scroll bar of the innermost scrolled node under the point, null when there is none.
QScrollBar* scrollBarAt(guiHtml* page, QPoint at, Qt::Orientation orientation)
{
    return guiFindAt(page, at, [orientation](guiHtml* node, QPoint) { return barOf(node, orientation); });
}

/// The one of the innermost node under the point that the wheel can still turn. `by`: how far, away from the user.
QScrollBar* barToTurn(guiHtml* page, QPoint at, Qt::Orientation orientation, int by)
{
    return guiFindAt(page, at, [orientation, by](guiHtml* node, QPoint) {
        QScrollBar* const bar = barOf(node, orientation);
        bool const canTurn = bar && (by > 0 ? bar->value() > bar->minimum() : bar->value() < bar->maximum());
        return canTurn ? bar : nullptr;
    });
}

/// The innermost node that covers the point; null for none.
guiHtml* nodeAt(guiHtml* page, QPoint at)
{
    return guiFindAt(page, at, [](guiHtml* node, QPoint) { return node; });
}

/// Calls the handler that the node names for this, if it does. `node` may be null, and gone afterwards.
void tellFocus(guiHtml* node, guiRareAttribute which, char const* type)
{
    sstring const link = node ? guiRareAttributeOf(node, which) : sstring();
    if (link.getLength() == 0)
        return;
    guiEventNote const note(type);
    node->onEvent(link, node->getCustomObject());
}

/// The node as a custom element, null for any other.
guiHtmlCustom* asElement(guiHtml* node)
{
    return node && node->getType() == guiHtml::kTypeCustom ? static_cast<guiHtmlCustom*>(node) : nullptr;
}

/// The button that is down while the pointer moves; of several the leftmost.
Qt::MouseButton firstOf(Qt::MouseButtons buttons)
{
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton})
        if (buttons.testFlag(button))
            return button;
    return Qt::NoButton;
}

/// Whether a text field has something to copy.
bool hasSelectedText(QObject* widget)
{
    if (auto const* field = qobject_cast<QLineEdit*>(widget))
        return field->hasSelectedText();
    auto const* editor = qobject_cast<QPlainTextEdit*>(widget);
    return editor && editor->textCursor().hasSelection();
}

guiElementInput inputOf(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    guiElementInput input;
    input.button = sstring(guiButtonName(button));
    input.modifiers = guiModifierNames(modifiers);
    return input;
}

} // namespace

guiWidget::guiWidget(QWidget* parent, char const* name, int modal, Qt::WindowFlags flags) : QDialog(parent, flags)
{
    assertOnGuiThread();
    setObjectName(QString::fromUtf8(name));
    if (modal)
        setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_StaticContents);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* from, QWidget* to) {
        assertOnGuiThread();
        onFocusChanged(from, to);
    });
}

guiWidget::~guiWidget()
{
    assertOnGuiThread();
    assert(!isPainting());
    disconnect(qApp, nullptr, this, nullptr); // the focus leaves what is left of it
    unbind();
}

void guiWidget::unbind()
{
    assertOnGuiThread();
    guiPageRoot* bound = htmlBase;
    htmlBase = nullptr;
    hoverNode = nullptr;
    m_pressed = nullptr;
    m_currentLink.drop();
    if (bound)
        guiCurrentPageListener().onUnbound(bound);
    if (bound)
        guiControlHost::current().onClose(this, bound);
}

void guiWidget::deleteWhenSafe()
{
    assertOnGuiThread();
    if (isPainting()) {
        deletePending = 1;
        return;
    }
    if (!guiEventScope::isActive()) {
        delete this;
        return;
    }
    unbind();
    hide();
    guiEventScope::deleteAfterwards(this);
}

void guiWidget::refresh()
{
    guiHtml* old = hoverNode;
    hoverNode = nullptr;
    if (!old)
        return;
    guiEventScope scope;
    old->onMouseOff();
    setCursor(Qt::ArrowCursor);
}

void guiWidget::onHtmlDestroy(guiHtml* node)
{
    if (node && node == m_pressed)
        m_pressed = nullptr;
    if (!node || node != hoverNode)
        return;
    guiLaterEvents later; // the tree around the node is being destroyed: no handler may see it now
    refresh();
}

int guiWidget::logPixelsY() const { return metric(PdmDpiY); }

QWidget* guiWidget::outOfView()
{
    if (!m_outOfView) {
        m_outOfView = new QWidget(this);
        m_outOfView->hide(); // else it would be shown together with the window
    }
    return m_outOfView;
}

QScrollBar* guiWidget::createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name)
{
    assertOnGuiThread();
    assert(node);
    auto* bar = new guiWidgetScrollBar(orientation, this, name);
    bar->owner = node;
    bar->setFocusPolicy(Qt::NoFocus); // the keys of a page scroll it wherever the keyboard is
    bar->hide();
    return bar;
}

// The toolkit does not move pixels while the window paints.
bool guiWidget::scrollPixels(QRect const& area, int dx, int dy)
{
    bool const canMove = isVisible() && !isPainting() && std::abs(dx) < area.width() && std::abs(dy) < area.height();
    if (canMove)
        scroll(dx, dy, area);
    else
        update(area);
    return canMove;
}

// ---- Mouse ----

void guiWidget::hover(QPoint at)
{
    assert(livePage());
    int x = at.x();
    int y = at.y();
    guiHtml* node = livePage()->hitTest(&x, &y);
    if (guiHtmlCustom* element = asElement(node))
        element->setInput(inputOf(Qt::NoButton, QGuiApplication::keyboardModifiers()));
    guiHtml* old = hoverNode;
    guiNodeWatch found(node);
    hoverNode = node;
    if (old && old != node) {
        old->onMouseOff();
        setCursor(Qt::ArrowCursor);
    }
    if (node && old != node && hoverNode == node && found.alive())
        node->onMouseOn();
    if (!node || hoverNode != node || !found.alive())
        return;            // a handler has replaced the page or moved the pointer
    if (asElement(node)) { // keeps the last of the moves that come while its handler runs
        node->onMouseMove(x, y);
        return;
    }
    mouseMoveBlock block;
    node->onMouseMove(x, y);
}

/// Tells the element on which a button went down where the pointer is now, also outside of it.
void guiWidget::drag(QMouseEvent const& event)
{
    guiRect place;
    m_pressed->getRectInWidget(&place);
    QPoint const at = event.position().toPoint();
    m_pressed->setInput(inputOf(firstOf(event.buttons()), event.modifiers()));
    m_pressed->onMouseMove(at.x() - place.left, at.y() - place.top);
}

/// The same for the button that went up.
void guiWidget::drop(QMouseEvent const& event)
{
    guiHtmlCustom* element = event.buttons() == Qt::NoButton ? std::exchange(m_pressed, nullptr) : m_pressed;
    guiRect place;
    element->getRectInWidget(&place);
    QPoint const at = event.position().toPoint();
    element->setInput(inputOf(event.button(), event.modifiers()));
    element->setPointer(at.x() - place.left, at.y() - place.top);
    element->onMouseUp();
}

void guiWidget::mouseMoveEvent(QMouseEvent* event)
{
    guiEventScope scope;
    if (livePage() && m_pressed && event->buttons() != Qt::NoButton)
        drag(*event);
    else if (livePage() && !m_textGesture.move(*livePage(), *event))
        hover(event->position().toPoint());
    QDialog::mouseMoveEvent(event);
}

void guiWidget::mousePressEvent(QMouseEvent* event) { pressAt(event, false); }
void guiWidget::mouseDoubleClickEvent(QMouseEvent* event) { pressAt(event, true); }

/// The page hears of it first; where it has no use for it, the user selects text.
void guiWidget::pressAt(QMouseEvent* event, bool isDouble)
{
    guiEventScope scope;
    QDialog::mousePressEvent(event);
    guiPageRoot* const page = livePage();
    unsigned long const before = guiHtml::generation();
    guiHtml* const hit = page ? pressPage(*event) : nullptr;
    if (page && livePage() == page && guiHtml::generation() == before)
        m_textGesture.press(*page, hit, *event, isDouble);
    else
        m_textGesture.cancel();
}

/// The node that has heard of it, null for none. It may be gone.
guiHtml* guiWidget::pressPage(QMouseEvent const& event)
{
    QPoint at = event.position().toPoint();
    m_clickedPane = scrollBarAt(livePage(), at, Qt::Vertical);
    int x = at.x();
    int y = at.y();
    guiHtml* node = livePage()->hitTest(&x, &y);
    if (!pressLink(node, event, x, y) || !node)
        return nullptr;
    // The run of text may not know where the pointer is: the window may have opened, or changed its page, under a
    // pointer that did not move, and moves are discarded while a handler runs. It fires no event for this call.
    if (node->getType() == guiHtml::kTypeText)
        node->onMouseMove(x, y);
    if (guiHtmlCustom* element = asElement(node)) {
        m_pressed = element;
        guiNodeWatch const self(element);
        element->takeFocus();
        if (!self.alive())
            return node;
        element->setInput(inputOf(event.button(), event.modifiers())); // taking the focus told of another event
    }
    press(node, event.button(), x, y);
    return node;
}

/// The link under the pointer becomes the current one; beside links there is none any more. False when the node is gone
/// afterwards. `node` may be null.
bool guiWidget::pressLink(guiHtml* node, QMouseEvent const& event, int x, int y)
{
    guiNodeWatch const self(node);
    unsigned const place = node && event.button() == Qt::LeftButton ? node->getLinkAt(x, y) : guiHtml::kNoLink;
    if (place == guiHtml::kNoLink)
        m_currentLink.drop();
    else
        m_currentLink.take({node, place}, Qt::MouseFocusReason);
    return !node || (self.alive() && livePage());
}

/// Only the left button follows links and areas and drags frames; of other buttons a page hears where it asks for them.
void guiWidget::press(guiHtml* node, Qt::MouseButton button, int x, int y)
{
    int const type = node->getType();
    bool const isOwn = type == guiHtml::kTypeText || type == guiHtml::kTypeImage || type == guiHtml::kTypeFrameset;
    if (button == Qt::LeftButton || !isOwn)
        node->onMouseDown(x, y);
    else if (type != guiHtml::kTypeText)
        node->guiHtml::onMouseDown(x, y);
}

void guiWidget::mouseReleaseEvent(QMouseEvent* event)
{
    guiEventScope scope;
    if (livePage() && m_pressed) {
        drop(*event);
        if (livePage() && event->buttons() == Qt::NoButton)
            hover(event->position().toPoint());
    } else if (livePage() && !m_textGesture.release(*livePage(), *event)) {
        release(event->position().toPoint());
    }
    QDialog::mouseReleaseEvent(event);
}

/// The node that the pointer is known to be over keeps the cursor that it has chosen; over any other it is an arrow.
void guiWidget::release(QPoint at)
{
    int x = at.x();
    int y = at.y();
    guiHtml* node = livePage()->hitTest(&x, &y);
    if (node)
        node->onMouseUp();
    if (!hoverNode || hoverNode != node) // the node may be gone by now
        setCursor(Qt::ArrowCursor);
}

void guiWidget::enterEvent(QEnterEvent* event)
{
    guiEventScope scope;
    if (livePage())
        hover(event->position().toPoint());
    QDialog::enterEvent(event);
}

void guiWidget::leaveEvent(QEvent* event)
{
    guiEventScope scope;
    refresh();
    QDialog::leaveEvent(event);
}

// When the pointer enters a child, the toolkit does not tell the parent, for whose page it has then left.
void guiWidget::childEvent(QChildEvent* event)
{
    if (event->added())
        event->child()->installEventFilter(this);
    QDialog::childEvent(event);
}

bool guiWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Enter && watched->parent() == this) {
        guiEventScope scope;
        refresh();
    }
    return useForText(watched, *event) || isOwnContext(watched, *event) || turnTabs(*event) ||
           turnZoom(watched, *event) || QDialog::eventFilter(watched, event);
}

/// What is selected on the page is what the keys copy, unless a field has something selected itself. It is no longer
/// selected when a control is pressed.
bool guiWidget::useForText(QObject* watched, QEvent const& event)
{
    if (!livePage() || !guiHasSelection(*livePage()) || !watched->isWidgetType())
        return false;
    guiEventScope scope;
    if (event.type() == QEvent::MouseButtonPress && watched->parent() != this)
        dropMarks();
    bool const isCopy = event.type() == QEvent::KeyPress &&
                        const_cast<QKeyEvent&>(static_cast<QKeyEvent const&>(event)).matches(QKeySequence::Copy);
    return isCopy && !hasSelectedText(watched) && m_textGesture.key(*livePage(), static_cast<QKeyEvent const&>(event));
}

/// Before a control that would use the keys for itself.
bool guiWidget::turnTabs(QEvent const& event)
{
    if (event.type() != QEvent::KeyPress || !livePage())
        return false;
    guiEventScope scope;
    return guiTurnTabs(livePage(), nodeOf(focusWidget()), static_cast<QKeyEvent const&>(event));
}

/// Before a control that would scroll, and before a field for which plus on the keypad is a letter even with Ctrl.
bool guiWidget::turnZoom(QObject const* watched, QEvent const& event)
{
    guiEventScope scope;
    if (event.type() == QEvent::Wheel)
        return zoomByWheel(static_cast<QWheelEvent const&>(event));
    bool const isKeyOfField = event.type() == QEvent::KeyPress && qobject_cast<QLineEdit const*>(watched);
    return isKeyOfField && zoomByKey(static_cast<QKeyEvent const&>(event));
}

/// A text field has a menu of its own, which that of the page replaces when the field itself asks for it.
bool guiWidget::isOwnContext(QObject* watched, QEvent const& event)
{
    if (event.type() != QEvent::ContextMenu || !watched->isWidgetType())
        return false;
    guiEventScope scope;
    auto* const widget = static_cast<QWidget*>(watched);
    bool const isField = qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget) ||
                         qobject_cast<QPlainTextEdit*>(widget->parentWidget());
    guiHtml* const node = isField ? nodeOf(widget) : nullptr;
    auto const& request = static_cast<QContextMenuEvent const&>(event);
    if (!node || !guiHasContext(node))
        return false;
    return guiAnswerContext(node, request.reason() == QContextMenuEvent::Mouse
                                      ? request.globalPos()
                                      : widget->mapToGlobal(widget->rect().center()));
}

/// The node whose control the widget is, or is part of; null for the page itself.
guiHtml* guiWidget::nodeOf(QWidget* widget)
{
    if (auto const* bar = qobject_cast<guiWidgetScrollBar*>(widget); bar && livePage())
        return bar->owner;
    if (guiClipper const* const clipper = guiClipperOf(widget); clipper && clipper->window() == this && livePage())
        return clipper->owner;
    for (; widget && widget != this && livePage(); widget = widget->parentWidget())
        if (guiHtml* node = livePage()->findWidget(widget))
            return node;
    return nullptr;
}

/// The node that the pointer, or for the menu key the focus, is in.
guiHtml* guiWidget::contextNode(QContextMenuEvent const& event)
{
    bool const isPointer = event.reason() == QContextMenuEvent::Mouse;
    if (guiHtml* control = nodeOf(isPointer ? childAt(event.pos()) : focusWidget()))
        return control;
    return isPointer && livePage() ? nodeAt(livePage(), event.pos()) : livePage();
}

void guiWidget::contextMenuEvent(QContextMenuEvent* event)
{
    guiEventScope scope;
    QWidget const* const focus = focusWidget();
    bool const isAtFocus = event->reason() != QContextMenuEvent::Mouse && focus && focus != this;
    QPoint const place = isAtFocus ? focus->mapToGlobal(focus->rect().center()) : event->globalPos();
    QPoint const at = event->pos();
    bool const isOnPage = event->reason() == QContextMenuEvent::Mouse ? !childAt(at) : !focus || focus == this;
    if (guiAnswerContext(contextNode(*event), place) || (isOnPage && livePage() && guiShowTextMenu(*this, at, place)))
        event->accept();
    else
        QDialog::contextMenuEvent(event);
}

/// Tells controls that ask for it. What leaves the focus because it goes away hears of nothing.
void guiWidget::onFocusChanged(QWidget* from, QWidget* to)
{
    if (to && to != this && isAncestorOf(to) && !qobject_cast<QMenuBar*>(to))
        m_currentLink.drop();
    if (!livePage() || m_isClosing || guiLaterEvents::isActive())
        return;
    guiEventScope scope;
    guiHtml* const left = from && isAncestorOf(from) ? nodeOf(from) : nullptr;
    guiHtml* const entered = to && isAncestorOf(to) ? nodeOf(to) : nullptr;
    guiCurrentPageListener().onControlFocus(entered);
    if (left == entered)
        return;
    guiNodeWatch const next(entered);
    tellFocus(left, guiRareAttribute::kBlur, "blur");
    tellFocus(next.get(), guiRareAttribute::kFocus, "focus");
}

void guiWidget::wheelEvent(QWheelEvent* event)
{
    guiEventScope scope;
    if (turnWheel(*event) || zoomByWheel(*event)) {
        event->accept();
        return;
    }
    QPoint const turned = event->angleDelta();
    bool const isHorizontal = std::abs(turned.x()) > std::abs(turned.y());
    QPoint const at = event->position().toPoint();
    guiPageRoot* page = livePage();
    QScrollBar* bar = page && isHorizontal ? barToTurn(page, at, Qt::Horizontal, turned.x()) : nullptr;
    if (page && !isHorizontal)
        bar = barToTurn(page, at, Qt::Vertical, turned.y());
    if (!bar) {
        QDialog::wheelEvent(event);
        return;
    }
    QCoreApplication::sendEvent(bar, event);
}

/// An element under the pointer that has a handler for the wheel takes it before anything scrolls.
bool guiWidget::turnWheel(QWheelEvent const& event)
{
    int x = event.position().toPoint().x();
    int y = event.position().toPoint().y();
    guiHtmlCustom* element = livePage() ? asElement(livePage()->hitTest(&x, &y)) : nullptr;
    if (!element || !element->hearsWheel())
        return false;
    guiElementInput input = inputOf(firstOf(event.buttons()), event.modifiers());
    input.wheel = event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
    element->setInput(input);
    element->onMouseWheel(x, y);
    return true;
}

bool guiWidget::event(QEvent* event)
{
    assertOnGuiThread();
    if (event->type() == QEvent::ToolTip && showTip(*static_cast<QHelpEvent*>(event)))
        return true;
    return QDialog::event(event);
}

bool guiWidget::showTip(QHelpEvent const& event)
{
    int x = event.pos().x();
    int y = event.pos().y();
    guiHtmlCustom* element = livePage() ? asElement(livePage()->hitTest(&x, &y)) : nullptr;
    sstring tip = element ? element->getTip() : sstring();
    if (tip.getLength() == 0 && livePage())
        tip = guiTitleAt(livePage(), event.pos());
    if (tip.getLength() == 0)
        return false;
    QToolTip::showText(event.globalPos(), guiTipOf(tip), this);
    return true;
}

// ---- Keys, size, visibility ----

/// Shift+F10 stands for the menu key, which many keyboards lack; the toolkit knows that key alone.
static bool askForContext(QWidget& window, QKeyEvent const& event)
{
    if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::ShiftModifier)
        return false;
    QWidget* const focus = window.focusWidget() ? window.focusWidget() : &window;
    QPoint const place = focus->rect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QApplication::sendEvent(focus, &asked);
    return true;
}

void guiWidget::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    bool const isText = livePage() && (openFind(*event) || m_textGesture.key(*livePage(), *event));
    if (!isText && event->key() == Qt::Key_Escape)
        dropMarks();
    bool const isUsed = isText || useAtLink(*event) || guiHandleKey(livePage(), event->key(), true) ||
                        openMenu(*event) || askForContext(*this, *event) || turnTabs(*event) || zoomByKey(*event);
    if (isUsed || (livePage() && guiScrollByKey(livePage(), keyNode(), m_clickedPane, *event)))
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

/// Ctrl+F opens the find bar, F3 goes on to what was found, Escape closes the bar before it does anything else.
bool guiWidget::openFind(QKeyEvent const& event)
{
    bool const isOpen = m_findBar && m_findBar->isOpen();
    if (event.key() == Qt::Key_Escape && isOpen)
        return m_findBar->close(), true;
    bool const isFind = const_cast<QKeyEvent&>(event).matches(QKeySequence::Find); // which only asks
    bool const isNext = event.key() == Qt::Key_F3 && (event.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    if ((!isFind && !isNext) || !guiMayFind(*livePage(), *this))
        return false;
    if (isNext && isOpen)
        m_findBar->goOn(!event.modifiers().testFlag(Qt::ShiftModifier));
    else
        openFindBar();
    return true;
}

void guiWidget::dropMarks()
{
    guiPageText* text = livePage() ? livePage()->pageText() : nullptr;
    if (!text)
        return;
    text->selection.clear();
    if (!m_findBar || !m_findBar->isOpen())
        text->search.clear();
}

void guiWidget::openFindBar()
{
    if (!livePage())
        return;
    if (!m_findBar)
        m_findBar = new guiFindBar(*this);
    m_findBar->open();
}

/// Return follows the current link. Escape drops it, unless the page has a control for that key.
bool guiWidget::useAtLink(QKeyEvent const& event)
{
    int const key = event.key();
    if (!livePage() || !isAtLink())
        return false;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return m_currentLink.follow();
    if (key != Qt::Key_Escape || livePage()->getEscapeControl().getLength() != 0)
        return false;
    m_currentLink.drop();
    return true;
}

/// The node that has the keyboard; null for the page itself.
guiHtml* guiWidget::keyNode()
{
    std::optional<guiLinkPlace> const link = m_currentLink.get();
    return link ? link->node : nodeOf(focusWidget());
}

/// F10 opens the first menu of the bar that can be chosen; the Alt key alone reaches the bar by the toolkit.
bool guiWidget::openMenu(QKeyEvent const& event)
{
    QMenuBar* bar = livePage() ? livePage()->getMenuBar() : nullptr;
    if (!bar || event.key() != Qt::Key_F10 || event.modifiers() != Qt::NoModifier)
        return false;
    for (QAction* action : bar->actions()) {
        if (!action->isEnabled() || action->isSeparator())
            continue;
        bar->setActiveAction(action);
        if (QMenu* menu = action->menu(); menu && !menu->isEmpty())
            menu->setActiveAction(menu->actions().first());
        return true;
    }
    return false;
}

/// Whether what has the keyboard is being hidden or disabled. The toolkit then looks for another control, and a link is
/// none.
bool guiWidget::isFocusGoing()
{
    QWidget* const from = focusWidget();
    guiHtml* const node = from ? nodeOf(from) : nullptr;
    QWidget const* const control = node && node->getChildWidget() ? node->getChildWidget() : from;
    return control && control != this && (control->isHidden() || !control->isEnabled());
}

// The page itself can have the focus, but Tab should not stop there on the way from one control to the next.
bool guiWidget::focusNextPrevChild(bool next)
{
    guiEventScope scope;
    if (keepsFocus)
        return true;
    m_clickedPane = nullptr;
    if (livePage() && guiFocusNext(livePage(), focusWidget(), next, isFocusGoing() ? nullptr : &m_currentLink))
        return true;
    bool moved = QDialog::focusNextPrevChild(next);
    return moved && hasFocus() ? QDialog::focusNextPrevChild(next) : moved;
}

// What is selected has other colours in a window that is not the active one.
void guiWidget::changeEvent(QEvent* event)
{
    guiEventScope scope;
    if (event->type() == QEvent::ActivationChange && livePage() && guiHasSelection(*livePage()))
        update();
    noteLook(*event);
    QDialog::changeEvent(event);
}

void guiWidget::resizeEvent(QResizeEvent* event)
{
    guiEventScope scope;
    if (livePage()) {
        guiRect rect{0, width(), 0, height()};
        livePage()->setRect(&rect);
        update();
    }
    if (m_findBar && m_findBar->isOpen())
        m_findBar->place();
    if (livePage() && livePage()->getPendingFocus().getLength() != 0)
        livePage()->setFocus(livePage()->getPendingFocus());
    QDialog::resizeEvent(event);
}

void guiWidget::showEvent(QShowEvent* event)
{
    guiEventScope scope;
    QDialog::showEvent(event);
    reportVisibility();
    refresh();
    if (livePage())
        livePage()->onShow();
    if (livePage())
        guiDoJumps(livePage());
}

void guiWidget::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (!event->spontaneous()) // a minimised window is still open to the user
        reportVisibility();
}

/// Script that waits for the window to close goes on when the window counts as invisible, and then reads the form. So a
/// window that is closing counts as visible until its page has written the form.
void guiWidget::reportVisibility()
{
    guiControlHost::current().onVisible(this, isVisible() || isPainting() || m_isClosing);
}

void guiWidget::closeEvent(QCloseEvent* event)
{
    guiEventScope scope;
    event->ignore();
    if (livePage() && !livePage()->mayClose())
        return;
    m_isClosing = true;
    hide();
    if (livePage())
        livePage()->destroyWidget();
    m_isClosing = false;
    reportVisibility();
}

// ---- Painting ----

void guiWidget::paintEvent(QPaintEvent* event)
{
    if (!htmlBase) {
        QDialog::paintEvent(event);
        return;
    }
    guiEventScope scope;
    ++paintDepth;
    if (paintDepth > 1)
        m_missedDamage += event->region();
    else
        paintRegion(event->region());
    assert(isPainting());
    if (--paintDepth == 0)
        endPaint();
}

void guiWidget::paintRegion(QRegion const& region)
{
    if (isActiveWindow())
        guiControlHost::current().setCurrentWindow(this);
    ensureBuffer();
    if (backBuffer.isNull())
        paintPage(this, region);
    else
        paintThroughBuffer(region);
}

QPixmap guiWidget::makeBuffer(QSize const& size)
{
    QPixmap buffer(size * devicePixelRatio());
    buffer.setDevicePixelRatio(devicePixelRatio());
    return buffer;
}

void guiWidget::ensureBuffer()
{
    QSize present = backBuffer.deviceIndependentSize().toSize();
    bool isSameScale = backBuffer.devicePixelRatio() == devicePixelRatio();
    if (isSameScale && present.width() >= width() && present.height() >= height())
        return;
    QSize wanted = size() + QSize(kBackBufferMargin, kBackBufferMargin);
    backBuffer = QPixmap(); // first, so that there are never two buffers at a time
    backBuffer = makeBuffer(isSameScale ? wanted.expandedTo(present) : wanted);
}

void guiWidget::paintPage(QPaintDevice* device, QRegion const& region)
{
    assert(isPainting());
    QPainter painter(device);
    painter.setClipRegion(region);
    if (!htmlBase)
        return;
    if (!isOpaque(htmlBase))
        painter.fillRect(region.boundingRect(), palette().color(QPalette::Window));
    htmlBase->paintTo(&painter, 0, 0, this, &region);
    painter.setClipRegion(region);
    m_currentLink.paint(painter);
}

void guiWidget::paintThroughBuffer(QRegion const& region)
{
    paintPage(&backBuffer, region);
    QPainter painter(this);
    painter.setClipRegion(region);
    painter.drawPixmap(QRectF(rect()), backBuffer, QRectF(QPointF(), QSizeF(size()) * backBuffer.devicePixelRatio()));
}

// The toolkit still uses the widget when its paint event returns, so the event loop deletes it afterwards.
void guiWidget::endPaint()
{
    assert(!isPainting());
    if (deletePending) {
        unbind();
        hide();
        guiEventScope::deleteAfterwards(this);
    } else if (!m_missedDamage.isEmpty()) {
        update(m_missedDamage);
    }
    m_missedDamage = QRegion();
    reportVisibility();
    guiControlHost::current().wakeWaiters();
}
