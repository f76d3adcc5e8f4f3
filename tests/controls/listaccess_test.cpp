// tests/controls/listaccess_test.cpp: what a screen reader sees of a list: rows, columns, states, and no harm whatever
// is asked about.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guilistaccess.h"
#include "controls/guiwidgetlistview.h"
#include "tests/controls/shownpage.h"

#include <QAccessible>
#include <QHeaderView>
#include <algorithm>
#include <limits>
#include <random>

namespace {

constexpr char kPage[] = "<object name=f classid=listview width=300 height=200 multiple>"
                         "<column text=Name><column text=Size editable>"
                         "<option value=a text1=Alpha text2=1 type=checkbox checked>"
                         "<option value=b text1=Beta text2=2 disabled><option value=c text1=Gamma text2=3></object>";
constexpr char kTree[] = "<object name=f classid=treeview width=300 height=200><option value=a text1=Top>"
                         "<option value=b text1=Under parent=a><option value=c text1=Last></object>";

struct ReadPage : ShownPage
{
    explicit ReadPage(char const* page = kPage) : ShownPage(page)
    {
        window.widget->show();
        QCoreApplication::processEvents();
    }
    guiHtmlControlFlex& flex() { return control<guiHtmlControlFlex>("f"); }
    guiWidgetListView* view() { return widget<guiWidgetListView>("f"); }
    QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(view()); }
    QAccessibleTableInterface* table() { return list()->tableInterface(); }
    QAccessibleInterface* cell(int row, int column) { return table()->cellAt(row, column); }
    std::string nameOf(int row, int column) { return cell(row, column)->text(QAccessible::Name).toStdString(); }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }
};

std::shared_ptr<guiPackedRows const> manyRows(int count)
{
    guiRowPacker packer(2, false);
    for (int row = 0; row < count; ++row) {
        packer.addState({});
        for (QString const& field : {QString("v%1").arg(row), QString("text %1").arg(row), QString::number(row)})
            packer.addField(field);
    }
    return guiPackedRows::read(packer.packed());
}

/// Notes what screen readers are told while it exists: events and the children that they are about.
struct Listening
{
    Listening()
    {
        guiListenToListAccess(
            [this](QAccessibleEvent const& event) { events.emplace_back(event.type(), event.child()); });
    }
    ~Listening() { guiListenToListAccess(nullptr); }
    bool hasHeard(QAccessible::Event type, int child) const
    {
        return std::find(events.begin(), events.end(), std::pair(type, child)) != events.end();
    }
    std::vector<std::pair<QAccessible::Event, int>> events;
};

} // namespace

TEST(ListAccess, ShowsATableOfHeadingsAndCells)
{
    ReadPage page;
    ASSERT_TRUE(page.list() && page.table());
    EXPECT_EQ(page.list()->role(), QAccessible::Table);
    EXPECT_EQ(page.table()->rowCount(), 3);
    EXPECT_EQ(page.table()->columnCount(), 2);
    EXPECT_EQ(page.table()->columnDescription(1), "Size");
    EXPECT_EQ(page.list()->childCount(), 8);
    EXPECT_EQ(page.list()->child(1)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(page.list()->child(1)->text(QAccessible::Name), "Size");
    EXPECT_EQ(page.nameOf(2, 0) + page.nameOf(2, 1), "Gamma3");
    QAccessibleInterface* cell = page.cell(2, 1);
    EXPECT_EQ(page.list()->indexOfChild(cell), 7);
    EXPECT_EQ(page.list()->child(7), cell);
    EXPECT_EQ(cell->parent(), page.list());
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 1);
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells(), QList{page.list()->child(1)});
    EXPECT_EQ(page.list()->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_TRUE(cell->state().editable);
    EXPECT_FALSE(page.cell(2, 0)->state().editable);
}

