// tests/runtime/htmlbase_test.cpp: tests of the page root: sizes, keys, return value and widget.
#include "runtime/guihtmlbase.h"

#include "controls/guiwidget.h"
#include "host/native/nativehost.h"
#include "page/guihtmltext-fonts.h"
#include "runtime/gui.h"
#include "runtime/guithread.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScopeGuard>
#include <functional>

namespace {

struct Root : guiHtmlBase
{
    using guiHtml::operator=;
    Root() : guiHtmlBase(nullptr, nullptr, nullptr, sstring()) {}
    ~Root() override { destroyWidget(); }
};

TEST(PageRoot, StartsWithTheStandardWindow)
{
    Root root;
    EXPECT_EQ(root.getType(), 1);
    EXPECT_EQ(root.getDefaultWidth(), 480);
    EXPECT_EQ(root.getDefaultHeight(), 240);
    EXPECT_EQ(root.getMinimumWidth(), 0);
    EXPECT_EQ(root.getMaximumHeight(), 0);
    EXPECT_EQ(root.getStyle(), 0x87u);
    EXPECT_FALSE(root.isOpen());
    EXPECT_EQ(root.getReturnCode(), nullptr);
}

TEST(PageRoot, ZeroLeavesTheOldLimit)
{
    Root root;
    root.setMinimumSize(200, 100);
    root.setMinimumSize(0, 300);
    EXPECT_EQ(root.getMinimumWidth(), 200);
    EXPECT_EQ(root.getMinimumHeight(), 300);
    root.setMaximumSize(500, 0);
    EXPECT_EQ(root.getMaximumWidth(), 500);
    EXPECT_EQ(root.getMaximumHeight(), 0);
    root.setDefaultSize(0, 350);
    EXPECT_EQ(root.getDefaultWidth(), 480);
    EXPECT_EQ(root.getDefaultHeight(), 350);
}

TEST(PageRoot, FixedWithoutSizesIsTheStandardSize)
{
    Root root;
    root.setResizable(0);
    EXPECT_EQ(root.getMinimumWidth(), 480);
    EXPECT_EQ(root.getMaximumWidth(), 480);
    EXPECT_EQ(root.getMinimumHeight(), 240);
    EXPECT_EQ(root.getMaximumHeight(), 240);
}

TEST(PageRoot, DefaultSizeIsTheMiddleOfTheLimits)
{
    Root root;
    root.setMinimumSize(200, 100);
    root.setMaximumSize(401, 0);
    root.setResizable(1);
    EXPECT_EQ(root.getDefaultWidth(), 300);
    EXPECT_EQ(root.getDefaultHeight(), 100);
    EXPECT_EQ(root.getMinimumWidth(), 200);
}

TEST(PageRoot, DefaultSizeIsTheMaximumWhenThatIsAllThereIs)
{
    Root root;
    root.setMaximumSize(300, 150);
    root.setResizable(1);
    EXPECT_EQ(root.getDefaultWidth(), 300);
    EXPECT_EQ(root.getDefaultHeight(), 150);
}

TEST(PageRoot, WindowTakesSizeAndLimits)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        root.setMinimumSize(200, 100);
        root.setMaximumSize(700, 600);
        root.setDefaultSize(400, 300);
        root.setTitle("Sizes");
        guiWidget* widget = root.createWidget(0);
        EXPECT_EQ(widget->size(), QSize(400, 300));
        EXPECT_EQ(widget->minimumSize(), QSize(200, 100));
        EXPECT_EQ(widget->maximumSize(), QSize(700, 600));
        EXPECT_EQ(widget->objectName(), "Tarn Components");
        root.setDefaultSize(500, 0);
        EXPECT_EQ(widget->size(), QSize(500, 300));
        root.setTitle("Other");
        EXPECT_EQ(widget->windowTitle(), "Other");
    });
}

Qt::WindowFlags flagsFor(unsigned style)
{
    Root root;
    root.setStyle(style);
    return root.createWidget(0)->windowFlags();
}

TEST(PageRoot, StyleBitsBecomeWindowHints)
{
    NativeHost host;
    onGuiThread([] {
        struct expectation
        {
            unsigned style;
            Qt::WindowFlags set;
            Qt::WindowFlags clear;
        };
        Qt::WindowFlags menu = Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint;
        expectation const table[] = {
            {0x00, {}, menu | Qt::WindowMinimizeButtonHint | Qt::MSWindowsFixedSizeDialogHint},
            {0x01, menu | Qt::WindowMinimizeButtonHint, Qt::WindowMaximizeButtonHint},
            {0x02, menu | Qt::WindowMaximizeButtonHint, Qt::WindowMinimizeButtonHint},
            {0x04, menu, Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint},
            {0x10, menu, Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint},
            {0x08, Qt::WindowContextHelpButtonHint, Qt::WindowStaysOnTopHint}, // the toolkit adds the system menu
            {0x20, Qt::WindowStaysOnTopHint, Qt::WindowSystemMenuHint},
            {0x80, Qt::WindowTitleHint, Qt::WindowSystemMenuHint},
            {0x87, menu | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint, Qt::WindowStaysOnTopHint},
            {0xC7, menu | Qt::MSWindowsFixedSizeDialogHint,
             Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint},
        };
        for (expectation const& row : table) {
            Qt::WindowFlags flags = flagsFor(row.style);
            EXPECT_EQ(flags & row.set, row.set) << std::hex << row.style;
            EXPECT_EQ(flags & row.clear, Qt::WindowFlags()) << std::hex << row.style;
            EXPECT_TRUE(flags & Qt::CustomizeWindowHint);
        }
    });
}

