// controls/guitextgesture.cpp: see guitextgesture.h.
#include "controls/guitextgesture.h"

#include "controls/guieventscope.h"
#include "controls/guitabstops.h"
#include "controls/guitextwindow.h"
#include "page/guihtmltext.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"
#include "page/guiqrect.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

constexpr int kScrollMs = 30;

guiTextSelection::step stepFor(int presses)
{
    if (presses < 2)
        return guiTextSelection::step::kCharacter;
    return presses == 2 ? guiTextSelection::step::kWord : guiTextSelection::step::kParagraph;
}

/// What the page does itself when it is pressed: links are followed, elements with a handler hear of it.
bool isForPage(guiHtml* hit)
{
    if (!hit || hit->getType() != guiHtml::kTypeText)
        return guiHearsOfPress(hit);
    return static_cast<guiHtmlText*>(hit)->mx.hoveredLink != guiHtmlText::kNoLink;
}

bool isOnText(guiTextSpot const& spot, QPoint at)
{
    guiRect run;
    spot.run->getRectInWidget(&run);
    return guiToQRect(run).contains(at);
}

void copyTo(guiPageRoot& page, QClipboard::Mode mode)
{
    guiTextSelection& selection = page.ensurePageText().selection;
    if (selection.isEmpty())
        return;
    auto copy = std::make_unique<QMimeData>();
    copy->setText(selection.text());
    copy->setHtml(selection.html());
    QGuiApplication::clipboard()->setMimeData(copy.release(), mode); // the clipboard owns it
}

/// The part of a pane that is seen, in coordinates of the window.
QRect viewOf(guiHtml* pane)
{
    guiRect clip;
    pane->getClipRect(&clip);
    return guiToQRect(clip);
}

bool canMove(QScrollBar const* bar, int by)
{
    return bar && by != 0 && (by < 0 ? bar->value() > bar->minimum() : bar->value() < bar->maximum());
}

/// How far the point is beyond the range; negative before it.
int beyond(int at, int first, int last)
{
    if (at < first)
        return at - first;
    return at > last ? at - last : 0;
}

QPoint beyond(QPoint at, QRect const& view)
{
    return {beyond(at.x(), view.left(), view.right()), beyond(at.y(), view.top(), view.bottom())};
}

/// The innermost pane around the node that can scroll towards a point outside of it; null for none.
guiHtml* paneToScroll(guiHtml* node, QPoint at)
{
    for (guiHtml* pane = node; pane; pane = pane->getParent()) {
        guiHtml::scroll_t const& scroll = pane->getScroll();
        QPoint const by = beyond(at, viewOf(pane));
        if (canMove(scroll.barY, by.y()) || canMove(scroll.barX, by.x()))
            return pane;
    }
    return nullptr;
}

QPoint within(QPoint at, QRect const& view)
{
    return {std::clamp(at.x(), view.left(), std::max(view.left(), view.right())),
            std::clamp(at.y(), view.top(), std::max(view.top(), view.bottom()))};
}

void scrollBy(QScrollBar* bar, int pixels)
{
    constexpr int kFastest = 60;
    if (bar && pixels != 0)
        bar->setValue(bar->value() + std::clamp(pixels, -kFastest, kFastest));
}

} // namespace

bool guiHearsOfPress(guiHtml* hit)
{
    if (!hit || hit->getType() == guiHtml::kTypeText)
        return false;
    bool const hasHandler = hit->hasString(kStringMouseDown) || hit->hasString(kStringMouseUp);
    bool const isBox = hit->getType() == guiHtml::kTypePlain || hit->getType() == guiHtml::kTypeBase;
    return hasHandler || !isBox;
}

bool guiHasSelection(guiPageRoot& page) { return page.pageText() && !page.pageText()->selection.isEmpty(); }

void guiCopySelection(guiPageRoot& page) { copyTo(page, QClipboard::Clipboard); }

void guiShowSpot(guiTextSpot const& spot)
{
    constexpr int kAround = 24; // pixels
    if (!spot)
        return;
    guiRect corner;
    spot.run->getRectInWidget(&corner);
    QRect const caret = guiCaretOf(spot).translated(-corner.left, -corner.top);
    guiHtml* const root = spot.run->getBaseHtml();
    int const above = kAround + (root ? guiBarAbove(root) : 0); // bars lie over the edges of the page
    int const below = kAround + (root ? guiBarBelow(root) : 0);
    guiScrollIntoView(spot.run, caret.adjusted(-kAround, -above, kAround, below));
}

guiTextGesture::guiTextGesture(guiTextWindow& window) : m_window(window)
{
    m_scrolling.setInterval(kScrollMs);
    QObject::connect(&m_scrolling, &QTimer::timeout, &m_scrolling, [this] {
        guiEventScope scope;
        scrollOn();
    });
}

// ---- The pointer ----

/// A third press that follows a double click at once, at its place, is one of three.
int guiTextGesture::countPress(QMouseEvent const& event, bool isDouble)
{
    QPoint const at = event.position().toPoint();
    bool const isNear = (at - m_pressedAt).manhattanLength() < QApplication::startDragDistance();
    bool const isSoon = m_sincePress.isValid() && m_sincePress.elapsed() < QApplication::doubleClickInterval();
    if (isDouble)
        m_presses = 2;
    else
        m_presses = m_presses == 2 && isNear && isSoon ? 3 : 1;
    m_sincePress.start();
    m_pressedAt = at;
    return m_presses;
}

