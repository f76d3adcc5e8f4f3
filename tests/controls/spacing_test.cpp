// tests/controls/spacing_test.cpp: `gap` and `margin`: what stands apart, on one base line, and how wide buttons are at
// least.
#include "controls/guihtmlcontrolbutton.h"
#include "page/guihtmltext.h"
#include "tests/controls/shownpage.h"

namespace {

/// In the window, of the node's first line of text.
int baseLineOf(guiHtml* node)
{
    guiRect rect;
    node->getRectInWidget(&rect);
    return rect.top + node->getBaseLine().value_or(-1);
}

guiRect rectOf(guiHtml* node)
{
    guiRect rect;
    node->getRectInWidget(&rect);
    return rect;
}

guiHtml* firstText(guiHtml* node)
{
    for (unsigned i = 0; i < node->getChildCount(); ++i) {
        guiHtml* const child = node->m.children[i];
        if (child->getType() == guiHtml::kTypeText)
            return child;
        if (child->getType() == guiHtml::kTypePlain)
            if (guiHtml* const found = firstText(child))
                return found;
    }
    return nullptr;
}

} // namespace

TEST(Gap, StandsBetweenWhatIsInTheElementAndNotAroundIt)
{
    ShownPage page(
        "<body valign=top><table gap=9><tr><td name=a>a</td><td name=b>b</td></tr><tr><td name=c>c</td></tr></table>");
    guiRect const a = rectOf(page.node("a"));
    EXPECT_EQ(a.left, 0);
    EXPECT_EQ(a.top, 0);
    EXPECT_EQ(rectOf(page.node("b")).left, a.left + a.width + 9);
    EXPECT_EQ(rectOf(page.node("c")).top, a.top + a.height + 9);
}

TEST(Gap, HoldsForWhatStandsInTheElementUntilItHasASpacingOfItsOwn)
{
    ShownPage page("<body gap=7 valign=top><table name=t><tr><td name=a></td></tr></table>"
                   "<table name=own cellspacing=3><tr><td name=in>x</td></tr></table>"
                   "<table name=none gap=0><tr><td>x</td></tr></table>");
    EXPECT_EQ(page.node("t")->m.divide, 7);
    EXPECT_EQ(page.node("t")->m.space, 0);
    EXPECT_EQ(page.node("a")->m.divide, 7);
    EXPECT_EQ(page.node("own")->m.divide, 3);
    EXPECT_EQ(page.node("own")->m.space, 3);
    EXPECT_EQ(page.node("in")->m.divide, 3);
    EXPECT_EQ(page.node("none")->m.divide, 0);
}

TEST(Gap, OfABodyHoldsForThePageOfAWindow)
{
    ShownPage page(
        "<html><body gap=12 margin=20 valign=top><input type=button name=a value=A><input type=button name=b value=B>");
    EXPECT_EQ(rectOf(page.node("a")).left, 20);
    EXPECT_EQ(rectOf(page.node("a")).top, 20);
    EXPECT_EQ(rectOf(page.node("b")).left, rectOf(page.node("a")).left + rectOf(page.node("a")).width + 12);
}

TEST(Gap, IsLostWithThePageThatHadIt)
{
    ShownPage page("<body gap=12><input type=button name=a value=A>");
    page.load("<body><input type=button name=a value=A>");
    EXPECT_EQ(page.window.root.m.divide, 0);
    EXPECT_EQ(page.window.root.m.spacious, 0);
    EXPECT_EQ(page.node("a")->m.spacious, 0);
}

TEST(Margin, IsTheSpaceAroundTheContentAlone)
{
    ShownPage page(
        "<body valign=top><table margin=11 cellspacing=2><tr><td name=a>a</td><td name=b>b</td></tr></table>");
    guiRect const a = rectOf(page.node("a"));
    EXPECT_EQ(a.left, 11);
    EXPECT_EQ(a.top, 11);
    EXPECT_EQ(rectOf(page.node("b")).left, a.left + a.width + 2);
}

TEST(Margin, OfAGroupBoxTakesThePlaceOfItsOwnSpace)
{
    ShownPage page("<fieldset name=usual></fieldset><fieldset name=mine margin=0></fieldset>");
    EXPECT_EQ(page.node("usual")->m.space, 8);
    EXPECT_EQ(page.node("mine")->m.space, 0);
    EXPECT_EQ(page.node("mine")->m.divide, 8);
}

TEST(BaseLine, IsSharedByATextAndTheFieldBesideIt)
{
    ShownPage page("<body gap=4 valign=top>Name <input name=field type=text>");
    guiHtml* const text = firstText(&page.window.root);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(baseLineOf(text), baseLineOf(page.node("field")));
    EXPECT_GT(rectOf(text).top, rectOf(page.node("field")).top);
}

