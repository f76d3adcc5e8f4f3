// tests/controls/links_test.cpp: what a link does to a picture, and links in a real window, from the click to the page
// that follows.
#include "controls/guihtmlimage.h"
#include "page/guihtmltext-measure.h"
#include "page/guihtmltext.h"
#include "page/guilinkname.h"
#include "tests/controls/pagewindow.h"
#include "tests/support/fakescript.h"

#include <QMouseEvent>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

using List = std::vector<std::string>;

/// Keeps what is set into it instead of parsing it.
class RecordingRoot : public WindowRoot
{
public:
    using WindowRoot::WindowRoot;
    using WindowRoot::operator=;
    int setText(sstring const& content, sstring const&) override
    {
        contents.push_back(content.c_str());
        return 1;
    }
    List contents;
};

/// A page loaded from /app/pages/main.html.
class Links : public ::testing::Test
{
protected:
    template <typename Node>
    static Node* add(guiHtml* parent)
    {
        auto* node = new Node;
        parent->append(node);
        return node;
    }

    static int follow(guiHtml* node, char const* target) { return node->onHyperlink(sstring(target), nullptr); }

    FakeHost host;
    FakeObject page;
    RecordingRoot root{sstring("/app/pages/main.html"), &page};
};

} // namespace

TEST_F(Links, APictureTakesAPictureFileAsItsNewSource)
{
    auto* image = add<guiHtmlImage>(&root);
    EXPECT_EQ(follow(image, "{}b.png"), 1);
    EXPECT_EQ(image->getSource(), "/app/pages/b.png");
    EXPECT_EQ(image->getChildCount(), 0u);
    EXPECT_TRUE(root.contents.empty());
}

namespace {

class ClickedPage : public ::testing::Test
{
protected:
    ClickedPage() : root(sstring("/app/main.html"), &page) {}
    ~ClickedPage() override
    {
        root.destroyWidget();
        PageWindow::settle();
    }

    void show(char const* content)
    {
        ASSERT_EQ(root.setText(sstring(content), sstring()), 1);
        root.createWidget(0)->show();
        PageWindow::settle();
    }

    guiHtmlText* textIn(char const* name)
    {
        guiHtml* node = root.getNamed(sstring(name));
        return node ? dynamic_cast<guiHtmlText*>(node->getLastChild()) : nullptr;
    }

    /// The middle of the first link of a run, in the window.
    static QPoint linkOf(guiHtmlText* run)
    {
        guiRect rect;
        run->getRectInWidget(&rect);
        guiHotspot const& spot = run->mx.hotspots[0];
        return {rect.left + spot.left + spot.width / 2, rect.top + spot.top + spot.height / 2};
    }

    void mouse(QEvent::Type type, QPoint at)
    {
        Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, root.getWidget()->mapToGlobal(at), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(root.getWidget(), &event);
    }

    FakeHost host;
    FakeObject page;
    WindowRoot root;
};

} // namespace

TEST_F(ClickedPage, ThePointerIsAHandAfterAClickOnALinkThatStays)
{
    page.methods["onStay"] = [](std::string const&) { return ""; };
    show("<table><tr><td name=\"cell\"><a href=\"event://onStay\">first</a></td></tr></table>");
    QPoint const at = linkOf(textIn("cell"));
    auto shape = [this] { return root.getWidget()->cursor().shape(); };
    mouse(QEvent::MouseMove, at);
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonRelease, at);
    EXPECT_EQ(shape(), Qt::PointingHandCursor);
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonRelease, at + QPoint(0, 100));
    EXPECT_EQ(shape(), Qt::ArrowCursor) << "the button went up elsewhere";
}

TEST_F(ClickedPage, TheCellThatTheLinkStandsInIsReplacedByTheHandlersReply)
{
    host.files["/app/next.html"] = "<p>next <a href=\"event://onNext\" target=\"cell\">on</a></p>";
    page.methods["onNext"] = [](std::string const&) { return "next.html"; };
    show("<table><tr><td name=\"cell\"><a href=\"event://onNext\" target=\"cell\">first</a></td></tr></table>");
    for (int i = 0; i < 3; ++i) {
        QPoint at = linkOf(textIn("cell"));
        mouse(QEvent::MouseMove, at);
        EXPECT_EQ(root.getWidget()->cursor().shape(), Qt::PointingHandCursor);
        mouse(QEvent::MouseButtonPress, at);
        ASSERT_NE(textIn("cell"), nullptr);
        EXPECT_EQ(textIn("cell")->getText().find(sstring("next ")), 0u);
        EXPECT_EQ(root.getWidget()->cursor().shape(), Qt::ArrowCursor) << "the hovered link is gone";
        mouse(QEvent::MouseButtonRelease, at);
        PageWindow::settle();
    }
    EXPECT_EQ(host.read.size(), 3u);
}

TEST_F(ClickedPage, AHandlerThatClosesTheWindowIsTheEndOfTheClick)
{
    page.methods["onClose"] = [&](std::string const&) {
        root.destroyWidget();
        return "";
    };
    show("<p><a href=\"event://onClose\" name=\"x\">close</a></p>");
    auto* run = dynamic_cast<guiHtmlText*>(root.getLastChild());
    ASSERT_NE(run, nullptr);
    QPointer<guiWidget> widget(root.getWidget());
    mouse(QEvent::MouseMove, linkOf(run));
    mouse(QEvent::MouseButtonPress, linkOf(run));
    EXPECT_FALSE(root.isOpen());
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(ClickedPage, AHoveredCellHearsOfItsEndFromTheEventLoop)
{
    std::vector<std::string> called;
    page.methods["out"] = [&](std::string const& event) {
        EXPECT_EQ(textIn("cell"), nullptr) << "the page is whole again when a handler hears of it";
        return called.push_back(event), "";
    };
    show("<table><tr><td name=\"cell\" onmouseout=\"event://out\" width=\"100\" height=\"50\">text</td></tr></table>");
    guiRect rect;
    root.getNamed(sstring("cell"))->getRectInWidget(&rect);
    mouse(QEvent::MouseMove, QPoint(rect.left + 50, rect.top + 25));
    ASSERT_NE(root.getWidget()->hoverNode, nullptr);
    EXPECT_EQ(root.setText(sstring("<p>other</p>"), sstring()), 1);
    EXPECT_TRUE(called.empty());
    PageWindow::settle();
    EXPECT_EQ(called, List{"out"});
}
