// controls/guifindbar.h: the bar at the lower edge of a window in which the user looks for a text on the page.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QPointer>
#include <QWidget>

class guiTextWindow;
class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

/// A child of its window, made when it is first opened. GUI thread.
class guiFindBar : public QWidget
{
    Q_OBJECT

public:
    explicit guiFindBar(guiTextWindow& window);

    /// Shows the bar and gives it the keyboard. What is selected on the page is what is looked for.
    void open() TARN_ON(velaGuiRole);
    /// Hides it; the place that was found last stays selected.
    void close() TARN_ON(velaGuiRole);
    bool isOpen() const { return !isHidden(); }
    /// Goes to the next or previous place.
    void goOn(bool forward) TARN_ON(velaGuiRole);
    /// Puts it to the lower edge of the window, above its status line.
    void place();

protected:
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addField();
    void lineUp();
    void onChange();
    void onPress(QToolButton const* button);
    QToolButton* addButton(Qt::ArrowType arrow, QString const& name);
    void look() TARN_ON(velaGuiRole);
    void tellCount(std::size_t count);
    void makeRoom() TARN_ON(velaGuiRole);
    bool useKey(QKeyEvent const& event) TARN_ON(velaGuiRole);

    guiTextWindow& m_host;
    QWidget* m_window;            // the same; its owner
    QLineEdit* m_field = nullptr; // these are owned by the bar
    QToolButton* m_previous = nullptr;
    QToolButton* m_next = nullptr;
    QCheckBox* m_case = nullptr;
    QLabel* m_count = nullptr;
    QToolButton* m_close = nullptr;
    QPointer<QWidget> m_before; // had the keyboard when the bar was opened
};
