// page/guihtmlsheet.h: a part of a page that can be put away: what a tab shows, what `details` unfolds.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"

/// While it is put away it takes no height, is neither painted nor found under the pointer, and its controls have no
/// widgets, or hidden ones. Their values count all the same. GUI thread.
class guiHtmlSheet : public guiHtml
{
public:
    explicit guiHtmlSheet(guiHtml* parent = nullptr) : guiHtml(parent) {}

    using guiHtml::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }

    bool isPutAway() const { return m.visible == 0; }
    /// The layout is out of date afterwards.
    void putAway(bool away);
    /// Shows the sheet, in place of another one or not, and lays the page out. May run script, since the focus may
    /// move.
    void bringToFront() override;

    /// The height in pixels that it has at this width while it is shown, and the least one, whether it is shown or not.
    int shownHeight(int width);
    int leastHeight() const { return m_leastHeight; }

    int calcDynamicLayout() override;
    int getHeightEstimate(unsigned long width) override;
    void updateActiveWidths() override;
    void updateActiveHeights() override;
    void updateSpringyHeights() override;
    void updateScrollbarRanges() override;
    void setRect(guiRect* rect) override;
    void onShow() override;

protected:
    /// Whether it is measured while it is put away, so that there can be room for it.
    virtual bool keepsRoom() const { return false; }

private:
    int takeNothing();
    void learnEmpty();
    void hideWidgets();

    int m_leastHeight = 0;
    bool m_hasPlace = false; // what is in it has been placed since it was shown
};

/// Whether the node is in a sheet that is put away.
bool guiIsPutAway(guiHtml const* node);
