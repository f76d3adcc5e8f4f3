// tests/controls/pageaccess_test.cpp: what a screen reader sees of a page: everything in the order of reading, under
// its name, and no harm whatever is asked about.
#include "controls/guicontrolhost.h"
#include "controls/guihtmlimage.h"
#include "controls/guipageaccess.h"
#include "controls/guipagelistener.h"
#include "tests/controls/shownpage.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>
#include <fstream>
#include <limits>
#include <map>
#include <random>
#include <sstream>

namespace {

using List = std::vector<std::string>;

/// Writes down the addresses that are opened; may block input as while a handler is waited for.
struct ReaderHost : guiControlHost
{
    ReaderHost() { install(this); }
    ~ReaderHost() override { install(nullptr); }
    int openOutside(guiHtml*, sstring const& address) override
    {
        opened.emplace_back(address.c_str());
        return 1;
    }
    bool isInputBlocked() const override { return isBlocked; }
    List opened;
    bool isBlocked = false;
};

char const* nameOfRole(QAccessible::Role role)
{
    static std::map<int, char const*> const names = {
        {QAccessible::WebDocument, "document"}, {QAccessible::Paragraph, "text"},
        {QAccessible::Heading, "heading"},      {QAccessible::Link, "link"},
        {QAccessible::Graphic, "picture"},      {QAccessible::EditableText, "field"},
        {QAccessible::CheckBox, "check"},       {QAccessible::RadioButton, "radio"},
        {QAccessible::Button, "button"},        {QAccessible::ComboBox, "choice"},
        {QAccessible::Grouping, "group"},       {QAccessible::Form, "form"},
        {QAccessible::Section, "section"},      {QAccessible::Dialog, "dialog"},
        {QAccessible::Table, "table"}};
    auto const found = names.find(role);
    return found != names.end() ? found->second : "other";
}

/// What a reader says of the object.
std::string lineOf(QAccessibleInterface* object)
{
    QString words = object->text(QAccessible::Name);
    QAccessible::Role const role = object->role();
    bool const isText = role == QAccessible::Paragraph || role == QAccessible::Heading;
    if (isText && object->textInterface())
        words = object->textInterface()->text(0, -1).simplified();
    return (nameOfRole(role) + std::string(" ") + words.toStdString());
}

/// Everything at and below the object that is no plain section, in order. Checks that each way down is a way up.
void read(QAccessibleInterface* object, List& lines)
{
    ASSERT_NE(object, nullptr);
    if (object->role() != QAccessible::Section)
        lines.push_back(lineOf(object));
    if (object->role() == QAccessible::ComboBox ||
        object->role() == QAccessible::Table) // the toolkit's, or the list's own
        return;
    for (int i = 0; i < object->childCount(); ++i) {
        QAccessibleInterface* const child = object->child(i);
        ASSERT_NE(child, nullptr) << i;
        EXPECT_EQ(object->indexOfChild(child), i);
        if (object->role() != QAccessible::Dialog && child->parent()) {
            EXPECT_EQ(child->parent()->indexOfChild(child), i) << lineOf(child);
        }
        read(child, lines);
    }
}

struct ReadPage
{
    explicit ReadPage(std::string const& text, int width = 400, int height = 300) : page("", width, height)
    {
        guiOfferPageAccess(); // as every GUI thread does when it starts
        page.window.root.setSizePolicy(kPolicyScroll);
        page.load(text.c_str());
        page.window.widget->show();
        page.window.widget->activateWindow();
        PageWindow::settle();
    }

    QAccessibleInterface* window() { return QAccessible::queryAccessibleInterface(page.window.widget); }
    QAccessibleInterface* document() { return window()->child(0); }
    List lines()
    {
        List all;
        read(document(), all);
        return all;
    }
    /// The first object below another one with that role and name.
    QAccessibleInterface* find(QAccessible::Role role, QString const& name, QAccessibleInterface* from = nullptr)
    {
        QAccessibleInterface* const top = from ? from : document();
        if (top->role() == role && top->text(QAccessible::Name) == name)
            return top;
        for (int i = 0; i < top->childCount(); ++i)
            if (QAccessibleInterface* found = find(role, name, top->child(i)))
                return found;
        return nullptr;
    }

