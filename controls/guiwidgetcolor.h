// controls/guiwidgetcolor.h: the native widget of `input` of type color: a button that shows a colour and asks for
// another one with the desktop's dialog.
#pragma once

#include "controls/guihtmlcontrolvalue.h"

#include <QColor>
#include <QPushButton>

/// GUI thread.
class guiWidgetColor : public QPushButton, public guiValueWidget
{
    Q_OBJECT

public:
    explicit guiWidgetColor(QWidget* parent);

    QWidget* widget() override { return this; }
    QString value() const override { return m_color.name().toUpper(); }
    void showValue(QString const& value) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ask();

    QColor m_color = Qt::black;
};
