// page/guihtmltext-fonts.cpp: see guihtmltext-fonts.h.
#include "page/guihtmltext-fonts.h"

#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtmltext-characters.h"
#include "page/guilayoutcounters.h"

#include <QCoreApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>

namespace {

// A page may name any number of faces and sizes; beyond these bounds it gets the default one.
constexpr std::size_t kMaxFonts = 256;
constexpr std::size_t kMaxFaces = 1024;
constexpr qsizetype kMaxHeights = 1024;
constexpr int kMaxFaceUnits = 128;
constexpr int kMaxPoints = 500;
constexpr unsigned kMaxWordsPerFont = 65536; // 2 MB; a table of 4 MB may have 40,000 different numbers
constexpr std::size_t kMaxCutWords = 8192;

/// Sizes up to `points` get lines of at most `height` pixels.
struct heightBucket
{
    int points;
    int height;
};
constexpr heightBucket kHeights[] = {{8, 11}, {10, 14}, {12, 16}, {14, 20}, {18, 24}, {24, 29}};
constexpr int kLargestHeight = 37;
constexpr int kSmallestPixelSize = 5;

int heightAt(QString const& family, int pixelSize)
{
    QFont probe(family);
    probe.setPixelSize(pixelSize);
    ++guiLayoutCounters::fontProbes;
    return QFontMetrics(probe).height();
}

// From the largest size down: the first one that fits is the answer.
int searchPixelSize(QString const& family, int points)
{
    for (int size = guiLineHeightFor(points) - 1; size >= kSmallestPixelSize; --size)
        if (heightAt(family, size) <= guiLineHeightFor(points))
            return size;
    return std::clamp(points, 1, kMaxPoints);
}

using heightKey = std::pair<QString, int>;

/// All process-wide state of this file in one object, which is emptied before the application object is destroyed,
/// since the toolkit then frees its font engines.
struct fontTable
{
    QHash<heightKey, int> heights;
    std::unordered_map<std::uint64_t, guiTextFont*> faces; // by hash of face, points and normalisation; not owned
    QHash<QFont, guiTextFont*> fonts;
    std::vector<std::unique_ptr<guiTextFont>> owned;
    guiTextFont* last = nullptr;
};

unsigned theGeneration TARN_GUARDED_BY(velaGuiRole) = 1;
bool theTableIsHooked TARN_GUARDED_BY(velaGuiRole) = false;

// Never destroyed: when a process ends without destroying its application object, no font may be used any more.
fontTable& tableStorage() TARN_ON(velaGuiRole)
{
    static fontTable& fonts = *new fontTable;
    return fonts;
}

void clearWithApplication()
{
    assertOnGuiThread();
    guiTextFonts::clear();
    theTableIsHooked = false; // a post routine runs once; the next application object needs it again
}

fontTable& table() TARN_ON(velaGuiRole)
{
    if (!theTableIsHooked) {
        theTableIsHooked = true;
        qAddPostRoutine(clearWithApplication);
    }
    return tableStorage();
}

} // namespace

int guiLineHeightFor(int points)
{
    for (heightBucket const& bucket : kHeights)
        if (points <= bucket.points)
            return bucket.height;
    return kLargestHeight;
}

int findFontHeight(QFont const& font, int points)
{
    assertOnGuiThread();
    auto& heights = table().heights;
    QString const family = font.family();
    // The key holds the line height, since all point sizes with the same one have the same result.
    auto const found = heights.constFind(heightKey(family, guiLineHeightFor(points)));
    if (found != heights.constEnd())
        return *found;
    if (heights.size() >= kMaxHeights)
        return guiLineHeightFor(points) * 4 / 5;
    int const size = searchPixelSize(family, points);
    heights.insert(heightKey(family, guiLineHeightFor(points)), size);
    return size;
}

void normalizeFontHeight(QFont& font, int points)
{
    int const size = findFontHeight(font, points);
    font = QFont(font.family());
    font.setWeight(QFont::Normal);
    font.setPixelSize(size);
}

