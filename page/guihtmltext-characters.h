// page/guihtmltext-characters.h: how wide each character of a word is, for words that must be cut.
#pragma once

#include "page/guihtmltext-fonts.h"

#include <QStringView>

#include <vector>

/// Appends the characters of a word (no blanks in it) as a reader sees them: combining marks and surrogate pairs are
/// not taken apart. The first starts a word, the others are glued to it. Ligatures count in equal parts. Time and
/// memory are linear in the word's length. GUI thread.
void guiMeasureCharacters(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out);
