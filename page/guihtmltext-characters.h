// page/guihtmltext-characters.h: measures the characters of a word that a line may have to cut.
#pragma once

#include "page/guihtmltext-fonts.h"

#include <QStringView>

#include <vector>

/// Appends the characters of a word (without blanks) to `out`. Combining marks and surrogate pairs are not separated.
/// The first entry starts a word, the others are marked kGlued. A ligature is divided into equal parts. Time and memory
/// are linear in the word's length. GUI thread.
void guiMeasureCharacters(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out);