    ReaderHost host;
    ShownPage page;
};

constexpr char kHelp[] =
    "<h1>Tea</h1><p>Water and <a href=\"http://leaves\">tea <b>leaves</b></a>.</p><h2>How long</h2>"
    "<p>Two<br>minutes</p><img alt=\"A pot\"><img alt=\"\"><a href=\"http://more\"><img alt=\"More\"></a>"
    "<ul><li>black</ul>";

std::string fileText(char const* path)
{
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Notes what the toolkit says meanwhile.
struct Quiet
{
    Quiet()
        : before(qInstallMessageHandler(
              [](QtMsgType, QMessageLogContext const&, QString const& text) { said().push_back(text.toStdString()); }))
    {
        said().clear();
    }
    ~Quiet() { qInstallMessageHandler(before); }
    static List& said()
    {
        static List lines;
        return lines;
    }
    QtMessageHandler before;
};

/// What screen readers are told while it exists.
struct Told
{
    Told()
    {
        events().clear();
        guiListenToPageAccess([](QAccessibleEvent const& event) {
            QAccessibleInterface* const object = event.accessibleInterface();
            events().emplace_back(event.type(), object ? lineOf(object) : "");
        });
    }
    ~Told() { guiListenToPageAccess(nullptr); }
    static bool has(QAccessible::Event type, std::string const& line)
    {
        auto const wanted = std::pair<int, std::string>(type, line);
        return std::find(events().begin(), events().end(), wanted) != events().end();
    }
    static std::vector<std::pair<int, std::string>>& events()
    {
        static std::vector<std::pair<int, std::string>> all;
        return all;
    }
};

} // namespace

TEST(PageAccess, APageIsReadInOrderWithHeadingsLinksAndPictures)
{
    ReadPage page(kHelp);
    EXPECT_EQ(page.window()->role(), QAccessible::Dialog);
    EXPECT_EQ(page.document()->parent(), page.window());
    EXPECT_EQ(page.lines(), (List{"document ", "heading Tea", "text Water and tea leaves.", "link tea leaves",
                                  "heading How long", "text Two minutes", "picture A pot", "link More", "text black"}));
    QAccessibleInterface* const heading = page.document()->child(0);
    EXPECT_EQ(heading->text(QAccessible::Description), "level 1");
    EXPECT_EQ(heading->text(QAccessible::Name), "") << "the text is read by itself";
}

TEST(PageAccess, NothingIsMadeBeforeAnybodyAsks)
{
    ReadPage page("<p name=p>text</p><table name=t><tr><td>cell</td></tr></table>");
    EXPECT_EQ(page.page.node("t")->m.hasListener, 0);
    page.lines();
    EXPECT_EQ(page.page.node("t")->m.hasListener, 1);
}

TEST(PageAccess, FieldsAreCalledWhatThePageCallsThem)
{
    ReadPage page(
        "<p><label for=a>&Name:</label> <input type=text name=a></p><p><input type=text name=b title=\"The title\"></p>"
        "<p>Before: <input type=text name=c></p><p><input type=checkbox name=d> Behind</p>"
        "<table><tr><td>Cell</td><td><input type=text name=e></td></tr><tr><td></td><td><input type=text "
        "name=f></td></tr>"
        "</table><p><input type=button name=g value=Press></p><fieldset><legend>Box</legend><input type=text name=h "
        "label=Own>"
        "</fieldset>");
    List const lines = page.lines();
    List fields;
    for (std::string const& line : lines)
        if (line.substr(0, 5) != "text " && line.substr(0, 9) != "document ")
            fields.push_back(line);
    EXPECT_EQ(fields, (List{"field Name", "field The title", "field Before", "check Behind", "field Cell", "field ",
                            "button Press", "group Box", "field Own"}));
}

TEST(PageAccess, ACustomElementIsWhatItsAttributesSay)
{
    ReadPage page("<object classid=Gauge role=Slider label=Water value=\"42 degrees\" width=30 height=30></object>"
                  "<object classid=Gauge width=30 height=30></object>");
    QAccessibleInterface* const gauge = page.document()->child(0);
    EXPECT_EQ(gauge->role(), QAccessible::Slider);
    EXPECT_EQ(gauge->text(QAccessible::Name), "Water");
    EXPECT_EQ(gauge->text(QAccessible::Value), "42 degrees");
    EXPECT_EQ(gauge->text(QAccessible::Description), "42 degrees");
    EXPECT_EQ(page.document()->child(1)->role(), QAccessible::Canvas);
}

TEST(PageAccess, TheAreasOfAMapAreLinksWithNames)
{
    ReadPage page(
        "<map name=m><area coords=\"0,0,20,40\" href=\"http://left\" alt=Left><area shape=circle coords=\"60,20,10\" "
        "href=\"http://right\" title=Right></map><img usemap=\"#m\" alt=Both width=80 height=40>");
    EXPECT_EQ(page.lines(), (List{"document ", "picture Both", "link Left", "link Right"}));
    EXPECT_EQ(page.document()->child(0)->childAt(-1, -1), nullptr);
    QAccessibleInterface* const right = page.find(QAccessible::Link, "Right");
    EXPECT_EQ(page.document()->child(0)->childAt(right->rect().center().x(), right->rect().center().y()), right);
    right->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    PageWindow::settle();
    EXPECT_EQ(page.host.opened, List{"http://right"});
}

TEST(PageAccess, TheExampleOfExpensesIsReadWhole)
{
    ReadPage page(fileText(TARN_EXAMPLES "/expenses/expenses.html"), 760, 440);
    List const lines = page.lines();
    for (char const* each : {"text What", "field What", "field Amount", "choice Travel", "radio card", "radio cash",
                             "check there is a receipt", "button Add", "button Remove"})
        EXPECT_EQ(std::count(lines.begin(), lines.end(), each), 1) << each;
    EXPECT_NE(std::find(lines.begin(), lines.end(), "table "), lines.end());
}

TEST(PageAccess, AFieldStandsBetweenItsNeighboursAndKnowsTheWayUp)
{
    ReadPage page("<table name=t><tr><td>One <input type=text name=f> two</td></tr></table>");
    QAccessibleInterface* const field = page.find(QAccessible::EditableText, "One");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->object(), page.page.node("f")->getChildWidget());
    QAccessibleInterface* const around = field->parent();
    ASSERT_NE(around, nullptr);
    ASSERT_EQ(around->childCount(), 3);
    EXPECT_EQ(lineOf(around->child(0)), "text One");
    EXPECT_EQ(around->child(1), field);
    EXPECT_EQ(lineOf(around->child(2)), "text two");
    int up = 0;
    for (QAccessibleInterface* at = field; at && at != page.window(); at = at->parent())
        ASSERT_LT(++up, 10);
}

