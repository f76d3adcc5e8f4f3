// tests/page/zoom_test.cpp: what a zoom makes of a page, and that it leaves nothing behind.
#include "page/guihtmltext-fonts.h"
#include "page/guihtmltext.h"
#include "page/guizoom.h"
#include "tests/page/pagewindow.h"

#include <QFontInfo>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <string>

namespace {

constexpr char const* kPage = R"(<body><h1>Tea</h1><p>The kettle is on.</p><blockquote>Further in.</blockquote>
<table name=box width=120 height=33 border=2 cellspacing=3 cellpadding=5>
<tr><td name=cell width=50%>one</td></tr></table>
<hr size=4><font size=5 face=Serif>large</font></body>)";

struct ZoomedPage
{
    explicit ZoomedPage(char const* page, int width = 300, int height = 400) : window(sstring(), width, height)
    {
        window.widget->resize(width, height);
        EXPECT_EQ(window.root.setText(sstring(page), sstring()), 1);
    }

    guiHtml* node(char const* name) { return window.root.getNamed(sstring(name)); }
    std::string dump() { return window.root.toString(0).c_str(); }
    guiHtmlText* run() { return textIn(&window.root); }

    static guiHtmlText* textIn(guiHtml* node)
    {
        for (guiHtml* child : guiNodesOf(node))
            if (child->getType() == guiHtml::kTypeText)
                return static_cast<guiHtmlText*>(child);
        return nullptr;
    }

    PageWindow window;
};

} // namespace

TEST(ZoomedLength, IsRoundedAndKeepsWhatIsThere)
{
    EXPECT_EQ(guiZoomedLength(100, 150), 150);
    EXPECT_EQ(guiZoomedLength(3, 150), 5);
    EXPECT_EQ(guiZoomedLength(1, 50), 1);
    EXPECT_EQ(guiZoomedLength(-3, 150), -5);
    EXPECT_EQ(guiZoomedLength(0, 300), 0);
    EXPECT_EQ(guiZoomedLength(kMaxPixels, 300), 3 * kMaxPixels);
    EXPECT_EQ(guiUnzoomedLength(150, 150), 100);
}

TEST(Zoom, ScalesLengthsOfThePage)
{
    ZoomedPage page(kPage);
    guiZoomPage(page.window.root, 200);
    guiHtml const* const box = page.node("box");
    EXPECT_EQ(box->m.fixed.x, 240u);
    EXPECT_EQ(box->m.fixed.cxMin, 240);
    EXPECT_EQ(box->m.border, 4);
    EXPECT_EQ(box->m.space, 16);
    EXPECT_EQ(box->m.padding, 10);
    EXPECT_EQ(box->m.divide, 16);
    EXPECT_EQ(page.node("cell")->m.fixed.x, 50u) << "percent";
    EXPECT_EQ(box->m.rect.width, 240);
}

TEST(Zoom, ScalesFontsMarginsAndIndentations)
{
    ZoomedPage page("<body>word</body>");
    int const width = page.run()->getPreferredWidth();
    int const size = QFontInfo(page.run()->getDefaultFont(nullptr)).pixelSize();
    guiZoomPage(page.window.root, 200);
    EXPECT_EQ(QFontInfo(page.run()->getDefaultFont(nullptr)).pixelSize(), 2 * size);
    EXPECT_NEAR(page.run()->getPreferredWidth(), 2 * width, 3);

    ZoomedPage indented("<body><blockquote>x</blockquote></body>");
    int const before = indented.run()->getPreferredWidth();
    guiZoomPage(indented.window.root, 300);
    EXPECT_NEAR(indented.run()->getPreferredWidth(), 3 * before, 4);
}

TEST(Zoom, ScalesFontsThatThePageNames)
{
    for (char const* markup : {"<font size=5>M</font>", "<h1>M</h1>", "<font face=Serif>M</font>"}) {
        ZoomedPage page(markup);
        int const height = page.run()->getHeightEstimate(1000);
        guiZoomPage(page.window.root, 200);
        EXPECT_NEAR(page.run()->getHeightEstimate(1000), 2 * height, 3) << markup;
    }
}

TEST(Zoom, BackAtOneLeavesNoTrace)
{
    ZoomedPage page(kPage);
    std::string const before = page.dump();
    for (unsigned percent : {110u, 50u, 300u, 67u, 133u})
        guiZoomPage(page.window.root, percent);
    EXPECT_NE(page.dump(), before);
    guiZoomPage(page.window.root, kUnzoomed);
    EXPECT_EQ(page.dump(), before);
    EXPECT_EQ(page.node("box")->getUnzoomed(), nullptr);
}

