// controls/guiwidgetlistview.h: the native widget of a flex list: rows with columns, indicators and nested rows. The
// toolkit's own views lay out every row that there is, and do so anew whenever one is added; here all rows are equally
// high, so that only those in view cost anything. guiwidgetlistview.cpp has the rows and who hears of them, -layout.cpp
// the places of rows and bars, -paint.cpp how rows look, -input.cpp keys and the mouse.
#pragma once

#include "controls/guilistmodel.h"
#include "controls/guilistorder.h"
#include "controls/guinotices.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <optional>
#include <unordered_map>

class guiCheckListItem;
class guiHtmlControlFlex;
class QHeaderView;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetListView : public guiNoticeView<QAbstractItemView>
{
    Q_OBJECT

public:
    explicit guiWidgetListView(QWidget* parent = nullptr);
    ~guiWidgetListView() override;

    /// The node is about to be destroyed: from now on neither the list nor any of its rows calls it, and rows that were
    /// the node's are not shown any more.
    void unbind();

    guiHtmlControlFlex* owner = nullptr; ///< not owned; null until the node binds it

    void deliverNotices() override;

    // ---- Rows and columns ----

    guiListModel& listModel() { return *m_model; }
    guiListRows& rows() { return m_model->rows(); }
    guiListOrder& order() { return m_order; }
    QHeaderView* header() const { return m_header; }
    bool isHeaderHidden() const;
    void setHeaderHidden(bool hide);
    int columnCount() const { return m_model->columnCount(); }
    int columnWidth(int column) const;
    QString heading(int column) const { return m_model->heading(column); }
    /// The handle of a row, which stays the same as long as the row exists and is the list's.
    guiCheckListItem* itemOf(guiRowNumber row);
    /// Checks or unchecks a row that has an indicator; a radio row that is on beside it goes off.
    void setChecked(guiRowNumber row, bool on);
    void setEnabledRow(guiRowNumber row, bool on);
    void setExpanded(guiRowNumber row, bool on);
    bool isSelected(guiRowNumber row) const;
    /// Script selects a row: in a list of single selection it comes into view with the next frame.
    void select(guiRowNumber row, bool on);
    std::set<guiRowNumber> selectedRows() const;
    /// The uppermost selected row of a list without nested rows, kNoRow when there is none.
    guiRowNumber firstSelected() const;
    /// Selects these rows and no others, without telling anybody.
    void selectOnly(std::set<guiRowNumber> const& wanted);
    guiRowNumber currentRow() const { return m_model->rowOf(currentIndex()); }
    /// Makes the row current, without selecting it or bringing it into view.
    void setCurrentRow(guiRowNumber row);
    /// The row at the top of what is in view, kNoRow without rows; and bringing a row there.
    guiRowNumber topRow() const;
    void setTopRow(guiRowNumber row);
    /// Removes a row, and nothing else from the selection.
    void removeRow(guiRowNumber row);
    /// Whether a row's text in this column may need more room than the column has, judged without measuring it.
    bool mayNeed(guiRowNumber row, int column);
    /// How many pixels a row's texts in this column take, indented as the row is.
    int neededWidth(guiRowNumber row, int column);
    /// `rows` rows at least are to fit into the height that the page gives the list, if they can.
    void setLeastRows(int rows) { m_leastRows = rows; }
    void setIndentation(int pixels) { m_indentation = pixels; }
    /// Whether the focus is shown around the whole current row, not around one cell's text.
    void setAllColumnsShowFocus(bool on) { m_isRowFocused = on; }
    bool rootIsDecorated() const { return m_isRootDecorated; }
    void setRootIsDecorated(bool on);
    /// Makes the column as wide as what it shows.
    void fitColumn(int column);

    // ---- Rows by handle ----

    guiCheckListItem* topLevelItem(int place);
    int topLevelItemCount() const { return m_model->rowCount(); }
    int indexOfTopLevelItem(guiCheckListItem const* item) const;
    guiCheckListItem* currentItem();
    void setCurrentItem(guiCheckListItem* item);
    std::vector<guiCheckListItem*> selectedItems();
    QModelIndex indexFromItem(guiCheckListItem const* item, int column = 0) const;
    QRect visualItemRect(guiCheckListItem const* item) const;
    void clear();

    // ---- What the toolkit asks of a view ----

