// page/guihtmltext-fonts.cpp: see guihtmltext-fonts.h.
#include "page/guihtmltext-fonts.h"

#include "page/guifontepoch.h"
#include "page/guihtmltext-characters.h"
#include "page/guilayoutcounters.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>

#include <algorithm>
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

/// A normalised font is as tall as its bucket allows: points up to `points` give lines of at most `height` pixels.
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

// From the top: the first that fits is the largest that fits.
int searchPixelSize(QString const& family, int points)
{
    for (int size = guiLineHeightFor(points) - 1; size >= kSmallestPixelSize; --size)
        if (heightAt(family, size) <= guiLineHeightFor(points))
            return size;
    return std::clamp(points, 1, kMaxPoints);
}

using heightKey = std::pair<QString, int>;

/// All process-wide state of this file, so that it can be dropped as one before the application object goes: the
/// toolkit frees its font engines then.
struct fontTable
{
    QHash<heightKey, int> heights;
    std::unordered_map<std::uint64_t, guiTextFont*> faces; // by hash of face, points and normalisation; not owned
    QHash<QFont, guiTextFont*> fonts;
    std::vector<std::unique_ptr<guiTextFont>> owned;
    guiTextFont* last = nullptr;
};

unsigned theGeneration = 1;
bool theTableIsHooked = false;

// Never destroyed: a process may end without destroying its application object, and then no font may be touched any
// more.
fontTable& tableStorage()
{
    static fontTable& fonts = *new fontTable;
    return fonts;
}

void clearWithApplication()
{
    guiTextFonts::clear();
    theTableIsHooked = false; // the toolkit forgets its routines with each application object
}

fontTable& table()
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
    auto& heights = table().heights;
    QString const family = font.family();
    // All point sizes of one row of the table give the same result.
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

// Letters between blanks, in every neighbourhood that plain text has.
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
}

int guiTextFont::measure(QStringView text) const
{
    ++guiLayoutCounters::wordsShaped;
    QString const shared = QString::fromRawData(text.data(), text.size());
    return guiToAdvance(m_metrics.horizontalAdvance(shared));
}

// Keys are 64 random-looking bits: that two words of one page share one is not worth the memory of keeping the words.
int guiTextFont::wordAdvance(QStringView word)
{
    if (m_used * 2 >= m_slots.size())
        rehash();
    std::uint64_t const key = keyOf(word);
    std::size_t const mask = m_slots.size() - 1;
    std::size_t at = key & mask;
    while (m_slots[at].key && m_slots[at].key != key)
        at = (at + 1) & mask;
    if (!m_slots[at].key) {
        m_slots[at] = {key, measure(word)};
        ++m_used;
    }
    return m_slots[at].advance;
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
    std::uint64_t const key = keyOf(word);
    if (auto const found = m_characters.find(key); found != m_characters.end())
        return found->second;
    if (m_characters.size() >= kMaxCutWords)
        m_characters.clear();
    std::vector<guiTextWord>& characters = m_characters[key];
    guiMeasureCharacters(*this, word, characters);
    return characters;
}

namespace {

/// The number that a text begins with, 0 when there is none; far larger than any font when it is out of range.
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

unsigned guiTextFonts::generation() { return theGeneration; }

void guiTextFonts::clear()
{
    tableStorage() = fontTable();
    ++theGeneration;
    guiFontEpoch::advance();
}

guiTextFont& guiTextFonts::of(QFont const& font)
{
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

guiTextFont& makeFace(QString const& family, int points, bool normalize)
{
    QFont font(family);
    if (normalize)
        normalizeFontHeight(font, points);
    else
        font.setPointSize(std::clamp(points, 1, kMaxPoints));
    return guiTextFonts::of(font);
}

} // namespace

guiTextFont& guiTextFonts::face(QString const& family, int points, bool normalize)
{
    std::uint64_t const key = keyOf(family) * 31 + static_cast<std::uint64_t>(points) * 2 + (normalize ? 1 : 0);
    fontTable& fonts = table();
    if (auto const found = fonts.faces.find(key); found != fonts.faces.end())
        return *found->second;
    if (fonts.faces.size() >= kMaxFaces)
        return *fonts.owned.front();
    guiTextFont& made = makeFace(family, points, normalize);
    table().faces.emplace(key, &made);
    return made;
}
