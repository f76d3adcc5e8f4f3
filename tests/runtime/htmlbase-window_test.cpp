// tests/runtime/htmlbase-window_test.cpp: tests of the page root and its window: what is done in which order when the
// window comes and goes, the focus, groups of radio buttons, and who waits for whom at the end.
#include "controls/guiwidget.h"
#include "page/guihtml.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guihtmlframeset.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QResizeEvent>
#include <chrono>
#include <thread>

namespace {

using namespace std::chrono_literals;
using List = std::vector<std::string>;

struct Root : guiHtmlBase
{
    using guiHtml::operator=;
    Root() : guiHtmlBase(nullptr, nullptr, nullptr, sstring()) {}
    ~Root() override { destroyWidget(); }
};

/// Says in which state its window is when it is laid out and when its controls are destroyed.
struct OrderedRoot : Root
{
    using guiHtml::operator=;
    int updateLayout(int apply) override
    {
        guiWidget* widget = getWidget();
        log.push_back("layout " + std::to_string(apply));
        if (widget && widget->htmlBase == this)
            log.push_back("bound");
        if (pGUI->isWindowOpen(widget))
            log.push_back("known");
        if (widget && widget->minimumWidth() == 0)
            log.push_back("unlimited");
        return 1;
    }
    void destroyChildWidget() override
    {
        log.push_back(isOpen() && pGUI->isWindowOpen(getWidget()) ? "controls go from an open window" : "controls go");
        Root::destroyChildWidget();
    }
    List log;
};

/// A control with a text field that is there as long as the test says.
struct FieldNode : guiHtml
{
    using guiHtml::operator=;
    explicit FieldNode(char const* name) { setString(kStringName, sstring(name)); }
    QWidget* getChildWidget() override { return field; }
    guiHtml* findWidget(QWidget* widget) override { return widget == field ? this : nullptr; }
    QPointer<QLineEdit> field;
};

struct HoverNode : guiHtml
{
    using guiHtml::operator=;
    void onMouseOff() override
    {
        ++offs;
        if (whenLeft)
            whenLeft();
    }
    int offs = 0;
    std::function<void()> whenLeft;
};

} // namespace

TEST(PageWindow, IsLaidOutOnceItIsKnownAndBeforeItIsSized)
{
    NativeHost host;
    onGuiThread([] {
        OrderedRoot root;
        root.setMinimumSize(150, 0);
        guiWidget* widget = root.createWidget(0);
        EXPECT_EQ(root.log, (List{"layout 0", "bound", "known", "unlimited"}));
        EXPECT_EQ(widget->parent(), nullptr);
        EXPECT_EQ(widget->minimumWidth(), 150);
        EXPECT_EQ(widget->minimumHeight(), 0) << "not set, so not applied";
        EXPECT_EQ(widget->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        EXPECT_EQ(widget->size(), QSize(480, 240));
        EXPECT_FALSE(widget->isVisible());
        root.log.clear();
        EXPECT_EQ(root.createWidget(1), widget);
        EXPECT_TRUE(root.log.empty()) << "an open window is handed out as it is";
        root.destroyWidget();
        EXPECT_EQ(root.log, List{"controls go from an open window"});
        EXPECT_EQ(root.getWidget(), nullptr);
        root.destroyWidget();
        EXPECT_EQ(root.log.size(), 1u);
    });
}

TEST(PageWindow, TellsItsHoveredNodeBeforeItGoesAndOnce)
{
    NativeHost host;
    onGuiThread([] {
        OrderedRoot root;
        auto* node = new HoverNode;
        root.append(node);
        node->whenLeft = [&] { root.log.push_back("left"); };
        root.createWidget(0)->hoverNode = node;
        root.log.clear();
        root.destroyWidget();
        EXPECT_EQ(root.log, (List{"left", "controls go from an open window"}));
        EXPECT_EQ(node->offs, 1);
        root.createWidget(0)->hoverNode = node;
        node->whenLeft = [&] { root.destroyWidget(); };
        root.destroyWidget();
        EXPECT_EQ(node->offs, 2) << "a handler that closes the window that is closing";
        EXPECT_FALSE(root.isOpen());
    });
}

TEST(PageWindow, TakesLimitsWhileItIsOpen)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        guiWidget* widget = root.createWidget(0);
        root.setMinimumSize(210, 0);
        EXPECT_EQ(widget->minimumSize(), QSize(210, 0));
        root.setMinimumSize(0, 120);
        EXPECT_EQ(widget->minimumSize(), QSize(210, 120));
        root.setMaximumSize(0, 470);
        EXPECT_EQ(widget->maximumSize(), QSize(QWIDGETSIZE_MAX, 470));
        root.setMaximumSize(600, 0);
        EXPECT_EQ(widget->maximumSize(), QSize(600, 470));
        root.setDefaultSize(0, 200);
        EXPECT_EQ(widget->size(), QSize(480, 200)) << "the stored width, too";
        root.setResizable(0);
        EXPECT_EQ(widget->minimumSize(), widget->maximumSize());
    });
}

