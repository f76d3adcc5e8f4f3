// controls/guiwidgetpushbutton.h: the native button of an `input` of type button, submit or reset.
#pragma once

#include <QPushButton>

class guiHtmlControlButton;

/// Escape goes to the node, Return and Enter press the button. GUI thread.
class guiWidgetPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit guiWidgetPushButton(QWidget* parent = nullptr);

    guiHtmlControlButton* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onClick();

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
};
