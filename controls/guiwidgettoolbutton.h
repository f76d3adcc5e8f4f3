// controls/guiwidgettoolbutton.h: the native widget of a tool bar's button.
#pragma once

#include <QToolButton>

class guiHtmlToolButton;

/// Flat; Tab stops at it, a click does not take the focus, and the arrow keys go to its neighbours. GUI thread.
class guiWidgetToolButton : public QToolButton
{
    Q_OBJECT

public:
    explicit guiWidgetToolButton(QWidget* parent = nullptr);

    guiHtmlToolButton* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
