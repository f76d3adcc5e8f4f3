// tests/e2e/flags_test.cpp: what the window manager is told about a window, for each of its style bits, and what it
// makes of that.
#include "tests/e2e/roots.h"

#include <algorithm>

using namespace std::chrono_literals;

using Names = std::vector<std::string>;
using Words = std::vector<unsigned long>;

namespace {

/// Bits in the first three words of _MOTIF_WM_HINTS, as MwmUtil.h of the Motif window manager has them.
namespace motif {
enum : unsigned long
{
    kSaysFunctions = 0x1,
    kSaysDecorations = 0x2,
    kResize = 0x2,
    kMove = 0x4,
    kMinimize = 0x8,
    kMaximize = 0x10,
    kClose = 0x20,
    kBorder = 0x2,
    kHandles = 0x4,
    kTitle = 0x8,
    kMenu = 0x10,
    kMinimizeButton = 0x20,
    kMaximizeButton = 0x40,
    kSizable = kResize | kMove,
    kFrame = kBorder | kHandles | kTitle,
};
} // namespace motif

/// One row: the style bits, and what becomes of them.
struct Style
{
    unsigned bits;
    unsigned long functions;   // 0: the hints say that there are none but to move and to resize
    unsigned long decorations; // 0: no frame at all
    Names state;
};

constexpr unsigned long kSystemMenu = motif::kSizable | motif::kClose;
constexpr unsigned long kMenuFrame = motif::kFrame | motif::kMenu;

// A title bar alone asks for no decoration by name: the window manager then draws its standard frame, and leaves out
// the buttons whose functions are not granted.
constexpr unsigned long kStandardFrame = ~0UL;

Style const kStyles[] = {
    {0x00, 0, 0, {}},
    {0x01, kSystemMenu | motif::kMinimize, kMenuFrame | motif::kMinimizeButton, {}},
    {0x02, kSystemMenu | motif::kMaximize, kMenuFrame | motif::kMaximizeButton, {}},
    {0x04, kSystemMenu, kMenuFrame, {}},
    {0x08, motif::kSizable, kStandardFrame, {}},
    {0x10, kSystemMenu, kMenuFrame, {}},
    {0x20, 0, 0, {"_NET_WM_STATE_ABOVE"}},
    {0x40, 0, 0, {}},
    {0x80, motif::kSizable, kStandardFrame, {}},
    {0x87,
     kSystemMenu | motif::kMinimize | motif::kMaximize,
     kMenuFrame | motif::kMinimizeButton | motif::kMaximizeButton,
     {}},
    {0xA0, motif::kSizable, kStandardFrame, {"_NET_WM_STATE_ABOVE"}},
    {0xC7, kSystemMenu, kMenuFrame, {}}, // a dialog border takes the two size buttons away
};

void PrintTo(Style const& style, std::ostream* out) { *out << "style 0x" << std::hex << style.bits; }

/// WM_NORMAL_HINTS: its flags and the sizes behind them (Xlib's XSizeHints without the four obsolete words).
struct SizeHints
{
    explicit SizeHints(Words const& words)
    {
        if (words.size() < 9)
            return;
        constexpr unsigned long kHasMinimum = 1 << 4;
        constexpr unsigned long kHasMaximum = 1 << 5;
        if (words[0] & kHasMinimum)
            minimum = {words[5], words[6]};
        if (words[0] & kHasMaximum)
            maximum = {words[7], words[8]};
    }
    Words minimum; // empty: none
    Words maximum;
};

struct FlagsTest : testing::Test
{
    TimeLimit limit{90s};
    NativeHost host;
    Desktop desktop;

    static constexpr char kTitle[] = "Flags";

    Words motifHints() { return desktop.property(kTitle, "_MOTIF_WM_HINTS"); }
    SizeHints sizeHints() { return SizeHints(desktop.property(kTitle, "WM_NORMAL_HINTS")); }
    Names allowed() { return desktop.atoms(kTitle, "_NET_WM_ALLOWED_ACTIONS"); }
    bool allows(std::string const& action)
    {
        Names names = allowed();
        return std::find(names.begin(), names.end(), "_NET_WM_ACTION_" + action) != names.end();
    }
    /// How wide the frame is on the left, right, top and bottom, once the window manager has said so.
    Words frame()
    {
        Words extents;
        Desktop::waitUntil([&] { return (extents = desktop.property(kTitle, "_NET_FRAME_EXTENTS")).size() == 4; });
        return extents;
    }
};

struct EachStyle : FlagsTest, testing::WithParamInterface<Style>
{};

} // namespace

TEST_P(EachStyle, AsksForItsFunctionsDecorationsAndState)
{
    Style const& style = GetParam();
    RootWindow window(kTitle);
    window.root().setStyle(style.bits);
    window.open();
    desktop.window(kTitle);
    bool hasFrame = style.decorations != 0;
    Words hints = motifHints();
    ASSERT_GE(hints.size(), 3u);
    EXPECT_EQ((hints[0] & motif::kSaysFunctions) != 0, hasFrame);
    EXPECT_EQ(hints[0] & motif::kSaysFunctions ? hints[1] : 0, style.functions);
    EXPECT_EQ(hints[0] & motif::kSaysDecorations ? hints[2] : kStandardFrame, style.decorations);
    EXPECT_EQ(desktop.atoms(kTitle, "_NET_WM_WINDOW_TYPE"), Names{"_NET_WM_WINDOW_TYPE_NORMAL"});
    EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.atoms(kTitle, "_NET_WM_STATE") == style.state; }));
    EXPECT_EQ(frame()[2] > frame()[0], hasFrame) << "a title bar is higher than a border";
    EXPECT_TRUE(allows("RESIZE"));
    EXPECT_TRUE(sizeHints().minimum.empty());
    EXPECT_TRUE(sizeHints().maximum.empty());
}

