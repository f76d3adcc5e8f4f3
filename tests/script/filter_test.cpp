// tests/script/filter_test.cpp: tests of the content filters and includes of pages: which run, in which order, over
// which text, on every road that a page comes by.
#include "runtime/guifilter.h"
#include "tests/script/scriptfixture.h"

#include <thread>

namespace {

using Texts = std::vector<std::string>;

class Filters : public ScriptTest
{
protected:
    ~Filters() override { guiFilter_destroyAll(); }

    void add(std::string const& pattern, NativeValue filter)
    {
        host.callClass("GuiWindow", "onLoad", {pattern, filter});
    }
    void remove(std::string const& pattern) { host.callClass("GuiWindow", "onLoad", {pattern}); }

    /// A function filter that makes a text of a text.
    NativeValue function(std::function<NativeValue(std::string const&)> work)
    {
        return host.function([work](NativeObject&, NativeArguments const& args) { return work(args[1].text()); });
    }
    NativeValue appending(std::string const& tail)
    {
        return function([tail](std::string const& text) { return NativeValue(text + tail); });
    }

    /// An object with messages: what `answers` has for a key, null for any other.
    NativeValue messages(std::map<std::string, NativeValue> answers)
    {
        NativeObjectRef object = host.object();
        object->on("getString", [this, answers](NativeObject&, NativeArguments const& args) {
            asked.push_back(args.size() == 1 ? args[0].text() : "not one argument");
            auto found = answers.find(asked.back());
            return found == answers.end() ? NativeValue() : found->second;
        });
        return object;
    }

    /// The text after the filters for a page of this name; its handlers are those of `owner`.
    std::string filtered(std::string const& text, std::string const& name = "page.html")
    {
        sstring path(name.c_str());
        sstring content(text.c_str());
        EXPECT_EQ(guiFilter_load(owner.get(), path, content, owner.get(), form.get()), 1);
        return content.c_str();
    }

    NativeWindow window{host.window()};
    NativeObjectRef owner{window.object()};
    NativeObjectRef form{host.object()};
    Texts asked;
};

} // namespace

// ---- Which filters run

TEST_F(Filters, RunInTheOrderOfTheirRegistrationEachOnTheOutputOfTheOneBefore)
{
    add("*", appending(" one"));
    add("page.html", appending(" two"));
    EXPECT_EQ(filtered("text"), "text one two");
}

TEST_F(Filters, OfAnotherNameDoNotRun)
{
    add("other.html", appending(" other"));
    add("^page$", appending(" anchored"));
    add("[", appending(" invalid"));
    EXPECT_EQ(filtered("text"), "text");
}

TEST_F(Filters, SeeThePagesFileNameWithoutFoldersUnlessTheyNameAFolder)
{
    add("^page", appending(" file"));
    add("^/docs/", appending(" path"));
    EXPECT_EQ(filtered("text", "/docs/page.html"), "text file path");
    EXPECT_EQ(filtered("text", "/page/docs/other.html"), "text");
}

TEST_F(Filters, PatternsThatBeginWithAnAsteriskNameEndings)
{
    add("*.htm$", appending(" htm"));
    EXPECT_EQ(filtered("text", "/docs/page.htm"), "text htm");
    EXPECT_EQ(filtered("text", "page.html"), "text");
}

TEST_F(Filters, OfAnInvalidPatternSaySoWhenTheyAreAdded)
{
    EXPECT_EQ(printed([&] { add("[a", appending("")); }),
              "guiFilter_add() - [a is not a valid pattern: it matches nothing\n");
}

TEST_F(Filters, TakeThePlaceOfARemovedOne)
{
    for (char const* name : {"p", "a", "g"})
        add(name, appending(std::string(" ") + name));
    remove("p");
    EXPECT_EQ(filtered("text"), "text a g");
    add("page", appending(" page"));
    EXPECT_EQ(filtered("text"), "text page a g");
}

TEST_F(Filters, AreRemovedByTheirExactPatternAllAtOnce)
{
    add("page", appending(" one"));
    add("page", appending(" two"));
    remove("Page");
    EXPECT_EQ(guiFilter_count(), 2u);
    remove("page");
    EXPECT_EQ(guiFilter_count(), 0u);
}

