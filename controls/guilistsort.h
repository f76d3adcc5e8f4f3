// controls/guilistsort.h: how the rows of a list are compared when it is sorted by a column.
#pragma once

#include "controls/guilistrows.h"

enum guiSortKind : std::uint8_t
{
    kSortNone,    ///< the list is not sorted by this column
    kSortText,    ///< as the user's language has it
    kSortNatural, ///< the same, with numbers in texts in their order: "file 9" before "file 10"
    kSortNumber,  ///< texts that begin with no number stand behind
    kSortDate,    ///< as in "2024-05-31" or "2024-05-31T12:00"; other texts stand behind
};

/// The kind of this name, "text", "natural", "number" or "date"; kSortNone for any other.
guiSortKind guiSortKindOf(QStringView name);

/// Puts the rows in order, those under each one for themselves; rows that are equal stay as they are. GUI thread.
void guiSortRows(guiListRows& rows, unsigned column, guiSortKind kind, bool isDescending);
