// tests/script/lifetimes_test.cpp: the methods of controls with arguments that they do not take, before the window is
// open, after the control is gone, and from inside a handler of the same control.
#include "tests/script/controlscript.h"

namespace {

constexpr char kControls[] = "<input type=checkbox name=c value=yes><input type=radio name=r value=1>"
                             "<input type=text name=t value=old><input type=hidden name=h value=old>"
                             "<select name=s size=4><option value=a>A<option value=b>B</select>"
                             "<select name=m><option value=a>A<option value=b selected>B</select>"
                             "<object classid=checklist name=f><option value=a>A<option value=b>B</object>"
                             "<object classid=menu name=u><menu name=file value=File><param name=on value=On unchecked>"
                             "</menu></object>";

/// A page that is loaded and in no window yet.
class ClosedControls : public ControlScript
{
protected:
    ClosedControls() { load(kControls); }

    void load(std::string const& page)
    {
        write("page.html", "<html><body>" + page + "</body></html>");
        window = host.window("page.html");
        root = GetWindow(guiWindow_getData(window.object()->getPrivate()));
    }

    NativeValue call(char const* control, char const* method, NativeArguments args = {})
    {
        return window.control(control)->call(method, args);
    }
    std::string written(char const* name)
    {
        writeForm();
        return form(name).text();
    }

    NativeWindow window;
};

} // namespace

TEST_F(ClosedControls, KeepWhatScriptDoesUntilTheWindowIsOpen)
{
    call("c", "check");
    call("r", "check", {true});
    call("t", "setText", {"new"});
    call("h", "setText", {"new"});
    call("s", "selectItem", {"B"});
    call("m", "addItem", {"c", "C"});
    call("m", "selectItem", {"c"});
    call("f", "checkItem", {"b"});
    call("f", "selectItem", {"b"});
    call("f", "disableItem", {"a"});
    call("u", "checkItem", {"ON"});
    EXPECT_EQ(call("c", "isChecked"), NativeValue(true));
    EXPECT_EQ(call("f", "isItemChecked", {"B"}), NativeValue(true));
    EXPECT_EQ(call("u", "isItemChecked", {"on"}), NativeValue(true));
    for (bool isOpen : {false, true}) {
        EXPECT_EQ(isOpen && !window.open(), false);
        EXPECT_EQ(written("c") + written("r") + written("t") + written("h"), "yes1newnew") << isOpen;
        EXPECT_EQ(written("s") + written("m") + written("f"), "bcb") << isOpen;
        EXPECT_EQ(call("f", "isItemEnabled", {"a"}), NativeValue(false)) << isOpen;
        EXPECT_EQ(call("u", "isItemChecked", {"on"}), NativeValue(true)) << isOpen;
    }
}

TEST_F(ClosedControls, HaveTheirStatesAfterTheWindowIsClosedAndOpenedAgain)
{
    ASSERT_TRUE(window.open());
    call("c", "check");
    call("s", "selectItem", {"b"});
    call("f", "addItem", {"n", "1|2|3", "", "checkbox"});
    call("f", "setItemText", {"n", 1, "x|9|y"});
    call("f", "checkItem", {"n"});
    call("u", "disableItem", {"on"});
    window.close();
    EXPECT_EQ(call("c", "isChecked"), NativeValue(true));
    EXPECT_EQ(call("f", "isItemChecked", {"n"}), NativeValue(true));
    EXPECT_EQ(call("u", "isItemEnabled", {"on"}), NativeValue(false));
    ASSERT_TRUE(window.open());
    EXPECT_EQ(written("s"), "b");
    EXPECT_EQ(call("f", "isItemChecked", {"n"}), NativeValue(true));
    EXPECT_EQ(call("u", "isItemEnabled", {"on"}), NativeValue(false));
}

TEST_F(ClosedControls, DoNothingForArgumentsThatTheyDoNotTake)
{
    ASSERT_TRUE(window.open());
    NativeValue const null;
    call("c", "check");
    EXPECT_EQ(call("c", "isChecked", {1}), NativeValue(false));
    for (NativeArguments const& args : {NativeArguments{"x"}, {null}, {false, false}})
        EXPECT_EQ(call("c", "check", args), null);
    EXPECT_EQ(call("c", "uncheck", {true}), null);
    EXPECT_EQ(call("c", "isChecked"), NativeValue(true));

    for (NativeArguments const& args : {NativeArguments{}, {7}, {"x", 7}, {"x", "X", "Y"}})
        EXPECT_EQ(call("s", "addItem", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {7}, {"a", "b"}})
        EXPECT_EQ(call("s", "removeItem", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {7}, {"a", "x"}, {"a", true, true}})
        EXPECT_EQ(call("s", "selectItem", args), null);
    EXPECT_EQ(node<guiHtmlControlList>("s").getEntryCount(), 2u);
    EXPECT_EQ(written("s"), "");
}

