// controls/guihtmlcontrolflex.cpp: the flex list as a node: copying, sizes, links, and its widget as a whole. See
// guihtmlcontrolflex.h.
#include "controls/guihtmlcontrolflex.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetlistview.h"
#include "page/guihtmlsize.h"

#include <QScrollBar>
#include <cassert>

guiHtmlControlFlex::~guiHtmlControlFlex() { destroyWidgets(); }

guiHtml& guiHtmlControlFlex::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* flex = dynamic_cast<guiHtmlControlFlex*>(&other);
    if (!flex || flex == this)
        return *this;
    destroyWidgets(); // they show the rows that are replaced now
    m_list = flex->m_list;
    m_rows = flex->m_rows;
    m_source = flex->m_source;
    m_entries.clear();
    m_knowsLongest = false;
    m_rows.selected = flex->selectedRows();
    return *this;
}

guiHtml* guiHtmlControlFlex::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlFlex::init(unsigned styleBits, int visibleRows, bool multiple)
{
    assert(!m_listView);
    m_list.styleBits = styleBits;
    m_list.visibleRows = visibleRows;
    m_list.multiple = multiple;
}

bool guiHtmlControlFlex::showsHeader() const { return m_list.headerEnabled && !(m_list.styleBits & kFlexNoHeader); }

int guiHtmlControlFlex::getHeightEstimate(unsigned long)
{
    constexpr int kAroundRows = 6;
    constexpr int kAroundHeading = 8;
    if (!hasWindow())
        return 0;
    std::int64_t rows = std::int64_t{m_list.visibleRows} * lineSpacing() + scaled(kAroundRows);
    return clampLength(rows + (showsHeader() ? lineSpacing() + scaled(kAroundHeading) : 0));
}

void guiHtmlControlFlex::onSelect() { followLink(m_list.selectAction); }
void guiHtmlControlFlex::onChange() { followLink(m_list.changeAction); }

QWidget* guiHtmlControlFlex::getChildWidget() { return m_listView; }

void guiHtmlControlFlex::createChildWidget()
{
    if (m_listView || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    m_listView = new guiWidgetListView(getClipWidget());
    m_shownZoom = m.zoom;
    m_widths.clear();
    m_listView->setSelectionMode(m_list.multiple ? QAbstractItemView::MultiSelection
                                                 : QAbstractItemView::SingleSelection);
    m_listView->setAllColumnsShowFocus(true);
    m_listView->setRootIsDecorated(false);
    m_listView->setIndentation(scaled(kIndentation));
    m_listView->setLeastRows(m_list.visibleRows);
    m_listView->setAlternatingRowColors(m_list.isZebra);
    m_listView->listModel().findIcon = [this](QString const& name) { return iconOf(name); };
    createColumns();
    addRowColumns();
    showColumnLooks();
    m_listView->setHeaderHidden(!showsHeader());
    showRows();
    fitColumns();
    growAllColumns();
    connectHeader();
    showOrder();
    m_listView->owner = this; // only now: the states that the page gives its rows are not changes to report
    finishWidget(m_listView);
}

void guiHtmlControlFlex::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlFlex::destroyWidgets()
{
    if (m_listView) {
        assertOnGuiThread();
        assert(guiIsBoundTo(m_listView, this));
        dirtyTabOrder();
        saveStates();
    }
    guiDestroyWrapper(m_listView);
    onDestroyChildWidget();
}

void guiHtmlControlFlex::scrollToTop()
{
    assertOnGuiThread();
    if (!m_listView)
        return;
    m_listView->scrollToTop();
    m_listView->horizontalScrollBar()->setValue(m_listView->horizontalScrollBar()->minimum());
}

void guiHtmlControlFlex::setHeaderEnabled(int enabled)
{
    assertOnGuiThread();
    m_list.headerEnabled = enabled != 0;
    guiLayoutRun::startAnew(); // the heading counts in the height
    if (m_listView)
        m_listView->setHeaderHidden(!m_list.headerEnabled);
}
