// page/guihtmltext-codes.h: reads the formatting codes inside a run's text, "[[" to "]]", one by one.
#pragma once

#include "page/guitypes.h"

#include <QStringView>

#include <cstdint>

/// What a code switches.
enum class guiTextCode : std::uint8_t
{
    Indent, ///< ">" and a number
    Bold,
    EndBold,
    Italic,
    EndItalic,
    Underline,
    EndUnderline,
    LineBreak,
    Color, ///< "#" and six hexadecimal digits
    EndColor,
    Link, ///< "a " and the link
    EndLink,
    Font, ///< "face,points"
    EndFont,
};

/// The kind of a code, given what stands between the brackets.
guiTextCode guiReadTextCode(QStringView code);
/// The indentation that ">" and a number ask for, in pixels: 40 for each level, never negative.
int guiReadIndent(QStringView code);
/// "#RRGGBB", read as the parser reads colours; anything else is black.
guiColor guiReadColorCode(QStringView code);

/// Walks over a run: stretches of plain text with codes in between. Brackets that are never closed are plain text.
class guiTextScanner
{
public:
    explicit guiTextScanner(QStringView text) : m_text(text) {}

    /// Moves on to the next stretch or code; false at the end.
    bool next();
    bool isCode() const { return m_isCode; }
    /// First unit of the stretch, or of the code with its brackets.
    qsizetype start() const { return m_start; }
    /// The stretch, or the code without its brackets.
    QStringView part() const { return m_part; }

private:
    bool findCode();

    QStringView m_text;
    QStringView m_part;
    qsizetype m_start = 0;
    qsizetype m_end = 0;
    qsizetype m_codeStart = -1; // the next code at or behind m_end, if it was looked for already
    qsizetype m_codeEnd = -1;   // its closing brackets
    bool m_isCode = false;
};