namespace {

QFont underlinedVariant(QFont font)
{
    font.setUnderline(true);
    return font;
}

std::uint64_t keyOf(QStringView word)
{
    std::uint64_t const hash =
        qHashBits(word.utf16(), static_cast<std::size_t>(word.size()) * 2, static_cast<std::size_t>(word.size()));
    return hash ? hash : 1;
}

// Compares the width of all letters with blanks between them with the sum of their widths.
bool movesLettersAtBlanks(QFontMetricsF const& metrics)
{
    QString spaced;
    qreal apart = 0;
    qreal const blank = metrics.horizontalAdvance(QLatin1Char(' '));
    for (char16_t letter = u'!'; letter <= u'~'; ++letter) {
        spaced += QChar(letter);
        spaced += QLatin1Char(' ');
        apart += metrics.horizontalAdvance(QChar(letter)) + blank;
    }
    return std::abs(metrics.horizontalAdvance(spaced) - apart) > 1.0 / 128;
}

} // namespace

guiTextFont::guiTextFont(QFont const& font) : m_font(font), m_underlined(underlinedVariant(font)), m_metrics(font)
{
    QFontMetrics const metrics(font);
    m_lineSpacing = metrics.lineSpacing();
    m_descent = metrics.descent();
    m_blankAdvance = guiToAdvance(m_metrics.horizontalAdvance(QLatin1Char(' ')));
    m_kernsBlanks = movesLettersAtBlanks(m_metrics);
    m_direct.fill(kNotMeasured);
    m_blanks.fill(kNotMeasured);
}

int guiTextFont::measure(QStringView text) const
{
    ++guiLayoutCounters::wordsShaped;
    QString const shared = QString::fromRawData(text.data(), text.size());
    return guiToAdvance(m_metrics.horizontalAdvance(shared));
}

// The words themselves are not stored: a collision of two 64-bit hashes is too unlikely to spend the memory.
int guiTextFont::wordAdvance(QStringView word)
{
    assertOnGuiThread();
    if (word.size() == 1 && word.front().unicode() < kDirectUnits)
        return characterAdvance(word);
    if (m_used * 2 >= m_slots.size())
        rehash();
    std::uint64_t const key = keyOf(word);
    std::size_t const mask = m_slots.size() - 1;
    assert(m_used < m_slots.size() && (m_slots.size() & mask) == 0);
    std::size_t at = key & mask;
    while (m_slots[at].key && m_slots[at].key != key)
        at = (at + 1) & mask;
    if (!m_slots[at].key) {
        m_slots[at] = {key, measure(word)};
        ++m_used;
    }
    return m_slots[at].advance;
}

int guiTextFont::characterAdvance(QStringView character)
{
    int& advance = m_direct[character.front().unicode()];
    if (advance == kNotMeasured)
        advance = measure(character);
    return advance;
}

int guiTextFont::blankAfter(QStringView letter)
{
    int& blank = m_blanks[guiScriptOf(letter)];
    if (blank == kNotMeasured) { // the second of two blanks, which no letter moves
        QString const before = letter.toString() + QLatin1Char(' ');
        blank = std::max(0, measure(before + QLatin1Char(' ')) - measure(before));
    }
    return blank;
}

int guiTextFont::wordAdvanceAfter(QStringView letter, QStringView word)
{
    QString const before = letter.toString() + QLatin1Char(' ');
    return std::max(0, wordAdvance(before + word.toString()) - wordAdvance(before));
}

void guiTextFont::rehash()
{
    if (m_used >= kMaxWordsPerFont) {
        std::fill(m_slots.begin(), m_slots.end(), slot());
        m_used = 0;
        return;
    }
    std::vector<slot> const old = std::move(m_slots);
    m_slots.assign(std::max<std::size_t>(64, old.size() * 2), slot());
    std::size_t const mask = m_slots.size() - 1;
    for (slot const& entry : old) {
        if (!entry.key)
            continue;
        std::size_t at = entry.key & mask;
        while (m_slots[at].key)
            at = (at + 1) & mask;
        m_slots[at] = entry;
    }
}

