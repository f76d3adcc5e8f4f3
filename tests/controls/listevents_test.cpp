// tests/controls/listevents_test.cpp: columns in the page, sorting, icons and stripes of lists, and what the user does
// with rows and headings.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "page/guirefusal.h"
#include "page/guiuserevent.h"
#include "tests/controls/shownpage.h"

#include <QAbstractItemDelegate>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <functional>

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
    int onHyperlink(sstring link, ScriptObject* object) override
    {
        if (link == "event://onName") {
            auto const event = guiCurrentEvent();
            told.push_back(event ? event->input.type.c_str() + std::string(" ") + event->detail.row->c_str() + " " +
                                       std::to_string(*event->detail.column) + " " + event->detail.text->c_str()
                                 : "no event");
            if (whenTold)
                whenTold();
            if (std::function<void()> const refused = guiRefusalScope::take(); refused && isRefusing)
                refused();
        }
        return LinkWriter<guiHtmlControlFlex>::onHyperlink(link, object);
    }
    bool isRefusing = false;
    void note(std::string const& what, guiRowNumber row, int column)
    {
        told.push_back(what + " " + (row == kNoRow ? "-" : std::to_string(row)) + " " + std::to_string(column));
    }
    std::vector<std::string> told;
    std::function<void()> whenTold;
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
    list->setColumnLook(1, {.sort = "text"});
    list->addItem("b", "", "", kFlexPlain);
    list->addItem("a", "", "", kFlexPlain);
    window.root.updateLayout(1);
    auto* view = dynamic_cast<guiWidgetListView*>(list->getChildWidget());
    emit view->header()->sectionClicked(0);
    emit view->header()->sectionClicked(0);
    EXPECT_EQ(list->links, (std::vector<std::string>{"event://eSort/1/ascending", "event://eSort/1/descending"}));
    EXPECT_EQ(view->rows().value(view->rows().under(kNoRow).front()).toString(), "b");
}

