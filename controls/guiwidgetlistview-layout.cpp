// controls/guiwidgetlistview-layout.cpp: where the rows of a flex list are, and its bars and headings. What changes is
// painted at most once a frame, however often script changes it.
#include "controls/guiwidgetlistview.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int kFrame = 16; // milliseconds
constexpr int kRowGap = 6; // pixels between the lines of two rows that have the room
// How many rows are looked at for the width of a column.
constexpr int kMeasuredRows = 100;

int limited(qint64 pixels)
{
    constexpr qint64 kFar = std::numeric_limits<int>::max() / 2;
    return static_cast<int>(std::clamp(pixels, -kFar, kFar));
}

} // namespace

// ---- Once a frame ----

void guiWidgetListView::noteRows()
{
    m_order.invalidate();
    refreshSoon();
}

void guiWidgetListView::refreshSoon()
{
    if (m_frame.isActive())
        return;
    qint64 const passed = m_lastRefresh.isValid() ? m_lastRefresh.elapsed() : kFrame;
    m_frame.start(static_cast<int>(std::max<qint64>(0, kFrame - passed)), this);
}

void guiWidgetListView::refresh()
{
    m_frame.stop();
    m_lastRefresh.start();
    updateGeometries();
    if (std::exchange(m_comesIntoView, false))
        scrollTo(currentIndex());
    viewport()->update();
}

void guiWidgetListView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_frame.timerId())
        refresh();
    else
        guiNoticeView::timerEvent(event);
}

void guiWidgetListView::doItemsLayout()
{
    m_order.invalidate();
    guiNoticeView::doItemsLayout();
}

// ---- Sizes ----

/// Rows have room around their lines, unless fewer of them than the page asks for would then be in view.
int guiWidgetListView::measureRowHeight() const
{
    int const line = fontMetrics().lineSpacing();
    QStyle const* const look = style();
    int const indicator = std::max(look->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this),
                                   look->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, this));
    int const least = m_model->rows().indicators() ? std::max(line, indicator) : line;
    int const wanted = std::max(line + kRowGap, least);
    int const fitting = m_leastRows > 0 ? maximumViewportSize().height() / m_leastRows : wanted;
    return std::max(1, std::clamp(fitting, least, wanted));
}

int guiWidgetListView::indentationOf(guiRowNumber row) const
{
    bool const isNested = !m_model->source() && m_model->rows().isNested();
    return ((isNested ? static_cast<int>(m_model->rows().levelOf(row)) : 0) + (m_isRootDecorated ? 1 : 0)) *
           m_indentation;
}

int guiWidgetListView::rowsInView() const { return std::max(1, viewport()->height() / m_rowHeight); }
int guiWidgetListView::firstInView() const { return verticalScrollBar()->value(); }

bool guiWidgetListView::isHeaderHidden() const { return m_header->isHidden(); }

void guiWidgetListView::setHeaderHidden(bool hide)
{
    m_header->setHidden(hide);
    updateGeometries();
}

int guiWidgetListView::columnWidth(int column) const { return m_header->sectionSize(column); }

void guiWidgetListView::setRootIsDecorated(bool on)
{
    m_isRootDecorated = on;
    refreshSoon();
}

int guiWidgetListView::neededWidth(guiRowNumber row, int column)
{
    QModelIndex const index = m_model->indexOf(row, column);
    return sizeHintForIndex(index).width() + (column == 0 ? indentationOf(row) : 0);
}

bool guiWidgetListView::mayNeed(guiRowNumber row, int column)
{
    constexpr int kAround = 48; // an indicator, an icon and what is between them
    qint64 const units = m_model->textAt(row, column).size();
    qint64 const most = units * fontMetrics().maxWidth() + kAround + (column == 0 ? indentationOf(row) : 0);
    return most > columnWidth(column);
}

int guiWidgetListView::sizeHintForColumn(int column) const
{
    auto* const self = const_cast<guiWidgetListView*>(this);
    int const first = std::max(0, firstInView() - kMeasuredRows / 2);
    int const end = std::min(m_order.count(), first + kMeasuredRows);
    int width = 0;
    for (int place = first; place < end; ++place)
        width = std::max(width, self->neededWidth(m_order.at(place), column));
    return width;
}

void guiWidgetListView::fitColumn(int column)
{
    int const heading = isHeaderHidden() ? 0 : m_header->sectionSizeHint(column);
    m_header->resizeSection(column, std::max(sizeHintForColumn(column), heading));
}

/// A column that fills the list counts with its least width.
int guiWidgetListView::contentWidth() const
{
    if (!m_header->stretchLastSection() || columnCount() == 0)
        return m_header->length();
    int const last = m_header->logicalIndex(columnCount() - 1);
    return m_header->length() - m_header->sectionSize(last) + m_header->minimumSectionSize();
}

// ---- Places ----

int guiWidgetListView::horizontalOffset() const { return m_header->offset(); }
int guiWidgetListView::verticalOffset() const { return limited(qint64{firstInView()} * m_rowHeight); }
bool guiWidgetListView::isIndexHidden(QModelIndex const& index) const { return placeOf(index) < 0; }

int guiWidgetListView::placeOf(QModelIndex const& index) const
{
    return index.isValid() ? m_order.placeOf(m_model->rowOf(index)) : -1;
}

QModelIndex guiWidgetListView::indexAtPlace(int place, int column) const
{
    return place >= 0 && place < m_order.count() ? m_model->indexOf(m_order.at(place), column) : QModelIndex();
}

