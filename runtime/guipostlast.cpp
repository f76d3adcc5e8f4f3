// runtime/guipostlast.cpp: see guipostlast.h.
#include "runtime/guipostlast.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <utility>

namespace {

struct lastEvent : QEvent
{
    explicit lastEvent(std::function<void()> w) : QEvent(QEvent::User), work(std::move(w)) {}
    std::function<void()> work;
};

class lastReceiver : public QObject
{
public:
    using QObject::QObject;

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        static_cast<lastEvent*>(event)->work();
        return true;
    }
};

} // namespace

void guiPostLast(std::function<void()> work)
{
    constexpr int kBehindAll = Qt::LowEventPriority - 1000;
    static QPointer<lastReceiver> receiver; // GUI thread; goes with the application
    if (!receiver)
        receiver = new lastReceiver(qApp);
    QCoreApplication::postEvent(receiver, new lastEvent(std::move(work)), kBehindAll);
}
