// controls/guicalendarpopup.cpp: see guicalendarpopup.h.
#include "controls/guicalendarpopup.h"

#include "controls/guieventscope.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

guiCalendarPopup::guiCalendarPopup(QWidget* field) : QFrame(field, Qt::Popup), m_calendar(new QCalendarWidget(this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* const around = new QVBoxLayout(this);
    around->setContentsMargins(1, 1, 1, 1);
    around->addWidget(m_calendar);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    connect(m_calendar, &QCalendarWidget::clicked, this, &guiCalendarPopup::take);
    connect(m_calendar, &QCalendarWidget::activated, this, &guiCalendarPopup::take);
}

/// The calendar is in the middle of the event that chose the day, and whoever hears of it may wait for a handler.
void guiCalendarPopup::take(QDate day)
{
    guiEventScope scope;
    close();
    emit chosen(day);
}

void guiCalendarPopup::closeEvent(QCloseEvent* event)
{
    QFrame::closeEvent(event);
    guiEventScope::deleteAfterwards(this);
}

void guiCalendarPopup::allow(QDate least, QDate most)
{
    if (least.isValid())
        m_calendar->setMinimumDate(least);
    if (most.isValid())
        m_calendar->setMaximumDate(most);
}

void guiCalendarPopup::choose(QDate day) { m_calendar->setSelectedDate(day.isValid() ? day : QDate::currentDate()); }

void guiCalendarPopup::showBelow(QWidget const* field)
{
    QRect const room = field->screen()->availableGeometry();
    QSize const wanted = sizeHint();
    QPoint at = field->mapToGlobal(QPoint(0, field->height()));
    if (at.y() + wanted.height() > room.bottom())
        at.setY(field->mapToGlobal(QPoint()).y() - wanted.height());
    at.setX(std::max(room.left(), std::min(at.x(), room.right() - wanted.width())));
    setGeometry(QRect(at, wanted));
    show();
    m_calendar->setFocus();
}

void guiCalendarPopup::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QFrame::keyPressEvent(event);
}
