// tests/controls/select_test.cpp: the select element: its size, its combo box or list box, and what is chosen in it.
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlistbox.h"
#include "tests/controls/shownpage.h"
#include "tests/support/processortime.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <functional>

namespace {

constexpr char kThree[] = "<option value=a>Alpha</option><option value=b selected>Beta</option>"
                          "<option value=c>Gamma</option></select>";

std::string page(char const* attributes) { return std::string("<select name=s ") + attributes + ">" + kThree; }

struct Select : ShownPage
{
    explicit Select(char const* attributes) : ShownPage(page(attributes).c_str()) {}
    guiHtmlControlList& list() { return control<guiHtmlControlList>("s"); }
    guiWidgetComboBox* combo() { return widget<guiWidgetComboBox>("s"); }
    guiWidgetListBox* box() { return widget<guiWidgetListBox>("s"); }
    std::string selected() { return list().getSelected().c_str(); }
    std::string selectedRows()
    {
        std::string rows;
        for (int i = 0; i < box()->count(); ++i)
            rows += box()->item(i)->isSelected() ? '1' : '0';
        return rows;
    }
};

void click(guiWidgetListBox* box, int row, Qt::KeyboardModifiers modifiers)
{
    QPoint const place = box->visualItemRect(box->item(row)).center();
    for (QEvent::Type const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, box->viewport()->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, modifiers);
        QCoreApplication::sendEvent(box->viewport(), &event);
    }
}

void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, QString const& text = {})
{
    for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(widget, &event);
    }
}

} // namespace

TEST(Selecting, ASizeOfOneIsAComboBoxAndMoreAListBox)
{
    EXPECT_NE(Select("").combo(), nullptr);
    EXPECT_NE(Select("size=1").combo(), nullptr);
    EXPECT_NE(Select("size=2").box(), nullptr);
    Select none("size=0");
    EXPECT_EQ(none.list().getChildWidget(), nullptr);
}

TEST(Selecting, WidthIsTheLongestTextsByCharactersAndTwentyEight)
{
    ShownPage page("<select name=s size=3><option>WWWW</option><option>iiiii</option><option>WWWWW</option></select>"
                   "<select name=empty></select>");
    EXPECT_EQ(page.node("s")->getPreferredWidth(), page.metrics().horizontalAdvance("iiiii") + 28);
    EXPECT_EQ(page.node("s")->getHeightEstimate(0), 3 * page.metrics().lineSpacing() + 6);
    EXPECT_EQ(page.node("empty")->getPreferredWidth(), 28);
    guiHtmlControlList lone;
    lone.appendEntry("a", "Alpha", false);
    EXPECT_EQ(lone.getPreferredWidth(), 0);
    EXPECT_EQ(lone.getHeightEstimate(0), 0);
}

namespace {

QImage picture(QWidget& widget)
{
    QImage seen(widget.size(), QImage::Format_RGB32);
    seen.fill(Qt::white);
    widget.render(&seen);
    return seen;
}

} // namespace

TEST(ListBox, HasNoHorizontalScrollBar)
{
    for (char const* rest : {"", "<option>B<option>C<option>D<option>E"}) {
        ShownPage page((std::string("<select name=s size=3><option>iiiiiiiiii<option>WWWWWWWWW") + rest).c_str());
        auto* box = page.widget<guiWidgetListBox>("s");
        ASSERT_NE(box, nullptr);
        page.window.widget->show();
        PageWindow::settle();
        EXPECT_FALSE(box->horizontalScrollBar()->isVisible()) << rest;
        EXPECT_EQ(box->verticalScrollBar()->isVisible(), *rest != 0);
    }
}

TEST(ListBox, ShowsAllOfTheLongestTextBesideItsScrollBar)
{
    ShownPage page("<select name=s size=3><option>WWWWWWW<option>A<option>B<option>C<option>D</select>");
    auto* box = page.widget<guiWidgetListBox>("s");
    page.window.widget->show();
    PageWindow::settle();
    EXPECT_TRUE(box->verticalScrollBar()->isVisible());
    EXPECT_LE(box->sizeHintForColumn(0), box->viewport()->width());
}

