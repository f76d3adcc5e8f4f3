// tests/controls/menu_test.cpp: the menu bar of a window, its items and what choosing one does.
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guiwidgetmenubar.h"
#include "controls/guiwidgetpopupmenu.h"
#include "controls/guiwidgettoolbutton.h"
#include "tests/controls/shownpage.h"

#include <QAction>
#include <QKeyEvent>
#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr char kPage[] = "<object classid=menu name=m>"
                         "<menu name=file value=File><param name=open value=Open><param name=line value=->"
                         "<menu name=recent value=Recent><param name=save value=Deep></menu></menu>"
                         "<menu name=view value=View><param name=bold value=Bold checked><param name=it value=Italic "
                         "unchecked><param name=off value=Off disabled></menu>"
                         "<param name=save value=Save></object>text";

struct Menu : ShownPage
{
    Menu() : ShownPage(kPage) {}
    guiHtmlControlMenu& menu() { return control<guiHtmlControlMenu>("m"); }
    QAction* action(char const* name) { return menu().findItem(name)->action; }
};

/// A page root that writes down the events of its page.
class EventRoot : public WindowRoot
{
public:
    ~EventRoot() override
    {
        destroyWidget();
        PageWindow::settle(); // the widget goes later
    }
    using WindowRoot::operator=;
    int onEvent(sstring name, ScriptObject*) override
    {
        events.emplace_back(name.c_str());
        if (work)
            work();
        return 1;
    }
    std::function<void()> work;
    std::vector<std::string> events;
};

void pressReturn(QWidget* widget)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
}

/// Opens the item's pop-up as a user does and chooses an entry.
void choose(guiWidgetMenuBar& bar, guiHtmlControlMenuItem& item, char const* name)
{
    bar.window()->show();
    bar.setActiveAction(item.action);
    ASSERT_TRUE(item.popup->isVisible());
    auto found = std::find_if(item.children.begin(), item.children.end(),
                              [name](auto const& child) { return child->name == name; });
    item.popup->setActiveAction((*found)->action);
    pressReturn(item.popup);
}

} // namespace

TEST(MenuBar, StandsAlongTheTopOfTheWindow)
{
    Menu page;
    guiWidgetMenuBar* bar = page.menu().getMenuBar();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->parentWidget(), page.window.widget);
    EXPECT_EQ(bar->geometry(), QRect(0, 0, page.window.widget->width(), bar->sizeHint().height()));
    EXPECT_EQ(page.menu().getChildWidget(), nullptr); // never the keyboard's first stop
}

TEST(MenuBar, TakesItsHeightFromThePageInTheFirstLayout)
{
    Menu page;
    int const height = page.menu().getMenuBar()->sizeHint().height();
    EXPECT_GT(height, 8);
    EXPECT_EQ(page.menu().getPreferredWidth(), 0);
    EXPECT_EQ(page.menu().getHeightEstimate(100), 0);
    EXPECT_EQ(page.window.root.getMenuHeight(), height);
    EXPECT_EQ(page.window.root.m.activeCy, 300u - static_cast<unsigned>(height));
    guiHtml* text = page.window.root.getLastChild();
    EXPECT_GE(text->m.rect.top, height);
    page.menu().destroyChildWidget();
    EXPECT_EQ(page.window.root.getMenuHeight(), 0);
}

namespace {

constexpr char kMenu[] = "<object classid=menu name=m width=100% height=26><param name=a value=A></object>";

} // namespace

TEST(MenuBar, TakesItsHeightOnceAndNoRoomWhereItsTagStands)
{
    ShownPage page(
        (std::string("<body valign=top border=3>") + kMenu + "<p><table name=first><tr><td>x</table>").c_str());
    int const height = page.window.root.getMenuHeight();
    EXPECT_GT(height, 8);
    EXPECT_EQ(page.node("m")->m.rect.height, 0);
    EXPECT_EQ(page.node("m")->m.rect.width, 0);
    EXPECT_EQ(page.node("first")->m.rect.top, height + 3);
    guiRect client;
    page.window.root.getClientRect(&client);
    EXPECT_EQ(client.top, height + 3);
    EXPECT_EQ(client.bottom(), 297);
}

TEST(MenuBar, BehindTheContentMovesItDownAsWell)
{
    ShownPage page((std::string("<body valign=top>before") + kMenu + "<p>behind").c_str());
    int const height = page.window.root.getMenuHeight();
    guiHtml* text = page.window.root.getChild(0);
    EXPECT_EQ(text->m.rect.top, height);
    EXPECT_EQ(page.window.root.getLastChild()->m.rect.top, height + text->m.rect.height + kParagraphGap);
}

