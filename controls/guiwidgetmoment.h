// controls/guiwidgetmoment.h: the native widget of `input` of the types date and time: a field for a day or a time of
// day, as the user's language writes it in figures, which may be empty.
#pragma once

#include "controls/guihtmlcontrolvalue.h"

#include <QLineEdit>

/// What a page allows.
struct guiMomentShape
{
    bool isDate = true;
    QString least; ///< as the form has it; "": no limit
    QString most;
};

/// How a day or a time is written: pieces such as "dd", "MM", "yyyy" or "HH", "mm" with one sign between two of them.
QString guiMomentFormat(bool isDate);

/// "2026-11-22" or "09:30", or "09:30:15", for a text in that form or in the user's; none for any other.
std::optional<QString> guiReadMoment(QString const& text, bool isDate);

/// Up and Down turn the piece at the cursor. A button, Alt+Down and F4 show a calendar. GUI thread.
class guiWidgetMoment : public QLineEdit, public guiValueWidget
{
    Q_OBJECT

public:
    guiWidgetMoment(QWidget* parent, guiMomentShape shape);

    QWidget* widget() override { return this; }
    QString value() const override;
    void showValue(QString const& value) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void turn(int steps);
    void showCalendar();

    guiMomentShape m_shape;
};
