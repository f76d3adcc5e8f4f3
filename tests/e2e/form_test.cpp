// tests/e2e/form_test.cpp: form controls in a real window, through the C++ host: what the user types and clicks is what
// handlers see, and what handlers set is what the widgets show.
#include "page/guihtml.h"
#include "tests/e2e/roots.h"

#include "script/guiwindow.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <atomic>
#include <map>

using namespace std::chrono_literals;

namespace {

/// The point of each control, in pixels from the corner of the window: the heights of the rows say so.
std::map<std::string, std::pair<int, int> const> kPlaces{
    {"text", {150, 20}},    {"password", {150, 60}}, {"file", {150, 100}},    {"area", {150, 160}},
    {"box", {8, 220}},      {"other", {28, 220}},    {"choice c", {48, 260}}, {"list b", {50, 361}},
    {"flex k2", {50, 444}}, {"task t2", {209, 427}}, {"task t1", {250, 412}}, {"send", {50, 520}},
    {"reset", {150, 520}},  {"plain", {250, 520}}};

std::string row(int height, std::string const& content)
{
    return "<tr><td height=" + std::to_string(height) + ">" + content + "</td></tr>";
}

std::string formPage()
{
    std::string const field = " width=200 height=30>";
    std::string const options = "<option value=r>Red<option value=g>Green<option value=b>Blue</select>";
    std::string const square = " width=20 height=20";
    return "<html><head><title>Form</title></head><body width=500 height=560 valign=top><form "
           "action=event://onSend/all>"
           "<table width=480 cellspacing=0 cellpadding=0>" +
           row(40, "<input type=text name=text value=one" + field) +
           row(40, "<input type=password name=password" + field) + row(40, "<input type=file name=file" + field) +
           row(80, "<textarea name=area width=200 height=70>two</textarea>") +
           row(40, "<input type=checkbox name=box value=yes" + square +
                       "><input type=checkbox name=other value=no checked" + square + ">") +
           row(40, "<input type=radio name=choice value=a" + square + "><input type=radio name=choice value=b checked" +
                       square + "><input type=radio name=choice value=c" + square + ">") +
           row(40, "<select name=combo width=200 height=30>" + options) +
           row(80, "<select name=list size=3 width=200 height=70>" + options) +
           row(100,
               "<object classid=flexlist name=flex width=200 height=90><option value=k1 text=First><option value=k2 "
               "text=Second></object><object classid=checklist name=tasks width=200 height=90><option value=t1 "
               "text=Wash><option value=t2 text=Dry></object>") +
           row(40,
               "<input type=hidden name=hidden value=h><input type=submit name=send value=Send width=100 height=30>"
               "<input type=reset name=reset value=Reset width=100 height=30><input type=button name=plain value=Plain "
               "onclick=event://onPlain/1/two width=100 height=30>") +
           "</table></form></body></html>";
}

using Values = std::map<std::string, NativeValue>;

Values const kUntouched{{"text", "one"},  {"password", ""},  {"file", ""},       {"area", "two"},
                        {"box", nullptr}, {"other", "no"},   {"choice", "b"},    {"combo", "r"},
                        {"list", ""},     {"flex", nullptr}, {"tasks", nullptr}, {"hidden", "h"}};

Values with(Values values, Values const& changes)
{
    for (auto const& [name, value] : changes)
        values[name] = value;
    return values;
}

struct FormTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;
    NativeWindow window;

    FormTest()
    {
        pages.write("form.html", formPage());
        window = host.window("form.html");
    }

    /// What the form holds of the page's controls.
    Values form()
    {
        Values values;
        for (auto const& [name, untouched] : kUntouched)
            values[name] = host.session("currentForm").object()->get(name);
        return values;
    }

    /// Opens the window, does what a user does, and serves the handlers meanwhile; then closes it.
    void run(std::function<void(DesktopArea const& inner)> acts)
    {
        EXPECT_TRUE(window.open());
        User user([&] {
            DesktopArea inner = desktop.window("Form");
            desktop.waitUntilActive("Form");
            acts(inner);
            host.quit();
        });
        host.run();
    }

