// page/guihtmltext-breaks.h: where a line may end though no blank stands there (Unicode Standard Annex #14). Text with
// blanks breaks at its blanks; these are the places of everything else.
#pragma once

#include <QStringView>

#include <vector>

/// Whether all of a text is in letters that are written from left to right, with blanks, without marks that say
/// otherwise: most texts, for which nothing of this is looked at. Any thread.
bool guiHasPlainLettersOnly(QStringView text);

/// Whether lines may end inside the text's words as they may at blanks: beside ideographs, kana and pictures,
/// between the words of Thai, Lao, Khmer and Burmese, after soft hyphens, zero-width spaces and the spaces of
/// typographers. Quick for other text. Any thread.
bool guiHasInnerBreaks(QStringView text);

/// Those places in a word without blanks, in ascending order, as units from its start; neither 0 nor its length. Time
/// is linear. GUI thread.
std::vector<qsizetype> guiInnerBreaks(QStringView word);

/// The last place up to `end` at which a word that is too long for a line divides well: after a fixed blank, as those
/// of preformatted text are, else after a hyphen, or a slash of an address; 0 for none. GUI thread.
qsizetype guiLastDivision(QStringView word, qsizetype end);

inline constexpr char16_t kSoftHyphen = 0x00AD;
/// What is seen of it at the end of a line.
inline constexpr QStringView kShownHyphen = u"-";
