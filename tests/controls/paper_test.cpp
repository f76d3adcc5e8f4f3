// tests/controls/paper_test.cpp: pages on paper: what the sheets show, and that the window is as before afterwards.
#include "controls/guipapersheets.h"
#include "controls/guipdf.h"
#include "controls/guiwidgetlineedit.h"
#include "page/guipagetext.h"
#include "page/guizoom.h"
#include "tests/controls/shownpage.h"
#include "tests/support/pixelcount.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <set>

namespace {

std::string times(int count, std::string const& text)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// What the window shows: the tree with all places, and the place of each widget.
std::string lookOf(ShownPage& page)
{
    std::multiset<std::string> widgets;
    for (QWidget const* widget : page.window.widget->findChildren<QWidget*>()) {
        QRect const place = widget->geometry();
        std::string const size = std::to_string(place.width()) + "x" + std::to_string(place.height());
        if (widget->isVisible())
            widgets.insert(widget->metaObject()->className() + std::string(" ") + std::to_string(place.left()) + "," +
                           std::to_string(place.top()) + " " + size + "\n");
    }
    std::string look = page.window.root.toString(0).c_str();
    for (std::string const& each : widgets)
        look += each;
    return look;
}

QImage pictureOf(guiPaperSheets& sheets, int number)
{
    QImage picture(794, 1123, QImage::Format_RGB32); // A4
    picture.fill(Qt::white);
    QPainter painter(&picture);
    sheets.paint(painter, number);
    return picture;
}

int darkIn(QImage const& picture)
{
    constexpr int kDark = 80;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += qGray(picture.pixel(x, y)) < kDark ? 1 : 0;
    return count;
}

bool isBlank(QImage const& picture, QRect const& part)
{
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            if (picture.pixel(x, y) != qRgb(255, 255, 255))
                return false;
    return true;
}

std::string const kBusyPage =
    "<body valign=top><table width=100% height=100%><tr><td height=50%><table name=pane height=100 scrolling=yes><tr>"
    "<td>" +
    times(40, "line<br>") + "</table><td><input type=text name=who value=Ada width=200 height=24>" +
    "<textarea name=note width=300 height=60>" + times(30, "note\n") +
    "</textarea></table><table><tr><td height=500>below</table>";

} // namespace

TEST(Paper, TheWindowIsAsItWasAfterwards)
{
    for (unsigned zoom : {100u, 150u}) {
        ShownPage page(kBusyPage.c_str());
        page.window.root.setSizePolicy(kPolicyScroll);
        page.layOut();
        page.window.widget->show();
        guiZoomPage(page.window.root, zoom);
        PageWindow::settle();
        page.window.root.onScrollY(30);
        page.node("pane")->onScrollY(50);
        std::string const before = lookOf(page);
        {
            guiPaperSheets const sheets(page.window.root, {});
            EXPECT_GE(sheets.count(), 1);
            EXPECT_NE(lookOf(page), before);
        }
        PageWindow::settle();
        EXPECT_EQ(lookOf(page), before) << zoom;
        EXPECT_EQ(page.window.root.getScroll().posY, 30u);
    }
}

TEST(Paper, AControlThatIsPaintedKeepsItsSizeAndItsState)
{
    ShownPage page(kBusyPage.c_str());
    page.window.widget->show();
    PageWindow::settle();
    auto* const field = page.widget<QLineEdit>("who");
    field->insert(QStringLiteral(" Grace"));
    field->setSelection(1, 2);
    std::string const before = lookOf(page);
    {
        guiPaperSheets sheets(page.window.root, {});
        EXPECT_FALSE(pictureOf(sheets, 0).isNull());
    }
    EXPECT_EQ(lookOf(page), before);
    EXPECT_EQ(field->selectedText(), QStringLiteral("da"));
    EXPECT_TRUE(field->isUndoAvailable());
}

TEST(Paper, APageIsLaidOutAtTheWidthOfThePaper)
{
    ShownPage page(("<p name=a>" + times(200, "word ")).c_str(), 200, 100);
    guiPaperSheets const sheets(page.window.root, {});
    EXPECT_EQ(page.window.root.m.rect.width, 642); // 170 of 210 millimetres
    EXPECT_EQ(sheets.count(), 1);
}

