// controls/guilistsort.cpp: see guilistsort.h. What texts are compared by is worked out once for each row.
#include "controls/guilistsort.h"

#include <QCollator>
#include <QDateTime>
#include <QLocale>
#include <cmath>
#include <limits>
#include <optional>

namespace {

constexpr double kBehind = std::numeric_limits<double>::infinity();

/// The number that a text begins with.
double numberIn(QStringView text)
{
    QStringView const trimmed = text.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && (trimmed[end].isDigit() || QStringView(u"+-.eE").contains(trimmed[end])))
        ++end;
    for (; end > 0; --end) { // "12e" is 12
        bool isNumber = false;
        double const number = QLocale::c().toDouble(trimmed.left(end), &isNumber);
        if (isNumber && !std::isnan(number))
            return number;
    }
    return kBehind;
}

double dateIn(QStringView text)
{
    QDateTime const date = QDateTime::fromString(text.trimmed().toString(), Qt::ISODate);
    return date.isValid() ? static_cast<double>(date.toMSecsSinceEpoch()) : kBehind;
}

template <typename Key, typename MakeKey>
void sortByKeys(guiListRows& rows, unsigned column, bool isDescending, MakeKey makeKey)
{
    std::vector<std::optional<Key>> keys(rows.size());
    for (guiRowNumber row = 0; row < rows.size(); ++row)
        if (rows.has(row))
            keys[row].emplace(makeKey(rows.text(row, column)));
    if (isDescending)
        rows.sort([&keys](guiRowNumber a, guiRowNumber b) { return *keys[b] < *keys[a]; });
    else
        rows.sort([&keys](guiRowNumber a, guiRowNumber b) { return *keys[a] < *keys[b]; });
}

void sortTexts(guiListRows& rows, unsigned column, bool isNatural, bool isDescending)
{
    QLocale const own;
    // Without a language there is no order of words, only one of character codes.
    QCollator collator(own.language() == QLocale::C ? QLocale(QLocale::English) : own);
    collator.setNumericMode(isNatural);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    sortByKeys<QCollatorSortKey>(rows, column, isDescending,
                                 [&](QStringView text) { return collator.sortKey(text.toString()); });
}

} // namespace

guiSortKind guiSortKindOf(QStringView name)
{
    if (name == u"text")
        return kSortText;
    if (name == u"natural")
        return kSortNatural;
    if (name == u"number")
        return kSortNumber;
    return name == u"date" ? kSortDate : kSortNone;
}

void guiSortRows(guiListRows& rows, unsigned column, guiSortKind kind, bool isDescending)
{
    if (kind == kSortNumber)
        sortByKeys<double>(rows, column, isDescending, numberIn);
    else if (kind == kSortDate)
        sortByKeys<double>(rows, column, isDescending, dateIn);
    else if (kind != kSortNone)
        sortTexts(rows, column, kind == kSortNatural, isDescending);
}
