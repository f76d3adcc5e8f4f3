// controls/guiwidgetscrollbar.h: the scroll bar of a node whose content is larger than the node.
#pragma once

#include <QScrollBar>

class guiHtml;

/// Made by layout; scrolls its owner. Only a vertical bar can have the keyboard focus. GUI thread.
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
    /// Repaints only the thumb when only that has moved.
    void sliderChange(SliderChange change) override;

private:
    QRect thumb() const;
    bool isAtEnd() const { return value() == minimum() || value() == maximum(); }

    QRect m_paintedThumb; // as it is on the screen; with a frame around it
    bool m_paintedAtEnd = true;
};