TEST_F(Filters, MayBeRemovedAndAddedWhileOneRuns)
{
    add("*", function([&](std::string const& text) {
            remove("page");
            add("late", appending(" late"));
            add("html", appending(" late"));
            return NativeValue(text + " first");
        }));
    add("page", appending(" removed"));
    EXPECT_EQ(filtered("text"), "text first");
}

TEST_F(Filters, MayRemoveThemselves)
{
    add("*", function([&](std::string const& text) {
            remove("*");
            return NativeValue(text + " once");
        }));
    EXPECT_EQ(filtered("text"), "text once");
    EXPECT_EQ(filtered("text"), "text");
}

// ---- Function filters

TEST_F(Filters, FunctionsThatGiveNothingDecline)
{
    for (NativeValue const& nothing : {NativeValue(), NativeValue(""), NativeValue(3), NativeValue(true)}) {
        add("*", function([nothing](std::string const&) { return nothing; }));
        EXPECT_EQ(filtered("text"), "text");
        remove("*");
    }
}

TEST_F(Filters, FunctionsGetTheWindowAndTheText)
{
    NativeObjectRef seen;
    add("*", host.function([&](NativeObject& self, NativeArguments const& args) {
        EXPECT_EQ(&self, owner.get());
        EXPECT_EQ(args.size(), 2u);
        seen = args[0].object();
        return NativeValue(args[1].text() + "!");
    }));
    EXPECT_EQ(filtered("text"), "text!");
    EXPECT_EQ(seen.get(), owner.get());
}

TEST_F(Filters, FunctionsFindTheTextAtTheFormAndLeaveTheirsThere)
{
    std::string before;
    add("*", function([&](std::string const& text) {
            before = form->pageText();
            return NativeValue(text + " new");
        }));
    filtered("text");
    EXPECT_EQ(before, "text");
    EXPECT_EQ(form->pageText(), "text new");
}

TEST_F(Filters, FunctionsMayReturn64MiBAndNotMore)
{
    constexpr std::size_t kUnits = kFilteredBytes / 2;
    std::size_t size = kUnits;
    add("*", function([&](std::string const&) { return NativeValue(std::string(size, 'x')); }));
    EXPECT_EQ(filtered("text").size(), kUnits);
    size = kUnits + 1;
    std::string text;
    EXPECT_EQ(printed([&] { text = filtered("text"); }),
              "guiFilter_load() - the filter for * returned more than 64 MiB: its text is left out\n");
    EXPECT_EQ(text, "text");
}

// ---- Message filters

TEST_F(Filters, MessagesReplaceTheirMarkers)
{
    add("*", messages({{"AUTO3", "three"}}));
    EXPECT_EQ(filtered("Total: @3 items"), "Total: three items");
    EXPECT_EQ(filtered("@a @ @"), "@a @ @");
    EXPECT_EQ(filtered("@3"), "three");
    EXPECT_EQ(filtered("@@3@3"), "@threethree");
}

TEST_F(Filters, MessagesAreAskedForByNumberInDecimal)
{
    add("*", messages({{"AUTO7", "seven"}, {"AUTO70", "seventy"}}));
    EXPECT_EQ(filtered("@007 @70 @70x"), "seven seventy seventyx");
    EXPECT_EQ(asked, (Texts{"AUTO7", "AUTO70", "AUTO70"}));
}

TEST_F(Filters, MessagesThatAreNotKnownStayAsTheyAre)
{
    add("*", messages({{"AUTO2", "two"}}));
    EXPECT_EQ(filtered("@1 @2 @3"), "@1 two @3");
}

TEST_F(Filters, MessagesMayBeEmptyOrNumbersAndAreNotSearchedAgain)
{
    add("*", messages({{"AUTO1", ""}, {"AUTO2", 42}, {"AUTO3", "@1@2"}}));
    EXPECT_EQ(filtered("[@1][@2][@3]"), "[][42][@1@2]");
}

TEST_F(Filters, MessagesAndFunctionsTakeTurnsByTheirPlaces)
{
    add("*", messages({{"AUTO1", "one"}}));
    add("*", appending(" @1"));
    add("*", appending("!"));
    EXPECT_EQ(filtered("@1"), "one @1!");
}

// ---- Includes

