// page/guitypes.h: the small values that every page class shares: colours, rectangles, alignments, size units, and the
// markers that stand between the nodes of a child list.
#pragma once

#include <cassert>
#include <cstdint>

/// A colour: red, green and blue, each 0 to 255, in this order.
struct guiColor
{
    int red = 0;
    int green = 0;
    int blue = 0;

    static guiColor const White;
    static guiColor const LightGray;
    static guiColor const DarkGray;
    static guiColor const Black;
    static guiColor const BrightRed;
    static guiColor const BrightGreen;
    static guiColor const BrightBlue;

    bool operator==(guiColor const&) const = default;
};

inline constexpr guiColor guiColor::White{255, 255, 255};
inline constexpr guiColor guiColor::LightGray{192, 192, 192};
inline constexpr guiColor guiColor::DarkGray{128, 128, 128};
inline constexpr guiColor guiColor::Black{0, 0, 0};
inline constexpr guiColor guiColor::BrightRed{255, 0, 0};
inline constexpr guiColor guiColor::BrightGreen{0, 255, 0};
inline constexpr guiColor guiColor::BrightBlue{0, 0, 255};

/// A colour in three bytes, for nodes, of which a page has tens of thousands. Converts from and to guiColor.
class guiPackedColor
{
public:
    constexpr guiPackedColor(guiColor const& color)
        : m_red(static_cast<std::uint8_t>(color.red)),
          m_green(static_cast<std::uint8_t>(color.green)),
          m_blue(static_cast<std::uint8_t>(color.blue))
    {
        assert(color == static_cast<guiColor>(*this)); // each part is 0 to 255
    }
    constexpr operator guiColor() const { return {m_red, m_green, m_blue}; }

private:
    std::uint8_t m_red;
    std::uint8_t m_green;
    std::uint8_t m_blue;
};

/// A rectangle in pixels: first the horizontal extent, then the vertical one. The right side lies at left + width, the
/// bottom at top + height.
struct guiRect
{
    int left = 0;
    int width = 0;
    int top = 0;
    int height = 0;

    int right() const { return left + width; }
    int bottom() const { return top + height; }
    /// Whether it has any area.
    bool isEmpty() const { return width < 1 || height < 1; }
    bool operator==(guiRect const&) const = default;
};

/// Alignment on either axis.
enum guiAlignment : std::uint8_t
{
    kAlignLeft = 0,
    kAlignTop = 0,
    kAlignCenter = 1,
    kAlignRight = 2,
    kAlignBottom = 2,
};

/// The direction in which the paragraphs of a text are read.
enum class guiDirection : std::uint8_t
{
    kByText = 0, ///< that of the first letter which has one
    kLeftToRight = 1,
    kRightToLeft = 2,
};

/// The unit of a requested width or height.
enum guiSizeUnit : std::uint8_t
{
    kUnitUnbound = 0, ///< no request
    kUnitPixels = 1,
    kUnitPercent = 2, ///< of the space that the parent offers
};

/// What a node does with content larger than itself.
enum guiSizePolicy : std::uint8_t
{
    kPolicyScroll = 0, ///< gets scroll bars
    kPolicyResize = 1, ///< grows to its content
    kPolicyFixed = 2,  ///< keeps its size, no scroll bars
};

/// Child list entries that are not nodes. All values up to kLastMarker are reserved for markers.
enum guiMarker : unsigned
{
    kMarkerNone = 0,
    kMarkerParagraph = 1,
    kMarkerLineBreak = 2,
    kMarkerAlignLeft = 3,
    kMarkerAlignCenter = 4,
    kMarkerAlignRight = 5,
    kLastMarker = 31,
};

/// Upper bound of a request in pixels and of every length read from a page. Layout adds up such lengths of millions of
/// nodes in 64 bits.
inline constexpr int kMaxPixels = 32767;
/// Upper bound of a request in percent.
inline constexpr int kMaxPercent = 1000;
/// The tab index of a node without one.
inline constexpr int kNoTabIndex = 9999;
/// The caption of a group box that has a frame and no text.
inline constexpr char kEmptyGroupBox[] = "*EMPTYGROUPBOX*";
/// How many levels of nodes a page may nest; deeper ones are flattened.
inline constexpr unsigned kMaxNesting = 1000;
