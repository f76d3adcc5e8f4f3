// tests/controls/listevents_test.cpp: columns in the page, sorting, icons and stripes of lists, and what the user does
// with rows and headings.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "tests/controls/shownpage.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

constexpr char kPage[] = "<object name=f classid=listview width=300 height=200 zebra>"
                         "<column text=Name sort=natural><column text=Size width=70 align=right sort=number>"
                         "<column text=Day sort=date><column text=Plain>"
                         "<option value=a text1='file 10' text2='12 KB' text3='2024-05-31' text4=x>"
                         "<option value=b text1='File 9' text2='3 KB' text3='2023-01-01' text4=w>"
                         "<option value=c text1='file 9b' text2='none' text3='?' text4=y></object>";

struct SortedPage : ShownPage
{
    SortedPage() : ShownPage(kPage) {}
    guiHtmlControlFlex& flex() { return control<guiHtmlControlFlex>("f"); }
    guiWidgetListView* view() { return widget<guiWidgetListView>("f"); }
    void clickHeading(int column) { emit view()->header()->sectionClicked(column - 1); }
    /// The values of the rows from top to bottom.
    std::string order()
    {
        std::string values;
        for (guiRowNumber const row : view()->rows().under(kNoRow))
            values += view()->rows().value(row).toString().toStdString();
        return values;
    }
};

/// Writes down what the user has done.
class Told : public LinkWriter<guiHtmlControlFlex>
{
public:
    using LinkWriter<guiHtmlControlFlex>::operator=;
    void onActivate(guiRowNumber row, int column) override { note("activate", row, column); }
    void onContext(guiRowNumber row, int column, QPoint) override { note("context", row, column); }
    void onExpand(guiRowNumber row) override { note("expand", row, 0); }
    void note(std::string const& what, guiRowNumber row, int column)
    {
        told.push_back(what + " " + (row == kNoRow ? "-" : std::to_string(row)) + " " + std::to_string(column));
    }
    std::vector<std::string> told;
};

struct ToldPage : PageWindow
{
    ToldPage()
    {
        widget->resize(300, 300);
        list = place(new Told, {});
        list->setActivateAction("event://onOpen");
        list->setContextAction("event://onMenu");
        list->addItem("a", "Alpha|2|1", "", kFlexPlain);
        list->addItem("b", "Beta", "", kFlexPlain);
        list->addItem("under", "", "b", kFlexPlain);
        root.updateLayout(1);
        widget->show();
        QCoreApplication::processEvents();
    }
    guiWidgetListView* view() { return dynamic_cast<guiWidgetListView*>(list->getChildWidget()); }
    QPoint placeOf(char const* value, int column)
    {
        return view()->visualRect(view()->indexFromItem(list->findItem(value)->item, column - 1)).center();
    }
    void doubleClick(QPoint at)
    {
        for (QEvent::Type const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                        QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, view()->viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(view()->viewport(), &event);
        }
    }
    void press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(view(), &event);
    }
    Told* list;
};

} // namespace

TEST(ListColumns, AreReadFromThePage)
{
    SortedPage page;
    ASSERT_EQ(page.view()->columnCount(), 4);
    EXPECT_EQ(page.view()->heading(0), "Name");
    EXPECT_EQ(page.view()->columnWidth(1), 70);
    auto alignment = [&](int column) {
        return page.view()->listModel().index(0, column).data(Qt::TextAlignmentRole).toInt();
    };
    EXPECT_EQ(alignment(1), int{Qt::AlignRight | Qt::AlignVCenter});
    EXPECT_NE(alignment(0), int{Qt::AlignRight | Qt::AlignVCenter});
    EXPECT_TRUE(page.view()->alternatingRowColors());
}

