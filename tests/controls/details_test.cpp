// tests/controls/details_test.cpp: lines that unfold what is below them.
#include "controls/guihtmldetails.h"
#include "controls/guiwidgetsummary.h"
#include "tests/controls/shownpage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

namespace {

struct Details : ShownPage
{
    explicit Details(char const* page) : ShownPage(page)
    {
        window.widget->show();
        PageWindow::settle();
    }

    guiHtmlSummary& line() { return control<guiHtmlSummary>("d"); }
    guiWidgetSummary* widget() { return ShownPage::widget<guiWidgetSummary>("d"); }

    void press(int key)
    {
        for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(widget(), &event);
        }
    }
};

constexpr char kFolded[] =
    "<details name=d><summary>More &amp; more</summary><input type=text name=in value=x></details>"
    "<input type=button name=below value=y>";

} // namespace

TEST(Details, FoldAwayWhatIsInThem)
{
    Details page(kFolded);
    EXPECT_EQ(page.line().getText(), "More & more");
    EXPECT_FALSE(page.line().isOpen());
    EXPECT_EQ(page.node("in")->getChildWidget(), nullptr);
    EXPECT_EQ(page.line().getParent()->m.rect.height, page.line().m.rect.height);
}

TEST(Details, AreUnfoldedByAClickAndByKeys)
{
    Details page(kFolded);
    int const folded = page.node("below")->m.rect.top;
    page.widget()->click();
    EXPECT_TRUE(page.line().isOpen());
    EXPECT_TRUE(page.node("in")->getChildWidget()->isVisible());
    EXPECT_GT(page.node("below")->m.rect.top, folded);
    page.press(Qt::Key_Space);
    EXPECT_FALSE(page.line().isOpen());
    EXPECT_FALSE(page.node("in")->getChildWidget()->isVisible());
    EXPECT_EQ(page.node("below")->m.rect.top, folded);
    page.press(Qt::Key_Return);
    EXPECT_TRUE(page.line().isOpen());
    EXPECT_TRUE(page.widget()->isChecked());
}

TEST(Details, MayBeOpenFromTheBeginning)
{
    Details page("<details name=d open><input type=text name=in></details>");
    EXPECT_TRUE(page.line().isOpen());
    EXPECT_EQ(page.line().getText(), "Details") << "without a summary";
    EXPECT_TRUE(page.node("in")->getChildWidget()->isVisible());
}

TEST(Details, TakeTheKeyboardFromWhatTheyFold)
{
    Details page("<details name=d open><summary>x</summary><input type=text name=in></details>");
    page.window.root.setFocus("in");
    page.line().setOpen(false);
    EXPECT_EQ(page.window.root.getFocus(), "d");
}

TEST(Details, ATallContentOrAWideOneCountsOnlyWhenItIsSeen)
{
    Details page("<details name=d><summary>x</summary><table width=900 height=900><tr><td>y</table></details>");
    EXPECT_LE(page.line().getParent()->m.rect.width, 400);
    page.line().setOpen(true);
    EXPECT_GE(page.line().getParent()->m.rect.width, 900);
    EXPECT_GE(page.line().getParent()->m.rect.height, 900);
}

TEST(Summary, OutsideOfDetailsIsText)
{
    Details page("<summary>text</summary><details name=d><summary>first</summary><summary>second</summary></details>");
    EXPECT_EQ(page.line().getText(), "first");
}
