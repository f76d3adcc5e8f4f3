// tests/page/text-selection_test.cpp: what is selected of a page: where a point leads, how a selection grows, what is
// copied of it and how it looks.
#include "tests/page/pagewindow.h"

#include "page/guihtmltext.h"
#include "page/guipagetext.h"

#include <gtest/gtest.h>

#include <QPalette>
#include <memory>
#include <string>

namespace {

/// A page laid out in 400 by 300 pixels.
class TextSelection : public testing::Test
{
protected:
    void show(char const* body, char const* attributes = "")
    {
        showPage(window, std::string("<html><body ") + attributes + " valign=\"top\">" + body + "</body></html>");
    }

    guiTextSelection& selection() { return window.root.ensurePageText().selection; }
    std::string text() { return selection().text().toStdString(); }
    std::string html() { return selection().html().toStdString(); }

    /// The run with this text, and the place before it or `behind` characters further.
    guiTextSpot before(char const* text, int behind = 0)
    {
        guiTextFlow const flow(&window.root, guiTextFlow::scope::kAll);
        for (std::size_t i = 0; i < flow.size(); ++i) {
            qsizetype const at = flow[i].node->editText().view().indexOf(QString::fromUtf8(text));
            if (at >= 0)
                return {flow[i].node, static_cast<unsigned>(at + behind)};
        }
        ADD_FAILURE() << text << " is not on the page";
        return {};
    }
    guiTextSpot behind(char const* text) { return before(text, static_cast<int>(QString::fromUtf8(text).size())); }
    QPoint pointOf(guiTextSpot const& spot) { return guiCaretOf(spot).center(); }

    PageWindow window;
};

constexpr char kTable[] = "<table><tr><td>one</td><td>two</td><td>three</td></tr>"
                          "<tr><td>four</td><td></td><td>six</td></tr></table>";

TEST_F(TextSelection, APointLeadsToThePlaceBetweenTwoLettersThatIsNearest)
{
    show("<p>alpha beta gamma</p>");
    for (int i = 0; i <= 16; ++i) {
        guiTextSpot const spot = before("alpha", i);
        EXPECT_EQ(guiTextSpotAt(&window.root, pointOf(spot)), spot) << i;
    }
    QPoint const middle = (pointOf(before("alpha")) + pointOf(before("alpha", 1))) / 2;
    EXPECT_EQ(guiTextSpotAt(&window.root, middle - QPoint(2, 0)), before("alpha"));
    EXPECT_EQ(guiTextSpotAt(&window.root, middle + QPoint(2, 0)), before("alpha", 1));
}

TEST_F(TextSelection, APointBesideAboveOrBelowTheTextLeadsToTheNearestRun)
{
    show("<p>first</p><p>second</p>");
    int const y = pointOf(before("second")).y();
    EXPECT_EQ(guiTextSpotAt(&window.root, {390, y}), behind("second"));
    EXPECT_EQ(guiTextSpotAt(&window.root, {0, y}), before("second"));
    EXPECT_EQ(guiTextSpotAt(&window.root, {200, -50}), before("first"));
    EXPECT_EQ(guiTextSpotAt(&window.root, {200, 299}), behind("second"));
}

TEST_F(TextSelection, LettersWrittenFromTheRightAreFoundWhereTheyStand)
{
    show("<p>ab \u05d0\u05d1\u05d2 cd</p>");
    guiTextSpot const start = before("\u05d0\u05d1\u05d2");
    guiTextSpot const second{start.run, start.unit + 1};
    guiTextSpot const third{start.run, start.unit + 2};
    EXPECT_GT(pointOf(second).x(), pointOf(third).x());
    EXPECT_EQ(guiTextSpotAt(&window.root, pointOf(second)), second);
    EXPECT_EQ(guiTextSpotAt(&window.root, pointOf(third)), third);
}

TEST_F(TextSelection, ALineThatBeginsOnTheRightIsMarkedWhereItsLettersStand)
{
    show("<p>\u05d0\u05d1\u05d2 HHHH</p>", "bgcolor=\"#FFFFFF\"");
    selection().select(before("HHHH"), behind("HHHH"));
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0, 0, 255));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(0, 0, 255));
    window.widget->setPalette(palette);
    Canvas canvas(400, 300);
    canvas.paint(&window.root, window.widget);
    QRect const line = guiCaretOf(before("HHHH"));
    int blue = 0;
    bool isInkBehind = false; // of letters of the other script, all on the right of the marked ones
    for (int x = 0; x < 400; ++x) {
        bool hasInk = false;
        for (int y = line.top(); y <= line.bottom(); ++y)
            hasInk = hasInk || qRed(canvas.at(x, y)) < 128;
        bool const isMarked = canvas.at(x, line.top()) == qRgb(0, 0, 255);
        blue += isMarked ? 1 : 0;
        isInkBehind = isInkBehind || (blue != 0 && hasInk && !isMarked);
        EXPECT_FALSE(blue == 0 && hasInk && !isMarked) << x;
    }
    EXPECT_GT(blue, 20);
    EXPECT_TRUE(isInkBehind);
}

