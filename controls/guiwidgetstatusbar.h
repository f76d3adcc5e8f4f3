// controls/guiwidgetstatusbar.h: the native widget of a window's status line.
#pragma once

#include <QWidget>

/// A text under a thin line, in one row; what does not fit ends in dots. GUI thread.
class guiWidgetStatusBar : public QWidget
{
    Q_OBJECT

public:
    explicit guiWidgetStatusBar(QWidget* parent);

    void setText(QString const& text);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
};
