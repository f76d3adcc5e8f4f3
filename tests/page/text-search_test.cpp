// tests/page/text-search_test.cpp: where a text is found on a page, in which order, how it looks, and how long it
// takes.
#include "tests/page/pagewindow.h"
#include "tests/support/instrumented.h"
#include "tests/support/processortime.h"

#include "page/guihtmltext.h"
#include "page/guipagetext.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class TextSearch : public testing::Test
{
protected:
    void show(std::string const& body)
    {
        showPage(window, "<html><body bgcolor=\"#FFFFFF\" valign=\"top\">" + body + "</body></html>");
    }

    guiTextSearch& search() { return window.root.ensurePageText().search; }
    std::size_t find(char const* text, bool matchCase = false)
    {
        return search().find(QString::fromUtf8(text), matchCase);
    }
    /// What of the page the current place covers.
    std::string current()
    {
        auto const hit = search().currentHit();
        if (!hit)
            return "nothing";
        window.root.ensurePageText().selection.select(hit->from, hit->to);
        return window.root.ensurePageText().selection.text().toStdString();
    }

    PageWindow window;
};

TEST_F(TextSearch, FindsAllPlacesWithoutRegardToCase)
{
    show("<p>Tea, tea and TEA</p><p>coffee</p><p>more tea</p>");
    EXPECT_EQ(find("tea"), 4u);
    EXPECT_EQ(find("TeA"), 4u);
    EXPECT_EQ(find("tea", true), 2u);
    EXPECT_EQ(find("milk"), 0u);
    EXPECT_EQ(find(""), 0u);
}

TEST_F(TextSearch, FoldsLettersOfAllScripts)
{
    show("<p>STRASSE, Straße, strasse; ΣΊΣΥΦΟΣ, σίσυφος; Ёж</p>");
    EXPECT_EQ(find("straße"), 3u);
    EXPECT_EQ(find("Strasse"), 3u);
    EXPECT_EQ(find("σίσυφοσ"), 2u);
    EXPECT_EQ(find("ёЖ"), 1u);
    EXPECT_EQ(find("Straße", true), 1u);
}

TEST_F(TextSearch, WhatIsNotSeenIsNotLookedFor)
{
    show("<p>co&shy;ope&shy;rate, cooperate; <bdi>one</bdi> two</p>");
    EXPECT_EQ(find("cooperate"), 2u);
    search().goOn(true);
    EXPECT_EQ(current(), "co\u00ADope\u00ADrate");
    EXPECT_EQ(find("Cooperate", true), 0u);
    EXPECT_EQ(find("one two"), 1u);
    EXPECT_EQ(find("co\u00ADoperate"), 2u);
    EXPECT_EQ(find("\u00AD"), 0u);
}

TEST_F(TextSearch, ALetterThatIsFoldedToTwoIsFoundAsAWhole)
{
    show("<p>a ß b</p>");
    ASSERT_EQ(find("s"), 1u);
    search().goOn(true);
    EXPECT_EQ(current(), "ß");
}

TEST_F(TextSearch, FormattingAndLineBreaksDoNotMatterParagraphsDo)
{
    show("<p>be<b>tw</b>een <i>two</i><br>lines</p><p>end</p>");
    EXPECT_EQ(find("between two lines"), 1u);
    EXPECT_EQ(find("lines end"), 0u);
    search().goOn(true);
    find("tween");
    search().goOn(true);
    EXPECT_EQ(current(), "tween");
}

TEST_F(TextSearch, CodesAndLinksAreNotText)
{
    show("<p>plain <a href=\"event://secret\">link</a> <font color=\"#123456\">colour</font></p>");
    EXPECT_EQ(find("secret"), 0u);
    EXPECT_EQ(find("123456"), 0u);
    EXPECT_EQ(find("link"), 1u);
}

