// controls/guiwidgetmenubar.h: the menu bar of a window.
#pragma once

#include <QMenuBar>

class guiHtmlControlMenu;

/// The data of each action is the id of its item, an int. The bar also reports what is chosen in its pop-ups. GUI
/// thread.
class guiWidgetMenuBar : public QMenuBar
{
    Q_OBJECT

public:
    explicit guiWidgetMenuBar(QWidget* parent = nullptr);

    guiHtmlControlMenu* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onActivate(int id);

signals:
    /// The user chose the item with this id, in the bar or in one of its pop-ups.
    void activated(int id);
};
