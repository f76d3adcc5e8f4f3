// controls/guilistmodel.cpp: see guilistmodel.h.
#include "controls/guilistmodel.h"

#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"
#include "page/guicolortext.h"

#include <QBrush>
#include <QFont>
#include <cassert>
#include <utility>

namespace {

constexpr Qt::Alignment kUsualAlignment = Qt::AlignLeft | Qt::AlignVCenter;

} // namespace

void guiListModel::show(guiListRows& rows)
{
    beginResetModel();
    m_rows = &rows;
    endResetModel();
}

void guiListModel::showOwn()
{
    findIcon = nullptr;
    if (m_rows == &m_own && !m_source)
        return;
    m_source.reset();
    show(m_own);
}

void guiListModel::showSource(std::shared_ptr<guiListSource> source)
{
    beginResetModel();
    m_source = std::move(source);
    endResetModel();
}

void guiListModel::replaceRows(std::function<void(guiListRows&)> const& work)
{
    beginResetModel();
    work(*m_rows);
    endResetModel();
}

void guiListModel::reorder(std::function<void(guiListRows&)> const& work)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    work(*m_rows);
    QModelIndexList const before = persistentIndexList();
    QModelIndexList after;
    for (QModelIndex const& index : before)
        after.append(indexOf(rowOf(index), index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

// ---- Rows ----

guiRowNumber guiListModel::rowOf(QModelIndex const& index) const
{
    return index.isValid() ? static_cast<guiRowNumber>(index.internalId()) : kNoRow;
}

QModelIndex guiListModel::indexOf(guiRowNumber row, int column) const
{
    if (row == kNoRow || column >= columnCount())
        return {};
    assert(hasRow(row));
    return createIndex(m_source ? static_cast<int>(row) : m_rows->placeOf(row), column, quintptr{row});
}

guiRowNumber guiListModel::addRow(guiRowTexts texts, guiRowIndicator indicator, guiRowNumber above)
{
    int const place = static_cast<int>(m_rows->under(above).size());
    beginInsertRows(indexOf(above), place, place);
    guiRowNumber const row = m_rows->add(std::move(texts), indicator, above);
    endInsertRows();
    return row;
}

guiRowNumber guiListModel::addRowBehind(guiRowNumber other, guiRowTexts texts, guiRowIndicator indicator)
{
    guiRowNumber const above = m_rows->above(other);
    int const place = m_rows->placeOf(other) + 1;
    beginInsertRows(indexOf(above), place, place);
    guiRowNumber const row = m_rows->add(std::move(texts), indicator, above);
    m_rows->putBehind(row, other);
    endInsertRows();
    return row;
}

void guiListModel::moveToTop(guiRowNumber above)
{
    guiListRows::rowList const under = m_rows->under(above);
    if (under.empty())
        return;
    int const end = static_cast<int>(m_rows->under(kNoRow).size());
    bool const isMoving = beginMoveRows(indexOf(above), 0, static_cast<int>(under.size()) - 1, QModelIndex(), end);
    assert(isMoving);
    for (guiRowNumber const row : under)
        m_rows->move(row, kNoRow);
    if (isMoving)
        endMoveRows();
}

void guiListModel::removeRow(guiRowNumber row)
{
    moveToTop(row);
    int const place = m_rows->placeOf(row);
    beginRemoveRows(indexOf(m_rows->above(row)), place, place);
    m_rows->remove(row);
    endRemoveRows();
}

void guiListModel::setText(guiRowNumber row, unsigned column, QString const& text)
{
    m_rows->setText(row, column, text);
    noteChange(row);
}

void guiListModel::noteChange(guiRowNumber row) { emit dataChanged(indexOf(row), indexOf(row, columnCount() - 1)); }

// ---- Columns ----

void guiListModel::addColumns(int count)
{
    int const present = columnCount();
    if (count <= present)
        return;
    beginInsertColumns({}, present, count - 1);
    m_headings.resize(static_cast<std::size_t>(count));
    endInsertColumns();
}

void guiListModel::limitColumns(int count)
{
    assert(count >= 1);
    if (count >= columnCount())
        return;
    beginRemoveColumns({}, count, columnCount() - 1);
    m_headings.resize(static_cast<std::size_t>(count));
    endRemoveColumns();
}

void guiListModel::setAlignment(int column, Qt::Alignment alignment)
{
    auto const at = static_cast<std::size_t>(column);
    if (at >= m_alignments.size())
        m_alignments.resize(at + 1, kUsualAlignment);
    m_alignments[at] = alignment;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void guiListModel::setEditable(int column, bool on)
{
    auto const at = static_cast<std::size_t>(column);
    if (at >= m_editable.size())
        m_editable.resize(at + 1);
    m_editable[at] = on;
}

bool guiListModel::isEditable(int column) const
{
    auto const at = static_cast<std::size_t>(column);
    return column >= 0 && at < m_editable.size() && m_editable[at];
}

QVariant guiListModel::alignmentOf(int column) const
{
    auto const at = static_cast<std::size_t>(column);
    return at < m_alignments.size() ? QVariant(static_cast<int>(m_alignments[at])) : QVariant();
}

void guiListModel::setHeading(int column, QString const& text)
{
    m_headings.at(static_cast<std::size_t>(column)) = text;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

// ---- What the toolkit asks ----

QModelIndex guiListModel::index(int row, int column, QModelIndex const& parent) const
{
    if (row < 0 || column < 0 || column >= columnCount() || parent.column() > 0)
        return {};
    if (m_source)
        return row < rowCount(parent) ? createIndex(row, column, static_cast<quintptr>(row)) : QModelIndex();
    guiListRows::rowList const& under = m_rows->under(rowOf(parent));
    auto const place = static_cast<std::size_t>(row);
    return place < under.size() ? createIndex(row, column, quintptr{under[place]}) : QModelIndex();
}

QModelIndex guiListModel::parent(QModelIndex const& index) const
{
    return index.isValid() && !m_source && m_rows->isNested() ? indexOf(m_rows->above(rowOf(index))) : QModelIndex();
}

QModelIndex guiListModel::sibling(int row, int column, QModelIndex const& index) const
{
    if (row != index.row() || column < 0 || column >= columnCount())
        return QAbstractItemModel::sibling(row, column, index);
    return createIndex(row, column, index.internalId());
}

int guiListModel::rowCount(QModelIndex const& parent) const
{
    if (m_source)
        return parent.isValid() ? 0 : static_cast<int>(m_source->count());
    return parent.column() > 0 ? 0 : static_cast<int>(m_rows->under(rowOf(parent)).size());
}

int guiListModel::columnCount(QModelIndex const&) const { return static_cast<int>(m_headings.size()); }

bool guiListModel::hasChildren(QModelIndex const& parent) const { return rowCount(parent) > 0; }

Qt::ItemFlags guiListModel::flags(QModelIndex const& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    guiRowNumber const row = rowOf(index);
    Qt::ItemFlags flags = Qt::ItemIsSelectable;
    flags.setFlag(Qt::ItemIsEnabled, isUsable(row));
    if (m_source)
        return flags | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsUserCheckable, index.column() == 0 && m_rows->indicator(row) != kRowPlain);
    flags.setFlag(Qt::ItemIsEditable, isEditable(index.column()));
    return flags;
}

QString guiListModel::textAt(guiRowNumber row, int column) const
{
    auto const at = static_cast<unsigned>(column);
    return (m_source ? m_source->text(row, at) : m_rows->text(row, at)).toString();
}

/// In the first column.
QVariant guiListModel::indicatorData(guiRowNumber row, int role) const
{
    guiRowIndicator const indicator = m_rows->indicator(row);
    if (role == kIndicatorRole)
        return int{indicator};
    if (indicator == kRowPlain)
        return {};
    return static_cast<int>(m_rows->isChecked(row) ? Qt::Checked : Qt::Unchecked);
}

QVariant guiListModel::iconOf(guiRowNumber row) const
{
    QStringView const name = m_source ? m_source->icon(row) : m_rows->icon(row);
    if (name.isEmpty() || !findIcon)
        return {};
    QPixmap const icon = findIcon(name.toString());
    return icon.isNull() ? QVariant() : QVariant{icon};
}

QStringView guiListModel::looksOf(guiRowNumber row) const { return m_source ? m_source->look(row) : m_rows->look(row); }

QColor guiListModel::groundOf(guiRowNumber row) const
{
    QStringView const looks = looksOf(row);
    return looks.isEmpty() ? QColor() : colorIn(guiLookIn(looks, 0).ground);
}

/// Invalid for "", and for what is no colour, which is told once.
QColor guiListModel::colorIn(QString const& text) const
{
    constexpr int kMostTold = 20;
    guiColor color;
    if (text.isEmpty())
        return {};
    if (guiReadColor(qtoss(text), &color))
        return {color.red, color.green, color.blue};
    if (m_unknownColors.size() < kMostTold && !m_unknownColors.contains(text)) {
        m_unknownColors.insert(text);
        velaLog("guiListModel::data() - there is no colour %s\n", velaPrintable(qtoss(text)).c_str());
    }
    return {};
}

/// A row that can not be used is grey, whatever its colour.
QVariant guiListModel::lookData(QModelIndex const& index, int role) const
{
    guiRowNumber const row = rowOf(index);
    QStringView const looks = looksOf(row);
    if (looks.isEmpty())
        return {};
    guiTextLook const look = guiLookIn(looks, static_cast<unsigned>(index.column()) + 1);
    if (role == Qt::FontRole) {
        QFont bold;
        bold.setBold(look.isBold.value_or(false));
        return look.isBold ? QVariant{bold} : QVariant();
    }
    bool const isGround = role == Qt::BackgroundRole;
    QColor const color = isGround || isUsable(row) ? colorIn(isGround ? look.ground : look.color) : QColor();
    return color.isValid() ? QVariant(QBrush(color)) : QVariant();
}

QVariant guiListModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid())
        return {};
    guiRowNumber const row = rowOf(index);
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return textAt(row, index.column());
    if (role == Qt::ForegroundRole || role == Qt::BackgroundRole || role == Qt::FontRole)
        return lookData(index, role);
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(index.column());
    if (role == Qt::DecorationRole)
        return index.column() == 0 ? iconOf(row) : QVariant();
    bool const isIndicator = role == Qt::CheckStateRole || role == kIndicatorRole;
    return isIndicator && index.column() == 0 && !m_source ? indicatorData(row, role) : QVariant();
}

bool guiListModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    if (role == Qt::EditRole && index.isValid()) {
        emit textGiven(rowOf(index), index.column(), value.toString());
        return true;
    }
    if (role != Qt::CheckStateRole || !index.isValid() || index.column() != 0)
        return false;
    emit checkAsked(rowOf(index), value.toInt() == Qt::Checked);
    return true;
}

QVariant guiListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    bool const isHeading = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (isHeading && role == Qt::DisplayRole)
        return heading(section);
    return isHeading && role == Qt::TextAlignmentRole ? alignmentOf(section) : QVariant();
}
