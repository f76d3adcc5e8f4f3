// controls/guiwidgettabbar.h: the native widget of the bar above tabs.
#pragma once

#include "controls/guihtmlcontrolvalue.h"

#include <QIcon>
#include <QTabBar>
#include <vector>

/// One of its tabs.
struct guiTabLook
{
    QString key; ///< the value while it is shown
    QString text;
    QIcon icon;
    bool isEnabled = true;
};

/// A stop of the Tab key, at which the arrows, Home and End turn to other tabs. A click leaves the focus where it is.
/// GUI thread.
class guiWidgetTabBar : public QTabBar, public guiValueWidget
{
    Q_OBJECT

public:
    static constexpr int kIconSize = 16;

    explicit guiWidgetTabBar(QWidget* parent = nullptr);

    QWidget* widget() override { return this; }
    QString value() const override;
    void showValue(QString const& value) override;

    /// Shows these tabs, and the same one of them as before, by its place.
    void setTabs(std::vector<guiTabLook> const& tabs);
    /// Turns to the next tab that is enabled, or with -1 to the one before; behind the last comes the first. Reports
    /// it.
    void step(int by);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showTab(int index, guiTabLook const& tab);
    void turnTo(int from, int by);

    std::vector<QString> m_keys;
};
