// controls/guiwidgetlistbox.cpp: see guiwidgetlistbox.h.
#include "controls/guiwidgetlistbox.h"

#include "controls/guieventscope.h"
#include "controls/guiframe.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
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