TEST(Paper, WhatIsWiderIsMadeSmaller)
{
    ShownPage page("<table width=1284><tr><td bgcolor=#FF0000 width=1284 height=100></table>");
    guiPaperSheets sheets(page.window.root, {});
    QImage const picture = pictureOf(sheets, 0);
    EXPECT_NEAR(countOf(picture, qRgb(255, 0, 0)), 642 * 50, 1500);
}

TEST(Paper, WhatScrollsShowsAllThatItHas)
{
    ShownPage page(
        ("<table height=80 scrolling=yes><tr><td>" + times(50, "<input type=checkbox><br>") + "</table>").c_str());
    page.window.root.setSizePolicy(kPolicyScroll);
    page.layOut();
    guiPaperSheets const sheets(page.window.root, {});
    guiPaperParts const parts = guiFindPaperParts(&page.window.root);
    ASSERT_EQ(parts.controls.size(), 50u);
    int last = -1;
    for (guiPaperParts::control const& each : parts.controls) {
        EXPECT_GT(each.place.top, last);
        last = each.place.top;
    }
    EXPECT_GT(page.window.root.m.rect.height, last);
}

TEST(Paper, SharesOfABoxOfTheirOwnStayShares)
{
    ShownPage page("<body valign=top><table height=200><tr><td name=part height=50%>x</table>"
                   "<tabs height=200><tab title=One name=one>x</tab></tabs>");
    int const sheet = page.node("one")->m.rect.height;
    guiPaperSheets const sheets(page.window.root, {});
    EXPECT_EQ(page.node("part")->m.rect.height, 100);
    EXPECT_EQ(page.node("one")->m.rect.height, sheet);
}

TEST(Paper, WhatListsAndAreasHoldIsPainted)
{
    for (char const* control : {"<textarea name=it rows=3 width=200>HHHH</textarea>",
                                "<select name=it size=4 width=200><option selected>HHHH</select>"}) {
        ShownPage page((std::string("<body valign=top>") + control).c_str());
        page.window.widget->show();
        PageWindow::settle();
        guiPaperSheets sheets(page.window.root, {});
        QImage const picture = pictureOf(sheets, 0);
        guiRect const place = page.node("it")->m.rect;
        EXPECT_FALSE(isBlank(picture, QRect(76 + place.left + 4, 76 + place.top + 4, 60, 12))) << control;
    }
}

TEST(Paper, TheCaptionsOfTabsAreSeen)
{
    ShownPage page("<body valign=top><tabs height=200><tab title=HHHHHH>x</tab></tabs>");
    page.window.widget->show();
    PageWindow::settle();
    guiPaperSheets sheets(page.window.root, {});
    QImage const caption = pictureOf(sheets, 0).copy(76, 76, 80, 24);
    EXPECT_GT(darkIn(caption.copy(8, 4, 52, 16)), 20);
}

TEST(Paper, ControlsThatAwaitTheirWidgetsAreSeenToo)
{
    ShownPage page("");
    guiMakeWidgets(&page.window.root, false);
    page.window.root.setSizePolicy(kPolicyScroll);
    page.load(times(120, "<p><input type=text value=x width=100 height=22></p>").c_str());
    page.window.widget->show();
    PageWindow::settle();
    auto const widgets = [&page] { return page.window.widget->findChildren<guiWidgetLineEdit*>().size(); };
    qsizetype const before = widgets();
    ASSERT_LT(before, 60);
    {
        guiPaperSheets sheets(page.window.root, {});
        ASSERT_GT(sheets.count(), 2);
        guiPaperParts const parts = guiFindPaperParts(&page.window.root);
        ASSERT_EQ(parts.controls.size(), 120u);
        for (int i = 0; i < sheets.count(); ++i) {
            QImage const picture = pictureOf(sheets, i);
            EXPECT_FALSE(isBlank(picture, QRect(80, 100, 90, 20))) << i;
        }
    }
    PageWindow::settle();
    EXPECT_EQ(widgets(), before);
}

