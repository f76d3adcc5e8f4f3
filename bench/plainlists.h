// bench/plainlists.h: the toolkit's own lists with the content of the list benchmark.
#pragma once

#include <QAbstractItemView>
#include <QString>
#include <memory>

inline constexpr int kListColumns = 4;
inline constexpr int kListWidth = 640;
inline constexpr int kListHeight = 440;

/// The text of a cell, the same in every list. The second column holds numbers.
inline QString cellText(int row, int column)
{
    switch (column) {
    case 0:
        return QString("Name of row %1").arg(row);
    case 1:
        return QString::number((row * 7919LL) % 100003);
    case 2:
        return QString("2024-%1-%2").arg(row % 12 + 1, 2, 10, QChar('0')).arg(row % 28 + 1, 2, 10, QChar('0'));
    default:
        return QString("kind %1").arg(row % 13);
    }
}

inline QString heading(int column) { return QString("Column %1").arg(column + 1); }

/// A list in a window of its own, which is not on the screen yet.
class MeasuredList
{
public:
    virtual ~MeasuredList() = default;
    virtual void show() = 0;
    virtual void fill(int rows) = 0;
    virtual void add(int row) = 0;
    /// Selects the last of so many rows, and brings it into view.
    virtual void selectLast(int rows) = 0;
    /// By the numbers in the second column.
    virtual void sort() = 0;
    virtual QAbstractItemView* view() = 0;
};

/// A QTreeWidget.
std::unique_ptr<MeasuredList> makeItemList();
/// A QTreeView with equally high rows over a model that keeps texts in a table.
std::unique_ptr<MeasuredList> makeModelList();