TEST(Zoom, DoesNotDependOnTheWayThere)
{
    ZoomedPage direct(kPage);
    guiZoomPage(direct.window.root, 150);
    ZoomedPage roundabout(kPage);
    for (unsigned percent : {50u, 67u, 110u, 300u, 150u})
        guiZoomPage(roundabout.window.root, percent);
    EXPECT_EQ(roundabout.dump(), direct.dump());
}

TEST(Zoom, HoldsForWhatIsLoadedLater)
{
    ZoomedPage first(kPage);
    guiZoomPage(first.window.root, 150);
    std::string const zoomed = first.dump();

    ZoomedPage later("<body>nothing yet");
    guiZoomPage(later.window.root, 150);
    EXPECT_EQ(later.window.root.setText(sstring(kPage), sstring()), 1);
    EXPECT_EQ(later.dump(), zoomed);

    later.node("cell")->setText(sstring("<table name=inner width=20></table>"), sstring());
    EXPECT_EQ(later.node("inner")->m.fixed.x, 30u);
    EXPECT_EQ(later.node("cell")->m.fixed.x, 50u);
}

TEST(Zoom, KeepsWhatWasSetMeanwhile)
{
    ZoomedPage page(kPage);
    guiZoomPage(page.window.root, 200);
    page.node("box")->m.fixed.x = 300; // as the user has dragged it
    guiZoomPage(page.window.root, kUnzoomed);
    EXPECT_EQ(page.node("box")->m.fixed.x, 150u);
}

TEST(Zoom, APageThatOutgrowsItsWindowScrolls)
{
    ZoomedPage page("<body><table width=200 height=150><tr><td>a</td></tr></table></body>", 300, 200);
    guiZoomPage(page.window.root, 200);
    EXPECT_EQ(page.window.root.getSizePolicy(), kPolicyScroll);
    EXPECT_TRUE(page.window.root.getScroll().barX);
    EXPECT_TRUE(page.window.root.getScroll().barY);
    page.window.root.setText(sstring("<body>next</body>"), sstring());
    EXPECT_EQ(page.window.root.getSizePolicy(), kPolicyScroll);
    guiZoomPage(page.window.root, 80);
    EXPECT_EQ(page.window.root.getSizePolicy(), kPolicyResize);
    EXPECT_FALSE(page.window.root.getScroll().barY);
}

TEST(Zoom, IsKeptWithinItsBounds)
{
    ZoomedPage page(kPage);
    guiZoomPage(page.window.root, 1);
    EXPECT_EQ(page.window.root.getZoom(), kLeastZoom);
    guiZoomPage(page.window.root, 100000);
    EXPECT_EQ(page.window.root.getZoom(), kMostZoom);
}

TEST(Zoom, KeepsThePlaceThatIsAtTheTop)
{
    std::string markup = "<body scrolling>";
    for (int line = 0; line < 100; ++line)
        markup += "<p>line</p>";
    ZoomedPage page(markup.c_str(), 300, 200);
    page.window.root.setSizePolicy(kPolicyScroll);
    page.window.root.updateLayout(1);
    QScrollBar* const bar = page.window.root.getScroll().barY;
    ASSERT_NE(bar, nullptr);
    bar->setValue(bar->maximum() / 2);
    page.window.root.onScrollY(bar->value());
    double const before = page.window.root.getScroll().posY;
    guiZoomPage(page.window.root, 200);
    EXPECT_NEAR(page.window.root.getScroll().posY / before, 2, 0.1);
}

TEST(SystemFont, HasHeadingsInProportion)
{
    QFont const before = QApplication::font();
    ZoomedPage page("<body usesystemfont><h1>M</h1></body>");
    int const height = page.run()->getHeightEstimate(1000);
    QFont twice = before;
    twice.setPixelSize(2 * QFontInfo(before).pixelSize());
    QApplication::setFont(twice);
    guiRefreshLook(page.window.root);
    EXPECT_NEAR(page.run()->getHeightEstimate(1000), 2 * height, 3);
    QApplication::setFont(before);
    guiRefreshLook(page.window.root);
    EXPECT_EQ(page.run()->getHeightEstimate(1000), height);
}

TEST(SystemFont, OfTheDesktopDoesNotChangeOtherPages)
{
    QFont const before = QApplication::font();
    ZoomedPage page("<body><h1>M</h1></body>");
    int const height = page.run()->getHeightEstimate(1000);
    QFont twice = before;
    twice.setPixelSize(2 * QFontInfo(before).pixelSize());
    QApplication::setFont(twice);
    guiRefreshLook(page.window.root);
    EXPECT_EQ(page.run()->getHeightEstimate(1000), height);
    QApplication::setFont(before);
}