TEST_F(Filters, IncludesBecomeWhatTheirHandlerReturns)
{
    window.on("footer", [&](NativeWindow&, NativeArguments const&) { return NativeValue("the end"); });
    EXPECT_EQ(filtered("a <!--#exec cgi='event://footer'--> b"), "a the end b");
    EXPECT_EQ(filtered("a <!--#exec cgi=\"event://footer\"--> b"), "a the end b");
    EXPECT_EQ(filtered("a <!--# \tEXEC\tCgi  = EVENT://footer --> b"), "a the end b");
}

TEST_F(Filters, IncludesCallTheirHandlerAsLinksDo)
{
    NativeArguments given;
    window.on("row", [&](NativeWindow&, NativeArguments const& args) {
        given = args;
        return NativeValue("row");
    });
    EXPECT_EQ(filtered("<!--#exec cgi='event://row/3/red'-->"), "row");
    ASSERT_EQ(given.size(), 3u);
    EXPECT_EQ(given[0].object().get(), pGUI->getSession());
    EXPECT_EQ(given[1], NativeValue("3"));
    EXPECT_EQ(given[2], NativeValue("red"));
}

TEST_F(Filters, MalformedIncludesStay)
{
    window.on("footer", [&](NativeWindow&, NativeArguments const&) { return NativeValue("the end"); });
    for (char const* text :
         {"<!--#include cgi='event://footer'-->", "<!--#exec 'event://footer'-->", "<!--#exec cgi 'event://footer'-->",
          "<!--#exec cgi='event://footer'", "<!-- #exec cgi='event://footer'-->", "<!--#exe cgi='event://footer'-->"})
        EXPECT_EQ(filtered(text), text);
    EXPECT_EQ(filtered("<!--#include x--><!--#exec cgi=event://footer -->"), "<!--#include x-->the end");
    EXPECT_EQ(filtered("<!--#<!--#exec cgi=event://footer -->"), "<!--#the end");
}

TEST_F(Filters, IncludesOfAnythingButAHandlerBecomeNothing)
{
    EXPECT_EQ(filtered("a<!--#exec cgi='date'-->b<!--#exec cgi=''-->c<!--#exec cgi=-->d"), "abcd");
}

TEST_F(Filters, IncludesMayBringIncludes)
{
    window.on("outer",
              [&](NativeWindow&, NativeArguments const&) { return NativeValue("[<!--#exec cgi='event://inner'-->]"); });
    window.on("inner", [&](NativeWindow&, NativeArguments const&) { return NativeValue("in"); });
    EXPECT_EQ(filtered("<!--#exec cgi='event://outer'-->"), "[in]");
}

TEST_F(Filters, AnIncludeThatProducesItselfStopsAfterAThousand)
{
    int calls = 0;
    std::string const own = "<!--#exec cgi='event://again'-->";
    window.on("again", [&](NativeWindow&, NativeArguments const&) { return ++calls, NativeValue("x" + own); });
    std::string text;
    EXPECT_EQ(printed([&] { text = filtered(own); }),
              "guiFilter_load() - page.html has more than 1000 includes: the rest stay as they are\n");
    EXPECT_EQ(calls, 1000);
    EXPECT_EQ(text, std::string(1000, 'x') + own);
}

TEST_F(Filters, AThousandIncludesAreExpandedInSilence)
{
    window.on("x", [&](NativeWindow&, NativeArguments const&) { return NativeValue("x"); });
    std::string page;
    for (int i = 0; i < 1000; ++i)
        page += "<!--#exec cgi='event://x'-->";
    std::string text;
    EXPECT_EQ(printed([&] { text = filtered(page); }), "");
    EXPECT_EQ(text, std::string(1000, 'x'));
}

TEST_F(Filters, IncludesThatWouldMakeThePageTooLongStay)
{
    std::string const large(kFilteredBytes / 4, 'x');
    window.on("large", [&](NativeWindow&, NativeArguments const&) { return NativeValue(large); });
    std::string const own = "<!--#exec cgi='event://large'-->";
    std::string text;
    EXPECT_EQ(printed([&] { text = filtered(own + own + own); }),
              "guiFilter_ProcessSSI() - an include would make the page longer than 64 MiB: it stays as it is\n");
    EXPECT_EQ(text.size(), large.size() + 2 * own.size());
}

