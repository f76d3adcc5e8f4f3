// controls/guimistakemark.h: shows that the value of a control is wrong: a frame in a warning colour, and a tip that
// says what is wrong.
#pragma once

#include "foundation/vela-string.h"
#include "page/guinodewatch.h"

#include <QWidget>

class guiHtmlControl;

/// Lies over the widget of a control, which owns it, and lets everything through. Hidden while nothing is to be shown.
/// Tells the control when the user leaves it. GUI thread.
class guiMistakeMark : public QWidget
{
    Q_OBJECT

public:
    guiMistakeMark(QWidget* over, guiHtmlControl* control);

    /// Whether mistakes are shown from now on.
    bool isAwake() const { return m_isAwake; }
    void wake() { m_isAwake = true; }
    /// "" for a value that is right: the widget has its own tip again.
    void showMistake(sstring const& mistake);
    /// Says what is wrong in a tip beside the widget at once.
    void sayMistake();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    guiHtmlControl* owner() const;

    guiNodeWatch m_control; // may go before the widget, which the toolkit may still use
    QString m_tip;          // of the widget while nothing is wrong
    bool m_isAwake = false;
};

/// The colour of what is wrong, on the ground of the palette. GUI thread.
QColor guiWarningColor(QPalette const& palette);