TEST(PageRoot, OneSizeOnlyGivesADialogFrameWithoutTheSizeButtons)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        root.setMinimumSize(300, 200);
        root.setMaximumSize(300, 200);
        Qt::WindowFlags flags = root.createWidget(0)->windowFlags();
        EXPECT_TRUE(flags & Qt::MSWindowsFixedSizeDialogHint);
        EXPECT_FALSE(flags & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
        EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
    });
}

TEST(PageRoot, WithoutAnActiveWindowNothingIsModal)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        EXPECT_EQ(root.createWidget(1)->windowModality(), Qt::NonModal);
    });
}

TEST(PageRoot, MayBeOpenedAgain)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        root.createWidget(0);
        EXPECT_TRUE(root.isOpen());
        root.destroyWidget();
        EXPECT_FALSE(root.isOpen());
        root.destroyWidget(); // nothing left to do
        EXPECT_NE(root.createWidget(0), nullptr);
    });
}

TEST(PageRoot, EnterControlXClosesTheWindow)
{
    NativeHost host;
    Root* root = new Root;
    onGuiThread([&] {
        root->createWidget(0);
        root->setEnterControl("x"); // a control of that name, which there is not
        EXPECT_EQ(root->onEnter(), 1);
        root->setEscapeControl("X");
    });
    onGuiThread([&] { EXPECT_TRUE(root->isOpen()); });
    onGuiThread([&] { EXPECT_EQ(root->onEscape(), 1); });
    onGuiThread([&] {
        EXPECT_FALSE(root->isOpen());
        delete root;
    });
}

struct Triggered : guiHtml
{
    using guiHtml::operator=;
    int count = 0;
    void triggerNow() override { ++count; }
};

TEST(PageRoot, EnterTriggersTheNamedControl)
{
    NativeHost host;
    Root* root = new Root;
    auto* control = new Triggered;
    onGuiThread([&] {
        control->setString(kStringName, "Go");
        root->append(control);
        root->setEnterControl("gO");
        EXPECT_EQ(root->onEnter(), 1);
        EXPECT_EQ(root->onEscape(), 1); // no name: nothing happens
    });
    onGuiThread([&] { EXPECT_EQ(control->count, 1); });
    onGuiThread([&] { delete root; });
}

TEST(PageRoot, ReturnCodeIsACopy)
{
    NativeHost host;
    NativeWindow window = host.window();
    {
        guiHtmlBase root(window.object().get(), nullptr, nullptr, sstring());
        ASSERT_NE(root.getReturnCode(), nullptr);
        EXPECT_TRUE(root.getReturnCode()->isNull());
        NativeValue value("done");
        root.setReturnCode(value);
        value = NativeValue(3);
        EXPECT_STREQ(root.getReturnCode()->toString(0).c_str(), "done");
        EXPECT_EQ(host.engine().ownedValues(), 1u);
    }
    EXPECT_EQ(host.engine().ownedValues(), 0u);
}

TEST(PageRoot, GivesThePageTheToolkitsFaceInASizeOfItsOwn)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        guiHtml* node = root.append(new guiHtml);
        int points = 0;
        QFont font = node->getDefaultFont(&points);
        EXPECT_EQ(points, 10);
        EXPECT_EQ(font.family(), QApplication::font().family());
        EXPECT_EQ(font.pixelSize(), findFontHeight(font, 10)); // whatever the screen's resolution
        root.setUseSystemFont(1);
        EXPECT_EQ(node->getDefaultFont(&points), QApplication::font());
        EXPECT_EQ(points, 10) << "sizes that a page names are in proportion to the desktop's font";
        root.setUseSystemFont(0);
        EXPECT_EQ(node->getDefaultFont(nullptr), font);
    });
}

TEST(PageRoot, CountsCallsInFlight)
{
    NativeHost host;
    Root root;
    root.shutdownLeave(); // never below zero
    root.shutdownEnter();
    root.shutdownLeave();
    root.shutdownWait(); // returns: no call is in flight
    pGUI->shutdownWait();
    pGUI->leave();
}

} // namespace
