// controls/guilistmodel.h: rows and columns of a list as the toolkit's views and delegates ask for them.
#pragma once

#include "controls/guilistlook.h"
#include "controls/guilistrows.h"
#include "controls/guilistsource.h"

#include <QAbstractItemModel>
#include <QColor>
#include <QPixmap>
#include <QSet>

/// Shows rows of its own, or those of somebody else. An index holds the number of its row. GUI thread.
class guiListModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// What a delegate asks for besides the toolkit's roles: a guiRowIndicator, in the first column.
    static constexpr int kIndicatorRole = Qt::UserRole;

    using QAbstractItemModel::QAbstractItemModel;

    /// The icon of a name that a row gives; may be empty.
    std::function<QPixmap(QString const& name)> findIcon;

    guiListRows& rows() { return *m_rows; }
    guiListRows const& rows() const { return *m_rows; }
    /// Shows these rows, which are not owned and stay until others are shown.
    void show(guiListRows& rows);
    /// Shows the model's own rows, if it does not yet.
    void showOwn();
    /// Shows rows that come on demand, in place of all others; null: those of rows() again.
    void showSource(std::shared_ptr<guiListSource> source);
    /// The same, while the rows are being replaced.
    void dropSource() { m_source.reset(); }
    guiListSource* source() const { return m_source.get(); }
    /// A row at the top level that is there, whether its texts are known or not.
    bool hasRow(guiRowNumber row) const { return m_source ? row < m_source->count() : m_rows->has(row); }
    /// "" for a row of a source that is not known.
    QString textAt(guiRowNumber row, int column) const;
    /// Rows of the source have come.
    void noteGiven() { emit dataChanged(index(0, 0), index(0, columnCount() - 1)); }
    /// Replaces the rows by means of `work`.
    void replaceRows(std::function<void(guiListRows&)> const& work);

    /// Puts the rows in another order by means of `work`.
    void reorder(std::function<void(guiListRows&)> const& work);

    guiRowNumber rowOf(QModelIndex const& index) const;
    QModelIndex indexOf(guiRowNumber row, int column = 0) const;

    guiRowNumber addRow(guiRowTexts texts, guiRowIndicator indicator, guiRowNumber above);
    /// The same, directly behind a row that is there.
    guiRowNumber addRowBehind(guiRowNumber other, guiRowTexts texts, guiRowIndicator indicator);
    /// Rows under it go to the top level.
    void removeRow(guiRowNumber row);
    void setText(guiRowNumber row, unsigned column, QString const& text);
    /// Something about the row, or about all rows under it too, has to be painted anew.
    void noteChange(guiRowNumber row);

    /// Adds columns without heading until there are `count`.
    void addColumns(int count);
    /// Removes the columns behind the first `count`, which is at least 1.
    void limitColumns(int count);
    QString heading(int column) const { return m_headings.at(static_cast<std::size_t>(column)); }
    void setHeading(int column, QString const& text);
    /// Where the texts of a column and its heading stand.
    void setAlignment(int column, Qt::Alignment alignment);
    /// Whether the user may change the texts of the column.
    void setEditable(int column, bool on);
    bool isEditable(int column) const;
    /// The colour that a row says its ground has; invalid for the usual one.
    QColor groundOf(guiRowNumber row) const;

    QModelIndex index(int row, int column, QModelIndex const& parent = {}) const override;
    QModelIndex parent(QModelIndex const& index) const override;
    QModelIndex sibling(int row, int column, QModelIndex const& index) const override;
    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    bool hasChildren(QModelIndex const& parent = {}) const override;
    Qt::ItemFlags flags(QModelIndex const& index) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// The user wants to change the state of a row.
    void checkAsked(unsigned row, bool on);
    /// The user has given a text another wording.
    void textGiven(unsigned row, int column, QString const& text);

private:
    void moveToTop(guiRowNumber above);
    QVariant alignmentOf(int column) const;
    QVariant iconOf(guiRowNumber row) const;
    QStringView looksOf(guiRowNumber row) const;
    QColor colorIn(QString const& text) const;
    QVariant lookData(QModelIndex const& index, int role) const;
    bool isUsable(guiRowNumber row) const { return m_source ? m_source->isEnabled(row) : m_rows->isUsable(row); }
    QVariant indicatorData(guiRowNumber row, int role) const;

    std::shared_ptr<guiListSource> m_source; // null unless its rows are shown
    guiListRows m_own;
    guiListRows* m_rows = &m_own;
    std::vector<Qt::Alignment> m_alignments; // of the first columns
    std::vector<bool> m_editable;            // of the first columns
    mutable QSet<QString> m_unknownColors;   // that were told
    std::vector<QString> m_headings{1};      // at least one, without which rows could not be seen
};
