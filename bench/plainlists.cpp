// bench/plainlists.cpp: see plainlists.h.
#include "bench/plainlists.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QTreeView>
#include <QTreeWidget>
#include <algorithm>
#include <array>
#include <vector>

namespace {

void prepare(QTreeView& view)
{
    view.resize(kListWidth, kListHeight);
    view.setRootIsDecorated(false);
}

/// Compared by the number in the second column.
class NumberItem : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(QTreeWidgetItem const& other) const override { return text(1).toInt() < other.text(1).toInt(); }
};

QStringList textsOf(int row)
{
    QStringList texts;
    for (int column = 0; column < kListColumns; ++column)
        texts.append(cellText(row, column));
    return texts;
}

class ItemList : public MeasuredList
{
public:
    ItemList()
    {
        m_view.setColumnCount(kListColumns);
        prepare(m_view);
    }
    void show() override { m_view.show(); }
    void fill(int rows) override
    {
        QList<QTreeWidgetItem*> items;
        for (int row = 0; row < rows; ++row)
            items.append(new NumberItem(textsOf(row)));
        m_view.addTopLevelItems(items);
    }
    void add(int row) override { m_view.addTopLevelItem(new NumberItem(textsOf(row))); }
    void selectLast(int rows) override { m_view.setCurrentItem(m_view.topLevelItem(rows - 1)); }
    void sort() override { m_view.sortItems(1, Qt::AscendingOrder); }
    QAbstractItemView* view() override { return &m_view; }

private:
    QTreeWidget m_view;
};

class TableModel : public QAbstractTableModel
{
public:
    using Row = std::array<QString, kListColumns>;

    static Row rowOf(int row)
    {
        Row texts;
        for (int column = 0; column < kListColumns; ++column)
            texts[static_cast<std::size_t>(column)] = cellText(row, column);
        return texts;
    }
    int rowCount(QModelIndex const& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(QModelIndex const&) const override { return kListColumns; }
    QVariant data(QModelIndex const& index, int role) const override
    {
        return role == Qt::DisplayRole
                   ? QVariant(m_rows[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())])
                   : QVariant();
    }
    void fill(int rows)
    {
        beginResetModel();
        m_rows.clear();
        for (int row = 0; row < rows; ++row)
            m_rows.push_back(rowOf(row));
        endResetModel();
    }
    void add(int row)
    {
        int const place = static_cast<int>(m_rows.size());
        beginInsertRows({}, place, place);
        m_rows.push_back(rowOf(row));
        endInsertRows();
    }
    void sort(int column, Qt::SortOrder) override
    {
        auto const at = static_cast<std::size_t>(column);
        emit layoutAboutToBeChanged();
        std::stable_sort(m_rows.begin(), m_rows.end(),
                         [at](Row const& a, Row const& b) { return a[at].toInt() < b[at].toInt(); });
        emit layoutChanged();
    }

private:
    std::vector<Row> m_rows;
};

class ModelList : public MeasuredList
{
public:
    ModelList()
    {
        m_view.setUniformRowHeights(true);
        m_view.setModel(&m_model);
        prepare(m_view);
    }
    void show() override { m_view.show(); }
    void fill(int rows) override { m_model.fill(rows); }
    void add(int row) override { m_model.add(row); }
    void selectLast(int rows) override { m_view.setCurrentIndex(m_model.index(rows - 1, 0)); }
    void sort() override { m_model.sort(1, Qt::AscendingOrder); }
    QAbstractItemView* view() override { return &m_view; }

private:
    TableModel m_model;
    QTreeView m_view;
};

} // namespace

std::unique_ptr<MeasuredList> makeItemList() { return std::make_unique<ItemList>(); }
std::unique_ptr<MeasuredList> makeModelList() { return std::make_unique<ModelList>(); }
