// controls/guiwidgetdivider.h: the native widget of a divider between two panes.
#pragma once

#include <QPoint>
#include <QWidget>

class guiHtmlDivider;

/// Is dragged; a stop of the Tab key, at which the arrows move it, Home and End as far as it goes. A double click takes
/// it back to its start. GUI thread.
class guiWidgetDivider : public QWidget
{
    Q_OBJECT

public:
    /// `isHorizontal`: it lies between panes that stand one below the other.
    guiWidgetDivider(QWidget* parent, bool isHorizontal);

    guiHtmlDivider* owner = nullptr; ///< not owned; null until the node binds it

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int along(QPointF const& point) const;
    int stepOf(int key) const;
    void letGo();

    bool m_isHorizontal;
    bool m_isDragged = false;
    bool m_isMovedByKeys = false; // and not let go yet
    int m_grasped = 0;            // where in the widget the pointer holds it, pixels
};