TEST_F(TextSearch, GoesRoundInBothDirections)
{
    show("<p>x1 x2</p><p>x3</p>");
    ASSERT_EQ(find("x"), 3u);
    EXPECT_FALSE(search().current());
    for (std::size_t wanted : {0u, 1u, 2u, 0u}) {
        search().goOn(true);
        EXPECT_EQ(search().current(), wanted);
    }
    search().goOn(false);
    EXPECT_EQ(search().current(), 2u);
}

TEST_F(TextSearch, StartsAtAPlaceOrAtTheFirstOneBehindTheLast)
{
    show("<p>x1 x2</p><p>x3</p>");
    find("x");
    search().goOn(true);
    guiTextSpot const start = search().currentHit()->from;
    search().startAt(start);
    EXPECT_EQ(search().current(), 0u);
    search().startAt({start.run, start.unit + 1});
    EXPECT_EQ(search().current(), 1u);
    search().startAt({start.run, start.unit + 4});
    EXPECT_EQ(search().current(), 2u);
    find("x1");
    search().startAt({start.run, start.unit + 1});
    EXPECT_EQ(search().current(), 0u);
}

TEST_F(TextSearch, APageThatChangesIsSearchedAgain)
{
    show("<p>tea</p><table><tr><td name=\"box\">tea</td></tr></table>");
    ASSERT_EQ(find("tea"), 2u);
    search().goOn(false);
    EXPECT_EQ(search().current(), 1u);
    window.root.getNamed(sstring("box"))->setText(sstring("<p>coffee</p>"), sstring());
    EXPECT_EQ(search().count(), 1u);
    EXPECT_EQ(search().current(), 0u);
    window.root.setText(sstring("<html><body>nothing</body></html>"), sstring());
    EXPECT_EQ(search().count(), 0u);
    EXPECT_EQ(current(), "nothing");
}

TEST_F(TextSearch, AllPlacesStandOut)
{
    show("<p>HHHHHH<br>.<br>HHHHHH</p>");
    ASSERT_EQ(find("hhhhhh"), 2u);
    search().goOn(true);
    Canvas canvas(400, 300);
    canvas.paint(&window.root, window.widget);
    QRect const first = guiCaretOf(search().currentHit()->from);
    search().goOn(true);
    QRect const second = guiCaretOf(search().currentHit()->from);
    EXPECT_EQ(canvas.at(first.left(), first.top()),
              window.widget->palette().color(QPalette::Active, QPalette::Highlight).rgb());
    EXPECT_EQ(canvas.at(second.left(), second.top()), qRgb(255, 204, 102));
    search().clear();
    canvas.paint(&window.root, window.widget);
    EXPECT_EQ(canvas.at(second.left(), second.top()), qRgb(255, 255, 255));
}

TEST_F(TextSearch, AMegabyteWithAHundredThousandPlacesTakesLittleTime)
{
    std::string paragraphs;
    for (int i = 0; i < 10000; ++i)
        paragraphs += "<p>ten times <b>tea</b> tea tea tea tea tea tea tea tea tea and some more text to fill it up "
                      "</p>\n";
    window.root.setText(sstring(("<html><body>" + paragraphs + "</body></html>").c_str()), sstring());
    std::int64_t const before = processorTime();
    EXPECT_EQ(find("TEA"), 100000u);
    std::int64_t const taken = (processorTime() - before) / 1000000;
    RecordProperty("milliseconds", static_cast<int>(taken));
    constexpr int kSlowdown = kIsInstrumented ? 20 : 1;
    EXPECT_LT(taken, 100 * kSlowdown);
    std::string const hostile(1000000, 'a');
    window.root.setText(sstring(("<html><body><p>" + hostile + "</p></body></html>").c_str()), sstring());
    std::int64_t const start = processorTime();
    EXPECT_EQ(find(("b" + std::string(500, 'a')).c_str()), 0u);
    EXPECT_EQ(find((std::string(500, 'a') + "b").c_str()), 0u);
    EXPECT_LT((processorTime() - start) / 1000000, 200 * kSlowdown);
}

} // namespace