TEST(PageAccess, TheWordsOfARunHavePlacesAndLines)
{
    ReadPage page("<p>Some words that go over to a <b>second</b> line of the page</p>", 150);
    QAccessibleInterface* const run = page.document()->child(0);
    QAccessibleTextInterface* const text = run->textInterface();
    ASSERT_NE(text, nullptr);
    QString const words = text->text(0, -1);
    EXPECT_EQ(words.trimmed(), "Some words that go over to a second line of the page");
    EXPECT_EQ(text->characterCount(), words.size());
    QRect last;
    for (int i = 0; i < words.size(); ++i) {
        QRect const place = text->characterRect(i);
        if (words[i] == u' ')
            continue;
        ASSERT_FALSE(place.isEmpty()) << i;
        EXPECT_TRUE(run->rect().contains(place)) << i;
        EXPECT_TRUE(place.top() > last.top() || place.left() >= last.right()) << i;
        EXPECT_EQ(text->offsetAtPoint(place.center()), i);
        last = place;
    }
    int start = -1;
    int end = -1;
    QString const line = text->textAtOffset(0, QAccessible::LineBoundary, &start, &end);
    EXPECT_EQ(start, 0);
    EXPECT_LT(end, words.size());
    EXPECT_EQ(line, words.left(end));
    QString const next = text->textAfterOffset(0, QAccessible::LineBoundary, &start, &end);
    EXPECT_EQ(words.mid(line.size(), next.size()), next);
}

