// controls/guiwidgetcheckbox.h: the native check box of an `input` of type checkbox.
#pragma once

#include <QCheckBox>

class guiHtmlControlButton;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit guiWidgetCheckBox(QWidget* parent = nullptr);

    guiHtmlControlButton* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Draws the indicator alone, whole in the size that pages reckon with, which may be less than the style's.
    void paintEvent(QPaintEvent* event) override;
};