TEST(Paper, ItIsWhiteAndTheTextIsBlackOnADarkDesktop)
{
    ShownPage page("<body valign=top><h1>HHHH</h1><input type=text name=field value=HHHH width=200 height=30>");
    QPalette const dark(QColor(20, 20, 20), QColor(30, 30, 30));
    QApplication::setPalette(dark);
    PageWindow::settle();
    ASSERT_EQ(page.window.widget->palette().color(QPalette::Window), QColor(30, 30, 30));
    {
        guiPaperSheets sheets(page.window.root, {});
        QImage const picture = pictureOf(sheets, 0);
        EXPECT_EQ(picture.pixel(5, 5), qRgb(255, 255, 255));
        EXPECT_GT(darkIn(picture.copy(76, 76, 120, 36)), 50); // the heading
        guiRect const field = page.node("field")->m.rect;
        EXPECT_EQ(darkIn(picture.copy(76 + field.left + 100, 76 + field.top + 8, 60, 10)), 0);
        EXPECT_EQ(countOf(picture, qRgb(30, 30, 30)), 0);
        EXPECT_EQ(countOf(picture, qRgb(20, 20, 20)), 0);
    }
    EXPECT_EQ(page.window.widget->palette().color(QPalette::Window), QColor(30, 30, 30));
    QApplication::setPalette(QPalette());
}

TEST(Paper, LinksAndHeadingsAreKnownByTheirSheets)
{
    ShownPage page(
        ("<body valign=top><h1>Tea</h1><p><a href=\"https://example.org/\">out</a> <a href=\"#end\">down</a> "
         "<a href=\"event://onGo\">act</a> <a href=\"other.html\">page</a>" +
         times(100, "<p>word</p>") + "<h2 id=end>End</h2>")
            .c_str());
    guiPaperSheets const sheets(page.window.root, {});
    guiPdfAdditions const found = sheets.findAdditions();
    ASSERT_EQ(found.links.size(), 2u);
    EXPECT_EQ(found.links[0].uri, "https://example.org/");
    EXPECT_EQ(found.links[0].page, 0);
    EXPECT_NEAR(found.links[0].place.left(), 57, 8); // the margin, in points
    EXPECT_EQ(found.links[1].uri, "");
    EXPECT_EQ(found.links[1].goTo.page, sheets.count() - 1);
    ASSERT_EQ(found.headings.size(), 2u);
    EXPECT_EQ(found.headings[0].text, QStringLiteral("Tea"));
    EXPECT_EQ(found.headings[1].level, 2);
    EXPECT_EQ(found.headings[1].place.page, sheets.count() - 1);
}

TEST(Paper, WhatIsSelectedIsNotMarked)
{
    ShownPage page("<body valign=top><p>HHHH");
    auto const picture = [&page] {
        guiPaperSheets sheets(page.window.root, {});
        return pictureOf(sheets, 0);
    };
    QImage const plain = picture();
    page.window.root.ensurePageText().selection.selectAll();
    EXPECT_EQ(picture(), plain);
}

TEST(Pdf, AFileThatCanNotBeWrittenLeavesNothing)
{
    ShownPage page("<p>x");
    QTemporaryDir folder;
    auto const write = [&page](QString const& path) { return guiWritePdf(page.window.root, {}, path); };
    EXPECT_FALSE(write(folder.filePath(QStringLiteral("none/a.pdf"))).isEmpty());
    EXPECT_EQ(write(folder.path()), QStringLiteral("Is a directory"));
    EXPECT_EQ(write(QStringLiteral("/dev/null")), QStringLiteral("it is not a plain file"));
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST(Pdf, AFileIsReplacedAsAWhole)
{
    ShownPage page("<p>x");
    QTemporaryDir folder;
    QString const path = folder.filePath(QStringLiteral("a.pdf"));
    QFile before(path);
    ASSERT_TRUE(before.open(QIODevice::WriteOnly));
    before.write("before");
    before.close();
    before.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadOther);
    auto const permissions = QFileInfo(path).permissions();
    ASSERT_TRUE(QFile::link(path, folder.filePath(QStringLiteral("b.pdf"))));
    EXPECT_EQ(guiWritePdf(page.window.root, {}, folder.filePath(QStringLiteral("b.pdf"))), QString());
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.readAll().startsWith("%PDF-"));
    EXPECT_EQ(QFileInfo(path).permissions(), permissions);
    EXPECT_TRUE(QFileInfo(folder.filePath(QStringLiteral("b.pdf"))).isSymLink());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}