INSTANTIATE_TEST_SUITE_P(Styles, EachStyle, testing::ValuesIn(kStyles), [](auto const& row) {
    char name[8];
    std::snprintf(name, sizeof name, "0x%02X", row.param.bits);
    return std::string(name);
});

TEST_F(FlagsTest, OneSizeOnlyIsADialogFrameThatNobodyCanResize)
{
    RootWindow window(kTitle);
    window.root().setMinimumSize(300, 200);
    window.root().setMaximumSize(300, 200);
    window.open();
    DesktopArea inner = desktop.window(kTitle);
    EXPECT_EQ(inner.right - inner.left, 300);
    EXPECT_EQ(inner.bottom - inner.top, 200);
    Words hints = motifHints();
    ASSERT_GE(hints.size(), 3u);
    EXPECT_EQ(hints[1], kSystemMenu);
    EXPECT_EQ(hints[2], kMenuFrame);
    EXPECT_EQ(sizeHints().minimum, (Words{300, 200}));
    EXPECT_EQ(sizeHints().maximum, (Words{300, 200}));
    EXPECT_FALSE(allows("RESIZE"));
    EXPECT_FALSE(allows("MAXIMIZE_HORZ"));
    EXPECT_EQ(frame()[3], frame()[0]) << "the handle at the bottom is gone";
}

TEST_F(FlagsTest, OneFixedDirectionLeavesTheOtherAndBothButtons)
{
    RootWindow window(kTitle);
    window.root().setMinimumSize(300, 200);
    window.root().setMaximumSize(300, 500);
    window.open();
    desktop.window(kTitle);
    EXPECT_EQ(motifHints()[1], kSystemMenu | motif::kMinimize | motif::kMaximize);
    EXPECT_EQ(sizeHints().minimum, (Words{300, 200}));
    EXPECT_EQ(sizeHints().maximum, (Words{300, 500}));
    EXPECT_TRUE(allows("RESIZE"));
}

TEST_F(FlagsTest, NotResizableMeansTheDefaultSizeInBothLimits)
{
    RootWindow window(kTitle);
    window.root().setResizable(0);
    window.open();
    DesktopArea inner = desktop.window(kTitle);
    EXPECT_EQ(inner.right - inner.left, 480);
    EXPECT_EQ(inner.bottom - inner.top, 240);
    EXPECT_EQ(sizeHints().minimum, (Words{480, 240}));
    EXPECT_EQ(sizeHints().maximum, (Words{480, 240}));
    EXPECT_FALSE(allows("RESIZE"));
}

TEST_F(FlagsTest, AWindowWithoutLimitsCanBeResizedAndMaximized)
{
    RootWindow window(kTitle);
    window.open();
    desktop.window(kTitle);
    for (char const* action : {"RESIZE", "MINIMIZE", "MAXIMIZE_HORZ", "MAXIMIZE_VERT", "CLOSE"})
        EXPECT_TRUE(allows(action)) << action;
}

TEST_F(FlagsTest, LimitsSetWhileTheWindowIsOpenReachTheWindowManager)
{
    RootWindow window(kTitle);
    window.open();
    desktop.window(kTitle);
    onGuiThread([&] {
        window.root().setMinimumSize(210, 0);
        window.root().setMaximumSize(0, 470);
    });
    EXPECT_TRUE(Desktop::waitUntil([&] { return !sizeHints().maximum.empty(); }));
    EXPECT_EQ(sizeHints().minimum, (Words{210, 0}));
    EXPECT_EQ(sizeHints().maximum[1], 470u);
}

TEST_F(FlagsTest, AModalWindowIsADialogAboveTheOthersOfItsProgram)
{
    RootWindow first("First");
    first.open();
    desktop.activate("First");
    RootWindow window(kTitle);
    window.open(true);
    desktop.window(kTitle);
    EXPECT_TRUE(
        Desktop::waitUntil([&] { return desktop.atoms(kTitle, "_NET_WM_STATE") == Names{"_NET_WM_STATE_MODAL"}; }));
    Names types = desktop.atoms(kTitle, "_NET_WM_WINDOW_TYPE");
    EXPECT_EQ(types.front(), "_NET_WM_WINDOW_TYPE_DIALOG");
    EXPECT_EQ(desktop.property(kTitle, "WM_TRANSIENT_FOR").size(), 1u);
    EXPECT_TRUE(desktop.property("First", "WM_TRANSIENT_FOR").empty());
    window.close();
    desktop.waitUntilClosed(kTitle);
}

TEST_F(FlagsTest, WithoutAnActiveWindowAModalRequestGivesAnOrdinaryWindow)
{
    RootWindow window(kTitle);
    window.open(true);
    desktop.window(kTitle);
    EXPECT_EQ(desktop.atoms(kTitle, "_NET_WM_WINDOW_TYPE"), Names{"_NET_WM_WINDOW_TYPE_NORMAL"});
    EXPECT_EQ(desktop.atoms(kTitle, "_NET_WM_STATE"), Names{});
}

TEST_F(FlagsTest, TheTitleOfAnOpenWindowFollowsThePage)
{
    RootWindow window(kTitle);
    window.open();
    desktop.window(kTitle);
    onGuiThread([&] { window.root().setTitle("Wörter"); });
    desktop.window("Wörter");
}
