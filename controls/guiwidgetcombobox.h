// controls/guiwidgetcombobox.h: the native widget of a `select` element that shows one row.
#pragma once

#include <QComboBox>

class guiHtmlControlList;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit guiWidgetComboBox(QWidget* parent = nullptr);

    guiHtmlControlList* owner = nullptr; ///< not owned; null until the node binds it

    /// Makes the item current; does nothing when there is no such item.
    void setCurrentItem(int index);
    /// From now on what the user types is a change too. Only for one that can be edited.
    void reportTyping();
    /// The item's text, "" when there is no such item.
    QString text(int index) const;

public slots:
    void onChange(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