/// -1 behind the last row.
int guiWidgetListView::placeAt(int y) const
{
    qint64 const place = qint64{firstInView()} + (y >= 0 ? y / m_rowHeight : -1);
    return place >= 0 && place < m_order.count() ? static_cast<int>(place) : -1;
}

QRect guiWidgetListView::rowRect(int place) const
{
    int const top = limited((qint64{place} - firstInView()) * m_rowHeight);
    return {-m_header->offset(), top, m_header->length(), m_rowHeight};
}

QRect guiWidgetListView::visualRect(QModelIndex const& index) const
{
    int const place = placeOf(index);
    if (place < 0 || m_header->isSectionHidden(index.column()))
        return {};
    QRect rect = rowRect(place);
    rect.setLeft(m_header->sectionViewportPosition(index.column()));
    rect.setWidth(m_header->sectionSize(index.column()));
    if (index.column() != 0)
        return rect;
    int const indent = indentationOf(m_model->rowOf(index));
    return isRightToLeft() ? rect.adjusted(0, 0, -indent, 0) : rect.adjusted(indent, 0, 0, 0);
}

QModelIndex guiWidgetListView::indexAt(QPoint const& point) const
{
    int const column = m_header->logicalIndexAt(point.x());
    return column < 0 ? QModelIndex() : indexAtPlace(placeAt(point.y()), column);
}

// ---- Bars and headings ----

void guiWidgetListView::placeHeader()
{
    int const height = isHeaderHidden() ? 0 : std::max(m_header->minimumHeight(), m_header->sizeHint().height());
    setViewportMargins(0, height, 0, 0);
    QRect const view = viewport()->geometry();
    m_header->setGeometry(view.left(), view.top() - height, view.width(), height);
    QMetaObject::invokeMethod(m_header, "updateGeometries");
}

/// Which bars there are follows from the size of the list alone: bars that made room for each other in turn would never
/// come to rest.
void guiWidgetListView::placeBars()
{
    QSize room = maximumViewportSize();
    int const count = m_order.count();
    auto isTooHigh = [&] { return count > room.height() / m_rowHeight; };
    bool isDown = isTooHigh();
    if (isDown)
        room.rwidth() -= verticalScrollBar()->sizeHint().width();
    if (contentWidth() > room.width()) {
        room.rheight() -= horizontalScrollBar()->sizeHint().height();
        if (!isDown && isTooHigh())
            room.rwidth() -= verticalScrollBar()->sizeHint().width();
    }
    int const rowsShown = std::max(1, room.height() / m_rowHeight);
    verticalScrollBar()->setPageStep(rowsShown);
    verticalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setRange(0, std::max(0, count - rowsShown));
    horizontalScrollBar()->setPageStep(std::max(1, room.width()));
    horizontalScrollBar()->setSingleStep(std::max(1, room.width() / 20));
    horizontalScrollBar()->setRange(0, std::max(0, contentWidth() - room.width()));
}

void guiWidgetListView::updateGeometries()
{
    if (m_isPlacing)
        return;
    QScopedValueRollback const placing(m_isPlacing, true);
    placeHeader();
    m_rowHeight = measureRowHeight();
    placeBars();
    placeHeader(); // beside a bar that came or went
    m_header->setOffset(horizontalScrollBar()->value());
    guiNoticeView::updateGeometries();
}

void guiWidgetListView::resizeEvent(QResizeEvent* event)
{
    guiNoticeView::resizeEvent(event);
    updateGeometries();
}

void guiWidgetListView::changeEvent(QEvent* event)
{
    guiNoticeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometries();
}

// ---- Scrolling ----

void guiWidgetListView::scrollContentsBy(int dx, int dy)
{
    if (dx)
        m_header->setOffset(horizontalScrollBar()->value());
    viewport()->scroll(isRightToLeft() ? -dx : dx, limited(qint64{dy} * m_rowHeight));
}

void guiWidgetListView::scrollToPlace(int place, ScrollHint hint)
{
    int const first = firstInView();
    int const rowsShown = rowsInView();
    int top = first;
    if (hint == PositionAtTop || (hint == EnsureVisible && place < first))
        top = place;
    else if (hint == PositionAtBottom || (hint == EnsureVisible && place >= first + rowsShown))
        top = place - rowsShown + 1;
    else if (hint == PositionAtCenter)
        top = place - rowsShown / 2;
    verticalScrollBar()->setValue(top);
}

guiRowNumber guiWidgetListView::topRow() const
{
    return firstInView() < m_order.count() ? m_order.at(firstInView()) : kNoRow;
}

void guiWidgetListView::setTopRow(guiRowNumber row)
{
    updateGeometries(); // else the bar does not reach as far as there are rows
    verticalScrollBar()->setValue(m_order.placeOf(row));
}

void guiWidgetListView::scrollToColumn(QModelIndex const& index)
{
    QRect const cell = visualRect(index);
    int const width = viewport()->width();
    QScrollBar* bar = horizontalScrollBar();
    if (cell.left() < 0 || cell.width() > width)
        bar->setValue(bar->value() + cell.left());
    else if (cell.right() >= width)
        bar->setValue(bar->value() + cell.right() - width + 1);
}

void guiWidgetListView::scrollTo(QModelIndex const& index, ScrollHint hint)
{
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        setExpanded(m_model->rowOf(above), true);
    int const place = placeOf(index);
    if (place < 0)
        return;
    if (m_frame.isActive())
        updateGeometries(); // else the bar does not reach as far as there are rows
    scrollToPlace(place, hint);
    if (index.column() != 0)
        scrollToColumn(index);
}
