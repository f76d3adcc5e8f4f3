// controls/guihtmlcontrolflex-columns.cpp: the columns of a flex list: their headings and widths, and the texts that
// rows have in them. The node keeps them as column codes (guicolumncodes.h), the widget as columns of its own.
#include "controls/guicolumncodes.h"
#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"
#include "page/guinodewatch.h"

#include <QApplication>
#include <QHeaderView>
#include <algorithm>
#include <cassert>
#include <map>
#include <utility>

namespace {

/// Whether column codes can express the heading.
bool isHeadingCode(sstring const& heading) { return !guiContainsColumnCode(heading) && guiColumnWidthOf(heading) < 0; }

bool isColumn(int number) { return number >= 1 && number <= kColumnLimit; }

} // namespace

sstring guiHtmlControlFlex::popColumnText(int* column, sstring text, sstring& rest)
{
    guiColumnCode const part = guiReadColumnCode(text, 0);
    *column = part.column;
    rest = text.subString(part.end);
    return text.subString(part.begin, part.end - part.begin);
}

// ---- The longest texts ----

/// Of texts of one length the first row's counts.
void guiHtmlControlFlex::noteLongest(guiRowNumber row)
{
    if (!m_knowsLongest)
        return;
    unsigned const count = m_rows.textCount(row);
    if (m_longest.size() < count)
        m_longest.resize(count);
    for (unsigned column = 0; column < count; ++column) {
        qsizetype const length = m_rows.text(row, column).size();
        longestText& longest = m_longest[column];
        if (length > longest.length || (length == longest.length && length && row < longest.row))
            longest = {row, length};
    }
}

void guiHtmlControlFlex::findLongest()
{
    if (m_knowsLongest)
        return;
    m_knowsLongest = true;
    m_longest.clear();
    for (guiRowNumber row = 0; row < m_rows.size(); ++row)
        if (m_rows.has(row))
            noteLongest(row);
}

// Each column is as wide as its longest text, or as was set for it.
int guiHtmlControlFlex::getPreferredWidth()
{
    constexpr int kAroundText = 28;
    constexpr int kBetweenColumns = 12;
    if (!hasWindow())
        return 0;
    std::map<int, sstring> longest;
    std::map<int, int> widths;
    auto note = [&](int column, sstring const& text) {
        if (text.getLength() > longest[column].getLength())
            longest[column] = text;
    };
    guiForEachColumn(m_list.columnCodes, m_list.uncodedHeadings, [&](int column, sstring const& text, bool isUncoded) {
        if (int const width = isUncoded ? -1 : guiColumnWidthOf(text); width >= 0)
            widths[column] = scaled(width);
        else
            note(column, text);
    });
    findLongest();
    for (std::size_t i = 0; i < m_longest.size(); ++i)
        if (m_longest[i].row != kNoRow)
            note(static_cast<int>(i) + 1, qtoss(m_rows.text(m_longest[i].row, static_cast<unsigned>(i)).toString()));
    for (auto const& [column, text] : longest)
        widths.try_emplace(column, textWidth(text) + scaled(kBetweenColumns));
    std::int64_t sum = scaled(kAroundText);
    for (auto const& [column, width] : widths)
        sum += width;
    return clampLength(sum);
}

// ---- In the widget ----

void guiHtmlControlFlex::createColumns()
{
    guiForEachColumn(m_list.columnCodes, m_list.uncodedHeadings,
                     [this](int column, sstring const& text, bool isUncoded) {
                         int const width = isUncoded ? -1 : guiColumnWidthOf(text);
                         if (width >= 0)
                             setColumnWidth(column, width);
                         else
                             setColumnText(column, text);
                     });
}

/// Columns that only rows have get no heading.
void guiHtmlControlFlex::addRowColumns()
{
    findLongest();
    addColumns(std::max(1, static_cast<int>(m_longest.size())));
}

/// Adds empty columns until there are `count`.
void guiHtmlControlFlex::addColumns(int count)
{
    assert(m_listView && isColumn(count));
    int const present = m_listView->columnCount();
    if (count <= present)
        return;
    m_listView->listModel().addColumns(count);
    for (int column = present + 1; column <= count; ++column)
        showColumnLook(column);
    m_listView->header()->setStretchLastSection(true);
    if (m_listView->owner)
        fitColumns();
}

/// Columns are as wide as their texts unless a width was set; the last one fills the list.
void guiHtmlControlFlex::fitColumns()
{
    QHeaderView* const header = m_listView->header();
    for (int column = 1; column <= m_listView->columnCount(); ++column)
        if (fillsList(column))
            header->resizeSection(column - 1, header->minimumSectionSize());
        else if (followsContent(column))
            m_listView->fitColumn(column - 1);
}

/// Whether the column stands at the end and takes the room that the others leave.
bool guiHtmlControlFlex::fillsList(int column) const
{
    QHeaderView const* header = m_listView->header();
    return header->stretchLastSection() && header->visualIndex(column - 1) == header->count() - 1;
}

/// Whether neither page, script nor user has given the column a width, and it does not fill the list.
bool guiHtmlControlFlex::followsContent(int column) const { return !fillsList(column) && !m_widths.contains(column); }

