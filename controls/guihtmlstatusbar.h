// controls/guihtmlstatusbar.h: the line along the lower edge of a window: an element `statusbar`.
#pragma once

#include "controls/guihtmlcontrol.h"

class guiWidgetStatusBar;

/// It stays where it is however far the page is scrolled, and takes no room where its tag stands: the page ends above
/// it. GUI thread.
class guiHtmlStatusBar : public guiHtmlControl
{
public:
    explicit guiHtmlStatusBar(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlStatusBar() override { destroyBar(); }

    using guiHtmlControl::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
    int setText(sstring const& text, sstring const& directory) override;
    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    bool isInLine() const override { return false; }
    int calcDynamicLayout() override;
    void setRect(guiRect* rect) override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    void onLookChange() override;

private:
    void place();
    void destroyBar();

    guiWidgetStatusBar* m_bar = nullptr; // owned
};
