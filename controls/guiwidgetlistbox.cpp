// controls/guiwidgetlistbox.cpp: see guiwidgetlistbox.h.
#include "controls/guiwidgetlistbox.h"

#include "controls/guieventscope.h"
#include "controls/guiframe.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guirangekeys.h"
#include "controls/guiwidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace {

/// Rows are as wide as the list, so that what is too wide for it is shortened; the toolkit makes all of them as wide as
/// the widest.
class shortenedRows : public QStyledItemDelegate
{
public:
    explicit shortenedRows(QListWidget* list) : QStyledItemDelegate(list), m_list(list) {}

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override
    {
        QStyleOptionViewItem seen = option;
        seen.rect.setWidth(std::min(option.rect.width(), m_list->viewport()->width()));
        QStyledItemDelegate::paint(painter, seen, index);
    }

private:
    QListWidget* m_list;
};

} // namespace

guiWidgetListBox::guiWidgetListBox(QWidget* parent) : guiNoticeView(parent)
{
    assertOnGuiThread();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new shortenedRows(this));
    setUniformItemSizes(true); // else each new row makes the toolkit measure all
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!holdsSelection())
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onChange()));
}

void guiWidgetListBox::deliverNotices()
{
    assert(pendingNotices.holds == 0);
    guiEventScope scope;
    guiPendingNotices const due = std::exchange(pendingNotices, {});
    if (due.hasNewSelection)
        emit selectionChanged();
}

void guiWidgetListBox::onChange()
{
    guiEventScope scope;
    if (owner)
        owner->onChange();
}

// The toolkit would answer a new current or selected row by laying out all rows, to know what to paint.
void guiWidgetListBox::selectNew(QListWidgetItem* row)
{
    assert(row && row->listWidget() == this);
    guiNoticeHold hold(this);
    bool const isDue = m_toCenter.isValid();
    m_toCenter = indexFromItem(row);
    {
        QSignalBlocker const quiet(selectionModel());
        setCurrentItem(row, QItemSelectionModel::NoUpdate);
        row->setSelected(true);
    }
    holdsSelection();
    viewport()->update();
    if (!isDue)
        QMetaObject::invokeMethod(this, &guiWidgetListBox::center, Qt::QueuedConnection);
}

void guiWidgetListBox::center()
{
    QModelIndex const row = std::exchange(m_toCenter, {});
    if (row.isValid())
        scrollTo(row, QAbstractItemView::PositionAtCenter);
}

QItemSelectionModel::SelectionFlags guiWidgetListBox::selectionCommand(QModelIndex const& row,
                                                                       QEvent const* event) const
{
    return guiSelectsRange(selectionMode(), event) ? QItemSelectionModel::SelectCurrent
                                                   : guiNoticeView::selectionCommand(row, event);
}

bool guiWidgetListBox::event(QEvent* event)
{
    bool const isPainted = event->type() == QEvent::Paint && guiPaintFrame(this);
    return isPainted || guiNoticeView::event(event);
}

void guiWidgetListBox::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QListWidget::keyPressEvent(event);
}

bool guiWidgetListBox::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return guiNoticeView::viewportEvent(event);
    showTip(static_cast<QHelpEvent&>(*event));
    return true;
}

void guiWidgetListBox::showTip(QHelpEvent const& event)
{
    QModelIndex const row = indexAt(event.pos());
    bool const isShortened = row.isValid() && sizeHintForIndex(row).width() > viewport()->width();
    QToolTip::showText(event.globalPos(), isShortened ? row.data().toString().toHtmlEscaped() : QString(), viewport());
}