TEST_F(Filters, IncludesSeeThePageAtTheForm)
{
    std::string before;
    window.on("footer", [&](NativeWindow&, NativeArguments const&) {
        before = form->pageText();
        return NativeValue("end");
    });
    filtered("<!--#exec cgi='event://footer'-->");
    EXPECT_EQ(before, "<!--#exec cgi='event://footer'-->");
    EXPECT_EQ(form->pageText(), "end");
}

TEST_F(Filters, MegabytesOfHalfIncludesTakeNoTime)
{
    std::string halves;
    while (halves.size() < 2'000'000)
        halves += "<!--#exec cgi='x ";
    timespec start = {};
    timespec end = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &start);
    EXPECT_EQ(filtered(halves), halves);
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &end);
    EXPECT_LT(end.tv_sec - start.tv_sec, 5);
}

// ---- Every road

namespace {

/// What the page of the window holds, as text.
std::string shownText(NativeWindow& window)
{
    static std::string text;
    text.clear();
    auto look = [](LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&) {
        if (guiHtmlBase* root = GetWindow(guiWindow_getData(data)))
            text = root->toString(0).c_str();
    };
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(look, pGUI->getManager(), window.object()->getPrivate(), nullptr, args, result);
    return text;
}

bool shows(NativeWindow& window, std::string const& text) { return shownText(window).find(text) != std::string::npos; }

} // namespace

TEST_F(Filters, PagesOfTheConstructorAndOfLoadAreFiltered)
{
    write("first.html", "<html><body>@1</body></html>");
    write("second.html", "<html><body>@2</body></html>");
    add("*", messages({{"AUTO1", "uno"}, {"AUTO2", "due"}}));
    NativeWindow made = host.window("first.html");
    EXPECT_TRUE(shows(made, "uno"));
    EXPECT_EQ(made.call("load", {"second.html"}), NativeValue(true));
    EXPECT_TRUE(shows(made, "due"));
    NativeWindow empty = host.window();
    EXPECT_EQ(empty.call("load", {"first.html"}), NativeValue(true));
    EXPECT_TRUE(shows(empty, "uno"));
    EXPECT_EQ(empty.call("loadFile", {"second.html"}), NativeValue(true));
    EXPECT_TRUE(shows(empty, "due"));
}

TEST_F(Filters, PagesOfCellsFramesAndLinksAreFiltered)
{
    write("part.html", "<html><body>@1</body></html>");
    write("frame.html", "<html><body>@2</body></html>");
    write("next.html", "<html><body>@3</body></html>");
    write("outer.html", "<html><body><table><tr><td src='part.html'></td></tr></table>"
                        "<frameset><frame src='frame.html'></frameset></body></html>");
    add("*", messages({{"AUTO1", "uno"}, {"AUTO2", "due"}, {"AUTO3", "tre"}}));
    NativeWindow outer = host.window("outer.html");
    EXPECT_TRUE(shows(outer, "uno"));
    EXPECT_TRUE(shows(outer, "due"));
    follow(outer, "next.html");
    EXPECT_TRUE(shows(outer, "tre"));
}

TEST_F(Filters, TextThatScriptSetsIsNotFiltered)
{
    add("*", messages({{"AUTO1", "uno"}}));
    NativeWindow made = windowOf("page");
    made.call("setText", {"<html><body>@1 stays</body></html>"});
    EXPECT_TRUE(shows(made, "@1 stays"));
}

TEST_F(Filters, IncludesOfAPageCallTheHandlersOfItsWindow)
{
    write("hello.html", "<html><body>[<!--#exec cgi='event://who/2'-->]</body></html>");
    NativeWindow made = host.window();
    made.on("who", [&](NativeWindow& self, NativeArguments const& args) {
        EXPECT_EQ(self.object().get(), made.object().get());
        return NativeValue("you" + args[1].text());
    });
    made.call("load", {"hello.html"});
    EXPECT_TRUE(shows(made, "[you2]"));
}

TEST_F(Filters, AFilterMayEndTheWindowWhosePageItFilters)
{
    write("first.html", "<html><body>first</body></html>");
    NativeWindow made = host.window();
    add("*", function([&](std::string const& text) {
            made.object()->runDestroyHandler();
            return NativeValue(text);
        }));
    EXPECT_EQ(made.call("load", {"first.html"}), NativeValue(false));
}
