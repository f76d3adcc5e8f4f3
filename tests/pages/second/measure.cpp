// tests/pages/second/measure.cpp: see measure.h.
#include "tests/pages/second/measure.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QMenuBar>
#include <QScrollBar>
#include <QStringList>
#include <QTabBar>
#include <algorithm>
#include <climits>

namespace second {

namespace {

constexpr int kMargin = 4; ///< on both sides of a text
constexpr int kIndent = 40;
constexpr int kLeastHeight = 8;
constexpr int kMark = 13;
constexpr int kDivider = 7;
constexpr int kFirstPoints = 10; ///< of the window, unless it uses the system font

/// The largest pixel size from 5 up whose lines are no higher than the row of the table says.
int pixelSizeFor(QString const& family, int points)
{
    static std::pair<int, int> const rows[] = {{8, 11}, {10, 14}, {12, 16}, {14, 20}, {18, 24}, {24, 29}};
    int target = 37;
    for (auto row = std::rbegin(rows); row != std::rend(rows); ++row)
        if (points <= row->first)
            target = row->second;
    int best = points;
    for (int size = 5; size < target; ++size) {
        QFont probe(family);
        probe.setPixelSize(size);
        if (QFontMetrics(probe).height() <= target)
            best = size;
    }
    return best;
}

font normalised(QString const& family, int points)
{
    QFont face(family);
    face.setWeight(QFont::Normal);
    face.setPixelSize(pixelSizeFor(family, points));
    return {face, points};
}

/// Face and size of a code; what it leaves out stays as it is.
font changed(font const& from, QString const& code)
{
    QString family = from.face.family();
    int points = from.points;
    for (QString const& part : code.split(',')) {
        if (part.toInt() != 0)
            points = part.toInt();
        else if (!part.isEmpty())
            family = part;
    }
    return normalised(family, points);
}

struct style
{
    font face;
    bool bold = false, italic = false;
    int indent = 0;
};

QFontMetrics metricsOf(style const& now)
{
    QFont face = now.face.face;
    face.setBold(now.bold);
    face.setItalic(now.italic);
    return QFontMetrics(face);
}

/// Applies a code; true for a line break.
bool apply(QString const& code, font const& usual, style& now)
{
    bool closes = code.startsWith('/');
    QString word = closes ? code.mid(1) : code;
    if (word == "b")
        now.bold = !closes;
    else if (word == "i")
        now.italic = !closes;
    else if (closes && word != "u" && word != "a" && !word.startsWith('#'))
        now.face = usual;
    else if (!closes && word.startsWith('>'))
        now.indent = word.mid(1).toInt() * kIndent;
    else if (!closes && word == "br")
        return true;
    else if (!closes && word != "u" && !word.startsWith('#') && !word.startsWith('a'))
        now.face = changed(now.face, word);
    return false;
}

int fitting(QString const& text, QFontMetrics const& metrics, int width)
{
    if (metrics.horizontalAdvance(text) <= width)
        return static_cast<int>(text.size());
    int low = 0;
    int high = static_cast<int>(text.size());
    while (low < high) {
        int middle = (low + high + 1) / 2;
        if (metrics.horizontalAdvance(text, middle) <= width)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

struct measured
{
    int width = 0;
    int height = 0;
};

class lineReader
{
public:
    lineReader(QString const& text, font const& usual, int width) : m_text(text), m_usual(usual), m_width(width)
    {
        m_style.face = usual;
    }

    /// The width counts the margins, except of a text that is empty or one blank.
    measured read()
    {
        if (m_text.isEmpty() || m_text == " ")
            return {0, kLeastHeight};
        while (m_at < m_text.size() && !m_stopped)
            readLine();
        m_total.width += 2 * kMargin;
        m_total.height = std::max(m_total.height, kLeastHeight);
        return m_total;
    }

private:
    void readLine()
    {
        m_x = 0;
        m_lineHeight = 0;
        m_isEmpty = true;
        bool isBroken = false;
        while (m_at < m_text.size()) {
            if (m_isEmpty && (m_text[m_at] == ' ' || m_text[m_at] == '\t')) {
                ++m_at;
            } else if (QStringView(m_text).mid(m_at).startsWith(u"[[") && m_text.indexOf("]]", m_at) >= 0) {
                isBroken = readCode();
                if (isBroken)
                    break;
            } else if (!readChunk()) {
                break;
            }
        }
        // Blanks and codes alone at the end are no line.
        if (m_stopped || (m_isEmpty && !isBroken))
            return;
        m_total.width = std::max(m_total.width, m_x);
        m_total.height += std::max(m_lineHeight, kLeastHeight);
    }

    bool readCode()
    {
        qsizetype end = m_text.indexOf("]]", m_at);
        QString code = m_text.mid(m_at + 2, end - m_at - 2);
        m_at = end + 2;
        return apply(code, m_usual, m_style);
    }

    /// False when the line is full.
    bool readChunk()
    {
        qsizetype end = m_text.indexOf("[[", m_at + 1);
        QString chunk = m_text.mid(m_at, end < 0 ? -1 : end - m_at);
        int start = m_isEmpty ? m_style.indent : 0;
        QFontMetrics metrics = metricsOf(m_style);
        int count = fitting(chunk, metrics, m_width - m_x - start);
        bool isCut = count < chunk.size();
        if (isCut) {
            int space = count;
            while (space > 0 && !chunk[space].isSpace())
                --space;
            if (space > 0 || !m_isEmpty)
                count = space;
        }
        if (count == 0) {
            m_stopped = m_isEmpty;
            return false;
        }
        m_x += start + metrics.horizontalAdvance(chunk.left(count));
        m_lineHeight = std::max(m_lineHeight, metrics.lineSpacing());
        m_isEmpty = false;
        m_at += count;
        return !isCut;
    }

    QString m_text;
    font m_usual;
    int m_width;
    style m_style;
    measured m_total;
    qsizetype m_at = 0;
    int m_x = 0;
    int m_lineHeight = 0;
    bool m_isEmpty = true;
    bool m_stopped = false;
};

QString longest(QStringList const& texts)
{
    QString best;
    for (QString const& text : texts)
        if (text.size() > best.size())
            best = text;
    return best;
}

/// The picture without its frame: as its file is, or as the page asks.
QSize pictureSize(node const& leaf)
{
    bool const isWide = leaf.fixed.unitX == pixels;
    bool const isHigh = leaf.fixed.unitY == pixels;
    QSize size(leaf.columns, leaf.rows);
    if (isWide)
        size.setWidth(std::max(0, leaf.fixed.x - leaf.frame()));
    if (isHigh)
        size.setHeight(std::max(0, leaf.fixed.y - leaf.frame()));
    if (leaf.isMissing || leaf.columns == 0 || leaf.rows == 0)
        return size;
    if (isWide && leaf.fixed.unitY == unbound)
        size.setHeight(qRound(double(size.width()) * leaf.rows / leaf.columns));
    if (isHigh && leaf.fixed.unitX == unbound)
        size.setWidth(qRound(double(size.height()) * leaf.columns / leaf.rows));
    return size;
}

/// The bar as the toolkit has it; it is asked for its widest or its smallest size.
QSize barSize(node const& leaf, bool least)
{
    QTabBar bar;
    bar.setFont(fontOf(leaf).face);
    bar.setDrawBase(false);
    bar.setExpanding(false);
    bar.setUsesScrollButtons(true);
    for (QString const& label : leaf.labels)
        bar.addTab(label);
    bar.setIconSize(QSize(16, 16));
    return least ? bar.minimumSizeHint() : bar.sizeHint();
}

} // namespace

int leastBarWidth(node const& bar) { return std::min(barSize(bar, true).width(), barSize(bar, false).width()); }

font fontOf(node const& node)
{
    if (!node.parent && node.systemFont)
        return {QApplication::font(), std::max(1, QFontInfo(QApplication::font()).pointSize())};
    if (!node.parent)
        return normalised(QApplication::font().family(), kFirstPoints);
    font inherited = fontOf(*node.parent);
    return node.face.isEmpty() ? inherited : changed(inherited, node.face);
}

int lineSpacing(node const& node) { return QFontMetrics(fontOf(node).face).lineSpacing(); }

int leafWidth(node const& leaf)
{
    font own = fontOf(leaf);
    QFontMetrics metrics(own.face);
    switch (leaf.kind) {
    case textLeaf:
        return lineReader(leaf.text, own, INT_MAX / 2).read().width + 2 * leaf.border;
    case pushLeaf:
        return metrics.horizontalAdvance(leaf.label) + 12;
    case markLeaf:
        return kMark;
    case editLeaf:
        return leaf.columns * metrics.horizontalAdvance("X") + 8;
    case listLeaf:
        return metrics.horizontalAdvance(longest(leaf.labels)) + 28;
    case flexLeaf: {
        int width = 28;
        for (QString const& column : leaf.labels)
            width += metrics.horizontalAdvance(column) + 12;
        return width;
    }
    case barLeaf:
        return barSize(leaf, false).width();
    case dividerLeaf:
        return kDivider;
    case summaryLeaf:
        return metrics.horizontalAdvance(leaf.label) + 30;
    case pictureLeaf:
        return pictureSize(leaf).width() + leaf.frame();
    default:
        return 0;
    }
}

int leafHeight(node const& leaf, int width)
{
    font own = fontOf(leaf);
    int spacing = QFontMetrics(own.face).lineSpacing();
    switch (leaf.kind) {
    case textLeaf:
        return lineReader(leaf.text, own, width - 2 * leaf.border - 2 * kMargin).read().height;
    case pushLeaf:
        return spacing + 8;
    case markLeaf:
        return kMark;
    case editLeaf:
    case listLeaf:
        return spacing * leaf.rows + 6;
    case flexLeaf:
        return spacing * leaf.rows + 6 + (leaf.hasHeader ? spacing + 8 : 0);
    case barLeaf:
        return barSize(leaf, false).height();
    case dividerLeaf:
        return kDivider;
    case summaryLeaf:
        return spacing + 6;
    case pictureLeaf:
        return pictureSize(leaf).height() + leaf.frame();
    default:
        return 0;
    }
}

int menuHeight()
{
    QMenuBar bar;
    bar.addMenu("File");
    return bar.sizeHint().height();
}

int barWidth() { return QScrollBar().sizeHint().width(); }

} // namespace second
