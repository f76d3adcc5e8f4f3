// tests/controls/flexlist_test.cpp: lists with columns, check boxes and nested rows.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "tests/controls/shownpage.h"
#include "tests/support/processortime.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <functional>

namespace {

constexpr char kRows[] = "<option value=a text1=Alpha text2=1 parent=none></option>"
                         "<option value=b text1=Beta parent=A></option>"
                         "<option value=c type=checkbox checked selected>Check</option>"
                         "<option value=d disabled collapsed>Delta</option></object>";

struct Flex : ShownPage
{
    explicit Flex(char const* kind = "flexlist") : ShownPage(page(kind).c_str()) {}
    static std::string page(char const* kind) { return std::string("<object name=f classid=") + kind + ">" + kRows; }
    guiHtmlControlFlex& flex() { return control<guiHtmlControlFlex>("f"); }
    guiWidgetListView* view() { return widget<guiWidgetListView>("f"); }
    QString cell(char const* value, int column) { return flex().findItem(value)->item->text(column); }
    std::string heading(int column) { return view()->heading(column).toStdString(); }
};

std::string pop(char const* text)
{
    int column = -1;
    sstring rest;
    std::string first = guiHtmlControlFlex::popColumnText(&column, text, rest).c_str();
    return first + "/" + std::to_string(column) + "/" + rest.c_str();
}

} // namespace

TEST(ColumnCodes, AreTakenOffOneByOne)
{
    EXPECT_EQ(pop("One|2|Two|3|Three"), "One/0/|2|Two|3|Three");
    EXPECT_EQ(pop("|2|Two|3|Three"), "Two/2/|3|Three");
    EXPECT_EQ(pop("|12Two"), "Two/12/");
    EXPECT_EQ(pop("a|b|c"), "a|b|c/0/");
    EXPECT_EQ(pop("a|"), "a|/0/");
    EXPECT_EQ(pop("|2|"), "/2/");
    EXPECT_EQ(pop(""), "/0/");
    EXPECT_EQ(pop("|99999999999|x"), "x/2147483647/");
}

TEST(ColumnCodes, NumberNoColumnZero)
{
    Flex page;
    page.flex().addItem("z", "Zero|0|none", "", kFlexPlain);
    EXPECT_EQ(page.cell("z", 0), "Zero");
    page.flex().destroyChildWidget();
    page.flex().setColumnText(1, "Name");
    for (int column : {0, -1}) {
        page.flex().setColumnText(column, "nowhere");
        page.flex().setColumnWidth(column, 11);
        page.flex().setItemText("z", column, "nowhere");
    }
    page.layOut();
    EXPECT_EQ(page.heading(0), "Name");
    EXPECT_EQ(page.cell("z", 0), "Zero");
    EXPECT_EQ(page.view()->columnCount(), 2);
}

TEST(ColumnCodes, AreNotReadInTextsThatWereSetInAListThatStands)
{
    Flex page;
    page.flex().setItemText("a", 1, "1|2|3");
    page.flex().setItemText("a", 2, "x|4");
    page.flex().setItemText("b", 2, "|3|y");
    page.flex().setItemText("c", 1, "WIDTH=9");
    page.flex().setColumnText(1, "a|1|b");
    page.flex().setColumnText(2, "WIDTH=300");
    int const columns = page.view()->columnCount();
    for (int round = 0; round < 2; ++round) {
        page.flex().destroyChildWidget();
        page.layOut();
        EXPECT_EQ(page.view()->columnCount(), columns);
        EXPECT_EQ(page.cell("a", 0), "1|2|3");
        EXPECT_EQ(page.cell("a", 1), "x|4");
        EXPECT_EQ(page.cell("b", 0), "Beta");
        EXPECT_EQ(page.cell("b", 1), "|3|y");
        EXPECT_EQ(page.cell("c", 0), "WIDTH=9");
        EXPECT_EQ(page.heading(0), "a|1|b");
        EXPECT_EQ(page.heading(1), "WIDTH=300");
    }
    page.flex().destroyChildWidget();
    page.flex().setItemText("a", 1, "later");
    page.flex().setColumnText(2, "Later");
    std::unique_ptr<guiHtml> copy(page.flex().Clone(nullptr));
    page.layOut();
    EXPECT_EQ(page.cell("a", 0), "later");
    EXPECT_EQ(page.cell("a", 1), "x|4");
    EXPECT_EQ(page.heading(0) + page.heading(1), "a|1|bLater");
    EXPECT_EQ(dynamic_cast<guiHtmlControlFlex&>(*copy).getItem(0)->uncoded.texts.size(), 1u); // the other was replaced
}

