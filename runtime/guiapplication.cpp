// runtime/guiapplication.cpp: see guiapplication.h.
#include "runtime/guiapplication.h"

#include "page/guiuserevent.h"
#include "runtime/guievents.h"

// What was posted is taken before anything looks at it. Events of our own are what script asks for. They may arrive
// while the toolkit waits inside of the user's input.
bool guiApplication::notify(QObject* receiver, QEvent* event)
{
    guiThreadPost::take();
    std::optional<guiUserInput> input = guiInputIn(*event);
    if (!input && event->type() < QEvent::User)
        return QApplication::notify(receiver, event);
    guiInputScope const scope(std::move(input));
    return QApplication::notify(receiver, event);
}
