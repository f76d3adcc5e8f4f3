// controls/guihtmltabbar.h: the bar above tabs, which is the control of an element `tabs`: it has its name and value.
#pragma once

#include "controls/guihtmlcontrolvalue.h"
#include "controls/guiwidgettabbar.h"

class guiHtmlTabs;
class guiHtmlTabSheet;

/// The value is the key of the tab that is shown: its name or, without one, its place, counted from 0. GUI thread.
class guiHtmlTabBar : public guiHtmlControlValue
{
public:
    explicit guiHtmlTabBar(guiHtml* parent = nullptr) : guiHtmlControlValue(parent) {}

    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    int calcDynamicLayout() override;
    void destroyChildWidget() override;

    /// The place of the tab that is shown, counted from 0.
    int index();
    /// Shows the tab for which a sheet stands. May run script.
    void showSheet(guiHtmlTabSheet const* sheet);
    /// The user turns to the next tab, or with -1 to the one before.
    void step(int by);
    /// The tabs are others than before, or look different.
    void updateTabs();

protected:
    guiValueWidget* makeWidget(QWidget* parent) override;
    std::optional<QString> valueOf(QString const& text) const override;
    void onNewValue() override;

private:
    guiHtmlTabs* tabs() const;
    std::vector<guiTabLook> looks() const;
    QSize measure(bool least);

    guiWidgetTabBar* m_bar = nullptr; // not owned: the base class does
};
