// tests/controls/linkkeys_test.cpp: links by keyboard: where Tab stops, what the ring shows, what the keys do.
#include "controls/guicontrolhost.h"
#include "controls/guihtmlimage.h"
#include "controls/guiimagemap.h"
#include "page/guihtmltext.h"
#include "tests/controls/shownpage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QScrollBar>

namespace {

using List = std::vector<std::string>;

/// Writes down the addresses that are opened.
struct AddressHost : guiControlHost
{
    AddressHost() { install(this); }
    ~AddressHost() override { install(nullptr); }
    int openOutside(guiHtml*, sstring const& address) override
    {
        opened.emplace_back(address.c_str());
        return 1;
    }
    List opened;
};

struct LinkedPage
{
    explicit LinkedPage(std::string const& text, int width = 300, int height = 200) : page("", width, height)
    {
        page.window.root.setSizePolicy(kPolicyScroll);
        page.load(text.c_str());
        widget()->show();
        widget()->activateWindow();
        PageWindow::settle();
    }

    guiWidget* widget() { return page.window.widget; }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* to = widget()->focusWidget() ? widget()->focusWidget() : widget();
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(to, &event);
        PageWindow::settle();
    }

    void click(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseButtonPress, at, widget()->mapToGlobal(at), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(widget(), &event);
    }

    /// The words of the current link, or the name of the control that has the keyboard.
    std::string at()
    {
        if (auto const link = widget()->currentLink().get())
            return std::string("link ") + link->node->getLinkText(link->place).c_str();
        guiHtml* const found = widget()->focusWidget() ? page.window.root.findWidget(widget()->focusWidget()) : nullptr;
        return found ? found->getName().c_str() : "";
    }

    List stops(int count, int key = Qt::Key_Tab)
    {
        List names;
        for (int i = 0; i < count; ++i) {
            press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            names.push_back(at());
        }
        return names;
    }

    /// The place of the current link in the window.
    QRect place()
    {
        auto const link = widget()->currentLink().get();
        if (!link)
            return {};
        guiRect corner;
        link->node->getRectInWidget(&corner);
        return link->node->getLinkOutline(link->place)
            .boundingRect()
            .toAlignedRect()
            .translated(corner.left, corner.top);
    }

    /// How many pixels of the rectangle have the colour of the ring.
    int ringIn(QRect const& area)
    {
        QImage const seen = widget()->grab(area).toImage();
        QRgb const ring = widget()->palette().color(QPalette::Highlight).rgb();
        int count = 0;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                count += seen.pixel(x, y) == ring;
        return count;
    }

    AddressHost host;
    ShownPage page;
};

std::string link(std::string const& words) { return "<a href=\"http://" + words + "\">" + words + "</a>"; }

std::string const kField = "<input type=text name=f width=80 height=24>";

} // namespace

TEST(LinkKeys, TabGoesThroughLinksAndControlsInTheOrderOfThePage)
{
    LinkedPage page("<p>To " + link("one") + " and " + link("two") + "</p><p>" + kField + "</p><p>" + link("three") +
                    "</p>");
    page.page.window.root.setFocus("f");
    EXPECT_EQ(page.stops(5), (List{"link three", "link one", "link two", "f", "link three"}));
    EXPECT_EQ(page.stops(5, Qt::Key_Backtab), (List{"f", "link two", "link one", "link three", "f"}));
}

TEST(LinkKeys, APageOfLinksAloneWorksFromTheFirstTab)
{
    LinkedPage page("<p>" + link("one") + " " + link("two") + "</p>");
    EXPECT_EQ(page.at(), "") << "nothing is current when a window opens";
    EXPECT_EQ(page.stops(3), (List{"link one", "link two", "link one"}));
}

TEST(LinkKeys, TheFirstControlHasTheKeyboardWhenTheWindowOpens)
{
    LinkedPage page("<p>" + link("one") + "</p><p>" + kField + "</p>");
    EXPECT_EQ(page.at(), "f");
}

TEST(LinkKeys, BookmarksLabelsAndWhatIsDisabledOrPutAwayAreNoStops)
{
    LinkedPage page("<p><a name=here>mark</a> <label for=f>Field</label></p><table name=off><tr><td>" + link("off") +
                    "</td></tr></table><details name=d><summary>More</summary>" + link("away") + "</details><p>" +
                    link("on") + "</p>" + kField);
    page.page.node("off")->setEnabled(0);
    page.page.window.root.setFocus("f");
    List const seen = page.stops(3);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), "link on"), 1);
    for (std::string const& each : seen)
        EXPECT_TRUE(each == "link on" || each.substr(0, 4) != "link") << each;
}

TEST(LinkKeys, ReturnFollowsTheCurrentLinkAsAClickDoes)
{
    LinkedPage page("<p>" + link("one") + " " + link("two") + "</p>");
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.host.opened, List());
    page.stops(2);
    page.press(Qt::Key_Return);
    page.press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(page.host.opened, (List{"http://two", "http://two"}));
    EXPECT_EQ(page.at(), "link two");
}

TEST(LinkKeys, EscapeTakesTheRingAwayUnlessThePageHasAControlForIt)
{
    LinkedPage page("<p>" + link("one") + "</p>");
    page.stops(1);
    page.press(Qt::Key_Escape);
    EXPECT_EQ(page.at(), "");
    page.page.window.root.escapeControl = sstring("no");
    page.stops(1);
    page.press(Qt::Key_Escape);
    EXPECT_EQ(page.at(), "link one");
}