TEST(ListKeys, EndGoesToTheLastRowAlsoFromNone)
{
    SortedPage page;
    page.view()->setCurrentIndex({});
    QKeyEvent end(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(page.view(), &end);
    EXPECT_EQ(page.flex().isItemSelected("c"), 1);
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

namespace {

struct NamedPage : ToldPage
{
    NamedPage()
    {
        list->setRenameAction("event://onName");
        list->setColumnLook(2, {.isEditable = true});
    }
    QLineEdit* editor() { return view()->viewport()->findChild<QLineEdit*>(); }
    /// Opens the editor in the row, and writes the text into it.
    void write(char const* value, char const* text)
    {
        view()->setCurrentItem(list->findItem(value)->item);
        press(Qt::Key_F2);
        ASSERT_TRUE(editor());
        editor()->setText(text);
    }
    void finish(int key)
    {
        QPointer<QLineEdit> const field = editor();
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(field, &event);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }
    std::string textOf(char const* value, unsigned column)
    {
        return view()->rows().text(view()->rows().find(QString(value)), column - 1).toString().toStdString();
    }
};

} // namespace

TEST(ListRenaming, GivesTheTextAndTellsOfIt)
{
    NamedPage page;
    page.write("a", "seven");
    EXPECT_EQ(page.list->told, std::vector<std::string>{});
    page.finish(Qt::Key_Return);
    EXPECT_EQ(page.textOf("a", 2), "seven");
    EXPECT_EQ(page.textOf("a", 1), "Alpha");
    EXPECT_EQ(page.list->told, std::vector<std::string>{"rename a 2 seven"});
    page.write("a", "seven");
    page.finish(Qt::Key_Return);
    EXPECT_EQ(page.list->told.size(), 1u) << "nothing has changed";
}

TEST(ListRenaming, IsToldWhenTheEditorIsDoneWith)
{
    NamedPage page;
    bool isClosed = false;
    bool wasClosed = false;
    QObject::connect(page.view()->itemDelegate(), &QAbstractItemDelegate::closeEditor, [&] { isClosed = true; });
    page.list->whenTold = [&] { wasClosed = isClosed; };
    page.write("a", "seven");
    page.finish(Qt::Key_Return);
    EXPECT_EQ(page.list->told.size(), 1u);
    EXPECT_TRUE(wasClosed); // a handler may replace the rows, and the editor with them
}

TEST(ListRenaming, EndsWithoutATraceWithEscapeOrARefusal)
{
    NamedPage page;
    page.write("a", "seven");
    page.finish(Qt::Key_Escape);
    EXPECT_EQ(page.textOf("a", 2), "1");
    EXPECT_TRUE(page.list->told.empty());
    page.list->isRefusing = true;
    page.write("a", "eight");
    page.finish(Qt::Key_Return);
    EXPECT_EQ(page.list->told, std::vector<std::string>{"rename a 2 eight"});
    EXPECT_EQ(page.textOf("a", 2), "1");
}

TEST(ListRenaming, IsForColumnsThatSayItAndRowsThatCanBeUsed)
{
    NamedPage page;
    page.list->setItemEnabled("a", 0);
    page.view()->setCurrentItem(page.list->findItem("a")->item);
    page.press(Qt::Key_F2);
    EXPECT_FALSE(page.editor());
    ShownPage written("<object name=f classid=listview editable><column text=A><option value=a text1=x></object>"
                      "<object name=g classid=listview><column text=A editable><column text=B><option value=a></object>"
                      "<object name=h classid=listview><column text=A><option value=a></object>");
    auto isEditable = [&](char const* name, int column) {
        return written.widget<guiWidgetListView>(name)->listModel().isEditable(column);
    };
    EXPECT_TRUE(isEditable("f", 0) && isEditable("g", 0));
    EXPECT_FALSE(isEditable("g", 1) || isEditable("h", 0));
}

TEST(ListRenaming, OfARowThatGoesMeanwhileIsNothing)
{
    NamedPage page;
    page.write("a", "seven");
    page.list->removeItem("a");
    for (int i = 0; i < 20 && page.editor(); ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        page.view()->doItemsLayout();
    }
    EXPECT_TRUE(page.list->told.empty());
}

TEST(ListColumns, StandWhereThePageScriptOrUserPutsThem)
{
    ShownPage page("<object name=f classid=listview width=300 height=200><column text=A order=2><column text=B order=0>"
                   "<column text=C order=1><option value=a text1=1 text2=2 text3=3></object>");
    auto& list = page.control<guiHtmlControlFlex>("f");
    auto shown = [&] {
        std::string headings;
        auto* view = page.widget<guiWidgetListView>("f");
        for (int visual = 0; visual < 3; ++visual)
            headings += view->heading(view->header()->logicalIndex(visual)).toStdString();
        return headings;
    };
    EXPECT_EQ(shown(), "BCA");
    page.widget<guiWidgetListView>("f")->header()->moveSection(0, 2);
    EXPECT_EQ(shown(), "CAB");
    auto const columns = guiPackedRows::read(list.columns());
    EXPECT_EQ(columns->text(0, 3).toString() + columns->text(1, 3).toString() + columns->text(2, 3).toString(), "120");
    guiRowPacker rows(3, false);
    rows.addState({});
    for (char const* field : {"b", "4", "5", "6"})
        rows.addField(QString(field));
    list.setRows(guiPackedRows::read(rows.packed()));
    EXPECT_EQ(shown(), "CAB");
    list.destroyChildWidget();
    page.layOut();
    EXPECT_EQ(shown(), "CAB");
    list.setColumns(*columns);
    EXPECT_EQ(shown(), "CAB");
}

TEST(ListLooks, AreWhatThePageSaysAndNotOfSelectedGround)
{
    ShownPage page("<object name=f classid=listview width=300 height=200>"
                   "<option value=a text1=x text2=y color=red bold bgcolor2='#00FF00'>"
                   "<option value=b text1=x disabled color=red><option value=c text1=x></object>");
    auto& model = page.widget<guiWidgetListView>("f")->listModel();
    auto colorOf = [&](int row, int column, int role) { return model.index(row, column).data(role).value<QBrush>(); };
    EXPECT_EQ(colorOf(0, 0, Qt::ForegroundRole).color(), QColor(Qt::red));
    EXPECT_EQ(colorOf(0, 1, Qt::BackgroundRole).color(), QColor(Qt::green));
    EXPECT_EQ(colorOf(0, 0, Qt::BackgroundRole).style(), Qt::NoBrush);
    EXPECT_TRUE(model.index(0, 1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(model.index(1, 0).data(Qt::ForegroundRole).isValid()) << "what can not be used is grey";
    EXPECT_FALSE(model.index(2, 0).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(model.index(2, 0).data(Qt::FontRole).isValid());
}

TEST(ListLooks, StayWithCellsThatGetAnotherText)
{
    ShownPage page("<object name=f classid=listview width=300 height=200><option value=a text1=x color=red></object>");
    page.control<guiHtmlControlFlex>("f").setItemText("a", 1, "other");
    QModelIndex const cell = page.widget<guiWidgetListView>("f")->listModel().index(0, 0);
    EXPECT_EQ(cell.data().toString(), "other");
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
}
