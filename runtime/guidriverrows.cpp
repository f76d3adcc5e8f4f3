// runtime/guidriverrows.cpp: see guidriverrows.h.
#include "runtime/guidriverrows.h"

#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guidriverlook.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QJsonArray>
#include <algorithm>
#include <vector>

namespace {

/// All rows from top to bottom, those under others behind them.
void collect(QAbstractItemModel const& model, QModelIndex const& parent, std::vector<QModelIndex>& rows)
{
    for (int i = 0; i < model.rowCount(parent); ++i) {
        QModelIndex const row = model.index(i, 0, parent);
        rows.push_back(row);
        collect(model, row, rows);
    }
}

std::vector<QModelIndex> rowsOf(QAbstractItemView const& view)
{
    std::vector<QModelIndex> rows;
    collect(*view.model(), view.rootIndex(), rows);
    return rows;
}

bool hasText(QModelIndex const& row, QString const& wanted)
{
    for (int column = 0; column < row.model()->columnCount(row.parent()); ++column)
        if (row.siblingAtColumn(column).data(Qt::DisplayRole).toString() == wanted)
            return true;
    return false;
}

/// The entries of a `select` are there from the beginning; those that were removed have no row.
QStringList valuesOf(guiHtmlControlList const& list)
{
    QStringList values;
    for (unsigned i = 0; i < list.getEntryCount(); ++i)
        if (auto const* entry = list.getEntry(i))
            values += sstoq(entry->value);
    return values;
}

/// The row's value as script knows it; null where rows have none.
QString valueOf(guiHtml* list, std::size_t number, QModelIndex const& row)
{
    if (auto const* few = dynamic_cast<guiHtmlControlList*>(list))
        return valuesOf(*few).value(static_cast<qsizetype>(number));
    auto* const many = dynamic_cast<guiHtmlControlFlex*>(list);
    auto const* model = dynamic_cast<guiListModel const*>(row.model());
    if (!many || !model || model->source())
        return {};
    guiHtmlControlFlexEntry const* entry = many->getItem(model->rowOf(row));
    return entry ? sstoq(entry->value) : QString();
}

QJsonObject describe(QAbstractItemView const& view, QModelIndex const& row, std::size_t number)
{
    return {{"part", static_cast<int>(number)},
            {"isPopup", view.window()->windowType() == Qt::Popup},
            {"isSelected", view.selectionModel()->isRowSelected(row.row(), row.parent())},
            {"isChecked", row.data(Qt::CheckStateRole).toInt() == Qt::Checked},
            {"isCheckable", row.flags().testFlag(Qt::ItemIsUserCheckable)},
            {"isDisabled", !row.flags().testFlag(Qt::ItemIsEnabled)}};
}

QJsonObject noRow(guiHtml* list, std::vector<QModelIndex> const& rows)
{
    constexpr std::size_t kMostKnown = 100;
    QJsonArray known;
    for (std::size_t i = 0; i < std::min(rows.size(), kMostKnown); ++i) {
        QString const value = valueOf(list, i, rows[i]);
        known.append(value.isNull() ? rows[i].data(Qt::DisplayRole).toString() : value);
    }
    return {{"known", known}};
}

} // namespace

QAbstractItemView* guiDriver_viewIn(QWidget* widget)
{
    if (auto* view = qobject_cast<QAbstractItemView*>(widget))
        return view;
    if (auto* box = qobject_cast<QComboBox*>(widget))
        return box->view();
    return widget ? widget->findChild<QAbstractItemView*>() : nullptr;
}

QJsonObject guiDriver_findRow(guiDriverThing const& list, QString const& wanted)
{
    assertOnGuiThread();
    auto* const control = dynamic_cast<guiHtmlControl*>(list.node);
    QAbstractItemView const* view = guiDriver_viewIn(control ? control->needWidget() : list.widget);
    if (!view)
        return {{"problem", "it is no list"}};
    std::vector<QModelIndex> const rows = rowsOf(*view);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (QString const value = valueOf(list.node, i, rows[i]);
            !value.isNull() && value.compare(wanted, Qt::CaseInsensitive) == 0)
            return describe(*view, rows[i], i);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (hasText(rows[i], wanted))
            return describe(*view, rows[i], i);
    return noRow(list.node, rows);
}

QRect guiDriver_showRow(QAbstractItemView& view, int number)
{
    std::vector<QModelIndex> const rows = rowsOf(view);
    if (number < 0 || static_cast<std::size_t>(number) >= rows.size())
        return {};
    QModelIndex const row = rows[static_cast<std::size_t>(number)];
    if (auto* list = qobject_cast<guiWidgetListView*>(&view);
        list && list->order().placeOf(list->listModel().rowOf(row)) < 0)
        return {};
    view.scrollTo(row);
    return view.visualRect(row).intersected(view.viewport()->rect());
}
