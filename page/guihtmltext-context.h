// page/guihtmltext-context.h: how the text before a blank decides which font draws it. The toolkit gives blanks, digits
// and signs the script of the letters before them (at the start those behind them), and a font without letters of that
// script is replaced for all of it; so a blank can be as wide as that of another font, or as the box of a missing
// character.
#pragma once

#include "page/guihtmltext-fonts.h"

#include <QStringView>

/// The letter in a chunk's text whose script the toolkit gives to a part of it that has no letters, if that changes the
/// part's font; empty otherwise. `start` and `end` are the part's. GUI thread.
QStringView guiLetterInForce(guiTextFont& font, QStringView text, qsizetype start, qsizetype end);

/// Follows a chunk's text from word to word. GUI thread.
class guiTextContext
{
public:
    /// The font and the text of the chunk; both must outlive it.
    guiTextContext(guiTextFont& font, QStringView text);

    /// Width of the next word in 1/64 pixel, in its place.
    int wordAdvance(QStringView word);
    /// The next word is measured in another way.
    void pass(QStringView word);
    /// Width of a blank behind the last word, if it is not the font's own; 0 otherwise.
    int otherBlank() const { return m_otherBlank; }

private:
    void enter(QStringView letter);

    guiTextFont& m_font;
    bool m_isPlain;       // no letter that the font could lack
    QStringView m_letter; // the letter whose script is in force, when its blanks are not the font's own
    int m_otherBlank = 0;
};
