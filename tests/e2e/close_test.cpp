// tests/e2e/close_test.cpp: windows that close at awkward moments: inside their own paint, inside a handler, by the
// title bar while a handler runs.
#include "tests/e2e/roots.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

constexpr unsigned kPaint = 0x6010A0;

/// Fills its place with kPaint, and does something else while it is painted.
struct PaintingNode : guiHtml
{
    using guiHtml::operator=;
    explicit PaintingNode(std::function<void(PaintingNode&)> work) : whilePainting(std::move(work))
    {
        m.fixed = {200, 100, kUnitPixels, kUnitPixels, 200, 100};
        setBackgroundColor({0x60, 0x10, 0xA0});
    }
    void paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override
    {
        guiHtml::paintTo(painter, x, y, widget, region);
        ++paints;
        if (whilePainting)
            whilePainting(*this);
    }
    std::function<void(PaintingNode&)> whilePainting;
    std::atomic<int> paints{0};
};

struct CloseTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;

    static PaintingNode* addPaintingNode(RootWindow& window, std::function<void(PaintingNode&)> work)
    {
        PaintingNode* node = nullptr;
        onGuiThread([&] {
            node = new PaintingNode(std::move(work));
            window.root().append(node);
        });
        return node;
    }
};

} // namespace

TEST_F(CloseTest, AWindowThatClosesInItsOwnPaintIsGoneAfterIt)
{
    RootWindow window("Close");
    std::atomic<bool> wasPainting{false};
    PaintingNode* node = addPaintingNode(window, [&](PaintingNode& self) {
        guiHtmlBase* root = guiHtmlBase::of(&self);
        guiWidget* widget = root->getWidget();
        root->destroyWidget();
        wasPainting = widget->isPainting() && widget->deletePending && !root->isOpen();
    });
    window.open();
    EXPECT_TRUE(Desktop::waitUntil([&] { return node->paints != 0; }));
    EXPECT_TRUE(Desktop::waitUntil([&] { return !pGUI->hasOpenWindow(); }));
    desktop.waitUntilClosed("Close");
    EXPECT_TRUE(wasPainting);
    EXPECT_EQ(node->paints, 1);
    onGuiThread([&] { node->whilePainting = nullptr; });
    window.open(); // the page has outlived its window
    desktop.waitFor(kPaint);
}

TEST_F(CloseTest, AScriptCalledFromAPaintMayCloseTheWindow)
{
    NativeWindow script = host.window();
    RootWindow window("Close", script.object().get());
    int calls = 0;
    script.on("ePaint", [&](NativeWindow&, NativeArguments const&) {
        ++calls;
        window.close();
        EXPECT_FALSE(window.root().isOpen());
    });
    PaintingNode* node =
        addPaintingNode(window, [](PaintingNode& self) { self.onEvent("event://ePaint", self.getCustomObject()); });
    window.open();
    EXPECT_TRUE(host.serveUntil([&] { return calls != 0 && !pGUI->hasOpenWindow(); }, 20s));
    desktop.waitUntilClosed("Close");
    EXPECT_EQ(calls, 1);
    onGuiThread([&] { node->whilePainting = nullptr; });
}

TEST_F(CloseTest, TheTitleBarClosesAWindowWhileItsHandlerRunsAndTheHandlerGoesOn)
{
    pages.write("page.html", linkPage("Close", "event://onPick"));
    NativeWindow window = host.window("page.html");
    std::atomic<bool> running{false};
    std::atomic<bool> closed{false};
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        running = true;
        EXPECT_TRUE(Desktop::waitUntil([&] { return closed.load(); }));
        EXPECT_FALSE(self.isOpen());
        EXPECT_TRUE(self.isValid());
        self.setTitle("Late");
        EXPECT_EQ(self.title(), "Late");
        EXPECT_TRUE(self.setText("<p>late</p>"));
        self.setReturnValue("late");
        self.close();
    });
    User user([&] {
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&] { return running.load(); }));
        desktop.click(desktop.closeButton("Close"));
        desktop.waitUntilClosed("Close");
        closed = true;
    });
    EXPECT_EQ(window.show(), NativeValue("late"));
}

TEST_F(CloseTest, AHandlerMayCloseTheWindowAndShowItOnceMore)
{
    pages.write("page.html", linkPage("Close", "event://onPick"));
    NativeWindow window = host.window("page.html");
    std::atomic<int> depth{0};
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        self.close();
        if (++depth == 1)
            self.show();
        self.setReturnValue(depth.load());
    });
    User user([&] {
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&] { return depth == 1; }));
        desktop.window("Close");
        clickLink(desktop);
    });
    window.show();
    EXPECT_EQ(depth, 2);
    EXPECT_FALSE(window.isOpen());
}

TEST_F(CloseTest, AWindowThatIsDestroyedInItsHandlerEndsQuietly)
{
    pages.write("page.html", linkPage("Close", "event://onPick"));
    int clicks = 0;
    NativeWindow keeper = host.window();
    NativeWindow window = host.window("page.html");
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        ++clicks;
        self.close();
        window = {};
        self = {};
    });
    ASSERT_TRUE(window.open());
    User user([this] { clickLink(desktop); });
    EXPECT_TRUE(host.serveUntil([&] { return clicks == 1 && !pGUI->hasOpenWindow(); }, 20s));
    desktop.waitUntilClosed("Close");
}
