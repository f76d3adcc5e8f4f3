// controls/guiwidgetsummary.h: the native widget of `summary`: an arrow and a text.
#pragma once

#include <QAbstractButton>

class guiHtmlSummary;

/// A stop of the Tab key, at which Space and Return press it. A click leaves the focus where it is. GUI thread.
class guiWidgetSummary : public QAbstractButton
{
    Q_OBJECT

public:
    /// Pixels beside the text: the arrow, and what is around both.
    static constexpr int kAroundText = 30;

    explicit guiWidgetSummary(QWidget* parent);

    /// The arrow points down.
    void showOpen(bool open);

    guiHtmlSummary* owner = nullptr; ///< not owned; null until the node binds it

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void press();
};
