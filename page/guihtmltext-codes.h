// page/guihtmltext-codes.h: reads the formatting codes inside a run's text, "[[" to "]]", one by one.
#pragma once

#include "page/guitypes.h"

#include <QStringView>

#include <cstdint>

/// What a code changes.
enum class guiTextCode : std::uint8_t
{
    kIndent, ///< ">" and a number
    kBold,
    kEndBold,
    kItalic,
    kEndItalic,
    kUnderline,
    kEndUnderline,
    kStrike,
    kEndStrike,
    kMark, ///< on a bright ground
    kEndMark,
    kLineBreak,
    kColor, ///< "#" and six hexadecimal digits
    kEndColor,
    kLink, ///< "a " and the link
    kEndLink,
    kLabel, ///< "l " and the name of the element whose label it is
    kEndLabel,
    kFont, ///< "face,points"
    kEndFont,
};

/// The kind of a code, given the text between its brackets.
guiTextCode guiReadTextCode(QStringView code);
/// The indentation that ">" and a number ask for, in pixels: 40 for each level, never negative.
int guiReadIndent(QStringView code);
/// "#RRGGBB", read as the parser reads colours; anything else is black.
guiColor guiReadColorCode(QStringView code);

/// Splits a run into parts, each either a code or plain text. Brackets that are never closed are plain text.
class guiTextScanner
{
public:
    explicit guiTextScanner(QStringView text) : m_text(text) {}

    /// Moves on to the next part; false at the end.
    bool next();
    bool isCode() const { return m_isCode; }
    /// Position of the part's first unit, of a code including its brackets.
    qsizetype start() const { return m_start; }
    /// The part, a code without its brackets.
    QStringView part() const { return m_part; }

private:
    bool findCode();

    QStringView m_text;
    QStringView m_part;
    qsizetype m_start = 0;
    qsizetype m_end = 0;
    qsizetype m_codeStart = -1; // the next code at or after m_end, if it has been searched for
    qsizetype m_codeEnd = -1;   // its closing brackets
    bool m_isCode = false;
};
