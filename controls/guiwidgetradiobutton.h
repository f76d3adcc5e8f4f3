// controls/guiwidgetradiobutton.h: the native button of an `input` of type radio.
#pragma once

#include <QRadioButton>

class guiHtmlControlButton;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    explicit guiWidgetRadioButton(QWidget* parent = nullptr);

    guiHtmlControlButton* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Draws the indicator only, in the size that layout uses for it, which may be smaller than the style's.
    void paintEvent(QPaintEvent* event) override;

private:
    void readyNeighbour(int key);
};