TEST(LinkKeys, ALinkOutOfViewIsScrolledIntoItAndKeysScrollFromThere)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "<p>line</p>";
    LinkedPage page(lines + "<p>" + link("last") + "</p>" + lines);
    QScrollBar* const bar = page.page.window.root.getScroll().barY;
    ASSERT_NE(bar, nullptr);
    page.stops(1);
    EXPECT_EQ(page.at(), "link last");
    EXPECT_TRUE(page.widget()->rect().contains(page.place())) << page.place().top();
    int const before = bar->value();
    EXPECT_GT(before, 0);
    page.press(Qt::Key_Down);
    EXPECT_EQ(bar->value(), before + bar->singleStep());
    page.press(Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(page.at(), "link last");
}

TEST(LinkKeys, AClickMakesALinkTheCurrentOneAndAClickBesideTakesItAway)
{
    LinkedPage page("<p>" + link("one") + "</p><p>text</p>");
    page.stops(1);
    QPoint const place = page.place().center();
    page.press(Qt::Key_Escape);
    page.click(place, Qt::RightButton);
    EXPECT_EQ(page.at(), "");
    page.click(place);
    EXPECT_EQ(page.at(), "link one");
    EXPECT_EQ(page.ringIn(page.widget()->rect()), 0) << "who has a mouse knows where it is";
    EXPECT_EQ(page.host.opened, List{"http://one"});
    page.press(Qt::Key_Return);
    EXPECT_GT(page.ringIn(page.widget()->rect()), 0);
    EXPECT_EQ(page.host.opened.size(), 2U);
    page.click(QPoint(5, page.widget()->height() - 5));
    EXPECT_EQ(page.at(), "");
}

TEST(LinkKeys, TheRingGoesAroundAllPiecesOfALinkAndOnlyWhileItIsCurrent)
{
    LinkedPage page("<p>Some words and then <a href=\"http://x\">a link of many words that goes over to the next "
                    "line</a> of text</p>",
                    200);
    page.stops(1);
    auto const current = page.widget()->currentLink().get();
    ASSERT_TRUE(current);
    auto const pieces = current->node->getLinkOutline(current->place).toSubpathPolygons();
    ASSERT_GE(pieces.size(), 2);
    guiRect corner;
    current->node->getRectInWidget(&corner);
    for (QPolygonF const& piece : pieces) {
        QRect const box = piece.boundingRect().toAlignedRect().translated(corner.left, corner.top);
        EXPECT_GT(page.ringIn(box.adjusted(-2, -2, 2, 2)), box.height()) << box.top();
    }
    page.press(Qt::Key_Escape);
    EXPECT_EQ(page.ringIn(page.widget()->rect()), 0);
}

TEST(LinkKeys, TheRingIsWholeWhereTheLinkTouchesTheEdgeOfItsPane)
{
    LinkedPage page("<table width=150 cellpadding=0><tr><td scroll=true height=60 padding=0>" + link("one") +
                    "</td></tr></table>");
    page.stops(1);
    QRect const box = page.place();
    EXPECT_GT(page.ringIn(QRect(box.left(), box.top() - 2, box.width(), 2)), box.width());
}

TEST(LinkKeys, AControlThatIsMadeLaterLeavesTheKeyboardToTheLink)
{
    LinkedPage page("<p>" + link("one") + "</p><table name=t><tr><td>here</td></tr></table>");
    page.stops(1);
    page.page.node("t")->setText(sstring(kField.c_str()), sstring());
    page.page.layOut();
    ASSERT_NE(page.page.node("f")->getChildWidget(), nullptr);
    EXPECT_EQ(page.at(), "link one");
}

TEST(LinkKeys, WhatIsDisabledGivesTheKeyboardToAControlNotToALink)
{
    LinkedPage page("<p><input type=text name=a>" + link("one") + "</p><p><input type=text name=b></p>");
    page.page.window.root.setFocus("a");
    page.page.node("a")->setEnabled(0);
    EXPECT_EQ(page.at(), "b");
}

TEST(LinkKeys, TabFromAFieldThatIsScrolledOutOfViewComesToTheNextLink)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "<p>line</p>";
    LinkedPage page("<p>" + kField + "</p><p>" + link("one") + "</p>" + lines);
    page.page.window.root.setFocus("f");
    page.page.window.root.getScroll().barY->setValue(500);
    EXPECT_EQ(page.stops(1), List{"link one"});
    EXPECT_TRUE(page.widget()->rect().contains(page.place()));
}

TEST(LinkKeys, TheCurrentLinkEndsWithItsPage)
{
    LinkedPage page("<p>" + link("one") + "</p>");
    page.stops(1);
    page.page.load("<p>nothing</p>");
    EXPECT_EQ(page.at(), "");
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.host.opened, List());
}

TEST(LinkKeys, TheAreasOfAMapAreStopsWithWords)
{
    auto map = std::make_unique<guiImageMap>("m");
    map->addRegion(guiImageMapRegion("http://left", 0, 0, 20, 40));
    map->nameLast("Left");
    map->addRegion(guiImageMapRegion("", 0, 0, 5, 5));
    map->addRegion(guiImageMapRegion("http://right", 30, 20, 10));
    map->nameLast("Right");
    LinkedPage page("<table name=t><tr><td width=100 height=100><img name=i width=80 height=80></td></tr></table>");
    auto& image = page.page.control<guiHtmlImage>("i");
    image.setImageMap(std::move(map));
    EXPECT_EQ(page.stops(2), (List{"link Left", "link Right"}));
    page.press(Qt::Key_Return);
    EXPECT_EQ(page.host.opened, List{"http://right"});
}
