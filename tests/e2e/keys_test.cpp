// tests/e2e/keys_test.cpp: real keys in a real window: who gets them, what Enter and Escape do, where Tab goes.
#include "tests/e2e/field.h"
#include "tests/e2e/roots.h"

using namespace std::chrono_literals;

namespace {

struct KeysTest : testing::Test
{
    TimeLimit limit{90s};
    NativeHost host;
    Desktop desktop;
    RootWindow window{"Keys"};
    std::vector<Field*> fields; // the page's

    /// Fields below each other, the first one on top.
    Field* add(char const* name, int tabIndex = kNoTabIndex)
    {
        Field* field = nullptr;
        onGuiThread([&] {
            field = new Field(name, tabIndex);
            if (window.root().getChildCount() != 0)
                window.root().appendMarker(kMarkerLineBreak);
            window.root().append(field);
        });
        fields.push_back(field);
        return field;
    }

    void open()
    {
        window.open();
        desktop.activate("Keys");
    }

    std::string focus()
    {
        std::string name;
        onGuiThread([&] { name = window.root().getFocus().c_str(); });
        return name;
    }
    bool waitForFocus(std::string const& name)
    {
        return Desktop::waitUntil([&] { return focus() == name; }, 3s);
    }
    bool waitForContent(Field* field, std::string const& text)
    {
        return Desktop::waitUntil(
            [&] {
                bool same = false;
                onGuiThread([&] { same = field->content == text.c_str(); });
                return same;
            },
            3s);
    }
    /// Goes through the fields with a key, from where the focus is.
    std::vector<std::string> walk(std::string const& key, int steps)
    {
        std::vector<std::string> names{focus()};
        for (int i = 0; i < steps; ++i) {
            desktop.key(key);
            Desktop::waitUntil([&] { return focus() != names.back(); }, 3s);
            names.push_back(focus());
        }
        return names;
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(KeysTest, TabFollowsTheIndicesAndTiesFollowThePage)
{
    add("none");
    add("second", 2);
    add("firstOfTwo", 1);
    add("late", 30);
    add("secondOfTwo", 1);
    open();
    ASSERT_TRUE(waitForFocus("firstOfTwo")) << "the first in the order has the focus of a new window";
    EXPECT_EQ(walk("Tab", 5), (Names{"firstOfTwo", "secondOfTwo", "second", "late", "none", "firstOfTwo"}));
    EXPECT_EQ(walk("shift+Tab", 5), (Names{"firstOfTwo", "none", "late", "second", "secondOfTwo", "firstOfTwo"}));
}

TEST_F(KeysTest, WithoutIndicesTabFollowsThePage)
{
    add("a");
    add("b");
    add("c");
    open();
    ASSERT_TRUE(waitForFocus("a"));
    EXPECT_EQ(walk("Tab", 3), (Names{"a", "b", "c", "a"}));
}

TEST_F(KeysTest, TypedTextGoesToTheFieldWithTheFocus)
{
    Field* a = add("a");
    Field* b = add("b");
    open();
    ASSERT_TRUE(waitForFocus("a"));
    desktop.key("x y");
    desktop.key("Tab");
    ASSERT_TRUE(waitForFocus("b"));
    desktop.key("z");
    EXPECT_TRUE(waitForContent(a, "xy"));
    EXPECT_TRUE(waitForContent(b, "z"));
}

TEST_F(KeysTest, FocusAskedForBeforeTheWindowOpensLandsOnTheField)
{
    add("a");
    add("b");
    onGuiThread([&] { window.root().setFocus("B"); });
    open();
    EXPECT_TRUE(waitForFocus("b"));
    onGuiThread([&] { window.root().setFocus("a"); });
    EXPECT_EQ(focus(), "a");
    onGuiThread([&] { window.root().setFocus("nobody"); });
    EXPECT_EQ(focus(), "a");
}

TEST_F(KeysTest, EnterAndEscapeInAFieldTriggerTheNamedControls)
{
    Field* field = add("field");
    Field* ok = add("Ok");
    Field* no = add("No");
    window.root().setEnterControl("oK");
    window.root().setEscapeControl("no");
    open();
    ASSERT_TRUE(waitForFocus("field"));
    desktop.key("Return");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ok->triggers == 1; }));
    desktop.key("KP_Enter");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ok->triggers == 2; }));
    desktop.key("Escape");
    EXPECT_TRUE(Desktop::waitUntil([&] { return no->triggers == 1; }));
    EXPECT_EQ(field->triggers, 0);
    EXPECT_TRUE(desktop.isOpen("Keys"));
}

TEST_F(KeysTest, KeysOfAPageWithoutAFocusedFieldTriggerTheNamedControls)
{
    Field* ok = add("Ok");
    window.root().setEnterControl("Ok");
    window.root().setEscapeControl("Ok");
    open();
    ASSERT_TRUE(waitForFocus("Ok"));
    onGuiThread([&] { window.root().getWidget()->setFocus(); });
    EXPECT_EQ(focus(), "");
    desktop.key("Return");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ok->triggers == 1; }));
    desktop.key("Escape");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ok->triggers == 2; }));
}

TEST_F(KeysTest, TheFieldThatIsTheEnterControlIsTriggeredOnce)
{
    Field* ok = add("Ok");
    window.root().setEnterControl("Ok");
    open();
    ASSERT_TRUE(waitForFocus("Ok"));
    desktop.key("Return");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ok->triggers != 0; }));
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(ok->triggers, 1);
}

TEST_F(KeysTest, XClosesTheWindowOnEnter)
{
    add("field");
    window.root().setEnterControl("X");
    open();
    ASSERT_TRUE(waitForFocus("field"));
    desktop.key("Escape");
    std::this_thread::sleep_for(200ms);
    EXPECT_TRUE(desktop.isOpen("Keys")) << "Escape has no name";
    desktop.key("Return");
    desktop.waitUntilClosed("Keys");
}

TEST_F(KeysTest, XClosesTheWindowOnEscape)
{
    window.root().setEscapeControl("X");
    open();
    desktop.key("Escape");
    desktop.waitUntilClosed("Keys");
}

TEST_F(KeysTest, ASmallXIsTheNameOfAControl)
{
    Field* small = add("x");
    window.root().setEscapeControl("x");
    open();
    ASSERT_TRUE(waitForFocus("x"));
    desktop.key("Escape");
    EXPECT_TRUE(Desktop::waitUntil([&] { return small->triggers == 1; }));
    EXPECT_TRUE(desktop.isOpen("Keys"));
}

TEST_F(KeysTest, EscapeWithoutANameLeavesTheWindowOpen)
{
    open();
    desktop.key("Escape Return");
    std::this_thread::sleep_for(300ms);
    EXPECT_TRUE(desktop.isOpen("Keys"));
}

TEST_F(KeysTest, TheFieldHasTheFocusAgainAfterAModalWindow)
{
    Field* a = add("a");
    Field* b = add("b");
    onGuiThread([&] { window.root().setFocus("b"); });
    open();
    ASSERT_TRUE(waitForFocus("b"));
    RootWindow modal("Modal");
    modal.open(true);
    desktop.waitUntilActive("Modal");
    desktop.key("q");
    modal.close();
    desktop.waitUntilActive("Keys");
    desktop.key("w");
    EXPECT_TRUE(waitForContent(b, "w")) << "neither the key of the modal window nor none";
    EXPECT_EQ(a->content.getLength(), 0u);
}
