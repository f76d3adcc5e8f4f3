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
    /// Draws the indicator only, in the size that layout uses for it, which may be smaller than the style's.
    void paintEvent(QPaintEvent* event) override;
};
