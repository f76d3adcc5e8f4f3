// runtime/guiinspectormark.h: the frame that the inspector draws around an element in the window that is inspected.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

/// A frame with the size of what is in it, above everything in a window. Clicks go through. Owned by the window. GUI
/// thread.
class guiInspectorMark : public QWidget
{
    Q_OBJECT

public:
    explicit guiInspectorMark(QWidget* window);

    /// `place`: in the window's pixels. `name`: in front of the size.
    void show(QRect const& place, QString const& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_place; // in pixels of this widget
    QString m_label;
};
