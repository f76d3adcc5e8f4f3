// controls/guiwidgetradiobutton.cpp: see guiwidgetradiobutton.h.
#include "controls/guiwidgetradiobutton.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

guiWidgetRadioButton::guiWidgetRadioButton(QWidget* parent) : QRadioButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QRadioButton::clicked, this, &guiWidgetRadioButton::onClick);
}

void guiWidgetRadioButton::onClick()
{
    guiEventScope scope;
    if (owner)
        owner->onClick();
}

void guiWidgetRadioButton::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true)) {
        event->accept();
        return;
    }
    readyNeighbour(event->key());
    QRadioButton::keyPressEvent(event);
}

void guiWidgetRadioButton::readyNeighbour(int key)
{
    bool const isForward = key == Qt::Key_Down || key == (isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    bool const isBackward = key == Qt::Key_Up || key == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
    if (owner && (isForward || isBackward))
        owner->readyNeighbour(isForward);
}

void guiWidgetRadioButton::paintEvent(QPaintEvent*)
{
    constexpr int kSide = guiHtmlControlButton::kCheckSize;
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = QRect(0, (height() - kSide) / 2, kSide, kSide);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, &painter, this);
}
