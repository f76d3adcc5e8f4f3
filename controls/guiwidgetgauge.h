// controls/guiwidgetgauge.h: the native widget of `progress` and `meter`: a bar that is as full as a number says.
#pragma once

#include "controls/guihtmlcontrolvalue.h"

#include <QProgressBar>

/// What a page says about a bar. `least` <= `low` <= `high` <= `most`.
struct guiGaugeShape
{
    bool isMeter = false;
    double least = 0; ///< of the empty bar
    double most = 1;  ///< of the full one
    double low = 0;   ///< below it a meter's value is low
    double high = 1;  ///< above it high
    double best = 0.5;
};

/// How good the value of a meter is.
enum class guiGaugeState
{
    kGood,
    kFair, ///< beside the part in which the best value lies
    kPoor, ///< on the other side
};
guiGaugeState guiStateOf(guiGaugeShape const& shape, double number);

/// A progress looks as the toolkit's does, a meter has a colour that says how good the value is. Takes no input. GUI
/// thread.
class guiWidgetGauge : public QProgressBar, public guiValueWidget
{
    Q_OBJECT

public:
    guiWidgetGauge(QWidget* parent, guiGaugeShape const& shape);

    QWidget* widget() override { return this; }
    QString value() const override { return m_value; }
    /// A progress that has no value moves without an end; a meter that has none is empty.
    void showValue(QString const& value) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double fullness() const;

    guiGaugeShape m_shape;
    QString m_value;
};
