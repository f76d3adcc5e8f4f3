// controls/guiwidgetradiorow.cpp: see guiwidgetradiorow.h. The style is told that a radio row has a blank icon instead
// of a check box, so that text and selection are in the same place as in check box rows; the indicator is then drawn
// over that icon.
#include "controls/guiwidgetradiorow.h"

#include "controls/guilistmodel.h"
#include "page/guicolor.h"
#include "page/guicontrast.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QToolTip>

namespace {

bool isRadio(QModelIndex const& index)
{
    return index.column() == 0 && index.data(guiListModel::kIndicatorRole).toInt() == kRowRadio;
}

QStyle* styleOf(QStyleOptionViewItem const& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

QSize indicatorSize(QStyleOptionViewItem const& option)
{
    QStyle* style = styleOf(option);
    return {style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option.widget),
            style->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, nullptr, option.widget)};
}

QIcon blankIcon(QSize const& size)
{
    QPixmap blank(size);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}

/// The toolkit's styles outline an indicator in a darker shade of the window's colour, which on a dark list may be that
/// of the list itself.
void outlineOnDark(QPalette& palette)
{
    constexpr int kDarkened = 150; // percent, by the style for whom it is most
    guiColor const ground = qtogui(palette.color(QPalette::Base));
    if (guiIsDark(ground))
        palette.setColor(QPalette::Window, toQColor(guiReadable(ground, ground, kMarkContrast)).lighter(kDarkened));
}

/// Whether the event, in a row that the user may check, checks it: a click on the indicator or its key.
bool usesIndicator(QEvent const* event, QRect const& indicator)
{
    if (event->type() == QEvent::KeyPress) {
        int key = static_cast<QKeyEvent const*>(event)->key();
        return key == Qt::Key_Space || key == Qt::Key_Select;
    }
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    auto const* mouse = static_cast<QMouseEvent const*>(event);
    return mouse->button() == Qt::LeftButton && indicator.contains(mouse->position().toPoint());
}

} // namespace

void guiWidgetRadioRow::initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Selected)
        option->backgroundBrush = Qt::NoBrush; // that of the selection goes with the colour of its texts
    outlineOnDark(option->palette);
    if (!isRadio(index))
        return;
    option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = indicatorSize(*option);
    option->icon = blankIcon(option->decorationSize);
}

QRect guiWidgetRadioRow::indicatorRect(QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    QStyle::SubElement part =
        isRadio(index) ? QStyle::SE_ItemViewItemDecoration : QStyle::SE_ItemViewItemCheckIndicator;
    return styleOf(row)->subElementRect(part, &row, row.widget);
}

void guiWidgetRadioRow::paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!isRadio(index))
        return;
    QStyleOptionButton indicator;
    indicator.rect = indicatorRect(option, index);
    indicator.palette = option.palette;
    outlineOnDark(indicator.palette);
    indicator.state = option.state & QStyle::State_Enabled;
    bool isOn = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    indicator.state |= isOn ? QStyle::State_On : QStyle::State_Off;
    styleOf(option)->drawPrimitive(QStyle::PE_IndicatorRadioButton, &indicator, painter, option.widget);
}

bool guiWidgetRadioRow::editorEvent(QEvent* event, QAbstractItemModel* model, QStyleOptionViewItem const& option,
                                    QModelIndex const& index)
{
    if (!isRadio(index))
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    Qt::ItemFlags needed = Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    if ((model->flags(index) & needed) != needed || !usesIndicator(event, indicatorRect(option, index)))
        return false;
    return model->setData(index, Qt::Checked, Qt::CheckStateRole);
}

bool guiWidgetRadioRow::helpEvent(QHelpEvent* event, QAbstractItemView* view, QStyleOptionViewItem const& option,
                                  QModelIndex const& index)
{
    if (event->type() != QEvent::ToolTip || sizeHint(option, index).width() <= option.rect.width())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString const text = index.data().toString();
    QToolTip::showText(event->globalPos(), text, view);
    return !text.isEmpty();
}