TEST_F(TextSelection, GoesFromOnePlaceToTheOtherInEitherDirection)
{
    show("<p>alpha beta</p><p>gamma</p>");
    selection().start(before("beta"));
    EXPECT_TRUE(selection().isEmpty());
    selection().extendTo(behind("gam"));
    EXPECT_EQ(text(), "beta\n\ngam");
    selection().extendTo(behind("al"));
    EXPECT_EQ(text(), "pha ");
    selection().clear();
    EXPECT_TRUE(selection().isEmpty());
    EXPECT_FALSE(selection().hasStart());
    EXPECT_EQ(text(), "");
}

TEST_F(TextSelection, CodesAreNoPartOfWhatIsCopied)
{
    show("<p>plain <b>bold</b> and <a href=\"event://go\">link</a><br>next &amp; last</p>");
    selection().selectAll();
    EXPECT_EQ(text(), "plain bold and link\nnext & last");
    EXPECT_EQ(html(), "plain <b>bold</b> and <a href=\"event://go\">link</a><br>next &amp; last");
}

TEST_F(TextSelection, MarkupKeepsStylesOfThePartThatIsSelected)
{
    show(
        "<p><b>bold <i>both</i></b> <u>under</u> <s>struck</s> <mark>marked</mark> &quot;x&quot; &lt; y</p><p>end</p>");
    selection().select(before("old"), behind("end"));
    EXPECT_EQ(html(), "<p><b>old </b><i><b>both</b></i> <u>under</u> <s>struck</s> <mark>marked</mark> &quot;x&quot; "
                      "&lt; y</p>\n<p>end</p>\n");
}

TEST_F(TextSelection, CellsAreSeparatedByTabsAndRowsByLines)
{
    show((std::string("<p>above</p>") + kTable + "<p>below</p>").c_str());
    selection().selectAll();
    EXPECT_EQ(text(), "above\n\none\ttwo\tthree\nfour\t\tsix\n\nbelow");
    EXPECT_EQ(html(), "<p>above</p>\n<table><tr><td>one</td><td>two</td><td>three</td></tr>"
                      "<tr><td>four</td><td></td><td>six</td></tr></table>\n<p>below</p>\n");
}

TEST_F(TextSelection, ADoubleClickTakesTheWordAndGoesOnByWords)
{
    show("<p>one <b>be</b>tween two, three</p>");
    selection().start(before("tween", 2), guiTextSelection::step::kWord);
    EXPECT_EQ(text(), "between");
    selection().extendTo(before("two", 1));
    EXPECT_EQ(text(), "between two");
    selection().extendTo(before("one", 1));
    EXPECT_EQ(text(), "one between");
}

TEST_F(TextSelection, ATripleClickTakesTheParagraph)
{
    show("<p>one <i>two</i> three</p><p>four</p>");
    selection().start(before("two", 1), guiTextSelection::step::kParagraph);
    EXPECT_EQ(text(), "one two three");
    selection().extendTo(before("four", 2));
    EXPECT_EQ(text(), "one two three\n\nfour");
}

