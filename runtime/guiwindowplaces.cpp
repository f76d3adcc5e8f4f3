// runtime/guiwindowplaces.cpp: see guiwindowplaces.h.
#include "runtime/guiwindowplaces.h"

#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"

#include <QJsonObject>
#include <list>

namespace {

std::list<QJsonObject>& theExpected()
{
    static auto& places = *new std::list<QJsonObject>; // GUI thread
    return places;
}

} // namespace

QJsonArray guiWindowPlaces_read()
{
    assertOnGuiThread();
    QJsonArray places;
    for (guiHtml* page : pGUI->openPages()) {
        QWidget const* const window = page->getTopLevelWidget();
        if (!window || !window->isVisible())
            continue;
        QRect const rect = window->isMaximized() ? window->normalGeometry() : QRect(window->pos(), window->size());
        places.append(QJsonObject{{"file", sstoq(page->getString(kStringFile))},
                                  {"x", rect.x()},
                                  {"y", rect.y()},
                                  {"width", rect.width()},
                                  {"height", rect.height()},
                                  {"isMaximized", window->isMaximized()}});
    }
    return places;
}

void guiWindowPlaces_expect(QJsonArray const& places)
{
    assertOnGuiThread();
    theExpected().clear();
    for (QJsonValue const each : places)
        theExpected().push_back(each.toObject());
}

void guiWindowPlaces_take(guiHtmlBase& root, guiWidget& window)
{
    assertOnGuiThread();
    QString const file = sstoq(root.getString(kStringFile));
    for (auto place = theExpected().begin(); place != theExpected().end(); ++place) {
        if ((*place)["file"].toString() != file)
            continue;
        window.resize((*place)["width"].toInt(), (*place)["height"].toInt());
        window.move((*place)["x"].toInt(), (*place)["y"].toInt());
        if ((*place)["isMaximized"].toBool())
            window.setWindowState(window.windowState() | Qt::WindowMaximized);
        theExpected().erase(place);
        return;
    }
}