TEST(PageWindow, DefaultSizesAreDerivedFromTheLimits)
{
    struct row_t
    {
        int minimum;
        int maximum;
        int width;
        int height;
    };
    for (row_t row : {row_t{0, 0, 480, 240},
                      {200, 0, 200, 200},
                      {0, 700, 700, 700},
                      {200, 401, 300, 300},
                      {200, 400, 300, 300},
                      {401, 200, 301, 301},
                      {300, 300, 300, 300}}) {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        root.setMinimumSize(row.minimum, row.minimum);
        root.setMaximumSize(row.maximum, row.maximum);
        root.setResizable(1);
        EXPECT_EQ(root.getDefaultWidth(), row.width) << row.minimum << " to " << row.maximum;
        EXPECT_EQ(root.getDefaultHeight(), row.height) << row.minimum << " to " << row.maximum;
        EXPECT_EQ(root.getMaximumWidth(), row.maximum) << "can still be resized";
    }
    guiHtmlBase chosen(nullptr, nullptr, nullptr, sstring());
    chosen.setMinimumSize(100, 100);
    chosen.setMaximumSize(900, 900);
    chosen.setDefaultSize(250, 0);
    chosen.setResizable(0);
    EXPECT_EQ(chosen.getMinimumWidth(), 250) << "a size that was asked for is not derived";
    EXPECT_EQ(chosen.getMaximumWidth(), 250);
    EXPECT_EQ(chosen.getMinimumHeight(), 500);
    EXPECT_EQ(chosen.getMaximumHeight(), 500);
}

TEST(PageWindow, HasADialogFrameForOneSizeInBothDirectionsOrByItsStyle)
{
    struct row_t
    {
        unsigned style;
        QSize minimum;
        QSize maximum;
        bool isDialogFrame;
    };
    NativeHost host;
    onGuiThread([] {
        Qt::WindowFlags const sizing = Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;
        for (row_t const& row : {row_t{0x87, {0, 0}, {0, 0}, false},
                                 {0x87, {300, 200}, {300, 200}, true},
                                 {0x87, {300, 0}, {300, 0}, false},
                                 {0x87, {0, 200}, {0, 200}, false},
                                 {0x87, {300, 200}, {300, 201}, false},
                                 {0xC7, {0, 0}, {0, 0}, true}}) {
            Root root;
            root.setStyle(row.style);
            root.setMinimumSize(row.minimum.width(), row.minimum.height());
            root.setMaximumSize(row.maximum.width(), row.maximum.height());
            Qt::WindowFlags flags = root.createWidget(0)->windowFlags();
            EXPECT_EQ(flags.testFlag(Qt::MSWindowsFixedSizeDialogHint), row.isDialogFrame);
            EXPECT_EQ(flags & sizing, row.isDialogFrame ? Qt::WindowFlags() : sizing);
            EXPECT_TRUE(flags & Qt::WindowSystemMenuHint) << "the bits that took the buttons' place keep the menu";
            EXPECT_TRUE(flags & Qt::WindowTitleHint);
        }
    });
}

TEST(PageWindow, ARootBelowANodeHasThatNodesWindowAndRoot)
{
    NativeHost host;
    onGuiThread([] {
        Root outer;
        auto* inner = new guiHtmlBase(nullptr, nullptr, nullptr, sstring());
        EXPECT_EQ(inner->getTopLevelWidget(), nullptr);
        EXPECT_EQ(inner->getBaseHtml(), inner);
        outer.append(inner);
        outer.createWidget(0);
        EXPECT_EQ(inner->getTopLevelWidget(), outer.getWidget());
        EXPECT_EQ(inner->getBaseHtml(), &outer);
        EXPECT_EQ(outer.getTopLevelWidget(), outer.getWidget());
        EXPECT_EQ(outer.getBaseHtml(), &outer);
    });
}

TEST(PageWindow, TheFocusIsThatOfANamedControlAndWaitsForItsWidget)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        auto* first = new FieldNode("First");
        auto* second = new FieldNode("Second");
        root.append(first);
        root.append(second);
        guiWidget* widget = root.createWidget(0);
        EXPECT_STREQ(root.getFocus().c_str(), "") << "nothing has it";
        first->field = new QLineEdit(widget);
        root.setFocus("fIRST");
        EXPECT_STREQ(root.getFocus().c_str(), "First");
        EXPECT_STREQ(root.getPendingFocus().c_str(), "");
        root.setFocus("second"); // it has no widget yet
        EXPECT_STREQ(root.getFocus().c_str(), "First");
        EXPECT_STREQ(root.getPendingFocus().c_str(), "second");
        second->field = new QLineEdit(widget);
        QResizeEvent resize(widget->size(), widget->size());
        QCoreApplication::sendEvent(widget, &resize);
        EXPECT_STREQ(root.getFocus().c_str(), "Second") << "asked for once more by the next resize";
        EXPECT_STREQ(root.getPendingFocus().c_str(), "");
        root.setFocus("nobody");
        EXPECT_STREQ(root.getFocus().c_str(), "Second");
        EXPECT_STREQ(Root().getFocus().c_str(), "") << "no window";
    });
}

