// page/guihtmltext-fonts.h: the fonts of text runs: their sizes, and the widths of words. Every font is made once for
// the whole process, and every word measured once per font. GUI thread.
#pragma once

#include "page/guizoomedlength.h"

#include <QChar>
#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

/// Largest line height in pixels of a font of this many points.
int guiLineHeightFor(int points);
/// The largest pixel size in which lines of the font's family are no taller than guiLineHeightFor(points), whatever the
/// screen's resolution. Remembered by family and points.
int findFontHeight(QFont const& font, int points);
/// Replaces the font by its family in normal weight, in the pixel size of findFontHeight().
void normalizeFontHeight(QFont& font, int points);

class guiHtml;

/// Points of a page's text where nothing else is asked for.
inline constexpr int kDefaultPoints = 10;
/// The font that all others of a page derive from: the toolkit's default face, as large on every screen; with the
/// system font asked for, the desktop's font as it is, and all sizes of the page in proportion to it. `points`: may be
/// null.
QFont guiPageFont(guiHtml const* root, int* points);
/// What the texts of a node are scaled by.
guiTextScale guiTextScaleOf(guiHtml const* node);

/// A word, or one character of a long word, with the blanks after it. Four bytes, since a page of a megabyte has two
/// hundred thousand of them.
struct guiTextWord
{
    enum : std::uint8_t
    {
        kGlued = 1,  ///< continues the entry before it: a line ends here only when the word is too long for it. Without
                     ///< it a line may end here, also where no blank stands
        kSolid = 2,  ///< continues the character of the entry before: no cut before it
        kSingle = 4, ///< holds one character, or a part of one: no cut inside
        kAllFlags = kGlued | kSolid | kSingle,
    };

    static constexpr int kMaxAdvance = 0xFFFF;
    static constexpr unsigned kMaxUnits = 0xFF;
    static constexpr unsigned kMaxBlanks = 0x1F;

    std::uint16_t advance = 0; ///< without the blanks, in 1/64 pixel; of blanks alone: of each, 0 for the font's own
    std::uint8_t units = 0;    ///< 16-bit units without the blanks
    std::uint8_t blanks : 5 = 0;
    std::uint8_t flags : 3 = 0;
};
static_assert(sizeof(guiTextWord) == 4);

/// Width in pixels of an advance in 1/64 pixel, rounded as the toolkit's own metrics are.
constexpr std::int64_t guiTextPixels(std::int64_t advance) { return (advance + 32) >> 6; }

/// Pixels in 1/64 pixel, limited to a width that no line reaches.
inline int guiToAdvance(double pixels) { return static_cast<int>(std::lround(std::clamp(pixels, 0.0, 1e6) * 64)); }

/// One font, and the widths of the words measured in it so far. GUI thread.
class guiTextFont
{
public:
    /// Longer words are stored as single characters.
    static constexpr qsizetype kMaxWord = 64;

    explicit guiTextFont(QFont const& font);
    guiTextFont(guiTextFont const&) = delete;
    guiTextFont& operator=(guiTextFont const&) = delete;

    QFont const& font() const { return m_font; }
    QFont const& underlined() const { return m_underlined; }
    /// Pixels from one baseline to the next, and pixels below the baseline.
    int lineSpacing() const { return m_lineSpacing; }
    int descent() const { return m_descent; }
    /// Width of a blank in 1/64 pixel.
    int blankAdvance() const { return m_blankAdvance; }
    /// Whether the font moves letters next to a blank, so that a line is not as wide as its words and blanks together.
    bool kernsBlanks() const { return m_kernsBlanks; }

    /// Width of a word (without blanks) in 1/64 pixel.
    int wordAdvance(QStringView word);
    /// Width of a blank behind a letter in 1/64 pixel; the same for all letters of a script (guihtmltext-context.h).
    int blankAfter(QStringView letter);
    /// Width of a word behind a letter and a blank, without these, in 1/64 pixel.
    int wordAdvanceAfter(QStringView letter, QStringView word);
    /// The characters of a word of up to kMaxWord units (guihtmltext-characters.h), remembered. Valid until the next
    /// call.
    std::vector<guiTextWord> const& characters(QStringView word);
    /// The bold (1), italic (2) or bold italic (3) font of the same face and size; null until it is first needed. Not
    /// owned.
    guiTextFont*& variant(bool bold, bool italic) { return m_variants[(bold ? 1 : 0) + (italic ? 2 : 0)]; }

private:
    struct slot
    {
        std::uint64_t key = 0; // 0: free
        int advance = 0;
    };

    int measure(QStringView text) const;
    int characterAdvance(QStringView character);
    void rehash();

    QFont m_font;
    QFont m_underlined;
    QFontMetricsF m_metrics;
    int m_lineSpacing;
    int m_descent;
    int m_blankAdvance;
    bool m_kernsBlanks;
    guiTextFont* m_variants[4] = {};
    /// Advances of words of one unit below kDirectUnits, each measured when it is first asked for: a long word is
    /// measured character by character.
    static constexpr unsigned kDirectUnits = 256;
    static constexpr int kNotMeasured = -1;
    std::array<int, kDirectUnits> m_direct = {};
    std::array<int, QChar::ScriptCount> m_blanks = {}; // by script, each measured when it is first asked for
    std::vector<slot> m_slots;                         // open addressing; a power of two
    unsigned m_used = 0;
    std::unordered_map<std::uint64_t, std::vector<guiTextWord>> m_characters; // by word, of words that had to be cut
};

/// The script of a character of one or two units.
QChar::Script guiScriptOf(QStringView character);

/// The face and size that a font code or a node's override sets; an empty face or a size of 0 keeps the present one.
struct guiFontRequest
{
    QString face;
    int points = 0;
};

/// Reads "face,points", in which either part may be missing. A part that begins with a number other than 0 is the size,
/// any other part the face.
guiFontRequest guiReadFontRequest(QStringView code);

namespace guiTextFonts {

/// The shared entry of a font. Lives until clear().
guiTextFont& of(QFont const& font);
/// The font itself or its bold, italic or bold italic variant.
guiTextFont& styled(guiTextFont& base, bool bold, bool italic);
/// A face in normal weight; `normalize` sizes it by normalizeFontHeight() instead of the screen's resolution. `scale`:
/// percent of that size.
guiTextFont& face(QString const& family, int points, bool normalize, unsigned scale = kUnzoomed);
/// Forgets all fonts. Also runs when the application object is destroyed.
void clear();
/// Changes whenever clear() has made earlier references invalid.
unsigned generation();

} // namespace guiTextFonts