    void press(DesktopArea const& inner, std::string const& control)
    {
        auto [x, y] = kPlaces.at(control);
        desktop.click({inner.left + x, inner.top + y, inner.left + x + 1, inner.top + y + 1});
    }

    /// Asks on the script thread, from the user's thread, and waits for the answer.
    void onScriptThread(std::function<void()> work)
    {
        std::atomic<bool> isDone = false;
        host.post([&] {
            work();
            isDone = true;
        });
        EXPECT_TRUE(Desktop::waitUntil([&] { return isDone.load(); }));
    }

    /// Waits until a handler's effect is there, and until the window takes input again.
    void waitFor(std::function<bool()> const& check)
    {
        EXPECT_TRUE(Desktop::waitUntil([&] {
            bool is = false;
            onScriptThread([&] { is = check(); });
            return is;
        }));
        onScriptThread([] {});
        onScriptThread([this] { window.isOpen(); });
        onScriptThread([this] { window.isOpen(); });
    }

    void focus(DesktopArea const& inner, std::string const& field)
    {
        press(inner, field);
        waitFor([&] { return window.focus() == field; });
    }

    /// The native widget of a control. GUI thread.
    template <typename Widget>
    Widget* widget(char const* name)
    {
        guiHtmlBase* root = GetWindow(guiWindow_getData(window.object()->getPrivate()));
        return dynamic_cast<Widget*>(root->getNamed(sstring(name))->getChildWidget());
    }
};

TEST_F(FormTest, AHandlerSeesTheValuesThatThePageGives)
{
    std::vector<Values> seen;
    window.on("onSend", [&](NativeWindow&, NativeArguments const& args) {
        EXPECT_EQ(args.size(), 2u);
        EXPECT_EQ(args[0].object(), host.engine().session());
        EXPECT_EQ(args[1], NativeValue("all"));
        EXPECT_EQ(host.session("currentControl").object()->get("name"), NativeValue("send"));
        seen.push_back(form());
    });
    run([&](DesktopArea const& inner) {
        press(inner, "send");
        waitFor([&] { return seen.size() == 1; });
    });
    EXPECT_EQ(seen, std::vector<Values>{kUntouched});
}

TEST_F(FormTest, AHandlerSeesWhatWasTypedAndClickedInEveryKindOfControl)
{
    std::vector<Values> seen;
    window.on("onSend", [&](NativeWindow&, NativeArguments const&) { seen.push_back(form()); });
    run([&](DesktopArea const& inner) {
        for (char const* field : {"text", "password", "file"}) {
            focus(inner, field);
            desktop.key("End a space 1");
        }
        focus(inner, "area");
        desktop.key("ctrl+End Return b");
        for (char const* control : {"box", "other", "choice c", "list b", "flex k2", "task t2", "task t1"})
            press(inner, control);
        onScriptThread([&] { window.setFocus("combo"); });
        waitFor([&] { return window.focus() == "combo"; });
        desktop.key("Down Down");
        press(inner, "send");
        waitFor([&] { return seen.size() == 1; });
        onScriptThread([&] {
            EXPECT_EQ(window.control("tasks")->call("isItemChecked", {"t2"}), NativeValue(true));
            EXPECT_EQ(window.control("tasks")->call("isItemChecked", {"t1"}), NativeValue(false));
            EXPECT_EQ(window.control("box")->call("isChecked"), NativeValue(true));
            EXPECT_EQ(window.control("other")->call("isChecked"), NativeValue(false));
        });
    });
    Values const expected{{"text", "onea 1"}, {"password", "a 1"}, {"file", "a 1"}, {"area", "two\nb"},
                          {"box", "yes"},     {"other", nullptr},  {"choice", "c"}, {"combo", "b"},
                          {"list", "b"},      {"flex", "k2"},      {"tasks", "t1"}, {"hidden", "h"}};
    EXPECT_EQ(seen, std::vector<Values>{expected});
}

