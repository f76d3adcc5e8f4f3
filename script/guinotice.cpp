// script/guinotice.cpp: see the header. The interface is org.freedesktop.Notifications, as desktops have it.
#include "script/guinotice.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace {

/// A service that the bus has to start first takes its time.
constexpr int kAnswerMs = 10000;

QDBusMessage callOf(QString const& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

/// Sends the call; `heard` gets the answer, or the error.
template <class Heard>
void ask(QDBusMessage const& call, Heard heard)
{
    auto* const watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, kAnswerMs),
                                                      qApp); // until it is heard
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, heard] {
        watcher->deleteLater();
        heard(watcher->reply());
    });
}

sstring complaintOf(QDBusMessage const& reply)
{
    if (reply.type() != QDBusMessage::ErrorMessage)
        return {};
    bool const isNobody = reply.errorName() == QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown");
    return isNobody ? sstring("there is no notification service on the session bus")
                    : qtoss(QStringLiteral("the notification service says: ") + reply.errorMessage().simplified());
}

void send(guiNotice const& notice, bool readsMarkup, guiNoticeAnswer const& answer)
{
    QString const text = sstoq(notice.text);
    QDBusMessage call = callOf(QStringLiteral("Notify"));
    call << QCoreApplication::applicationName() << 0U /* replaces none */ << sstoq(notice.icon) << sstoq(notice.title)
         << (readsMarkup ? text.toHtmlEscaped() : text) << QStringList() /* no actions */ << QVariantMap()
         << (notice.durationMs > 0 ? notice.durationMs : -1);
    ask(call, [answer](QDBusMessage const& reply) { answer(complaintOf(reply)); });
}

} // namespace

void guiNotice_show(guiNotice const& notice, guiNoticeAnswer const& answer)
{
    assertOnGuiThread();
    if (!QDBusConnection::sessionBus().isConnected()) {
        answer("there is no session bus, and so no notification service");
        return;
    }
    ask(callOf(QStringLiteral("GetCapabilities")), [notice, answer](QDBusMessage const& reply) {
        sstring const complaint = complaintOf(reply);
        if (complaint.getLength() != 0)
            answer(complaint);
        else
            send(notice, reply.arguments().value(0).toStringList().contains(QStringLiteral("body-markup")), answer);
    });
}
