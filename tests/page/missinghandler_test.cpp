// tests/page/missinghandler_test.cpp: what is told when a page calls a handler that nobody has.
#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihandlerplaces.h"
#include "page/guihtmlparser.h"
#include "tests/page/pagewindow.h"
#include "tests/support/fakescript.h"

#include <gtest/gtest.h>

namespace {

/// A host that can list the methods of its objects.
class ListingHost : public FakeHost
{
public:
    std::vector<sstring> methodNames(ScriptObject* target) override
    {
        std::vector<sstring> names;
        for (auto const& [name, method] : static_cast<FakeObject*>(target)->methods)
            names.emplace_back(name.c_str());
        return names;
    }
};

class MissingHandler : public ::testing::Test
{
protected:
    MissingHandler() : root(sstring(kFile), &page)
    {
        read("<body>\n<a href=\"event://onPick/3\">x</a>\n<td onclick=event://onOk>");
    }

    void read(char const* text, char const* file = kFile)
    {
        sstring content(text);
        datastream stream(content);
        mlParser markup(&stream);
        guiHtmlParser(&markup, "/app/", file).pullPage(&root);
    }

    std::string told(char const* link, ScriptObject* object = nullptr)
    {
        testing::internal::CaptureStderr();
        root.onEvent(sstring(link), object);
        return testing::internal::GetCapturedStderr();
    }

    static constexpr char kFile[] = "/app/main.html";
    ListingHost host;
    FakeObject page;
    FakeObject own;
    BareRoot root;
};

} // namespace

TEST_F(MissingHandler, IsToldWithItsPlaceAndTheNearestMethodOfThePage)
{
    page.methods["onPicked"] = page.methods["onCancel"] = [](std::string const&) { return ""; };
    EXPECT_EQ(told("event://onPick/3/red"),
              "tarn: no handler onPick for event://onPick/3/red in /app/main.html:2; did you mean onPicked?\n");
    EXPECT_EQ(told("event://onOk"), "tarn: no handler onOk for event://onOk in /app/main.html:3\n");
}

TEST_F(MissingHandler, OfAnElementsOwnObjectComesCloseToo)
{
    own.methods["onOkay"] = [](std::string const&) { return ""; };
    EXPECT_EQ(told("event://onOka", &own), "tarn: no handler onOka for event://onOka; did you mean onOkay?\n");
}

TEST_F(MissingHandler, IsToldOnceUntilThePageIsReadAgain)
{
    EXPECT_NE(told("event://onOk"), "");
    EXPECT_EQ(told("event://onOk/again"), "");
    read("<body><td onclick='event://onOk'>", "");
    EXPECT_EQ(told("event://onOk"), "tarn: no handler onOk for event://onOk in line 1\n");
}

TEST_F(MissingHandler, IsNotToldWhereSomebodyHasItOrNobodyAskedForIt)
{
    page.methods["onOk"] = [](std::string const&) { return ""; };
    EXPECT_EQ(told("event://onOk", &own), "");
    EXPECT_EQ(told("event://eMouseOver", &own), "");
    EXPECT_EQ(told("event://"), "");
}

TEST(HandlerNames, AreFoundInLinks)
{
    EXPECT_EQ(guiHandlerIn("event://onPick/3"), u"onPick");
    EXPECT_EQ(guiHandlerIn("{_top}event://a\\b"), u"a");
    EXPECT_EQ(guiHandlerIn("page.html"), u"");
}