    QRect visualRect(QModelIndex const& index) const override;
    void scrollTo(QModelIndex const& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(QPoint const& point) const override;
    void selectAll() override;
    void doItemsLayout() override;
    void reset() override;
    void keyboardSearch(QString const& text) override;

    int rowHeight() const { return m_rowHeight; }

public slots:
    void onSelect();

signals:
    /// The selection has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    int sizeHintForColumn(int column) const override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(QModelIndex const& index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(QRect const& rect, QItemSelectionModel::SelectionFlags command) override;
    QItemSelectionModel::SelectionFlags selectionCommand(QModelIndex const& row, QEvent const* event) const override;
    QRegion visualRegionForSelection(QItemSelection const& selection) const override;
    void dataChanged(QModelIndex const& from, QModelIndex const& to, QList<int> const& roles) override;
    void rowsInserted(QModelIndex const& parent, int first, int last) override;
    void rowsAboutToBeRemoved(QModelIndex const& parent, int first, int last) override;
    void currentChanged(QModelIndex const& current, QModelIndex const& previous) override;
    void selectionChanged(QItemSelection const& selected, QItemSelection const& deselected) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    friend class guiCheckListItem;

    /// What the user has done with a row, of which the node hears when the toolkit is done with it.
    struct userAct
    {
        enum kind
        {
            kActivate,
            kContext,
            kExpand,
            kRename
        };
        kind what;
        guiRowNumber row; // kNoRow: beside the rows
        int column;       // counted from 1; 0: none
        QPoint place = {};
        QString text = {};
    };

    // Who hears
    void note(userAct const& act);
    void tellAct(userAct const& act);
    void adoptItem(guiRowNumber row, guiCheckListItem* item) { m_items[row] = item; }
    void forgetItem(guiRowNumber row);
    void dropItems();
    void tellChange(guiRowNumber row);
    void connectModel();
    void connectHeader();

    // Places
    void refreshSoon();
    void refresh();
    void noteRows();
    int measureRowHeight() const;
    int contentWidth() const;
    int rowsInView() const;
    int firstInView() const;
    int placeAt(int y) const;
    int indentationOf(guiRowNumber row) const;
    void placeHeader();
    void placeBars();
    void scrollToPlace(int place, ScrollHint hint);
    void scrollToColumn(QModelIndex const& index);
    QRect rowRect(int place) const;
    QModelIndex indexAtPlace(int place, int column = 0) const;
    int placeOf(QModelIndex const& index) const;

    // Painting
    struct paintedRow;
    void paintRow(QPainter& painter, QStyleOptionViewItem const& common, int place);
    void paintCell(QPainter& painter, paintedRow const& row, int section);
    void paintBranches(QPainter& painter, paintedRow const& row, QRect const& cell);
    void paintFocus(QPainter& painter, paintedRow const& row);

    // Input
    QModelIndex editableBeside(QModelIndex cell, int step) const;
    void hover(guiRowNumber row);
    bool isOnBranch(QPoint const& point) const;
    bool toggleBranchAt(QPoint const& point);
    bool handleBranchKey(QKeyEvent const& event);
    bool activateByKey(int key);
    bool editByKey(QKeyEvent* event);
    void noteText(guiRowNumber row, int column, QString const& text);
    void expandByUser(guiRowNumber row, bool on);
    int nextUsable(int place, int step);
    int pageFrom(int place, int step);
    QModelIndex moveAcross(bool forward);
    QItemSelection selectionOf(int from, int to);

    guiListModel* m_model;                                       // a child
    QHeaderView* m_header;                                       // a child
    mutable guiListOrder m_order;                                //
    std::unordered_map<guiRowNumber, guiCheckListItem*> m_items; // owned
    std::optional<userAct> m_act;
    QBasicTimer m_frame; // until the next refresh
    QElapsedTimer m_lastRefresh;
    guiRowNumber m_hovered = kNoRow; // the pointer is on it
    int m_rowHeight = 1;
    int m_leastRows = 0;
    int m_indentation = 20;
    bool m_isRootDecorated = true;
    bool m_isRowFocused = false;
    bool m_isPlacing = false;     // bars and heading are being placed
    bool m_isQuiet = false;       // script sets the current row
    bool m_comesIntoView = false; // the current row does, with the next refresh
};
