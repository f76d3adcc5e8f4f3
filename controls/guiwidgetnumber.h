// controls/guiwidgetnumber.h: the native widget of `input` of type number: a field with two arrows. It may be empty,
// and what is typed may be any number, or none yet: what is wrong is marked and not corrected.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guinumbertext.h"

#include <QAbstractSpinBox>

/// Shows the decimal sign of the user's language and reads "." as well. The wheel turns it only while it has the focus,
/// so that scrolling a page changes nothing. GUI thread.
class guiWidgetNumber : public QAbstractSpinBox, public guiValueWidget
{
    Q_OBJECT

public:
    guiWidgetNumber(QWidget* parent, guiNumberRange const& range);

    QWidget* widget() override { return this; }
    QString value() const override;
    void showValue(QString const& value) override;
    void stepBy(int steps) override;
    QValidator::State validate(QString& text, int& cursor) const override;
    QLineEdit* edit() const { return lineEdit(); }

protected:
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    guiNumberRange m_range;
};