TEST(ListColumns, SortTheRowsWhenTheirHeadingsAreClicked)
{
    SortedPage page;
    EXPECT_FALSE(page.view()->header()->isSortIndicatorShown());
    page.flex().setItemSelected("b", 1);
    page.clickHeading(1);
    EXPECT_EQ(page.order(), "bca");
    EXPECT_TRUE(page.view()->header()->isSortIndicatorShown());
    EXPECT_EQ(page.view()->header()->sortIndicatorSection(), 0);
    page.clickHeading(1);
    EXPECT_EQ(page.order(), "acb");
    EXPECT_EQ(page.view()->header()->sortIndicatorOrder(), Qt::DescendingOrder);
    page.clickHeading(2);
    EXPECT_EQ(page.order(), "bac");
    page.clickHeading(3);
    EXPECT_EQ(page.order(), "bac");
    page.clickHeading(4); // does not say how
    EXPECT_EQ(page.order(), "bac");
    EXPECT_EQ(page.flex().isItemSelected("b"), 1);
    EXPECT_EQ(page.flex().isItemSelected("a") + page.flex().isItemSelected("c"), 0);
}

TEST(ListColumns, LeaveSortingToThePageIfThatAsksForIt)
{
    PageWindow window;
    window.widget->resize(300, 300);
    auto* list = window.place(new Told, {});
    list->setSortAction("event://eSort");
    list->setColumnText(1, "Name");
    list->setColumnLook(1, "", "text");
    list->addItem("b", "", "", kFlexPlain);
    list->addItem("a", "", "", kFlexPlain);
    window.root.updateLayout(1);
    auto* view = dynamic_cast<guiWidgetListView*>(list->getChildWidget());
    emit view->header()->sectionClicked(0);
    emit view->header()->sectionClicked(0);
    EXPECT_EQ(list->links, (std::vector<std::string>{"event://eSort/1/ascending", "event://eSort/1/descending"}));
    EXPECT_EQ(view->rows().value(view->rows().under(kNoRow).front()).toString(), "b");
}

TEST(ListEvents, TellOfARowThatIsDoubleClickedOrEntered)
{
    ToldPage page;
    page.doubleClick(page.placeOf("a", 2));
    EXPECT_EQ(page.list->told, std::vector<std::string>{"activate 0 2"});
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.list->told.back(), "activate 0 2");
    EXPECT_EQ(page.list->told.size(), 2u);
    page.list->setItemEnabled("a", 0);
    page.doubleClick(page.placeOf("a", 1));
    EXPECT_EQ(page.list->told.size(), 2u);
}

TEST(ListEvents, TellOfRowsThatTheUserExpandsAndNotOfThoseThatScriptDoes)
{
    ToldPage page;
    page.list->setItemExpanded("b", 0);
    page.list->setItemExpanded("b", 1);
    EXPECT_TRUE(page.list->told.empty());
    page.view()->setCurrentItem(page.list->findItem("b")->item);
    page.press(Qt::Key_Minus);
    page.press(Qt::Key_Minus);
    EXPECT_EQ(page.list->told, std::vector<std::string>{"expand 1 0"});
    EXPECT_EQ(page.list->isItemExpanded("b"), 0);
    page.doubleClick(page.placeOf("b", 1));
    EXPECT_EQ(page.list->isItemExpanded("b"), 1);
    EXPECT_EQ(page.list->told.back(), "expand 1 0");
}

TEST(ListEvents, TellWhereAMenuIsAskedFor)
{
    ToldPage page;
    auto ask = [&](QContextMenuEvent::Reason reason, QPoint at) {
        QContextMenuEvent event(reason, at, page.view()->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(page.view()->viewport(), &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(ask(QContextMenuEvent::Mouse, page.placeOf("a", 2)));
    EXPECT_TRUE(ask(QContextMenuEvent::Mouse, {10, 290}));
    page.view()->setCurrentItem(page.list->findItem("b")->item);
    EXPECT_TRUE(ask(QContextMenuEvent::Keyboard, {0, 0}));
    EXPECT_EQ(page.list->told, (std::vector<std::string>{"context 0 2", "context - 0", "context 1 1"}));
    page.list->setContextAction("");
    ask(QContextMenuEvent::Mouse, page.placeOf("a", 2));
    EXPECT_EQ(page.list->told.size(), 3u);
}