TEST(ListAccess, TellsStatesAndChangesThemSoon)
{
    ReadPage page;
    EXPECT_TRUE(page.cell(0, 0)->state().checkable && page.cell(0, 0)->state().checked);
    EXPECT_FALSE(page.cell(2, 0)->state().checkable);
    EXPECT_TRUE(page.cell(1, 0)->state().disabled);
    EXPECT_FALSE(page.table()->selectRow(1)) << "a disabled one";
    EXPECT_TRUE(page.table()->selectRow(2));
    EXPECT_FALSE(page.cell(2, 0)->state().selected) << "not inside the call";
    ReadPage::settle();
    EXPECT_TRUE(page.cell(2, 1)->state().selected);
    EXPECT_EQ(page.table()->selectedRows(), QList{2});
    EXPECT_EQ(page.table()->selectedCells().size(), page.table()->selectedCellCount());
    page.cell(0, 0)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    ReadPage::settle();
    EXPECT_FALSE(page.cell(0, 0)->state().checked);
    EXPECT_EQ(page.flex().isItemChecked("a"), 0);
}

TEST(ListAccess, ShowsATreeWithItsLevels)
{
    ReadPage page(kTree);
    EXPECT_EQ(page.list()->role(), QAccessible::Tree);
    EXPECT_EQ(page.cell(0, 0)->role(), QAccessible::TreeItem);
    EXPECT_EQ(page.list()->childCount(), 3) << "no headings are shown";
    EXPECT_TRUE(page.cell(0, 0)->state().expandable && page.cell(0, 0)->state().expanded);
    EXPECT_EQ(page.cell(1, 0)->text(QAccessible::Description), "level 2");
    QAccessibleInterface* under = page.cell(1, 0);
    page.flex().setItemExpanded("a", 0);
    EXPECT_EQ(page.table()->rowCount(), 2);
    EXPECT_TRUE(page.cell(0, 0)->state().collapsed);
    EXPECT_EQ(page.nameOf(1, 0), "Last");
    EXPECT_EQ(under->tableCellInterface()->rowIndex(), -1);
    EXPECT_TRUE(under->state().invisible);
    EXPECT_EQ(page.list()->indexOfChild(under), -1);
}

TEST(ListAccess, FollowsTheFocusTheSelectionAndTheStates)
{
    ReadPage page;
    Listening const listening;
    page.view()->setFocus();
    page.view()->setCurrentRow(2);
    page.view()->select(2, true);
    page.view()->setChecked(0, false);
    EXPECT_TRUE(listening.hasHeard(QAccessible::SelectionAdd, 6));
    EXPECT_TRUE(listening.hasHeard(QAccessible::StateChanged, 2));
    page.view()->select(2, false);
    EXPECT_TRUE(listening.hasHeard(QAccessible::SelectionRemove, 6));
    ASSERT_TRUE(page.view()->hasFocus());
    EXPECT_TRUE(listening.hasHeard(QAccessible::Focus, 6));
    ASSERT_TRUE(page.list()->focusChild());
    EXPECT_EQ(page.list()->focusChild()->text(QAccessible::Name), "Gamma");
}

TEST(ListAccess, MakesCellsOnlyWhenTheyAreAskedFor)
{
    ReadPage page;
    page.flex().setRows(manyRows(100000));
    EXPECT_EQ(page.table()->rowCount(), 100000);
    EXPECT_EQ(page.list()->childCount(), 200002);
    EXPECT_EQ(page.nameOf(99999, 0), "text 99999");
    EXPECT_EQ(page.list()->indexOfChild(page.cell(99999, 1)), 200001);
    EXPECT_TRUE(page.cell(99999, 0)->state().offscreen);
    for (int row = 0; row < 15000; ++row) // a reader that goes through the list
        EXPECT_EQ(page.nameOf(row, 1), std::to_string(row));
    ReadPage::settle();
    EXPECT_EQ(page.nameOf(5, 0), "text 5");
}