TEST(PageWindow, RadioButtonsOfOneNameAreAGroupThatEndsWithThePage)
{
    NativeHost host;
    onGuiThread([] {
        QRadioButton buttons[3]; // of no common parent
        QPointer<QButtonGroup> group;
        {
            Root root;
            root.addToGroup(&buttons[0], "Size");
            root.addToGroup(&buttons[1], "sIZE");
            root.addToGroup(&buttons[2], "other");
            group = buttons[0].group();
            EXPECT_EQ(buttons[1].group(), group);
            EXPECT_NE(buttons[2].group(), group);
            EXPECT_TRUE(group->exclusive());
            buttons[0].setChecked(true);
            buttons[2].setChecked(true);
            buttons[1].setChecked(true);
            EXPECT_FALSE(buttons[0].isChecked());
            EXPECT_TRUE(buttons[2].isChecked());
        }
        EXPECT_TRUE(group.isNull());
    });
}

TEST(PageWindow, KeysWithoutATargetAreUsedUpAndDoNothing)
{
    NativeHost host;
    onGuiThread([] {
        Root root;
        root.createWidget(0);
        EXPECT_EQ(root.onEnter(), 1);
        EXPECT_EQ(root.onEscape(), 1);
        root.setEnterControl("nobody");
        root.setEscapeControl("nobody");
        EXPECT_STREQ(root.getEnterControl().c_str(), "nobody");
        EXPECT_STREQ(root.getEscapeControl().c_str(), "nobody");
        EXPECT_EQ(root.onEnter(), 1);
        EXPECT_EQ(root.onEscape(), 1);
        QCoreApplication::processEvents();
        EXPECT_TRUE(root.isOpen());
    });
}

TEST(Framesets, HaveOneColumnAndOneRowUntilToldAndCopyBoth)
{
    guiHtmlFrameset frameset;
    EXPECT_EQ(frameset.getType(), 6);
    EXPECT_EQ(frameset.getColumnCount(), 1);
    EXPECT_EQ(frameset.getRowCount(), 1);
    frameset.setTracks(std::vector<guiHtmlFrameset::track>(3), std::vector<guiHtmlFrameset::track>(2));
    frameset.m.border = 7;
    guiHtmlFrameset assigned;
    guiHtml& target = assigned;
    target = frameset;
    EXPECT_EQ(assigned.getColumnCount(), 3);
    EXPECT_EQ(assigned.getRowCount(), 2);
    EXPECT_EQ(assigned.m.border, 7) << "and what every node has";
    guiHtml parent;
    std::unique_ptr<guiHtml> clone(frameset.Clone(&parent));
    EXPECT_EQ(clone->getParent(), &parent);
    EXPECT_EQ(clone->getType(), 6);
    EXPECT_EQ(static_cast<guiHtmlFrameset*>(clone.get())->getColumnCount(), 3);
}

TEST(PageWindow, WithoutScriptThereIsNoReturnCode)
{
    guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
    NativeValue value("done");
    root.setReturnCode(value);
    EXPECT_EQ(root.getReturnCode(), nullptr);
    EXPECT_EQ(root.getPageObject(), nullptr);
    EXPECT_EQ(root.getPagePrivate(), nullptr);
    EXPECT_EQ(root.getFormObject(), nullptr);
}

TEST(PageWindow, WaitsForTheCallsOfItsOwnPageAlone)
{
    NativeHost host;
    Root busy;
    Root idle;
    busy.shutdownEnter();
    auto start = std::chrono::steady_clock::now();
    idle.shutdownWait();
    std::thread call([&] {
        std::this_thread::sleep_for(250ms);
        busy.shutdownLeave();
    });
    std::thread waiter([&] { busy.shutdownWait(); }); // neither of the component's threads: it polls
    waiter.join();
    auto waited = std::chrono::steady_clock::now() - start;
    call.join();
    EXPECT_GE(waited, 240ms);
    EXPECT_LT(waited, 5s);
    start = std::chrono::steady_clock::now();
    pGUI->shutdownWait(); // the component's counter has gone down with the page's
    pGUI->leave();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 500ms);
}

TEST(PageWindow, ACallForThePageIsOneForTheComponent)
{
    NativeHost host;
    Root root;
    root.shutdownEnter();
    auto start = std::chrono::steady_clock::now();
    std::thread call([&] {
        std::this_thread::sleep_for(150ms);
        root.shutdownLeave();
    });
    pGUI->shutdownWait();
    auto waited = std::chrono::steady_clock::now() - start;
    pGUI->leave();
    call.join();
    EXPECT_GE(waited, 140ms);
}

TEST(PageWindow, APageEndsAfterTheCallThatIsMadeForIt)
{
    NativeHost host;
    auto root = std::make_unique<Root>();
    root->shutdownEnter();
    std::atomic<bool> isOver{false};
    std::thread call([&, page = root.get()] {
        std::this_thread::sleep_for(150ms);
        isOver = true;
        page->shutdownLeave();
    });
    root.reset();
    EXPECT_TRUE(isOver);
    call.join();
}
