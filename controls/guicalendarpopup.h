// controls/guicalendarpopup.h: a calendar that opens below a field.
#pragma once

#include <QDate>
#include <QFrame>

class QCalendarWidget;

/// Deletes itself when it closes. Escape closes it, Return and a click choose a day. GUI thread.
class guiCalendarPopup : public QFrame
{
    Q_OBJECT

public:
    explicit guiCalendarPopup(QWidget* field);

    /// Days that may be chosen; an invalid one is no limit.
    void allow(QDate least, QDate most);
    /// The day that is chosen at first; today when it is invalid.
    void choose(QDate day);
    /// Opens below the field, or above it where there is no room.
    void showBelow(QWidget const* field);

signals:
    void chosen(QDate day);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void take(QDate day);

    QCalendarWidget* m_calendar; // a child
};