TEST_F(ClosedControls, OfRowsDoNothingForArgumentsThatTheyDoNotTake)
{
    ASSERT_TRUE(window.open());
    NativeValue const null;
    for (char const* state : {"isItemChecked", "isItemSelected", "isItemEnabled", "isItemExpanded"})
        for (NativeArguments const& args : {NativeArguments{}, {1}, {"a", "b"}, {"none"}})
            EXPECT_EQ(call("f", state, args), NativeValue(false)) << state;
    for (char const* setter : {"checkItem", "selectItem"})
        for (NativeArguments const& args : {NativeArguments{}, {1}, {"a", "x"}, {"a", true, true}, {"none"}})
            EXPECT_EQ(call("f", setter, args), null) << setter;
    for (char const* clearer : {"disableItem", "collapseItem", "removeItem"})
        for (NativeArguments const& args : {NativeArguments{}, {1}, {"a", true}, {"none"}})
            EXPECT_EQ(call("f", clearer, args), null) << clearer;
    for (NativeArguments const& args : {NativeArguments{}, {1}, {"x", 1}, {"x", "X", 1}, {"x", "X", "", "", ""}})
        EXPECT_EQ(call("f", "addItem", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {"1", "x"}, {1}, {1, 2}, {1, "x", "y"}})
        EXPECT_EQ(call("f", "setColumnText", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {1}, {1, "x"}, {"x", 1}, {1, 2, 3}})
        EXPECT_EQ(call("f", "setColumnWidth", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {"a", "1", "x"}, {"a", 1}, {1, 1, "x"}, {"a", 1, 1}})
        EXPECT_EQ(call("f", "setItemText", args), null);
    for (NativeArguments const& args : {NativeArguments{}, {"yes"}, {true, true}})
        EXPECT_EQ(call("f", "setHeaderEnabled", args), null);
    auto& flex = node<guiHtmlControlFlex>("f");
    EXPECT_EQ(flex.getItemCount(), 2u);
    for (char const* value : {"a", "b"}) {
        EXPECT_EQ(call("f", "isItemChecked", {value}), NativeValue(false));
        EXPECT_EQ(call("f", "isItemSelected", {value}), NativeValue(false));
        EXPECT_EQ(call("f", "isItemEnabled", {value}), NativeValue(true));
        EXPECT_EQ(call("f", "isItemExpanded", {value}), NativeValue(true));
    }
    window.close();
    EXPECT_EQ(std::string(flex.getItem(0)->text.c_str()), "A");
    EXPECT_EQ(flex.isHeaderEnabled(), 1);
}

TEST_F(ClosedControls, OfMenusDoNothingForArgumentsThatTheyDoNotTake)
{
    int events = 0;
    window.on("eMenu", [&](NativeWindow&, NativeArguments const&) { ++events; });
    ASSERT_TRUE(window.open());
    for (NativeArguments const& args : {NativeArguments{}, {1}, {"on", "x"}, {"on", true, true}, {"none"}}) {
        EXPECT_EQ(call("u", "isItemChecked", args), NativeValue(false));
        EXPECT_EQ(call("u", "isItemEnabled", args), NativeValue(false));
        for (char const* method : {"checkItem", "uncheckItem", "disableItem", "activateItem"})
            EXPECT_EQ(call("u", method, args), NativeValue()) << method;
    }
    for (NativeArguments const& args : {NativeArguments{}, {"on"}, {"on", 1}, {1, "x"}, {"on", "x", "y"}})
        EXPECT_EQ(call("u", "setItemText", args), NativeValue());
    EXPECT_EQ(call("u", "isItemChecked", {"on"}), NativeValue(false));
    EXPECT_EQ(call("u", "isItemEnabled", {"on"}), NativeValue(true));
    EXPECT_EQ(std::string(node<guiHtmlControlMenu>("u").findItem("on")->text.c_str()), "On");
    EXPECT_EQ(events, 0);
}

TEST_F(ClosedControls, ThatAreGoneGiveFalseAndNull)
{
    std::vector<NativeObjectRef> held;
    for (char const* name : {"c", "s", "f", "u"})
        held.push_back(window.control(name));
    ASSERT_TRUE(window.open());
    ASSERT_TRUE(window.setText("nothing of that"));
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(held[0]->call("isChecked"), NativeValue(false));
        EXPECT_EQ(held[0]->call("check"), NativeValue());
        EXPECT_EQ(held[1]->call("addItem", {"x"}), NativeValue());
        EXPECT_EQ(held[1]->call("selectItem", {"x"}), NativeValue());
        EXPECT_EQ(held[2]->call("isItemEnabled", {"a"}), NativeValue(false));
        EXPECT_EQ(held[2]->call("addItem", {"x", "X", "", ""}), NativeValue());
        EXPECT_EQ(held[2]->call("scrollToTop"), NativeValue());
        EXPECT_EQ(held[3]->call("isItemEnabled", {"on"}), NativeValue(false));
        EXPECT_EQ(held[3]->call("activateItem", {"on"}), NativeValue());
        window.close();
    }
}

