// tests/script/assignedvalues_test.cpp: what a handler assigns to the form reaches every control, although some of them
// call handlers of their own when they change.
#include "tests/script/controlscript.h"

namespace {

class AssignedValues : public ControlScript
{
protected:
    NativeWindow openWith(std::string const& page, std::function<void(NativeObject& form)> const& handler)
    {
        NativeWindow window = open(page);
        window.on("onGo", [this, handler](NativeWindow&, NativeArguments const&) { handler(formObject()); });
        return window;
    }

    /// Calls the handler as a click on a link does; when this returns, the controls have their values.
    void press()
    {
        onGuiThread([this] { root->onHyperlink("event://onGo", nullptr); });
    }

    /// The text that a field shows.
    std::string shown(char const* name)
    {
        std::string text;
        onGuiThread([&] { text = node<guiHtmlControlEdit>(name).getText().c_str(); });
        return text;
    }
};

constexpr char const* kThreeFields =
    "<input type=text name=first value=a onchange=event://onFirst><input type=text name=second value=b>"
    "<input type=text name=third value=c onchange=event://onThird>";

void assignAll(NativeObject& form)
{
    form.set("first", "one");
    form.set("second", "two");
    form.set("third", "three");
}

TEST_F(AssignedValues, AllArriveAlthoughAFieldCallsAHandlerMeanwhile)
{
    NativeWindow window = openWith(kThreeFields, assignAll);
    std::vector<std::string> seen;
    for (char const* name : {"onFirst", "onThird"})
        window.on(name, [&](NativeWindow&, NativeArguments const&) {
            seen.push_back(form("first").text() + " " + form("second").text() + " " + form("third").text());
        });
    press();
    EXPECT_EQ(seen, (std::vector<std::string>{"one two three", "one two three"}));
    for (auto const& [name, text] : {std::pair("first", "one"), {"second", "two"}, {"third", "three"}})
        EXPECT_EQ(shown(name), text);
}

TEST_F(AssignedValues, AreWhatTheInnerHandlerAssignedLast)
{
    NativeWindow window = openWith(kThreeFields, assignAll);
    window.on("onFirst", [&](NativeWindow&, NativeArguments const&) { formObject().set("second", "inner"); });
    press();
    EXPECT_EQ(shown("second"), "inner");
    EXPECT_EQ(shown("third"), "three");
}

TEST_F(AssignedValues, ReachRadioButtonsOfOneNameBehindAFieldThatCallsAHandler)
{
    NativeWindow window =
        openWith("<input type=text name=first onchange=event://onFirst><input type=radio name=r value=a checked>"
                 "<input type=radio name=r value=b><input type=radio name=r value=c>",
                 [](NativeObject& form) {
                     form.set("first", "one");
                     form.set("r", "c");
                 });
    std::string seen;
    window.on("onFirst", [&](NativeWindow&, NativeArguments const&) { seen = form("r").text(); });
    press();
    EXPECT_EQ(seen, "c");
    writeForm();
    EXPECT_EQ(form("r"), NativeValue("c"));
}

TEST_F(AssignedValues, ReachListBoxesThatAreSetTogether)
{
    std::string const options = "<option value=a>A<option value=b>B<option value=c>C</select>";
    NativeWindow window = openWith("<select name=left size=3 onchange=event://onList>" + options +
                                       "<select name=right size=3 onchange=event://onList>" + options,
                                   [](NativeObject& form) {
                                       form.set("left", "b");
                                       form.set("right", "c");
                                   });
    std::vector<std::string> seen;
    window.on("onList", [&](NativeWindow&, NativeArguments const&) {
        seen.push_back(form("left").text() + form("right").text());
    });
    press();
    EXPECT_EQ(seen, (std::vector<std::string>{"bc", "bc"}));
    EXPECT_EQ(node<guiHtmlControlList>("left").getSelected(), sstring("b"));
    EXPECT_EQ(node<guiHtmlControlList>("right").getSelected(), sstring("c"));
}

TEST_F(AssignedValues, OfAPageThatAnInnerHandlerReplacedAreForgotten)
{
    NativeWindow window = openWith(kThreeFields, assignAll);
    bool isReplaced = false;
    window.on("onFirst", [&](NativeWindow& self, NativeArguments const&) {
        self.setText(
            "<input type=text name=second value=new><input type=text name=fourth value=d onchange=event://onFourth>");
        isReplaced = true;
    });
    press();
    EXPECT_TRUE(isReplaced);
    EXPECT_EQ(shown("second"), "new");
    writeForm();
    EXPECT_EQ(form("second"), NativeValue("new"));
}

} // namespace
