// script/guitaskbar.cpp: see the header.
#include "script/guitaskbar.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>
#include <algorithm>

bool guiTaskbar_show(guiTaskbarEntry const& entry)
{
    assertOnGuiThread();
    QDBusConnection const bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QString const name = QStringLiteral("application://") + sstoq(entry.desktopFile);
    QDBusMessage message =
        QDBusMessage::createSignal(QStringLiteral("/com/canonical/unity/launcherentry/%1").arg(qHash(name)),
                                   QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    message << name
            << QVariantMap{{"progress", std::clamp(entry.progress, 0.0, 1.0)},
                           {"progress-visible", entry.progress >= 0},
                           {"count", qlonglong{entry.count}},
                           {"count-visible", entry.count != 0},
                           {"urgent", entry.isUrgent}};
    return bus.send(message);
}
