// runtime/guiproblemstrip.h: the strip at the lower edge of a window that says why its page could not be read anew.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QString>
#include <QWidget>

class guiHtmlBase;

/// A child of its window, above the status line if there is one; the page gives it its room. GUI thread.
class guiProblemStrip : public QWidget
{
public:
    /// Shows the message, one line, in the open window of the page; "" takes the strip away. Nothing for a page without
    /// a window.
    static void show(guiHtmlBase& root, QString const& message) TARN_ON(velaGuiRole);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit guiProblemStrip(QWidget* window);
    void place();

    QString m_message;
    int m_below = 0; // pixels between the strip and the lower edge
};
