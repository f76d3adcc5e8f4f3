// controls/guiwidgetcheckbox.cpp: see guiwidgetcheckbox.h.
#include "controls/guiwidgetcheckbox.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

guiWidgetCheckBox::guiWidgetCheckBox(QWidget* parent) : QCheckBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QCheckBox::clicked, this, &guiWidgetCheckBox::onClick);
}

void guiWidgetCheckBox::onClick()
{
    guiEventScope scope;
    if (owner)
        owner->onClick();
}

void guiWidgetCheckBox::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QCheckBox::keyPressEvent(event);
}

void guiWidgetCheckBox::paintEvent(QPaintEvent*)
{
    constexpr int kSide = guiHtmlControlButton::kCheckSize;
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = QRect(0, (height() - kSide) / 2, kSide, kSide);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
}