void guiTextGesture::press(guiPageRoot& page, guiHtml* hit, QMouseEvent const& event, bool isDouble)
{
    if (event.button() != Qt::LeftButton)
        return;
    int const presses = countPress(event, isDouble);
    cancel();
    bool const goesOn = event.modifiers().testFlag(Qt::ShiftModifier) && !isForPage(hit);
    if (!goesOn)
        m_window.dropMarks();
    if (isForPage(hit))
        return;
    guiTextSpot const spot = guiTextSpotAt(&page, m_pressedAt);
    guiTextSelection& selection = page.ensurePageText().selection;
    if (!spot || (presses > 1 && !isOnText(spot, m_pressedAt)))
        return selection.clear();
    m_isDown = true;
    if (goesOn && selection.hasStart())
        selection.extendTo(spot);
    else
        selection.start(spot, stepFor(presses));
}

void guiTextGesture::cancel()
{
    m_isDown = m_isDragging = false;
    m_scrolling.stop();
}

bool guiTextGesture::begins(QMouseEvent const& event) const
{
    int const moved = (event.position().toPoint() - m_pressedAt).manhattanLength();
    return m_presses > 1 || moved >= QApplication::startDragDistance();
}

bool guiTextGesture::move(guiPageRoot& page, QMouseEvent const& event)
{
    m_isDown = m_isDown && event.buttons().testFlag(Qt::LeftButton);
    m_isDragging = m_isDown && (m_isDragging || begins(event));
    if (!m_isDragging) {
        m_scrolling.stop();
        return false;
    }
    m_pointer = event.position().toPoint();
    follow(page);
    return true;
}

/// The selection goes to the pointer, or, while a pane can scroll there, to its edge.
void guiTextGesture::follow(guiPageRoot& page)
{
    guiTextSelection& selection = page.ensurePageText().selection;
    guiTextSpot const end = selection.moving();
    guiHtml* const pane = end ? paneToScroll(end.run, m_pointer) : nullptr;
    if (guiTextSpot const spot = guiTextSpotAt(&page, pane ? within(m_pointer, viewOf(pane)) : m_pointer))
        selection.extendTo(spot);
    if (!pane)
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start();
}

/// Faster, the further the pointer is away.
void guiTextGesture::scrollOn()
{
    guiPageRoot* const page = m_isDragging ? m_window.shownPage() : nullptr;
    guiTextSpot const end = page && page->pageText() ? page->pageText()->selection.moving() : guiTextSpot();
    guiHtml* const pane = end ? paneToScroll(end.run, m_pointer) : nullptr;
    if (!pane)
        return m_scrolling.stop();
    QPoint const by = beyond(m_pointer, viewOf(pane));
    guiNodeWatch const self(pane); // scrolling may run script
    scrollBy(pane->getScroll().barY, by.y());
    if (self.alive())
        scrollBy(pane->getScroll().barX, by.x());
    if (self.alive() && m_window.shownPage() == page)
        follow(*page);
}

bool guiTextGesture::release(guiPageRoot& page, QMouseEvent const& event)
{
    if (event.button() != Qt::LeftButton || !m_isDown)
        return false;
    bool const wasDragging = m_isDragging;
    cancel();
    if (QGuiApplication::clipboard()->supportsSelection())
        copyTo(page, QClipboard::Selection);
    return wasDragging && guiHasSelection(page);
}

// ---- Keys ----

guiTextSpot guiTextGesture::stepOf(guiPageRoot& page, QKeyEvent const& event)
{
    guiTextSelection& selection = page.ensurePageText().selection;
    bool const isByWord = event.modifiers().testFlag(Qt::ControlModifier);
    auto const by = isByWord ? guiTextSelection::step::kWord : guiTextSelection::step::kCharacter;
    guiTextSpot const at = selection.moving();
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return selection.stepped(event.key() == Qt::Key_Right, by);
    case Qt::Key_Up:
    case Qt::Key_Down:
        return selection.lineStepped(event.key() == Qt::Key_Down);
    case Qt::Key_Home:
        return {at.run, guiLineAround(at).from};
    case Qt::Key_End:
        return {at.run, guiLineAround(at).to};
    default:
        return {};
    }
}

bool guiTextGesture::moveBy(guiPageRoot& page, QKeyEvent const& event)
{
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    bool const selects = (modifiers & ~Qt::ControlModifier) == Qt::ShiftModifier;
    if (!selects || !page.pageText() || !page.pageText()->selection.hasStart())
        return false;
    guiTextSpot const to = stepOf(page, event);
    if (!to)
        return false;
    page.pageText()->selection.extendTo(to);
    guiShowSpot(to);
    return true;
}

bool guiTextGesture::key(guiPageRoot& page, QKeyEvent const& event)
{
    auto& pressed = const_cast<QKeyEvent&>(event); // which only asks
    if (pressed.matches(QKeySequence::Copy) && guiHasSelection(page))
        return guiCopySelection(page), true;
    if (pressed.matches(QKeySequence::SelectAll)) {
        page.ensurePageText().selection.selectAll();
        return guiHasSelection(page);
    }
    return moveBy(page, event);
}