TEST(ColumnCodes, AreNotReadInTextsThatNameTheirColumn)
{
    ShownPage page(
        "<object classid=listview name=f><option value=a text1='x|1|y' text2='|3|z'></option>"
        "<option value=b text1=plain text2='2|1|2'></option><option value=c text='one|2|two'></option></object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    auto cell = [&](char const* value, int column) { return flex.findItem(value)->item->text(column - 1); };
    EXPECT_EQ(cell("a", 1), "x|1|y");
    EXPECT_EQ(cell("a", 2), "|3|z");
    EXPECT_EQ(cell("b", 1), "plain");
    EXPECT_EQ(cell("b", 2), "2|1|2");
    EXPECT_EQ(cell("c", 2), "two"); // a single text for several columns
    flex.destroyChildWidget();
    flex.setItemText("a", 1, "u|2|v");
    flex.setItemText("a", 2, "plain");
    flex.setItemText("b", 1, "w|2|");
    flex.setColumnText(1, "a|2|b");
    flex.setColumnText(2, "WIDTH=300");
    page.layOut();
    EXPECT_EQ(cell("a", 1), "u|2|v");
    EXPECT_EQ(cell("a", 2), "plain");
    EXPECT_EQ(cell("b", 1), "w|2|");
    EXPECT_EQ(cell("b", 2), "2|1|2");
    auto* view = page.widget<guiWidgetListView>("f");
    EXPECT_EQ(view->heading(0), "a|2|b");
    EXPECT_EQ(view->heading(1), "WIDTH=300");
    EXPECT_EQ(view->columnCount(), 2);
}
TEST(ColumnCodes, ThatATextLeavesOpenDoNotTakeInTheNextOne)
{
    ShownPage page("<object classid=listview name=f></object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    flex.destroyChildWidget();
    flex.addItem("open", "x|2", sstring(), kFlexPlain);
    flex.addItem("text", "x|2|3", sstring(), kFlexPlain);
    flex.addItem("third", "x|1|y|2", sstring(), kFlexPlain);
    for (char const* value : {"open", "text", "third"})
        flex.setItemText(value, 3, "z");
    page.layOut();
    auto cell = [&](char const* value, int column) { return flex.findItem(value)->item->text(column - 1); };
    EXPECT_EQ(cell("open", 1) + "," + cell("open", 2) + "," + cell("open", 3), "x,,z");
    EXPECT_EQ(cell("text", 1) + "," + cell("text", 2) + "," + cell("text", 3), "x,3,z");
    EXPECT_EQ(cell("third", 1) + "," + cell("third", 2) + "," + cell("third", 3), "y,,z");
}

TEST(FlexRows, StandInTheirColumnsAndUnderTheirParents)
{
    Flex page;
    ASSERT_EQ(page.view()->topLevelItemCount(), 3); // a has no parent of that name
    EXPECT_EQ(page.cell("a", 0), "Alpha");
    EXPECT_EQ(page.cell("a", 1), "1");
    EXPECT_EQ(page.flex().findItem("B")->item->parent(), page.flex().findItem("a")->item);
    EXPECT_EQ(page.flex().findItem("none"), nullptr);
}

TEST(FlexRows, TakeTheirStateFromThePage)
{
    Flex page;
    EXPECT_EQ(page.flex().isItemChecked("c"), 1);
    EXPECT_EQ(page.flex().isItemSelected("C"), 1);
    EXPECT_EQ(page.flex().isItemEnabled("d"), 0);
    EXPECT_EQ(page.flex().isItemEnabled("c"), 1);
    EXPECT_EQ(page.flex().isItemExpanded("a"), 1);
    EXPECT_TRUE(page.flex().findItem("a")->item->isExpanded());
    for (char const* value : {"none", ""}) {
        EXPECT_EQ(page.flex().isItemChecked(value) + page.flex().isItemSelected(value), 0);
        EXPECT_EQ(page.flex().isItemEnabled(value) + page.flex().isItemExpanded(value), 0);
    }
}

TEST(FlexRows, WithoutAnIndicatorAreNeverChecked)
{
    Flex page;
    page.flex().setItemChecked("a", 1);
    EXPECT_EQ(page.flex().isItemChecked("a"), 0);
    guiHtmlControlFlex hidden;
    guiHtmlControlFlexEntry entry;
    entry.value = "p";
    entry.checked = 1;
    hidden.appendEntry(entry);
    EXPECT_EQ(hidden.isItemChecked("p"), 0);
}

TEST(FlexRows, KeepTheirStatesWhileThereIsNoWidget)
{
    Flex page;
    page.flex().setItemChecked("c", 0);
    page.flex().destroyChildWidget();
    EXPECT_EQ(page.flex().isItemChecked("c"), 0);
    page.flex().setItemChecked("C", 1);
    page.flex().setItemSelected("b", 1);
    page.flex().setItemEnabled("d", 1);
    page.flex().setItemExpanded("a", 0);
    page.flex().setItemText("b", 2, "two");
    page.flex().setColumnText(2, "Number");
    EXPECT_EQ(page.flex().isItemChecked("c") + page.flex().isItemSelected("b"), 2);
    EXPECT_EQ(page.flex().isItemSelected("c"), 0); // one row at a time
    page.layOut();
    EXPECT_TRUE(page.flex().findItem("c")->item->isOn());
    EXPECT_TRUE(page.flex().findItem("b")->item->isSelected());
    EXPECT_FALSE(page.flex().findItem("d")->item->isDisabled());
    EXPECT_FALSE(page.flex().findItem("a")->item->isExpanded());
    EXPECT_EQ(page.cell("b", 1), "two");
    EXPECT_EQ(page.cell("a", 1), "1");
    EXPECT_EQ(page.heading(1), "Number");
}

TEST(FlexRows, UnderADisabledOneAreNotDisabledThemselves)
{
    Flex page;
    page.flex().setItemEnabled("a", 0);
    EXPECT_EQ(page.flex().isItemEnabled("a"), 0);
    EXPECT_EQ(page.flex().isItemEnabled("b"), 1);
    page.flex().destroyChildWidget();
    EXPECT_EQ(page.flex().isItemEnabled("b"), 1);
    page.layOut();
    EXPECT_EQ(page.flex().isItemEnabled("a"), 0);
    page.flex().setItemEnabled("b", 0);
    page.flex().setItemEnabled("a", 1);
    EXPECT_EQ(page.flex().isItemEnabled("b"), 0);
    EXPECT_TRUE(page.flex().findItem("b")->item->isDisabled());
    EXPECT_FALSE(page.flex().findItem("a")->item->isDisabled());
}

TEST(FlexRows, ThatAreDisabledAreSelectedByNobody)
{
    Flex page;
    for (int round = 0; round < 2; ++round) { // with the widget and without
        page.flex().setItemSelected("d", 1);
        EXPECT_EQ(page.flex().isItemSelected("d"), 0) << round;
        EXPECT_EQ(page.flex().isItemSelected("c"), 1) << round << ": the selection stays";
        page.flex().destroyChildWidget();
    }
    page.flex().setItemEnabled("d", 1);
    page.flex().setItemSelected("d", 1);
    EXPECT_EQ(page.flex().isItemSelected("d"), 1);
    page.flex().setItemEnabled("d", 0);
    page.flex().setItemSelected("d", 0);
    EXPECT_EQ(page.flex().isItemSelected("d"), 0);
}

TEST(FlexRows, WithoutRowsUnderThemAreExpandedAsWasSet)
{
    Flex page;
    EXPECT_EQ(page.flex().isItemExpanded("d"), 0);
    EXPECT_EQ(page.flex().isItemExpanded("c"), 1);
    page.flex().setItemExpanded("c", 0);
    page.flex().setItemExpanded("d", 1);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(page.flex().isItemExpanded("c"), 0) << round;
        EXPECT_EQ(page.flex().isItemExpanded("d"), 1) << round;
        page.flex().destroyChildWidget();
        EXPECT_EQ(page.flex().isItemExpanded("c"), 0) << round;
        EXPECT_EQ(page.flex().isItemExpanded("d"), 1) << round;
        page.layOut();
    }
}

TEST(FlexRows, OfOneValueAreWorkedOnByTheFirst)
{
    ShownPage page("<object classid=checklist name=f><option value=x>One<option value=X>Two"
                   "<option value=child parent=X>Child</object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    flex.setItemChecked("X", 1);
    EXPECT_TRUE(flex.getItem(0)->item->isOn());
    EXPECT_FALSE(flex.getItem(1)->item->isOn());
    EXPECT_EQ(flex.getItem(2)->item->parent(), flex.getItem(0)->item);
    flex.removeItem("x");
    EXPECT_EQ(flex.getItem(0), nullptr);
    ASSERT_NE(flex.getItem(1), nullptr);
    EXPECT_EQ(flex.isItemChecked("x"), 0);
}

TEST(FlexRows, BeforeTheirParentsLieAtTheTopLevel)
{
    ShownPage page("<object classid=treeview name=f><option value=child parent=p>Child<option value=p parent=p>Parent"
                   "</object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    EXPECT_EQ(flex.findItem("child")->item->parent(), nullptr);
    EXPECT_EQ(flex.findItem("p")->item->parent(), nullptr);
}

TEST(FlexRows, AreAddedIntoHolesAndRemoved)
{
    Flex page;
    page.flex().removeItem("C");
    EXPECT_EQ(page.flex().getItemCount(), 4u);
    EXPECT_EQ(page.flex().getItem(2), nullptr);
    EXPECT_EQ(page.view()->topLevelItemCount(), 2);
    page.flex().addItem("e", "Echo|2|5", "a", kFlexRadio);
    EXPECT_EQ(page.flex().getItemCount(), 4u);
    EXPECT_EQ(page.flex().getItem(2)->item->parent(), page.flex().findItem("a")->item);
    EXPECT_EQ(page.cell("e", 1), "5");
    EXPECT_EQ(page.flex().getItem(2)->item->getIndicator(), guiCheckListItem::kRadioButton);
    page.flex().addItem("g", "", "nobody", kFlexPlain);
    EXPECT_EQ(page.cell("g", 0), "g");
    EXPECT_EQ(page.flex().findItem("g")->item->parent(), nullptr);
}

TEST(FlexRows, WhoseParentIsRemovedLieAtTheTopLevel)
{
    Flex page;
    page.flex().removeItem("a");
    EXPECT_EQ(page.flex().findItem("b")->item->parent(), nullptr);
    EXPECT_EQ(page.cell("b", 0), "Beta");
    page.layOut();
    page.flex().removeItem("b");
    EXPECT_EQ(page.view()->topLevelItemCount(), 2);
}

TEST(FlexRows, RemovedWhileSelectedLeaveNothingSelected)
{
    Flex page;
    page.flex().setItemSelected("a", 1);
    page.flex().removeItem("a");
    EXPECT_TRUE(page.view()->selectedItems().empty());
    EXPECT_EQ(page.view()->selectionMode(), QAbstractItemView::SingleSelection);
}

TEST(FlexRows, StaySelectedWhenAnotherIsRemoved)
{
    Flex page;
    page.flex().setItemSelected("b", 1);
    page.flex().removeItem("a"); // b moves up
    EXPECT_EQ(page.flex().isItemSelected("b"), 1);
    page.flex().removeItem("c");
    EXPECT_EQ(page.flex().isItemSelected("b"), 1);
}

TEST(FlexRows, AreSelectedOneAtATimeUnlessMultipleIsAskedFor)
{
    Flex one;
    one.flex().setItemSelected("a", 1);
    EXPECT_EQ(one.view()->selectedItems().size(), 1u);
    ShownPage many("<object classid=flexlist name=f multiple><option value=a selected>A</option>"
                   "<option value=b>B</option></object>");
    auto& flex = many.control<guiHtmlControlFlex>("f");
    flex.setItemSelected("b", 1);
    EXPECT_EQ(flex.isItemSelected("a") + flex.isItemSelected("b"), 2);
    flex.setItemSelected("a", 0);
    EXPECT_EQ(flex.isItemSelected("a"), 0);
}

TEST(FlexColumns, AreAddedUpToTheOneThatIsNamed)
{
    ShownPage page("<object classid=listview name=f></object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    auto* view = page.widget<guiWidgetListView>("f");
    flex.setColumnText(1, "Name");
    ASSERT_EQ(view->columnCount(), 1);
    flex.setColumnText(3, "Size");
    ASSERT_EQ(view->columnCount(), 3);
    EXPECT_EQ(view->heading(0), "Name");
    EXPECT_EQ(view->heading(1), "");
    EXPECT_EQ(view->heading(2), "Size");
    flex.setColumnText(2, "Kind");
    EXPECT_EQ(view->heading(1), "Kind");
    flex.setColumnText(0, "x");
    flex.setColumnText(2000000000, "x");
    EXPECT_EQ(view->columnCount(), 3);
}

TEST(FlexColumns, AreKeptAsCodesUntilThereIsAWidget)
{
    Flex page;
    page.flex().destroyChildWidget();
    guiHtmlControlFlex lone;
    lone.setColumnText(1, "Name");
    lone.setColumnWidth(1, 70);
    lone.setColumnText(2, "Size");
    EXPECT_EQ(std::string(lone.getColumnCodes().c_str()), "|1|Name|1|WIDTH=70|2|Size");
    page.flex().setColumnText(1, "Name");
    page.flex().setColumnWidth(1, 70);
    page.flex().setColumnText(2, "Size");
    page.layOut();
    EXPECT_EQ(page.heading(0), "Name");
    EXPECT_EQ(page.heading(1), "Size");
    EXPECT_EQ(page.view()->columnWidth(0), 70);
}

TEST(FlexColumns, WidthsAreSetForColumnsThatExist)
{
    Flex page;
    page.flex().setColumnWidth(1, 55);
    page.flex().setColumnWidth(2, 66);
    page.flex().setColumnWidth(3, 77);
    page.flex().setColumnWidth(0, 77);
    EXPECT_EQ(page.view()->columnWidth(0), 55);
    EXPECT_EQ(page.view()->columnWidth(1), 66);
    EXPECT_EQ(page.view()->columnCount(), 2);
}

TEST(FlexColumns, AreAsWideAsTheirTextsAndTheLastFillsTheList)
{
    ShownPage page("<object classid=listview name=f width=300><option value=a text1='A rather long text' text2=x>"
                   "</option></object>");
    auto* view = page.widget<guiWidgetListView>("f");
    page.window.widget->show();
    QCoreApplication::processEvents();
    EXPECT_GE(view->columnWidth(0), page.metrics().horizontalAdvance("A rather long text"));
    EXPECT_EQ(view->columnWidth(0) + view->columnWidth(1), view->viewport()->width());
    page.control<guiHtmlControlFlex>("f").setColumnText(3, "Third");
    EXPECT_LT(view->columnWidth(1), 60);
}

TEST(FlexColumns, GrowWithTheRowsAndTextsThatScriptAdds)
{
    Flex page;
    auto widthOf = [&](int column) { return page.view()->columnWidth(column - 1); };
    page.flex().setColumnText(3, "last");
    page.flex().setColumnWidth(2, 33);
    int const before = widthOf(1);
    page.flex().addItem("e", "a text that is wider than all others|2|and so is this one", "", kFlexPlain);
    int const wide = widthOf(1);
    EXPECT_GE(wide, page.metrics().horizontalAdvance("a text that is wider than all others"));
    EXPECT_GT(wide, before);
    EXPECT_EQ(widthOf(2), 33); // it was set
    page.flex().addItem("f", "x", "", kFlexPlain);
    EXPECT_EQ(widthOf(1), wide);
    page.flex().addItem("g", "a text that is wider than all others", "e", kFlexPlain);
    EXPECT_GT(widthOf(1), wide); // nested rows stand further to the right
    int const nested = widthOf(1);
    page.flex().setItemText("f", 1, "now this text is wider than all of the others");
    EXPECT_GT(widthOf(1), nested);
    int const set = widthOf(1);
    page.flex().setColumnText(1, "The heading of the column can be wider than that as well");
    EXPECT_GT(widthOf(1), set);
    page.flex().destroyChildWidget(); // what follows its content does so in the next window too
    page.layOut();
    int const again = widthOf(1);
    page.flex().addItem("h", "a text that is much, much wider than everything that has been added up to now", "",
                        kFlexPlain);
    EXPECT_GT(widthOf(1), again);
    EXPECT_EQ(widthOf(2), 33);
}

TEST(FlexHeader, IsHiddenInCheckListsAndTreeViews)
{
    EXPECT_FALSE(Flex("flexlist").view()->isHeaderHidden());
    EXPECT_FALSE(Flex("listview").view()->isHeaderHidden());
    EXPECT_TRUE(Flex("checklist").view()->isHeaderHidden());
    EXPECT_TRUE(Flex("treeview").view()->isHeaderHidden());
    Flex page;
    page.flex().setHeaderEnabled(0);
    EXPECT_TRUE(page.view()->isHeaderHidden());
    page.flex().destroyChildWidget();
    page.layOut();
    EXPECT_TRUE(page.view()->isHeaderHidden());
}

TEST(FlexHeader, OfACheckListIsShownOnceScriptAsksForIt)
{
    Flex page("checklist");
    page.flex().setHeaderEnabled(1);
    EXPECT_FALSE(page.view()->isHeaderHidden());
}

TEST(FlexHeader, CountsInTheHeightFromTheNextResizeOn)
{
    Flex page;
    int const height = page.flex().m.rect.height;
    page.flex().setHeaderEnabled(0);
    guiRect rect{0, 380, 0, 300};
    page.window.root.setRect(&rect);
    EXPECT_EQ(page.flex().m.rect.height, height - page.metrics().lineSpacing() - 8);
}

TEST(FlexScrolling, ToTheTopIsToTheLeftAsWell)
{
    std::string text = "<object classid=listview name=f width=80 height=60>";
    for (int i = 0; i < 50; ++i)
        text += "<option value=v" + std::to_string(i) + " text1='A row far wider than the list' text2=x>";
    ShownPage page((text + "</object>").c_str());
    auto* view = page.widget<guiWidgetListView>("f");
    page.control<guiHtmlControlFlex>("f").setColumnWidth(1, 900);
    page.window.widget->show();
    QCoreApplication::processEvents();
    view->verticalScrollBar()->setValue(20);
    view->horizontalScrollBar()->setValue(30);
    ASSERT_GT(view->verticalScrollBar()->value(), 0);
    ASSERT_GT(view->horizontalScrollBar()->value(), 0);
    page.control<guiHtmlControlFlex>("f").scrollToTop();
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    EXPECT_EQ(view->horizontalScrollBar()->value(), 0);
}

TEST(FlexSizes, ComeFromTheVisibleRowsAndTheTexts)
{
    ShownPage page("<object classid=treeview name=f size=4><option value=a>Some text</option></object>");
    EXPECT_EQ(page.node("f")->getHeightEstimate(0), 4 * page.metrics().lineSpacing() + 6);
    EXPECT_GT(page.node("f")->getPreferredWidth(), page.metrics().horizontalAdvance("Some text"));
    guiHtmlControlFlex lone;
    EXPECT_EQ(lone.getPreferredWidth() + lone.getHeightEstimate(0), 0);
}

TEST(FlexEvents, AreFiredByScriptLikeByTheUserAndNotByShowingTheList)
{
    PageWindow window;
    window.widget->resize(200, 200);
    auto* flex = window.place(new LinkWriter<guiHtmlControlFlex>, {});
    flex->addItem("a", "Alpha", "", kFlexCheckBox);
    flex->setItemChecked("a", 1);
    flex->setItemSelected("a", 1);
    window.root.updateLayout(1);
    EXPECT_TRUE(flex->links.empty());
    flex->setItemChecked("a", 0);
    EXPECT_EQ(flex->links, std::vector<std::string>{"event://eChange"});
    flex->addItem("b", "Beta", "", kFlexPlain);
    flex->setItemSelected("b", 1);
    EXPECT_EQ(flex->links.back(), "event://eSelect");
    flex->setChangeAction("");
    flex->setItemChecked("a", 1);
    EXPECT_EQ(flex->links.size(), 2u);
}

namespace {

/// A list whose selection handler works on the list.
class Busy : public guiHtmlControlFlex
{
public:
    using guiHtmlControlFlex::operator=;
    void onSelect() override
    {
        ++calls;
        if (work)
            work();
    }
    void onChange() override { onSelect(); }
    int calls = 0;
    std::function<void()> work;
};

/// Three rows with check boxes, on the screen.
struct BusyPage : PageWindow
{
    BusyPage()
    {
        widget->resize(200, 200);
        flex = place(new Busy, {});
        for (char const* value : {"a", "b", "c"})
            flex->addItem(value, "", "", kFlexCheckBox);
        root.updateLayout(1);
        widget->show();
        QCoreApplication::processEvents();
    }
    guiWidgetListView* view() { return dynamic_cast<guiWidgetListView*>(flex->getChildWidget()); }
    void press(int key)
    {
        for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(view(), &event);
        }
    }
    /// The toolkit thinks of no row that is gone.
    bool isCurrentRowThere()
    {
        guiCheckListItem* current = view()->currentItem();
        return !current || view()->indexOfTopLevelItem(current) >= 0;
    }
    Busy* flex;
};

} // namespace

TEST(FlexEvents, AHandlerMayRemoveTheRowThatTheUserGoesTo)
{
    BusyPage page;
    page.view()->setCurrentItem(page.flex->findItem("a")->item);
    page.flex->work = [&page] {
        for (char const* value : {"a", "b"})
            if (page.flex->isItemSelected(value))
                page.flex->removeItem(value);
    };
    page.press(Qt::Key_Down);
    EXPECT_EQ(page.flex->findItem("b"), nullptr);
    EXPECT_TRUE(page.isCurrentRowThere());
    page.flex->setItemSelected("a", 1);
    EXPECT_EQ(page.flex->findItem("a"), nullptr);
    EXPECT_TRUE(page.isCurrentRowThere());
    QCoreApplication::processEvents();
}

TEST(FlexEvents, AHandlerMayRemoveTheRowThatTheUserChecks)
{
    BusyPage page;
    page.view()->setCurrentItem(page.flex->findItem("b")->item);
    page.flex->work = [&page] {
        if (page.flex->isItemChecked("b"))
            page.flex->removeItem("b");
    };
    page.press(Qt::Key_Space);
    EXPECT_EQ(page.flex->findItem("b"), nullptr);
    EXPECT_TRUE(page.isCurrentRowThere());
    EXPECT_EQ(page.view()->topLevelItemCount(), 2);
}

TEST(FlexEvents, AHandlerHearsOfARowWhenTheToolkitIsDoneWithIt)
{
    BusyPage page;
    unsigned holds = 99;
    page.flex->work = [&] { holds = page.view()->pendingNotices.holds; };
    page.flex->setItemSelected("b", 1);
    EXPECT_EQ(holds, 0u);
    holds = 99;
    page.view()->setFocus();
    page.press(Qt::Key_Up);
    EXPECT_EQ(holds, 0u);
    EXPECT_EQ(page.flex->calls, 2);
}

TEST(FlexEvents, AHandlerMayRemoveAndAddRowsWhileOneIsRemoved)
{
    PageWindow window;
    window.widget->resize(200, 200);
    auto* flex = window.place(new Busy, {});
    for (char const* value : {"a", "b", "c"})
        flex->addItem(value, "", "", kFlexPlain);
    flex->addItem("under", "", "a", kFlexPlain);
    window.root.updateLayout(1);
    flex->setItemSelected("a", 1);
    ASSERT_EQ(flex->calls, 1);
    flex->work = [flex] {
        flex->removeItem("under");
        flex->removeItem("b");
        flex->addItem("new", "", "", kFlexPlain);
    };
    flex->removeItem("a");
    EXPECT_EQ(flex->calls, 2);
    EXPECT_EQ(flex->findItem("under"), nullptr);
    auto* view = dynamic_cast<guiWidgetListView*>(flex->getChildWidget());
    EXPECT_EQ(view->topLevelItemCount(), 2);
    flex->removeItem("c"); // not selected: nobody hears
    EXPECT_EQ(flex->calls, 2);
}

TEST(FlexEvents, ListOfThousandsOfNestedRowsIsBuiltAtOnce)
{
    std::string text = "<object classid=treeview name=f>";
    for (int i = 0; i < 20000; ++i)
        text += "<option value=v" + std::to_string(i) + " parent=v" + std::to_string(i / 2) + ">row</option>";
    ShownPage page((text + "</object>").c_str());
    EXPECT_EQ(page.control<guiHtmlControlFlex>("f").getItemCount(), 20000u);
    EXPECT_NE(page.control<guiHtmlControlFlex>("f").findItem("v19999")->item->parent(), nullptr);
}

namespace {

constexpr int kManyRows = 30000;

/// How many levels of rows there are, all of them one under the other.
unsigned levelsOf(guiWidgetListView* view)
{
    unsigned levels = 0;
    for (guiCheckListItem const* row = view->topLevelItem(0); row; row = row->child(0))
        ++levels;
    return levels;
}

constexpr char kDepthWarning[] =
    "guiHtmlControlFlex::createRow() - rows nested deeper than 1000 levels are flattened (warning)\n";

} // namespace

TEST(FlexRows, AreFollowedToAThousandLevelsAndFlattenedBeyond)
{
    std::string text = "<object classid=treeview name=f>";
    for (int i = 0; i < kManyRows; ++i)
        text += "<option value=v" + std::to_string(i + 1) + " parent=v" + std::to_string(i) + ">row</option>";
    testing::internal::CaptureStderr();
    ShownPage page((text + "</object>").c_str());
    auto* view = page.widget<guiWidgetListView>("f");
    view->grab();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kDepthWarning);
    EXPECT_EQ(levelsOf(view), 1000u);
    auto& flex = page.control<guiHtmlControlFlex>("f");
    guiCheckListItem* deepest = flex.findItem("v1000")->item;
    EXPECT_EQ(deepest->childCount(), 0);
    EXPECT_EQ(flex.findItem("v30000")->item->parent(), deepest->parent());
    EXPECT_EQ(deepest->parent()->indexOfChild(flex.findItem("v30000")->item), kManyRows - 1000);
}

TEST(FlexRows, ThatAreAddedOneUnderTheOtherAreFlattenedToo)
{
    ShownPage page("<object classid=treeview name=f></object>");
    auto& flex = page.control<guiHtmlControlFlex>("f");
    testing::internal::CaptureStderr();
    for (int i = 0; i < 1500; ++i)
        flex.addItem(("v" + std::to_string(i + 1)).c_str(), "row", ("v" + std::to_string(i)).c_str(), kFlexPlain);
    auto* view = page.widget<guiWidgetListView>("f");
    view->grab();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), kDepthWarning);
    EXPECT_EQ(levelsOf(view), 1000u);
    flex.removeItem("v1"); // those under it go up by one level
    flex.addItem("deeper", "", "v1000", kFlexPlain);
    EXPECT_EQ(flex.findItem("deeper")->item->parent(), flex.findItem("v1000")->item);
}