TEST(BaseLine, IsSharedByTheCellsOfARow)
{
    ShownPage page("<body valign=top><table gap=6><tr><td name=label>Name</td><td><input type=text name=field></td>"
                   "<td><input type=button name=button value=Browse></td></tr></table>");
    int const line = baseLineOf(page.node("button"));
    EXPECT_EQ(baseLineOf(page.node("field")), line);
    EXPECT_EQ(baseLineOf(firstText(page.node("label"))), line);
}

TEST(BaseLine, OfATextBesideALargeFieldIsThatOfTheFieldsFirstLine)
{
    ShownPage page("<body valign=top><table gap=6><tr><td name=label>Notes</td><td><textarea name=area "
                   "rows=5></textarea></td></tr></table>");
    EXPECT_EQ(baseLineOf(firstText(page.node("label"))), baseLineOf(page.node("area")));
    EXPECT_LT(baseLineOf(page.node("area")), rectOf(page.node("area")).height / 2);
}

TEST(BaseLine, IsNotSharedWithoutAGap)
{
    ShownPage page("<body valign=top>Name <input name=field type=text>");
    EXPECT_EQ(rectOf(firstText(&page.window.root)).top, rectOf(page.node("field")).top);
}

TEST(BaseLine, NeverMovesANodeOutOfItsLayer)
{
    ShownPage page(
        "<body valign=top><table gap=6 name=t><tr><td name=low>a<br>b<br>c<br>d</td><td name=high><br><br><br>x</td>"
        "<td><textarea rows=2 name=area></textarea></td></tr></table>");
    guiRect const table = rectOf(page.node("t"));
    for (char const* name : {"low", "high", "area"}) {
        guiRect const rect = rectOf(page.node(name));
        EXPECT_GE(rect.top, table.top) << name;
        EXPECT_LE(rect.top + rect.height, table.top + table.height) << name;
    }
}

TEST(BaseLine, OfManyNestedTablesTakesNoTime)
{
    std::string page = "<body gap=1 valign=top>";
    for (int i = 0; i < 150; ++i)
        page += "<table><tr><td>a</td><td>";
    page += "<input type=text name=field>";
    ShownPage shown(page.c_str());
    EXPECT_NE(shown.node("field"), nullptr);
}

TEST(SpaciousButton, IsAsWideAsSixLinesAreHighAtLeast)
{
    ShownPage page("<body gap=4><input type=button name=ok value=OK>");
    auto& ok = page.control<guiHtmlControlButton>("ok");
    EXPECT_EQ(ok.getPreferredWidth(), 6 * guiTextFonts::of(ok.getDefaultFont(nullptr)).lineSpacing());
}

TEST(SpaciousButton, HasMoreRoomAroundALongText)
{
    ShownPage plain("<input type=button name=save value=\"Save all of them now\">");
    ShownPage spacious("<body gap=4><input type=button name=save value=\"Save all of them now\">");
    int const width = plain.control<guiHtmlControlButton>("save").getPreferredWidth();
    EXPECT_EQ(width, plain.metrics().horizontalAdvance("Save all of them now") + 12);
    EXPECT_EQ(spacious.control<guiHtmlControlButton>("save").getPreferredWidth(), width + 12);
}

namespace {

QRgb colourAt(ShownPage& page, int x, int y) { return page.window.widget->grab().toImage().pixel(x, y); }

constexpr QRgb kRed = qRgb(255, 0, 0);

} // namespace

TEST(Ground, CoversThePaddingOfACellAndNotItsSpacing)
{
    ShownPage page(
        "<body valign=top><table><tr><td name=padded width=60 height=60 bgcolor=#FF0000 cellpadding=10>a</td>"
        "<td name=spaced width=60 height=60 bgcolor=#FF0000 cellspacing=10>b</td>"
        "<td name=both width=60 height=60 bgcolor=#FF0000 cellspacing=10 cellpadding=5>c</td></tr></table>");
    int const spaced = rectOf(page.node("spaced")).left;
    int const both = rectOf(page.node("both")).left;
    EXPECT_EQ(colourAt(page, 2, 2), kRed);
    EXPECT_NE(colourAt(page, spaced + 8, 30), kRed);
    EXPECT_EQ(colourAt(page, spaced + 11, 40), kRed);
    EXPECT_NE(colourAt(page, both + 8, 30), kRed);
    EXPECT_EQ(colourAt(page, both + 11, 40), kRed);
}

TEST(Ground, CoversTheMarginOfThePage)
{
    ShownPage page("<body valign=top bgcolor=#FF0000 margin=20>a</body>");
    EXPECT_EQ(colourAt(page, 2, 2), kRed);
    EXPECT_EQ(colourAt(page, 398, 298), kRed);
}
