// controls/guiwidgetscrollbar.h: the scroll bar of a node whose content is larger than the node.
#pragma once

#include <QScrollBar>

class guiHtml;

/// Made by layout; scrolls its owner. The Tab key stops at it when it stands for its pane, in which nothing else takes
/// the keyboard; it has a frame then. GUI thread.
class guiWidgetScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    guiWidgetScrollBar(Qt::Orientation orientation, QWidget* parent = nullptr, char const* name = nullptr);

    guiHtml* owner = nullptr; ///< the scrolled node; not owned, null until bound

public slots:
    void onChange(int value);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// The keys are the window's, which knows what they scroll.
    void keyPressEvent(QKeyEvent* event) override;
    /// Repaints only the thumb when only that has moved.
    void sliderChange(SliderChange change) override;

private:
    QRect thumb() const;
    void paintFrame();
    bool isAtEnd() const { return value() == minimum() || value() == maximum(); }

    QRect m_paintedThumb; // as it is on the screen; with a frame around it
    bool m_paintedAtEnd = true;
};