TEST(MenuBar, IsNotCoveredByAFieldThatIsScrolledUp)
{
    ShownPage page((std::string("<body valign=top scrolling=yes>") + kMenu +
                    "<input type=text name=t><table><tr><td height=900>x</table>")
                       .c_str());
    int const height = page.window.root.getMenuHeight();
    QWidget* clip = page.widget<QWidget>("t")->parentWidget();
    EXPECT_EQ(clip->y(), height);
    page.window.root.onScrollY(7);
    EXPECT_EQ(clip->y(), height);
    EXPECT_EQ(page.widget<QWidget>("t")->y(), -7);
}

TEST(MenuBar, NestsSubMenusAndSeparators)
{
    Menu page;
    QList<QAction*> top = page.menu().getMenuBar()->actions();
    ASSERT_EQ(top.size(), 3);
    EXPECT_EQ(top[0]->text(), "File");
    ASSERT_NE(top[0]->menu(), nullptr);
    QList<QAction*> file = top[0]->menu()->actions();
    ASSERT_EQ(file.size(), 3);
    EXPECT_TRUE(file[1]->isSeparator());
    EXPECT_EQ(file[2]->menu()->actions().at(0)->text(), "Deep");
    EXPECT_EQ(top[2]->menu(), nullptr);
}

TEST(MenuBar, ShowsTheStateOfItsItems)
{
    Menu page;
    EXPECT_TRUE(page.action("bold")->isCheckable() && page.action("bold")->isChecked());
    EXPECT_TRUE(page.action("it")->isCheckable());
    EXPECT_FALSE(page.action("it")->isChecked());
    EXPECT_FALSE(page.action("off")->isEnabled());
    EXPECT_FALSE(page.action("open")->isCheckable());
    EXPECT_TRUE(page.menu().findItem("view")->AreChildrenCheckable());
    EXPECT_FALSE(page.menu().findItem("file")->AreChildrenCheckable());
}

