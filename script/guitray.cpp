// script/guitray.cpp: see the header.
#include "script/guitray.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guipagehost.h"
#include "page/guipicture.h"

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <map>
#include <memory>

namespace {

/// Pixels: more than any tray shows, so that the desktop only makes it smaller.
constexpr int kIconSize = 128;

struct tray
{
    QMenu menu; // outlives the icon, which refers to it
    QSystemTrayIcon icon;
    std::function<void(int)> heard;
};

/// Those that are shown, by number. GUI thread.
std::map<int, std::unique_ptr<tray>>& trays()
{
    static std::map<int, std::unique_ptr<tray>> all;
    return all;
}

void listen(tray& made, int number)
{
    QObject::connect(&made.icon, &QSystemTrayIcon::activated, &made.icon,
                     [&made](QSystemTrayIcon::ActivationReason how) {
                         if (how == QSystemTrayIcon::Trigger)
                             made.heard(-1);
                     });
    // Later the toolkit can not take it back any more.
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &made.icon, [number] { guiTray_remove(number); });
}

tray& trayOf(int number)
{
    std::unique_ptr<tray>& place = trays()[number];
    if (!place) {
        place = std::make_unique<tray>();
        listen(*place, number);
    }
    return *place;
}

void addItem(tray& shown, guiTrayItem const& item, int at)
{
    if (item.kind == "line") {
        shown.menu.addSeparator();
        return;
    }
    QAction* const action = shown.menu.addAction(sstoq(item.text));
    action->setEnabled(!(item.kind == "disabled"));
    bool const isChecked = item.kind == "checked";
    action->setCheckable(isChecked || item.kind == "unchecked");
    action->setChecked(isChecked);
    QObject::connect(action, &QAction::triggered, &shown.icon, [&shown, at] { shown.heard(at); });
}

QIcon iconOf(sstring const& file)
{
    guiPictureRef const picture = guiPageHost::current().readImage(nullptr, file, QSize(kIconSize, kIconSize));
    return picture ? QIcon(picture->image) : QIcon();
}

} // namespace

bool guiTray_isAvailable()
{
    assertOnGuiThread();
    return QSystemTrayIcon::isSystemTrayAvailable();
}

bool guiTray_show(int number, guiTrayRequest const& request)
{
    assertOnGuiThread();
    QIcon const icon = iconOf(request.icon);
    if (icon.isNull())
        return false;
    tray& shown = trayOf(number);
    shown.heard = request.heard;
    shown.icon.setIcon(icon);
    shown.icon.setToolTip(sstoq(request.tip));
    shown.menu.clear();
    int at = 0;
    for (guiTrayItem const& item : request.menu)
        addItem(shown, item, at++);
    shown.icon.setContextMenu(request.menu.empty() ? nullptr : &shown.menu);
    shown.icon.show();
    return true;
}

void guiTray_remove(int number)
{
    assertOnGuiThread();
    trays().erase(number);
}