TEST(PageAccess, ALinkIsPressedSoonAndOnlyWhileInputIsTaken)
{
    ReadPage page(kHelp);
    QAccessibleInterface* const link = page.find(QAccessible::Link, "tea leaves");
    ASSERT_NE(link, nullptr);
    EXPECT_FALSE(link->rect().isEmpty());
    ASSERT_NE(link->actionInterface(), nullptr);
    page.host.isBlocked = true;
    link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    PageWindow::settle();
    EXPECT_EQ(page.host.opened, List());
    page.host.isBlocked = false;
    link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(page.host.opened, List()) << "not inside of the call";
    PageWindow::settle();
    EXPECT_EQ(page.host.opened, List{"http://leaves"});
    EXPECT_TRUE(link->state().focused);
    EXPECT_EQ(page.window()->focusChild(), link);
    page.find(QAccessible::Link, "More")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    PageWindow::settle();
    EXPECT_EQ(page.host.opened, (List{"http://leaves", "http://more"}));
}

TEST(PageAccess, ALinkOfAPageThatIsGoneIsNotPressed)
{
    ReadPage page(kHelp);
    page.find(QAccessible::Link, "tea leaves")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    page.page.load("<p>other</p>");
    PageWindow::settle();
    EXPECT_EQ(page.host.opened, List());
    EXPECT_EQ(page.lines(), (List{"document ", "text other"}));
}

TEST(PageAccess, AFormIsFilledThroughItsObjects)
{
    ReadPage page("<p>Name <input type=text name=a></p><p><input type=checkbox name=b value=on> Yes</p>");
    page.find(QAccessible::EditableText, "Name")->setText(QAccessible::Value, "Ada");
    auto* const check = page.find(QAccessible::CheckBox, "Yes")->actionInterface();
    check->doAction(QAccessibleActionInterface::toggleAction());
    PageWindow::settle();
    EXPECT_EQ(page.page.control<guiHtmlControl>("a").getText(), "Ada");
    EXPECT_TRUE(page.find(QAccessible::CheckBox, "Yes")->state().checked);
}

TEST(PageAccess, ReadersHearOfTheFocusOfALink)
{
    ReadPage page(kHelp);
    page.lines();
    Told told;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(page.page.window.widget, &tab);
    EXPECT_TRUE(Told::has(QAccessible::Focus, "link tea leaves"));
}

TEST(PageAccess, ControlsThatAwaitTheirWidgetsHaveNamesAndCanBeUsed)
{
    std::string form;
    for (int i = 0; i < 2100; ++i)
        form += "<p>Field " + std::to_string(i) + " <input type=text name=f" + std::to_string(i) + "></p>";
    ReadPage page(form);
    ASSERT_TRUE(page.page.node("f2000")->awaitsWidget());
    QAccessibleInterface* const field = page.find(QAccessible::EditableText, "Field 2000");
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(page.page.node("f2000")->awaitsWidget()) << "to be asked about is not enough";
    EXPECT_TRUE(field->state().offscreen);
    QAccessible::Id const before = QAccessible::uniqueId(field);
    field->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    PageWindow::settle();
    EXPECT_EQ(page.page.window.root.getFocus(), "f2000");
    QAccessibleInterface* const now = page.find(QAccessible::EditableText, "Field 2000");
    EXPECT_EQ(now->object(), page.page.node("f2000")->getChildWidget());
    EXPECT_EQ(QAccessible::accessibleInterface(before), nullptr) << "one object for one control";
}