void guiHtmlControlFlex::growColumn(int column, int width)
{
    QHeaderView* header = m_listView->header();
    if (followsContent(column) && width > header->sectionSize(column - 1))
        header->resizeSection(column - 1, std::min(width, kMaxPixels));
}

/// Makes room for the texts of one row: its cost does not depend on how many others there are.
void guiHtmlControlFlex::growColumns(guiRowNumber row)
{
    for (int column = 1; column <= m_listView->columnCount(); ++column)
        if (followsContent(column) && m_listView->mayNeed(row, column - 1))
            growColumn(column, m_listView->neededWidth(row, column - 1));
}

/// Makes room for the longest texts of all rows.
void guiHtmlControlFlex::growAllColumns()
{
    findLongest();
    for (std::size_t i = 0; i < m_longest.size(); ++i)
        if (m_longest[i].row != kNoRow && followsContent(static_cast<int>(i) + 1))
            growColumn(static_cast<int>(i) + 1, m_listView->neededWidth(m_longest[i].row, static_cast<int>(i)));
}

/// A column that the user has resized keeps its width; a click on a heading sorts.
void guiHtmlControlFlex::connectHeader()
{
    auto const click = [this](int index) {
        guiEventScope scope;
        guiNodeWatch self(this);
        onSort(index + 1);
        if (self.alive())
            onHeader(index + 1);
    };
    QObject::connect(m_listView->header(), &QHeaderView::sectionClicked, m_listView, click);
    // The second of two quick clicks, which is one more for who sorts.
    QObject::connect(m_listView->header(), &QHeaderView::sectionDoubleClicked, m_listView, [this, click](int index) {
        if (m_listView->header()->sectionsClickable())
            click(index);
    });
    QObject::connect(m_listView->header(), &QHeaderView::sectionResized, m_listView, [this](int index) {
        if (QApplication::mouseButtons() & Qt::LeftButton)
            m_widths.insert(index + 1);
    });
}

/// The headings, and the widths that were set.
void guiHtmlControlFlex::saveColumns()
{
    m_list.columnCodes = sstring();
    m_list.uncodedHeadings.clear();
    int const count = m_listView->columnCount();
    for (int column = 1; column <= count; ++column) {
        sstring const heading = qtoss(m_listView->heading(column - 1));
        if (!isHeadingCode(heading))
            m_list.uncodedHeadings.add(column, heading);
        else
            guiAddColumnText(m_list.columnCodes, column, heading);
        if (m_widths.contains(column) && !fillsList(column))
            guiAddColumnWidth(m_list.columnCodes, column, columnWidthSet(column));
    }
    m_list.uncodedHeadings.at = m_list.columnCodes.getLength();
    saveColumnPlaces();
}

/// Widths that were set are scaled, the others follow their texts.
void guiHtmlControlFlex::onLookChange()
{
    guiHtmlControl::onLookChange();
    unsigned const before = std::exchange(m_shownZoom, m.zoom);
    if (!m_listView)
        return;
    QHeaderView* const header = m_listView->header();
    for (int const column : m_widths)
        if (column <= m_listView->columnCount() && !fillsList(column))
            header->resizeSection(column - 1, scaled(guiUnzoomedLength(header->sectionSize(column - 1), before)));
    m_listView->setIndentation(scaled(kIndentation));
    fitColumns();
    growAllColumns();
}

// ---- What script sets ----

void guiHtmlControlFlex::setColumnWidth(int column, int width)
{
    assertOnGuiThread();
    if (column < 1)
        return;
    if (!m_listView) {
        guiAddColumnWidth(m_list.columnCodes, column, width);
        return;
    }
    int const count = m_listView->columnCount();
    if (column > count)
        return;
    m_widths.insert(column);
    if (fillsList(column))
        m_listView->header()->setStretchLastSection(false);
    m_listView->header()->resizeSection(column - 1, std::clamp(scaled(width), 0, kMaxPixels));
}

void guiHtmlControlFlex::setColumnText(int column, sstring const& text)
{
    assertOnGuiThread();
    if (!isColumn(column))
        return;
    if (!m_listView) {
        guiSetColumnText(m_list.columnCodes, m_list.uncodedHeadings, column, text, !isHeadingCode(text));
        return;
    }
    addColumns(column);
    m_listView->listModel().setHeading(column - 1, sstoq(text));
    if (m_listView->owner && showsHeader())
        growColumn(column, m_listView->header()->sectionSizeHint(column - 1));
}

void guiHtmlControlFlex::setItemText(sstring const& value, int column, sstring const& text)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row == kNoRow || !isColumn(column))
        return;
    showText(row, column, text);
}

void guiHtmlControlFlex::showText(guiRowNumber row, int column, sstring const& text)
{
    m_knowsLongest = false;
    auto const at = static_cast<unsigned>(column) - 1;
    if (!m_listView)
        return m_rows.setText(row, at, sstoq(text));
    addColumns(column);
    m_listView->listModel().setText(row, at, sstoq(text));
    growColumns(row);
}
