// runtime/guiapplication.h: the application object of the GUI thread. It marks what the user does while that is being
// handled, so that handlers can be told (page/guiuserevent.h).
#pragma once

#include <QApplication>

/// Made, used and destroyed on the GUI thread.
class guiApplication : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};