TEST_F(FormTest, WhatAHandlerWritesIntoTheFormIsInTheWidgetsAndTheUserGoesOnFromThere)
{
    Values const set{{"text", "set \u00e4"}, {"password", "p"},  {"file", "f"},   {"area", "a\nb"},
                     {"box", "YES"},         {"other", nullptr}, {"choice", "a"}, {"combo", "G"},
                     {"list", "g"},          {"flex", "K1"},     {"tasks", "t2"}, {"hidden", "new"}};
    std::vector<Values> seen;
    window.on("onSend", [&](NativeWindow&, NativeArguments const&) {
        Values before = form();
        if (seen.empty())
            for (auto const& [name, value] : set)
                host.session("currentForm").object()->set(name, value);
        seen.push_back(before);
    });
    std::string shown;
    run([&](DesktopArea const& inner) {
        press(inner, "send");
        waitFor([&] { return seen.size() == 1; });
        onScriptThread([&] {
            onGuiThread([&] {
                shown = widget<QLineEdit>("text")->text().toStdString() + "," +
                        widget<QLineEdit>("password")->text().toStdString() + "," +
                        widget<QPlainTextEdit>("area")->toPlainText().toStdString() + "," +
                        (widget<QAbstractButton>("box")->isChecked() ? "on" : "off") + "," +
                        (widget<QAbstractButton>("other")->isChecked() ? "on" : "off");
            });
        });
        focus(inner, "area");
        desktop.key("ctrl+End c");
        press(inner, "box");
        press(inner, "send");
        waitFor([&] { return seen.size() == 2; });
    });
    EXPECT_EQ(shown, "set \u00e4,p,a\nb,on,off");
    Values const after = with(set, {{"area", "a\nbc"}, {"box", nullptr}, {"combo", "g"}, {"flex", "k1"}});
    EXPECT_EQ(seen, (std::vector<Values>{kUntouched, after}));
}

TEST_F(FormTest, WhatAHandlerDoesByMethodsIsInTheFormOfTheNextOne)
{
    std::vector<Values> seen;
    window.on("onSend", [&](NativeWindow& self, NativeArguments const&) {
        Values before = form();
        self.control("text")->call("setText", {"t"});
        self.control("area")->call("setText", {"x\ny"});
        self.control("box")->call("check");
        self.control("other")->call("uncheck");
        self.control("combo")->call("selectItem", {"b"});
        self.control("list")->call("addItem", {"v", "Violet"});
        self.control("flex")->call("selectItem", {"k2"});
        self.control("hidden")->call("setText", {"hm"});
        seen.push_back(before);
    });
    run([&](DesktopArea const& inner) {
        for (size_t count : {1u, 2u}) {
            press(inner, "send");
            waitFor([&] { return seen.size() == count; });
        }
    });
    Values const after = with(kUntouched, {{"text", "t"},
                                           {"area", "x\ny"},
                                           {"box", "yes"},
                                           {"other", nullptr},
                                           {"combo", "b"},
                                           {"list", "v"},
                                           {"flex", "k2"},
                                           {"hidden", "hm"}});
    EXPECT_EQ(seen, (std::vector<Values>{kUntouched, after}));
}

TEST_F(FormTest, AButtonFollowsItsOwnLinkAndAResetButtonNone)
{
    std::vector<std::string> calls;
    window.on("onSend", [&](NativeWindow&, NativeArguments const&) { calls.push_back("send"); });
    window.on("onPlain", [&](NativeWindow&, NativeArguments const& args) {
        calls.push_back("plain " + args[1].text() + " " + args[2].text());
        EXPECT_EQ(form(), with(kUntouched, {{"box", "yes"}})) << "nothing was reset";
    });
    run([&](DesktopArea const& inner) {
        press(inner, "box");
        press(inner, "reset");
        press(inner, "plain");
        waitFor([&] { return !calls.empty(); });
    });
    EXPECT_EQ(calls, std::vector<std::string>{"plain 1 two"});
}

TEST_F(FormTest, TheFormHasTheLastValuesWhenTheUserClosesTheWindow)
{
    EXPECT_TRUE(window.open());
    User user([&] {
        DesktopArea inner = desktop.window("Form");
        desktop.waitUntilActive("Form");
        focus(inner, "text");
        desktop.key("End x");
        press(inner, "box");
        desktop.key("alt+F4");
    });
    host.run();
    EXPECT_EQ(form(), with(kUntouched, {{"text", "onex"}, {"box", "yes"}}));
}

} // namespace
