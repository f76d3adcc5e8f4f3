// controls/guiwidgetcolor.cpp: see guiwidgetcolor.h.
#include "controls/guiwidgetcolor.h"

#include "controls/guieventscope.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

guiWidgetColor::guiWidgetColor(QWidget* parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] { ask(); });
}

void guiWidgetColor::showValue(QString const& value)
{
    if (QColor const color(value); color.isValid())
        m_color = color;
    setAccessibleName(this->value());
    update();
}

/// The dialog goes with the button, and with the window that it blocks.
void guiWidgetColor::ask()
{
    auto* const dialog = new QColorDialog(m_color, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    connect(dialog, &QColorDialog::colorSelected, this, [this](QColor const& color) {
        showValue(color.name());
        report();
    });
    dialog->show();
}

void guiWidgetColor::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    bool const isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && isKeyUsed(event->key()))
        event->accept();
    else if (isEnter || event->key() == Qt::Key_F4)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void guiWidgetColor::paintEvent(QPaintEvent*)
{
    constexpr int kInset = 5;
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    QColor edge = palette().color(QPalette::ButtonText);
    edge.setAlphaF(0.4F);
    painter.setPen(edge);
    painter.setBrush(isEnabled() ? m_color : palette().color(QPalette::Button));
    painter.drawRect(rect().adjusted(kInset, kInset, -kInset - 1, -kInset - 1));
}
