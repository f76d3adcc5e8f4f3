// controls/guiwidgetslider.h: the native widget of `input` of type range: a slider from left to right.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guinumbertext.h"

#include <QSlider>

/// Counts steps. While it is dragged it reports nothing until it is let go. The wheel turns it only while it has the
/// focus. GUI thread.
class guiWidgetSlider : public QSlider, public guiValueWidget
{
    Q_OBJECT

public:
    guiWidgetSlider(QWidget* parent, guiNumberRange const& range);

    QWidget* widget() override { return this; }
    QString value() const override;
    void showValue(QString const& value) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    guiNumberRange m_range; // with both limits
};