std::vector<guiTextWord> const& guiTextFont::characters(QStringView word)
{
    assert(word.size() <= kMaxWord);
    std::uint64_t const key = keyOf(word);
    if (auto const found = m_characters.find(key); found != m_characters.end())
        return found->second;
    if (m_characters.size() >= kMaxCutWords)
        m_characters.clear();
    std::vector<guiTextWord>& characters = m_characters[key];
    guiMeasureCharacters(*this, word, characters);
    return characters;
}

QChar::Script guiScriptOf(QStringView character)
{
    assert(!character.isEmpty());
    if (character.size() > 1)
        return QChar::script(QChar::surrogateToUcs4(character[0], character[1]));
    return character.front().script();
}

namespace {

/// The number that a text begins with, 0 when there is none; limited to numbers far larger than any font size.
int leadingNumber(QStringView text)
{
    QByteArray const digits = text.left(32).toLatin1();
    return static_cast<int>(std::clamp(std::strtol(digits.constData(), nullptr, 10), -1000000L, 1000000L));
}

} // namespace

guiFontRequest guiReadFontRequest(QStringView code)
{
    guiFontRequest request;
    for (qsizetype start = 0; start <= code.size();) {
        qsizetype end = code.indexOf(QLatin1Char(','), start);
        if (end < 0)
            end = code.size();
        QStringView const part = code.mid(start, end - start).trimmed();
        if (int const points = leadingNumber(part))
            request.points = std::clamp(points, 1, kMaxPoints);
        else if (!part.isEmpty())
            request.face = part.left(kMaxFaceUnits).toString();
        start = end + 1;
    }
    return request;
}

unsigned guiTextFonts::generation()
{
    assertOnGuiThread();
    return theGeneration;
}

void guiTextFonts::clear()
{
    assertOnGuiThread();
    tableStorage() = fontTable();
    ++theGeneration;
    guiFontEpoch::advance();
}

guiTextFont& guiTextFonts::of(QFont const& font)
{
    assertOnGuiThread();
    fontTable& fonts = table();
    if (fonts.last && fonts.last->font().isCopyOf(font))
        return *fonts.last;
    guiTextFont* entry = fonts.fonts.value(font);
    if (!entry && fonts.owned.size() >= kMaxFonts)
        return *fonts.owned.front();
    if (!entry) {
        fonts.owned.push_back(std::make_unique<guiTextFont>(font));
        entry = fonts.owned.back().get();
        fonts.fonts.insert(font, entry);
    }
    assert(fonts.owned.size() <= kMaxFonts);
    fonts.last = entry;
    return *entry;
}

guiTextFont& guiTextFonts::styled(guiTextFont& base, bool bold, bool italic)
{
    if (!bold && !italic)
        return base;
    guiTextFont*& variant = base.variant(bold, italic);
    if (!variant) {
        QFont font = base.font();
        font.setBold(bold || font.bold());
        font.setItalic(italic || font.italic());
        variant = &of(font);
    }
    return *variant;
}

namespace {

guiTextFont& makeFace(QString const& family, int points, bool normalize, unsigned scale)
{
    QFont font(family);
    if (normalize)
        normalizeFontHeight(font, points);
    else
        font.setPointSize(std::clamp(points, 1, kMaxPoints));
    if (scale != kUnzoomed)
        font.setPixelSize(std::clamp(guiZoomedLength(QFontInfo(font).pixelSize(), scale), 1, kMaxPoints));
    return guiTextFonts::of(font);
}

} // namespace

guiTextFont& guiTextFonts::face(QString const& family, int points, bool normalize, unsigned scale)
{
    assertOnGuiThread();
    std::uint64_t const size = static_cast<std::uint64_t>(points) * 2 + (normalize ? 1 : 0);
    std::uint64_t const key = (keyOf(family) * 31 + size) * 31 + scale;
    fontTable& fonts = table();
    if (auto const found = fonts.faces.find(key); found != fonts.faces.end())
        return *found->second;
    if (fonts.faces.size() >= kMaxFaces) {
        assert(!fonts.owned.empty());
        return *fonts.owned.front();
    }
    guiTextFont& made = makeFace(family, points, normalize, scale);
    table().faces.emplace(key, &made);
    return made;
}
