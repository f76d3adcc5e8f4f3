// controls/guiwidgetfocus.h: what takes the keyboard for a custom element whose instance has a handler for keys. It
// lies over the element, lets the pointer through and paints nothing but a frame while it has the focus.
#pragma once

#include <QWidget>

class guiHtmlCustom;

/// Made by the element. GUI thread.
class guiWidgetFocus : public QWidget
{
    Q_OBJECT

public:
    guiWidgetFocus(QWidget* parent, guiHtmlCustom* node);

    guiHtmlCustom* owner; ///< the element, null once it is gone; not owned

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