TEST(MenuBar, IdsAreUniqueOverTheWholeTree)
{
    Menu page;
    std::vector<int> ids;
    for (char const* name : {"file", "open", "line", "recent", "save", "view", "bold", "it", "off"})
        ids.push_back(page.menu().findItem(name)->id);
    EXPECT_EQ(ids, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(page.menu().getItems()[2]->id, 10);
}

TEST(MenuItems, AreFoundDepthFirstWithoutRegardToCase)
{
    Menu page;
    EXPECT_EQ(std::string(page.menu().findItem("SAVE")->text.c_str()), "Deep");
    EXPECT_EQ(page.menu().findItem("none"), nullptr);
    EXPECT_EQ(page.menu().findItem("save", page.menu().getItems()[2].get())->text, "Save");
}

TEST(MenuItems, AreCheckedAndEnabledByName)
{
    Menu page;
    page.menu().setItemChecked("It", 1);
    EXPECT_TRUE(page.action("it")->isChecked());
    EXPECT_EQ(page.menu().isItemChecked("it"), 1);
    page.menu().setItemChecked("bold", 0);
    EXPECT_EQ(page.menu().isItemChecked("bold"), 0);
    page.menu().setItemEnabled("OFF", 1);
    EXPECT_EQ(page.menu().isItemEnabled("off"), 1);
    page.menu().setItemEnabled("file", 0);
    EXPECT_FALSE(page.action("file")->isEnabled());
    EXPECT_EQ(page.menu().isItemChecked("none"), 0);
    EXPECT_EQ(page.menu().isItemEnabled("none"), 0);
}

TEST(MenuItems, KeepWhatIsDoneWhileTheMenuIsNotShown)
{
    Menu page;
    page.menu().setItemChecked("it", 1);
    page.menu().destroyChildWidget();
    EXPECT_EQ(page.menu().isItemChecked("it"), 1);
    page.menu().setItemChecked("bold", 0);
    page.menu().setItemText("open", "Open file");
    page.menu().setItemEnabled("open", 0);
    page.layOut();
    EXPECT_TRUE(page.action("it")->isChecked());
    EXPECT_FALSE(page.action("bold")->isChecked());
    EXPECT_EQ(page.action("open")->text(), "Open file");
    EXPECT_FALSE(page.action("open")->isEnabled());
    page.menu().setItemText("open", "Again");
    EXPECT_EQ(page.action("open")->text(), "Again");
}

TEST(MenuItems, FireTheMenuEventWithTheirName)
{
    EventRoot root;
    root.createWidget(0);
    ASSERT_EQ(root.setText(kPage, ""), 1);
    auto& menu = dynamic_cast<guiHtmlControlMenu&>(*root.getNamed("m"));
    choose(*menu.getMenuBar(), *menu.findItem("file"), "open");
    menu.getItems()[2]->action->trigger();
    EXPECT_EQ(root.events, (std::vector<std::string>{"event://eMenu/open", "event://eMenu/save"}));
    menu.activateItem(sstring("BOLD"));
    menu.activateItem(sstring("none"));
    menu.activateItem(4711);
    EXPECT_EQ(root.events.size(), 3u);
    EXPECT_EQ(root.events.back(), "event://eMenu/bold");
    root.destroyWidget();
    menu.activateItem(2); // items have ids only while there is a bar
    EXPECT_EQ(root.events.size(), 3u);
}

TEST(MenuItems, AreNotCheckedByBeingChosen)
{
    Menu page;
    choose(*page.menu().getMenuBar(), *page.menu().findItem("view"), "bold");
    EXPECT_TRUE(page.action("bold")->isChecked());
    page.action("it")->trigger();
    EXPECT_FALSE(page.action("it")->isChecked());
}

TEST(MenuItems, ThatAreSeparatorsAreBareLinesAndNeverChosen)
{
    EventRoot root;
    root.createWidget(0);
    ASSERT_EQ(root.setText(kPage, ""), 1);
    auto& menu = dynamic_cast<guiHtmlControlMenu&>(*root.getNamed("m"));
    guiHtmlControlMenuItem& line = *menu.findItem("line");
    EXPECT_EQ(line.action->text(), "");
    menu.activateItem(sstring("line"));
    menu.activateItem(line.id);
    EXPECT_TRUE(root.events.empty());
    menu.setItemText("line", "Close");
    EXPECT_FALSE(line.action->isSeparator());
    EXPECT_EQ(line.action->text(), "Close");
    menu.activateItem(sstring("line"));
    EXPECT_EQ(root.events, std::vector<std::string>{"event://eMenu/line"});
    menu.setItemText("open", "-");
    EXPECT_TRUE(menu.findItem("open")->action->isSeparator());
    menu.setItemText("file", "-"); // has a sub-menu
    EXPECT_FALSE(menu.findItem("file")->action->isSeparator());
}

TEST(MenuItems, ThatAreDisabledAreChosenByNobody)
{
    EventRoot root;
    root.createWidget(0);
    ASSERT_EQ(root.setText(kPage, ""), 1);
    auto& menu = dynamic_cast<guiHtmlControlMenu&>(*root.getNamed("m"));
    menu.activateItem(sstring("off"));
    menu.activateItem(menu.findItem("off")->id);
    menu.findItem("off")->action->trigger(); // as the user, who can not
    menu.setItemEnabled("file", 0);
    menu.activateItem(sstring("open")); // lies in a menu that does not open
    EXPECT_TRUE(root.events.empty());
    menu.setItemEnabled("file", 1);
    menu.setItemEnabled("off", 1);
    menu.activateItem(sstring("open"));
    menu.activateItem(sstring("off"));
    EXPECT_EQ(root.events, (std::vector<std::string>{"event://eMenu/open", "event://eMenu/off"}));
    root.destroyWidget();
    menu.setItemEnabled("off", 0);
    menu.activateItem(sstring("off")); // without a bar, too
    EXPECT_EQ(root.events.size(), 2u);
}

TEST(MenuItems, MayEndTheirPageWhenTheyAreChosen)
{
    EventRoot root;
    root.createWidget(0);
    root.work = [&root] { root.setText("gone", ""); };
    ASSERT_EQ(root.setText(kPage, ""), 1);
    auto& menu = dynamic_cast<guiHtmlControlMenu&>(*root.getNamed("m"));
    choose(*menu.getMenuBar(), *menu.findItem("file"), "open");
    EXPECT_EQ(root.events, std::vector<std::string>{"event://eMenu/open"});
    EXPECT_EQ(root.getNamed("m"), nullptr);
    EXPECT_EQ(root.getMenuBar(), nullptr);
}

TEST(MenuItems, InDeepSubMenusAreReached)
{
    constexpr int kDeep = 200;
    std::string text = "<object classid=menu name=m>";
    for (int i = 0; i < kDeep; ++i)
        text += "<menu name=m" + std::to_string(i) + " value=Sub>";
    text += "<param name=last value=Last unchecked>";
    for (int i = 0; i < kDeep; ++i)
        text += "</menu>";
    ShownPage page((text + "</object>").c_str());
    auto& menu = page.control<guiHtmlControlMenu>("m");
    menu.setItemChecked("LAST", 1);
    EXPECT_TRUE(menu.findItem("last")->action->isChecked());
    EXPECT_EQ(menu.findItem("last")->id, kDeep + 1);
    menu.destroyChildWidget();
    EXPECT_EQ(menu.isItemChecked("last"), 1);
}

TEST(MenuItems, GetNewIdsWhenTheMenuIsBuiltAgain)
{
    Menu page;
    EXPECT_EQ(page.menu().findItem("file")->id, 1);
    page.menu().destroyChildWidget();
    page.layOut();
    EXPECT_EQ(page.menu().findItem("file")->id, 11);
}

TEST(MenuCopies, HaveTheItemsAndTheirStatesAndNoWidget)
{
    Menu page;
    std::unique_ptr<guiHtml> clone(page.menu().Clone(nullptr));
    auto& copy = dynamic_cast<guiHtmlControlMenu&>(*clone);
    EXPECT_EQ(copy.getMenuBar(), nullptr);
    EXPECT_EQ(copy.isItemChecked("bold"), 1);
    EXPECT_EQ(copy.isItemEnabled("off"), 0);
    EXPECT_EQ(copy.getItems().size(), 3u);
    guiHtmlControlMenu other;
    guiHtmlControlMenu& menu = page.menu();
    menu = static_cast<guiHtml&>(other); // nothing of the bar may stay: its entries belonged to the items that are gone
    EXPECT_EQ(menu.getMenuBar(), nullptr);
    EXPECT_EQ(menu.findItem("file"), nullptr);
    menu.activateItem(1);
}

// ---- Keys, groups, items that come and go ----

TEST(MenuItems, KnowTheKeysThatTheToolkitKnows)
{
    EXPECT_EQ(guiReadKey("Ctrl+S"), QKeySequence(Qt::CTRL | Qt::Key_S));
    EXPECT_EQ(guiReadKey("ctrl+shift+f5"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F5));
    EXPECT_EQ(guiReadKey("Ctrl+K, Ctrl+S").value().count(), 2);
    EXPECT_FALSE(guiReadKey("Crtl+S"));
    EXPECT_FALSE(guiReadKey("Ctrl+Sav"));
    EXPECT_FALSE(guiReadKey(""));
}

TEST(MenuItems, OfOneGroupFollowEachOtherOrHaveItsName)
{
    auto const radio = [](char const* name, char const* group) {
        auto item = std::make_unique<guiHtmlControlMenuItem>();
        item->name = sstring(name);
        item->group = sstring(group);
        item->type = guiMenuItemType::kRadio;
        return item;
    };
    guiMenuItems items;
    for (auto const& [name, group] : {std::pair{"a", ""}, {"b", ""}, {"x", "G"}, {"c", ""}})
        items.push_back(radio(name, group));
    items[0]->children.push_back(radio("y", "g"));
    auto const groupOf = [&](std::size_t index) {
        std::string names;
        for (guiHtmlControlMenuItem const* each : guiGroupOf(items, *items[index]))
            names += each->name.c_str();
        return names;
    };
    EXPECT_EQ(groupOf(0), "ab");
    EXPECT_EQ(groupOf(1), "ab");
    EXPECT_EQ(groupOf(2), "yx");
    EXPECT_EQ(groupOf(3), "c");
}

TEST(MenuBar, GainsAndLosesItemsOfEachLevel)
{
    Menu page;
    guiHtmlControlMenu& menu = page.menu();
    guiMenuItemContent added;
    added.name = "new";
    added.text = "New";
    menu.addItem(added, sstring());
    menu.addItem(added, "nowhere");
    EXPECT_EQ(menu.getMenuBar()->actions().size(), 4);
    added.name = "deep";
    menu.addItem(added, "open"); // which had no menu
    ASSERT_NE(menu.findItem("open")->popup, nullptr);
    EXPECT_EQ(menu.findItem("open")->popup->actions().size(), 1);
    menu.removeItem("deep");
    EXPECT_EQ(menu.findItem("deep"), nullptr);
    EXPECT_EQ(menu.findItem("open")->popup, nullptr);
    menu.removeItem("file");
    menu.removeItem("new");
    menu.removeItem("nowhere");
    EXPECT_EQ(menu.getMenuBar()->actions().size(), 2);
    EXPECT_EQ(menu.findItem("open"), nullptr);
}

TEST(ToolButtons, OfAnItemThatIsMissingAreDisabledAndSaidOnceWithWhatComesClose)
{
    testing::internal::CaptureStderr();
    ShownPage page("<object classid=menu name=m><menu name=file value=File><param name=save value=Save></menu></object>"
                   "<toolbar>\n<param name=good item=SAVE><param name=bad item=sve>"
                   "<param name=odd item=something><param name=own value=Own></toolbar>");
    page.layOut();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "guiHtmlToolButton::createChildWidget() - no menu item sve; did you mean save?\n"
              "guiHtmlToolButton::createChildWidget() - no menu item something\n");
    EXPECT_TRUE(page.widget<guiWidgetToolButton>("good")->isEnabled());
    EXPECT_TRUE(page.widget<guiWidgetToolButton>("own")->isEnabled());
    EXPECT_FALSE(page.widget<guiWidgetToolButton>("bad")->isEnabled());
    EXPECT_FALSE(page.widget<guiWidgetToolButton>("odd")->isEnabled());
}