TEST_F(TextSelection, KeysGoByCharactersAndWordsAcrossParagraphs)
{
    show("<p>ab e\u0301f</p><p>gh ij</p>");
    using step = guiTextSelection::step;
    selection().start(behind("ab "));
    selection().extendTo(selection().stepped(true, step::kCharacter));
    EXPECT_EQ(text(), "e\u0301");
    selection().extendTo(selection().stepped(true, step::kWord));
    EXPECT_EQ(text(), "e\u0301f");
    selection().extendTo(selection().stepped(true, step::kWord));
    selection().extendTo(selection().stepped(true, step::kWord));
    EXPECT_EQ(text(), "e\u0301f\n\ngh");
    for (int i = 0; i < 3; ++i)
        selection().extendTo(selection().stepped(false, step::kWord));
    EXPECT_EQ(text(), "");
    selection().extendTo(selection().stepped(false, step::kWord));
    EXPECT_EQ(text(), "ab ");
    selection().extendTo(selection().stepped(false, step::kCharacter));
    EXPECT_EQ(text(), "ab ");
}

TEST_F(TextSelection, TextInAnElementThatAsksForItIsNotSelected)
{
    show("<table><tr><td>one</td><td noselect>two <table><tr><td>in "
         "it</td></tr></table></td><td>three</td></tr></table>");
    selection().selectAll();
    EXPECT_EQ(text(), "one\t\tthree");
    EXPECT_NE(guiTextSpotAt(&window.root, pointOf(before("two"))).run, before("two").run);
    selection().start(before("two"));
    EXPECT_FALSE(selection().hasStart());
}

TEST_F(TextSelection, APageThatAsksForItHasNothingToSelect)
{
    show("<p>text</p>", "noselect");
    EXPECT_FALSE(guiTextSpotAt(&window.root, {20, 20}));
    selection().selectAll();
    EXPECT_TRUE(selection().isEmpty());
}

TEST_F(TextSelection, GoesWithThePageThatItIsOf)
{
    show("<p>old</p>");
    selection().selectAll();
    ASSERT_EQ(text(), "old");
    show("<p>new</p>");
    EXPECT_EQ(text(), "");
    EXPECT_TRUE(selection().isEmpty());
    EXPECT_FALSE(selection().hasStart());
}

TEST_F(TextSelection, StaysWhenOtherPartsOfThePageChange)
{
    show("<p>text</p><table><tr><td name=\"box\">old</td></tr></table>");
    selection().start(before("text"), guiTextSelection::step::kParagraph);
    window.root.getNamed(sstring("box"))->setText(sstring("<p>other</p>"), sstring());
    EXPECT_EQ(text(), "text");
}

TEST_F(TextSelection, IsPaintedInThePalettesColoursWhereItIs)
{
    show("<p>HHHHH HHHHH</p>", "bgcolor=\"#FFFFFF\"");
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(10, 20, 200));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(250, 240, 10));
    window.widget->setPalette(palette);
    selection().select(before("HHHHH", 2), before("HHHHH", 6));
    Canvas canvas(400, 300);
    canvas.paint(&window.root, window.widget);
    QRect const from = guiCaretOf(before("HHHHH", 2));
    int const to = guiCaretOf(before("HHHHH", 6)).left();
    EXPECT_EQ(canvas.at(from.left(), from.top()), qRgb(10, 20, 200));
    EXPECT_EQ(canvas.at(to - 1, from.bottom()), qRgb(10, 20, 200));
    EXPECT_EQ(canvas.at(from.left() - 1, from.top()), qRgb(255, 255, 255));
    EXPECT_EQ(canvas.at(to, from.top()), qRgb(255, 255, 255));
    bool hasInk = false; // smoothed at its edges
    for (int x = from.left(); x < to; ++x)
        for (int y = from.top(); y <= from.bottom(); ++y)
            hasInk = hasInk || (qRed(canvas.at(x, y)) > 180 && qBlue(canvas.at(x, y)) < 80);
    EXPECT_TRUE(hasInk);
}

TEST_F(TextSelection, PaintingLooksForNothingWhileNothingIsSelectedAnywhere)
{
    show("<p>text</p>");
    unsigned const before = guiMarking::count();
    selection().selectAll();
    EXPECT_EQ(guiMarking::count(), before + 1);
    selection().clear();
    EXPECT_EQ(guiMarking::count(), before);
    {
        BareRoot other;
        other.setText(sstring("<p>text</p>"), sstring());
        other.ensurePageText().selection.selectAll();
        EXPECT_EQ(guiMarking::count(), before + 1);
    }
    EXPECT_EQ(guiMarking::count(), before);
}

} // namespace