namespace {

/// Counts how often the rows of a list are painted.
struct PaintCounter : QObject
{
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

} // namespace

TEST(FlexRows, ThatScriptAddsOneByOneArePaintedOnceAFrame)
{
    ShownPage page("<object classid=listview name=f width=300 height=200></object>");
    page.window.widget->show();
    QCoreApplication::processEvents();
    auto& flex = page.control<guiHtmlControlFlex>("f");
    PaintCounter counter;
    page.widget<guiWidgetListView>("f")->viewport()->installEventFilter(&counter);
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 2000; ++i) {
        std::string const value = "v" + std::to_string(i);
        flex.addItem(value.c_str(), (value + "|2|second").c_str(), "", kFlexPlain);
        flex.setItemSelected(value.c_str(), 1);
        QCoreApplication::processEvents();
    }
    constexpr int kFrame = 16; // milliseconds
    EXPECT_LE(counter.count, time.elapsed() / kFrame * 2 + 4);
    EXPECT_GT(counter.count, 0);
}

TEST(FlexRows, OfALongListCostNoMoreThanThoseOfAShortOne)
{
    auto timeOf = [](int rows) {
        ShownPage page("<object classid=listview name=f width=300 height=200></object>");
        auto& flex = page.control<guiHtmlControlFlex>("f");
        auto name = [](int i) { return sstring(("v" + std::to_string(i)).c_str()); };
        for (int i = 0; i < rows; ++i)
            flex.addItem(name(i), sstring("text|2|second"), sstring(), kFlexPlain);
        std::int64_t const start = processorTime();
        for (int i = 0; i < 1000; ++i) {
            flex.addItem(name(rows + i), sstring("text"), sstring(), kFlexPlain);
            flex.setItemText(name(rows + i), 2, sstring("new"));
            flex.setItemSelected(name(rows + i), 1);
            flex.removeItem(name(rows + i));
        }
        return processorTime() - start;
    };
    std::int64_t const few = timeOf(100);
    EXPECT_LT(timeOf(50000), few * 6);
}