TEST(PageAccess, NothingIsLeftOfAPageWhoseWindowHasClosed)
{
    QAccessible::Id id = 0;
    {
        ReadPage page(kHelp);
        id = QAccessible::uniqueId(page.find(QAccessible::Link, "tea leaves"));
        ASSERT_NE(QAccessible::accessibleInterface(id), nullptr);
        page.page.window.root.destroyWidget();
        PageWindow::settle();
        EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    }
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST(PageAccess, ReadersHearOfNewContent)
{
    ReadPage page(kHelp);
    Told told;
    guiCurrentPageListener().onNewContent(&page.page.window.root);
    EXPECT_TRUE(Told::has(QAccessible::DocumentLoadComplete, "document "));
    EXPECT_TRUE(Told::has(QAccessible::ObjectReorder, "document "));
}

namespace {

int anyNumber(std::mt19937& random)
{
    static constexpr int kOdd[] = {
        -1, -2, 0, 1, 7, 1000000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    return kOdd[random() % std::size(kOdd)];
}

/// Asks an object about something, with any numbers.
void ask(QAccessibleInterface* object, std::mt19937& random)
{
    int start = 0;
    int end = 0;
    int const a = anyNumber(random);
    int const b = anyNumber(random);
    auto const kind = static_cast<QAccessible::TextBoundaryType>(random() % 6);
    QAccessibleTextInterface* const text = object->textInterface();
    switch (random() % 12) {
    case 0:
        object->child(a);
        break;
    case 1:
        object->childAt(a, b);
        break;
    case 2:
        object->indexOfChild(object->parent());
        break;
    case 3:
        object->text(static_cast<QAccessible::Text>(random() % 6));
        break;
    case 4:
        object->state();
        break;
    case 5:
        object->rect();
        break;
    case 6:
        if (text)
            text->text(a, b);
        break;
    case 7:
        if (text)
            text->characterRect(a);
        break;
    case 8:
        if (text)
            text->textAtOffset(a, kind, &start, &end);
        break;
    case 9:
        if (text)
            text->textBeforeOffset(a, kind, &start, &end), text->textAfterOffset(b, kind, &start, &end);
        break;
    case 10:
        if (text)
            text->attributes(a, &start, &end), text->offsetAtPoint({a, b}), text->selection(a, &start, &end);
        break;
    default:
        if (auto* const act = object->actionInterface())
            act->doAction("nothing of the kind");
    }
}

} // namespace

TEST(PageAccess, WhateverIsAskedWhilePagesComeAndGoDoesNoHarm)
{
    ReadPage page(kHelp);
    Quiet const quiet;
    std::mt19937 random(15);
    std::vector<QAccessible::Id> ids;
    std::vector<QAccessibleInterface*> objects;
    int valid = 0;
    int invalid = 0;
    for (int round = 0; valid < 60000 || invalid < 60000; ++round) {
        if (round % 400 == 0) {
            page.page.load(
                round % 800 == 0
                    ? kHelp
                    : "<p>Name <input type=text name=a> <a href=\"http://b\">b</a></p><table><tr><td>c</table>");
            PageWindow::settle();
        }
        QAccessibleInterface* at = page.document();
        for (int depth = static_cast<int>(random() % 4); depth > 0 && at->childCount() > 0; --depth)
            at = at->child(static_cast<int>(random() % static_cast<unsigned>(at->childCount())));
        ASSERT_TRUE(at && at->isValid());
        ids.push_back(QAccessible::uniqueId(at));
        valid += 40;
        for (int i = 0; i < 40; ++i)
            ask(at, random);
        for (int i = 0; i < 40; ++i, ++invalid)
            if (QAccessibleInterface* const old =
                    QAccessible::accessibleInterface(ids[random() % ids.size()] + (i % 3 == 0 ? 1000000 : 0)))
                ask(old, random);
    }
    EXPECT_EQ(Quiet::said(), List());
}