TEST_F(ClosedControls, OfAnotherKindUnderTheSameNameAreNotTakenForTheOldOnes)
{
    NativeObjectRef box = window.control("c");
    NativeObjectRef list = window.control("s");
    ASSERT_TRUE(window.open());
    window.setText("<input type=text name=c value=x><object classid=flexlist name=s><option value=a>A</object>");
    EXPECT_EQ(box->call("isChecked"), NativeValue(false));
    EXPECT_EQ(box->call("check"), NativeValue());
    EXPECT_EQ(list->call("addItem", {"x"}), NativeValue());
    EXPECT_EQ(node<guiHtmlControlFlex>("s").getItemCount(), 1u);
}

TEST_F(ClosedControls, MayBeChangedByTheirOwnHandlers)
{
    load("<input type=text name=t onchange=event://onText>"
         "<select name=s size=4 onchange=event://onPick><option value=a>A<option value=b>B</select>"
         "<object classid=checklist name=f multiple><option value=a>A<option value=b>B</object>"
         "<object classid=menu name=u><menu name=file value=File><param name=on value=On unchecked></menu></object>");
    std::vector<std::string> calls;
    window.on("onText", [&](NativeWindow& self, NativeArguments const&) {
        calls.emplace_back("text");
        if (calls.size() < 3)
            self.control("t")->call("setText", {"from the handler"});
    });
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        calls.emplace_back("pick");
        self.control("s")->call("removeItem", {"b"});
    });
    window.on("eSelect", [&](NativeWindow& self, NativeArguments const&) {
        calls.emplace_back("select");
        self.control("f")->call("removeItem", {"b"});
        self.control("f")->call("addItem", {"c", "C", "", "checkbox"});
    });
    window.on("eChange", [&](NativeWindow& self, NativeArguments const&) {
        calls.emplace_back("change");
        self.control("f")->call("removeItem", {"a"});
    });
    window.on("eMenu", [&](NativeWindow& self, NativeArguments const& args) {
        calls.emplace_back("menu " + args[1].text());
        self.control("u")->call("setItemText", {"on", "Off"});
        self.control("u")->call("checkItem", {"on"});
    });
    ASSERT_TRUE(window.open());
    onGuiThread([&] { node<guiHtmlControlEdit>("t").setText("typed"); });
    EXPECT_EQ(written("t"), "from the handler");
    call("s", "selectItem", {"b"});
    EXPECT_EQ(node<guiHtmlControlList>("s").getEntry(1), nullptr);
    call("f", "selectItem", {"b"});
    call("f", "checkItem", {"a"});
    auto& flex = node<guiHtmlControlFlex>("f");
    EXPECT_EQ(flex.findItem("a"), nullptr);
    EXPECT_EQ(flex.findItem("b"), nullptr);
    EXPECT_NE(flex.findItem("c"), nullptr);
    call("u", "activateItem", {"on"});
    EXPECT_EQ(call("u", "isItemChecked", {"on"}), NativeValue(true));
    std::string joined;
    for (std::string const& each : calls)
        joined += each + ";";
    EXPECT_EQ(joined, "text;pick;pick;select;select;change;menu on;");
}

TEST_F(ClosedControls, MayReplaceTheirPageInTheirOwnHandlers)
{
    struct
    {
        char const *control, *method, *argument, *event;
    } const cases[] = {
        {"s", "selectItem", "b", "onPick"},  {"s", "addItem", "c", "onPick"},      {"f", "checkItem", "a", "eChange"},
        {"f", "selectItem", "b", "eSelect"}, {"u", "activateItem", "on", "eMenu"},
    };
    for (auto const& each : cases) {
        load("<select name=s size=4 onchange=event://onPick><option value=a>A<option value=b>B</select>"
             "<object classid=checklist name=f><option value=a>A<option value=b>B</object>"
             "<object classid=menu name=u><menu name=file value=File><param name=on value=On></menu></object>");
        int calls = 0;
        window.on(each.event, [&](NativeWindow& self, NativeArguments const&) {
            ++calls;
            self.setText("gone");
        });
        ASSERT_TRUE(window.open());
        call(each.control, each.method, {each.argument});
        EXPECT_EQ(calls, 1) << each.method;
        EXPECT_FALSE(window.control(each.control)) << each.method;
        window.close();
    }
}

TEST_F(ClosedControls, RadioButtonsOfOneNameExcludeEachOtherAcrossFramesAndForms)
{
    write("left.html", "<html><body><form><input type=radio name=r value=left checked></form></body></html>");
    write("right.html", "<html><body><form><input type=radio name=R value=right></form></body></html>");
    load("<table><tr><td src=left.html name=one></td><td src=right.html name=two></td></tr></table>");
    ASSERT_TRUE(window.open());
    EXPECT_EQ(written("r"), "left");
    onGuiThread([this] {
        auto* right = dynamic_cast<guiHtmlControlButton*>(root->getNamed("two")->getChild(0)->getChild(0));
        ASSERT_NE(right, nullptr);
        right->setChecked(1);
    });
    EXPECT_EQ(written("R"), "right");
    EXPECT_EQ(node<guiHtmlControlButton>("r").isChecked(), 0);
}