TEST(ListAccess, OfNoRowsAnswersToo)
{
    ReadPage page("<object name=f classid=listview></object>");
    for (int const at : {-1, 0, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(page.table()->cellAt(at, at), nullptr);
        EXPECT_FALSE(page.table()->isRowSelected(at) || page.table()->isColumnSelected(at));
        EXPECT_FALSE(page.table()->selectRow(at) || page.table()->unselectRow(at));
    }
    EXPECT_EQ(page.table()->rowCount() + page.table()->selectedRowCount() + page.table()->selectedCellCount(), 0);
    EXPECT_TRUE(page.table()->selectedCells().isEmpty());
    EXPECT_EQ(page.list()->focusChild(), nullptr);
}

namespace {

/// Asks an interface for everything; it may be one whose row is gone.
void askAll(QAccessibleInterface* of)
{
    if (!of || !of->isValid())
        return;
    of->text(QAccessible::Name);
    of->text(QAccessible::Description);
    of->rect();
    of->role();
    of->state();
    of->window();
    EXPECT_TRUE(of->parent());
    if (QAccessibleTableCellInterface* cell = of->tableCellInterface()) {
        EXPECT_LT(cell->rowIndex(), cell->table()->tableInterface()->rowCount());
        cell->isSelected();
        cell->columnHeaderCells();
    }
    if (QAccessibleActionInterface* actions = of->actionInterface())
        for (QString const& name : actions->actionNames())
            actions->doAction(name);
}

void changeRows(ReadPage& page, unsigned number, guiRowNumber& added)
{
    guiHtmlControlFlex& flex = page.flex();
    sstring const value(("n" + std::to_string(number % 40)).c_str());
    switch (number % 7) {
    case 0:
        return flex.addItem(("n" + std::to_string(added++ % 40)).c_str(), "", number % 3 ? "" : "n1", kFlexCheckBox);
    case 1:
        return flex.removeItem(value);
    case 2:
        return flex.setItemExpanded(value, number & 8 ? 1 : 0);
    case 3:
        return flex.setItemSelected(value, 1);
    case 4:
        return flex.setItemText(value, number & 8 ? 3 : 1, "text");
    case 5:
        return number % 50 == 5 ? flex.setRows(manyRows(static_cast<int>(number % 90))) : flex.setHeaderEnabled(1);
    default:
        return number % 60 == 6 ? flex.clear() : flex.setItemChecked(value, 1);
    }
}

} // namespace

TEST(ListAccess, AnswersAnyCallsWhileRowsChange)
{
    ReadPage page;
    Listening const listening;
    std::mt19937 random(7);
    guiRowNumber added = 0;
    std::vector<QAccessible::Id> known;
    for (int i = 0; i < 10000; ++i) {
        unsigned const number = random();
        int const odd = static_cast<int>(number % 400) - 50;
        changeRows(page, number >> 8, added);
        askAll(page.list()->child(odd));
        askAll(page.table()->cellAt(odd, static_cast<int>(number >> 16) % 6 - 1));
        askAll(page.list()->childAt(odd, static_cast<int>(number >> 20) % 300));
        askAll(page.list()->focusChild());
        page.table()->isRowSelected(odd);
        number % 5 ? page.table()->unselectRow(odd) : page.table()->selectRow(odd);
        EXPECT_LE(page.table()->selectedRows().size(), page.table()->rowCount());
        if (QAccessibleInterface* cell = page.cell(odd, 0))
            known.push_back(QAccessible::uniqueId(cell));
        if (!known.empty())
            askAll(QAccessible::accessibleInterface(known[number % known.size()]));
        if (number % 16 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_GT(added, 100u);
    EXPECT_GT(known.size(), 1000u);
}

TEST(ListAccess, EndsWithTheList)
{
    Listening const listening;
    QAccessible::Id id = 0;
    {
        ReadPage page;
        id = QAccessible::uniqueId(page.cell(0, 0));
        EXPECT_TRUE(QAccessible::accessibleInterface(id));
        page.flex().destroyChildWidget();
        ReadPage::settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(QAccessible::accessibleInterface(id));
    }
}
