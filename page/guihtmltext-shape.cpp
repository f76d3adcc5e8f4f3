// page/guihtmltext-shape.cpp: see guihtmltext-shape.h.
#include "page/guihtmltext-shape.h"

#include "page/guihtmltext-characters.h"
#include "page/guihtmltext-codes.h"
#include "page/guilayoutcounters.h"

#include <algorithm>
#include <limits>

/// Reads a text from front to back, keeping the formatting in force.
class guiTextRun::builder
{
public:
    builder(guiTextRun& run, guiTextFont& font, int points, bool normalize)
        : m_run(run), m_default(font), m_defaultPoints(points), m_normalize(normalize), m_face(&font), m_points(points)
    {}

    void addText(QStringView text, qsizetype start);
    void applyCode(QStringView code, qsizetype start);
    void finish();

private:
    void openChunk(qsizetype start);
    void addBreak(qsizetype start);
    void addWord(QStringView word);
    void addBlanks(qsizetype count);
    void setFont(QStringView code);
    void resetFont();
    void startLink(qsizetype start);
    void endLink();
    void endColor();

    guiTextRun& m_run;
    guiTextFont& m_default;
    int m_defaultPoints;
    bool m_normalize;
    guiTextFont* m_face; // without bold and italic
    int m_points;
    bool m_bold = false;
    bool m_italic = false;
    bool m_underline = false;
    bool m_explicitColor = false;
    guiTextInk m_ink = guiTextInk::Text;
    guiPackedColor m_color = guiColor::Black;
    std::uint32_t m_link = guiTextChunk::kNoLink;
    std::uint16_t m_indent = 0;
    std::uint16_t m_breaks = 0;
};

guiTextRun::guiTextRun(QStringView text, guiTextFont& font, int points, bool normalize)
{
    ++guiLayoutCounters::runsShaped;
    builder build(*this, font, points, normalize);
    guiTextScanner scanner(text);
    while (scanner.next()) {
        if (scanner.isCode())
            build.applyCode(scanner.part(), scanner.start());
        else
            build.addText(scanner.part(), scanner.start());
    }
    build.finish();
    m_chunks.shrink_to_fit();
    m_words.shrink_to_fit();
}

void guiTextRun::builder::openChunk(qsizetype start)
{
    guiTextChunk chunk;
    chunk.start = static_cast<std::uint32_t>(start);
    chunk.firstWord = static_cast<std::uint32_t>(m_run.m_words.size());
    chunk.link = m_link;
    chunk.indent = m_indent;
    chunk.breaks = m_breaks;
    chunk.font = &guiTextFonts::styled(*m_face, m_bold, m_italic);
    chunk.color = m_color;
    chunk.ink = m_ink;
    chunk.underline = m_underline || m_link != guiTextChunk::kNoLink;
    m_run.m_chunks.push_back(chunk);
    m_breaks = 0;
}

void guiTextRun::builder::addText(QStringView text, qsizetype start)
{
    openChunk(start);
    for (qsizetype at = 0; at < text.size();) {
        qsizetype const wordStart = at;
        while (at < text.size() && !guiIsBlank(text[at].unicode()))
            ++at;
        addWord(text.mid(wordStart, at - wordStart));
        qsizetype const blankStart = at;
        while (at < text.size() && guiIsBlank(text[at].unicode()))
            ++at;
        addBlanks(at - blankStart);
    }
}

void guiTextRun::builder::addWord(QStringView word)
{
    guiTextFont& font = *m_run.m_chunks.back().font;
    auto& words = m_run.m_words;
    if (word.size() <= guiTextFont::kMaxWord) {
        int const advance = word.isEmpty() ? 0 : font.wordAdvance(word);
        if (advance <= guiTextWord::kMaxAdvance) {
            guiTextWord entry;
            entry.advance = static_cast<std::uint16_t>(advance);
            entry.units = static_cast<std::uint8_t>(word.size());
            words.push_back(entry);
            return;
        }
    }
    guiMeasureCharacters(font, word, words);
}

void guiTextRun::builder::addBlanks(qsizetype count)
{
    while (count > 0) {
        guiTextWord& last = m_run.m_words.back();
        unsigned const room = guiTextWord::kMaxBlanks - last.blanks;
        unsigned const taken = static_cast<unsigned>(std::min<qsizetype>(count, room));
        last.blanks = static_cast<std::uint8_t>(last.blanks + taken) & guiTextWord::kMaxBlanks;
        count -= taken;
        if (count > 0)
            m_run.m_words.push_back(guiTextWord());
    }
}

void guiTextRun::builder::addBreak(qsizetype start)
{
    if (m_breaks == std::numeric_limits<std::uint16_t>::max())
        openChunk(start);
    ++m_breaks;
}

void guiTextRun::builder::finish()
{
    if (m_breaks)
        openChunk(m_run.m_chunks.empty() ? 0 : m_run.m_chunks.back().start);
}

void guiTextRun::builder::setFont(QStringView code)
{
    guiFontRequest const request = guiReadFontRequest(code);
    if (request.points)
        m_points = request.points;
    m_face =
        &guiTextFonts::face(request.face.isEmpty() ? m_face->font().family() : request.face, m_points, m_normalize);
}

void guiTextRun::builder::resetFont()
{
    m_face = &m_default;
    m_points = m_defaultPoints;
}

void guiTextRun::builder::startLink(qsizetype start)
{
    m_link = static_cast<std::uint32_t>(start);
    m_run.m_hasLinks = true;
    if (!m_explicitColor)
        m_ink = guiTextInk::Link;
}

void guiTextRun::builder::endLink()
{
    m_link = guiTextChunk::kNoLink;
    if (!m_explicitColor)
        m_ink = guiTextInk::Text;
}

void guiTextRun::builder::endColor()
{
    m_explicitColor = false;
    m_ink = guiTextInk::Text;
}

void guiTextRun::builder::applyCode(QStringView code, qsizetype start)
{
    switch (guiReadTextCode(code)) {
    case guiTextCode::Indent:
        m_indent = static_cast<std::uint16_t>(guiReadIndent(code));
        break;
    case guiTextCode::Bold:
        m_bold = true;
        break;
    case guiTextCode::EndBold:
        m_bold = false;
        break;
    case guiTextCode::Italic:
        m_italic = true;
        break;
    case guiTextCode::EndItalic:
        m_italic = false;
        break;
    case guiTextCode::Underline:
        m_underline = true;
        break;
    case guiTextCode::EndUnderline:
        m_underline = false;
        break;
    case guiTextCode::LineBreak:
        addBreak(start);
        break;
    case guiTextCode::Color:
        m_explicitColor = true;
        m_ink = guiTextInk::Explicit;
        m_color = guiReadColorCode(code);
        break;
    case guiTextCode::EndColor:
        endColor();
        break;
    case guiTextCode::Link:
        startLink(start);
        break;
    case guiTextCode::EndLink:
        endLink();
        break;
    case guiTextCode::Font:
        setFont(code);
        break;
    case guiTextCode::EndFont:
        resetFont();
        break;
    }
}