TEST(ListBox, ATextThatIsTooWideEndsInDots)
{
    ShownPage one("<select name=s size=3><option>iiiiiiiiiiii<option>WWWWWWWWWA</select>");
    ShownPage other("<select name=s size=3><option>iiiiiiiiiiii<option>WWWWWWWWWM</select>");
    for (ShownPage* page : {&one, &other})
        page->window.widget->show();
    PageWindow::settle();
    auto rowOf = [](ShownPage& page) {
        auto* box = page.widget<guiWidgetListBox>("s");
        QRect row = box->visualItemRect(box->item(1));
        row.setWidth(box->viewport()->width());
        return picture(*box->viewport()).copy(row);
    };
    QImage const seen = rowOf(one);
    EXPECT_EQ(seen, rowOf(other));
    int ink = 0; // a letter that is cut off would reach into the last column
    for (int y = 0; y < seen.height(); ++y)
        ink += qGray(seen.pixel(seen.width() - 1, y)) < 128;
    EXPECT_EQ(ink, 0);
}

TEST(ListBox, ATipShowsATextThatIsTooWide)
{
    ShownPage page("<select name=s size=3><option>iiiiiiiiiiiiiiii<option>WWWWWW&amp;WWWW</select>");
    auto* box = page.widget<guiWidgetListBox>("s");
    page.window.widget->show();
    PageWindow::settle();
    auto tipOf = [box](int row) {
        QPoint const at(5, box->visualItemRect(box->item(row)).center().y());
        QHelpEvent event(QEvent::ToolTip, at, box->viewport()->mapToGlobal(at));
        QApplication::sendEvent(box->viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tipOf(0), "");
    EXPECT_EQ(tipOf(1), "WWWWWW&amp;WWWW");
}

TEST(Selecting, ThePageChoosesTheFirstSelectedOption)
{
    EXPECT_EQ(Select("").selected(), "b");
    EXPECT_EQ(Select("").combo()->currentText(), "Beta");
    EXPECT_EQ(Select("size=3").selected(), "b");
    EXPECT_EQ(Select("size=3").selectedRows(), "010");
    ShownPage plain("<select name=s><option value=x>X</option></select>");
    EXPECT_EQ(plain.control<guiHtmlControlList>("s").getDefaultSelection(), "");
    EXPECT_EQ(plain.control<guiHtmlControlList>("s").getSelected(), "x"); // a combo box always shows one
}

// A list with its frame and scroll bars costs several times what the box does.
TEST(Selecting, TheListThatDropsDownIsMadeWhenItIsOpened)
{
    ShownPage page("<font size=7><select name=s><option>One<option>Two</select></font>");
    auto* combo = page.widget<guiWidgetComboBox>("s");
    EXPECT_TRUE(combo->findChildren<QAbstractItemView*>().isEmpty());
    QAbstractItemView const* list = combo->view();
    EXPECT_EQ(combo->findChildren<QAbstractItemView*>().size(), 1);
    EXPECT_GE(list->sizeHintForRow(0), QFontMetrics(combo->font()).height());
}

TEST(Selecting, ValuesAreFoundWithoutRegardToCase)
{
    Select combo("");
    combo.list().setSelected("C", 1);
    EXPECT_EQ(combo.selected(), "c");
    combo.list().setSelected("A", 0); // a combo box knows no deselecting
    EXPECT_EQ(combo.selected(), "a");
    combo.list().setSelected("none", 1);
    EXPECT_EQ(combo.selected(), "a");
}

TEST(Selecting, OnlyAMultipleListBoxKeepsSeveralRows)
{
    Select one("size=3");
    one.list().setSelected("c", 1);
    EXPECT_EQ(one.selectedRows(), "001");
    Select many("size=3 multiple");
    many.list().setSelected("c", 1);
    EXPECT_EQ(many.selectedRows(), "011");
    many.list().setSelected("B", 0);
    EXPECT_EQ(many.selectedRows(), "001");
}

namespace {

constexpr char kFour[] = "<select name=s size=4 multiple><option value=a>A<option value=b selected>B<option value=c>C"
                         "<option value=d selected>D</select>";

} // namespace

TEST(Selecting, AllOptionsThatThePageSelectsAreSelectedWhereSeveralMayBe)
{
    Select page("");
    page.load(kFour);
    EXPECT_EQ(page.selectedRows(), "0101");
    page.list().destroyChildWidget();
    EXPECT_EQ(page.list().isItemSelected("d"), 1);
    page.layOut();
    EXPECT_EQ(page.selectedRows(), "0101");
}

TEST(Selecting, TheValueOfSeveralIsThatOfASelectedRowAndNotOfTheOneWithTheFocus)
{
    Select page("");
    page.load(kFour);
    page.box()->setCurrentRow(2, QItemSelectionModel::NoUpdate);
    EXPECT_EQ(page.selected(), "b");
    page.box()->setCurrentRow(3, QItemSelectionModel::NoUpdate);
    EXPECT_EQ(page.selected(), "d");
    page.list().setSelected("b", 0);
    page.list().setSelected("d", 0);
    EXPECT_EQ(page.box()->currentRow(), 3);
    EXPECT_EQ(page.selected(), "");
}

TEST(Selecting, TellsWhichItemsAreSelected)
{
    for (char const* attributes : {"", "size=3", "size=3 multiple"}) {
        Select page(attributes);
        EXPECT_EQ(page.list().isItemSelected("B"), 1) << attributes;
        EXPECT_EQ(page.list().isItemSelected("a"), 0) << attributes;
        EXPECT_EQ(page.list().isItemSelected("none"), 0) << attributes;
    }
}

TEST(Selecting, SeveralThatAreSelectedBeforeTheListIsShownJoinThoseOfThePage)
{
    guiHtmlControlList list;
    list.init(4, true, false);
    list.appendEntry("a", "A", true);
    list.appendEntry("b", "B", true);
    list.appendEntry("c", "C", false);
    list.setSelected("c", 1);
    list.setSelected("a", 0);
    EXPECT_EQ(list.isItemSelected("a"), 0);
    EXPECT_EQ(list.isItemSelected("b"), 1);
    EXPECT_EQ(list.isItemSelected("c"), 1);
}

TEST(Selecting, AnEditableComboBoxGivesWhatTheUserTyped)
{
    Select select("edit");
    EXPECT_TRUE(select.combo()->isEditable());
    select.combo()->setEditText("own words");
    EXPECT_EQ(select.selected(), "own words");
    EXPECT_FALSE(Select("").combo()->isEditable());
    EXPECT_EQ(select.combo()->count(), 3);
}

TEST(Selecting, AnAddedItemIsSelected)
{
    Select combo("");
    combo.list().addItem("d", "");
    EXPECT_EQ(combo.combo()->currentText(), "d"); // without a text the value is shown
    EXPECT_EQ(combo.selected(), "d");
    Select box("size=2");
    box.list().addItem("d", "Delta");
    EXPECT_EQ(box.selectedRows(), "0001");
    EXPECT_EQ(box.box()->item(3)->text(), "Delta");
}

TEST(Selecting, ManyItemsAreAddedToAShownListInTimeThatGrowsWithTheirNumber)
{
    Select page("size=4");
    page.window.widget->show();
    PageWindow::settle();
    auto add = [&](int count) {
        std::int64_t const start = processorTime();
        for (int i = 0; i < count; ++i)
            page.list().addItem(sformat("%ld", long{page.box()->count()}), "");
        return std::max<std::int64_t>(processorTime() - start, 1);
    };
    std::int64_t const first = add(1000);
    add(18000);
    EXPECT_LT(add(1000), 8 * first) << "the last thousand of twenty";
    PageWindow::settle();
    QRect const last = page.box()->visualItemRect(page.box()->item(page.box()->count() - 1));
    EXPECT_TRUE(page.box()->viewport()->rect().intersects(last)) << "the one that is selected is in view";
    EXPECT_EQ(page.selected(), std::to_string(page.box()->count() - 1));
}

TEST(Selecting, ShiftSelectsAllRowsFromTheLastOneOn)
{
    Select page("size=3 multiple");
    page.window.widget->show();
    PageWindow::settle();
    click(page.box(), 0, Qt::NoModifier);
    EXPECT_EQ(page.selectedRows(), "110") << "a click adds to what is selected";
    click(page.box(), 1, Qt::ControlModifier);
    EXPECT_EQ(page.selectedRows(), "100");
    click(page.box(), 2, Qt::ShiftModifier);
    EXPECT_EQ(page.selectedRows(), "111");
    Select keys("size=3 multiple");
    keys.window.widget->show();
    PageWindow::settle();
    click(keys.box(), 1, Qt::NoModifier);
    EXPECT_EQ(keys.selectedRows(), "000");
    press(keys.box(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(keys.selectedRows(), "011");
}

TEST(Selecting, WhatIsTypedIntoAnEditableComboBoxIsAChange)
{
    PageWindow window;
    window.widget->resize(200, 200);
    auto* list = window.place(new LinkWriter<guiHtmlControlList>, {});
    list->setAction("event://picked");
    list->init(1, false, true);
    list->appendEntry("a", "Alpha", false);
    window.root.updateLayout(1);
    window.widget->show();
    PageWindow::settle();
    auto* combo = dynamic_cast<guiWidgetComboBox*>(list->getChildWidget());
    ASSERT_NE(combo, nullptr);
    press(combo->lineEdit(), Qt::Key_N, Qt::NoModifier, "n");
    press(combo->lineEdit(), Qt::Key_Y, Qt::NoModifier, "y");
    EXPECT_EQ(list->links.size(), 2U);
    list->setSelected("a", 1);
    EXPECT_EQ(list->links.size(), 2U) << "only what the user does";
}

TEST(Selecting, ARemovedItemLeavesAHoleThatTheNextOneFills)
{
    Select select("size=3");
    select.list().removeItem("B");
    EXPECT_EQ(select.box()->count(), 2);
    EXPECT_EQ(select.list().getEntryCount(), 3u);
    EXPECT_EQ(select.list().getEntry(1), nullptr);
    select.box()->setCurrentRow(1); // shows Gamma, but stands where the hole is
    EXPECT_EQ(select.selected(), "");
    select.list().addItem("d", "Delta");
    EXPECT_EQ(select.box()->item(1)->text(), "Delta");
    EXPECT_EQ(select.selected(), "d");
    EXPECT_EQ(select.list().getEntryCount(), 3u);
}

TEST(Selecting, WorksOnTheEntriesWhileThereIsNoWidget)
{
    Select select("size=3 multiple");
    select.list().destroyChildWidget();
    select.list().addItem("d", "Delta");
    select.list().removeItem("a");
    select.list().setSelected("d", 1);
    EXPECT_EQ(select.selected(), "b"); // still chosen from before
    select.layOut();
    EXPECT_EQ(select.box()->count(), 3);
    EXPECT_EQ(select.selectedRows(), "101"); // Beta, Gamma, Delta in the hole's place first
}

TEST(Selecting, FollowsItsLinkWhenTheUserChooses)
{
    LinkWriter<guiHtmlControlList> list;
    list.onChange();
    EXPECT_TRUE(list.links.empty());
    list.setAction("event://picked");
    list.onChange();
    EXPECT_EQ(list.links, std::vector<std::string>{"event://picked"});
}

namespace {

/// A list whose handler works on the list.
class Busy : public guiHtmlControlList
{
public:
    using guiHtmlControlList::operator=;
    void onChange() override
    {
        ++calls;
        if (auto const now = std::exchange(work, nullptr))
            now();
    }
    int calls = 0;
    std::function<void()> work;
};

struct BusyPage : PageWindow
{
    BusyPage()
    {
        widget->resize(200, 200);
        list = place(new Busy, {});
        list->init(3, false, false);
        for (char const* value : {"a", "b", "c"})
            list->appendEntry(value, "", false);
        root.updateLayout(1);
    }
    QListWidget& box() { return dynamic_cast<QListWidget&>(*list->getChildWidget()); }
    Busy* list;
};

} // namespace

TEST(Selecting, AHandlerMayChangeTheListThatItHearsOf)
{
    BusyPage page;
    page.list->work = [&page] {
        page.list->removeItem("a");
        page.list->addItem("d", "");
    };
    page.list->setSelected("b", 1);
    EXPECT_EQ(page.box().count(), 3);
    page.list->work = [&page] { page.list->removeItem("e"); };
    page.list->addItem("e", "");
    EXPECT_EQ(page.box().count(), 3);
    page.list->setSelected("d", 1);
    int const calls = page.list->calls;
    page.list->work = [&page] { page.list->addItem("f", ""); };
    page.list->removeItem("d");
    EXPECT_GE(page.list->calls, calls + 1);
    EXPECT_EQ(page.box().count(), 3);
}

TEST(Selecting, AHandlerMayRemoveTheRowThatTheUserGoesTo)
{
    BusyPage page;
    page.widget->show();
    page.list->setSelected("a", 1);
    page.list->work = [&page] { page.list->removeItem("b"); };
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(&page.box(), &event);
    }
    EXPECT_EQ(page.box().count(), 2);
    EXPECT_TRUE(!page.box().currentItem() || page.box().row(page.box().currentItem()) >= 0);
}

TEST(Selecting, AHandlerMayRemoveThePageThatTheListIsOn)
{
    for (char const* what : {"add", "select", "remove"}) {
        BusyPage page;
        page.list->setSelected("a", 1);
        page.list->work = [&page] { page.root.setText("gone", ""); };
        if (std::string(what) == "add")
            page.list->addItem("d", "");
        else if (std::string(what) == "select")
            page.list->setSelected("b", 1);
        else
            page.list->removeItem("a");
        EXPECT_EQ(page.root.getChildCount(), 1u) << what;
    }
}

TEST(Selecting, OfOneValueSeveralOptionsAreSelectedAndRemoved)
{
    ShownPage page("<select name=s size=4 multiple><option value=x>One<option value=X>Two<option value=y>Three</select>"
                   "<select name=c><option value=x>One<option value=X>Two<option value=y selected>Three</select>");
    auto& list = page.control<guiHtmlControlList>("s");
    list.setSelected("x", 1);
    auto* box = page.widget<guiWidgetListBox>("s");
    EXPECT_TRUE(box->item(0)->isSelected() && box->item(1)->isSelected() && !box->item(2)->isSelected());
    list.removeItem("X"); // the rows close up in between, so the second one taken out is the third
    EXPECT_EQ(list.getEntry(0), nullptr);
    EXPECT_EQ(list.getEntry(1), nullptr);
    ASSERT_EQ(box->count(), 1);
    EXPECT_EQ(box->item(0)->text(), "Two");
    page.control<guiHtmlControlList>("c").setSelected("X", 1);
    EXPECT_EQ(page.widget<guiWidgetComboBox>("c")->currentIndex(), 1); // the last one stays
}

TEST(Selecting, ShowingTheListIsNobodysChoice)
{
    PageWindow window;
    window.widget->resize(200, 200);
    for (int rows : {1, 3}) {
        auto* list = window.place(new LinkWriter<guiHtmlControlList>, {});
        list->setAction("event://picked");
        list->init(rows, false, false);
        list->appendEntry("a", "Alpha", false);
        list->appendEntry("b", "Beta", true);
        window.root.updateLayout(1);
        ASSERT_NE(list->getChildWidget(), nullptr);
        EXPECT_TRUE(list->links.empty()) << rows;
    }
}

TEST(Selecting, CopiesHaveTheEntriesAndNoWidget)
{
    Select select("size=2 multiple");
    std::unique_ptr<guiHtml> clone(select.list().Clone(nullptr));
    auto& copy = dynamic_cast<guiHtmlControlList&>(*clone);
    EXPECT_EQ(copy.getEntryCount(), 3u);
    EXPECT_EQ(copy.getVisibleRows(), 2);
    EXPECT_EQ(copy.getChildWidget(), nullptr);
    copy.removeItem("a");
    EXPECT_NE(select.list().getEntry(0), nullptr);
}
