// controls/guihtmltabs.h: the elements `tabs` and `tab`: sheets of which one is shown, below a bar (guihtmltabbar.h).
#pragma once

#include "controls/guiwidgettabbar.h"
#include "page/guihtmlsheet.h"
#include "page/guipicture.h"

#include <vector>

class guiHtmlTabBar;

/// What one tab shows. A child of guiHtmlTabs. GUI thread.
class guiHtmlTabSheet : public guiHtmlSheet
{
public:
    /// Pixels that the frame around the sheets takes of each.
    static constexpr int kFrame = 2;

    explicit guiHtmlTabSheet(guiHtml* parent = nullptr);

    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }

    /// The text on the tab, with "&" before the letter of its key, and the name of a file with a picture.
    void init(sstring const& title, sstring const& icon);
    /// How the bar shows it, as the tab at this place.
    guiTabLook look(int place);
    /// Changes the text on the tab.
    void setCaption(sstring const& caption) override;
    /// The user can turn to the tab only while it is enabled, and so is what is in it.
    void setEnabled(int enabled) override;
    void bringToFront() override;
    /// The frame is painted around all sheets together.
    void paintBorder(QPainter*, guiRect*, int) override {}
    void destroyChildWidget() override;

protected:
    bool keepsRoom() const override { return true; }

private:
    guiHtmlTabBar* bar();

    sstring m_title;
    sstring m_icon;
    guiPictureRef m_picture; // of the icon, while it is shown
};

/// As high as the largest of its sheets asks for, so that nothing moves when another one is shown. GUI thread.
class guiHtmlTabs : public guiHtml
{
public:
    explicit guiHtmlTabs(guiHtml* parent = nullptr) : guiHtml(parent) {}

    using guiHtml::operator=;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }

    /// Null before the reader has made it.
    guiHtmlTabBar* bar() const;
    std::vector<guiHtmlTabSheet*> sheets() const;
    /// The sheets are complete: the first one is shown, or the one of this key.
    void init(sstring const& shown);
    /// Shows one of the sheets and puts the others away. When the keyboard was in one of these, it goes on in the one
    /// that is shown. May run script.
    void show(int index);

    int calcDynamicLayout() override;
    int getHeightEstimate(unsigned long width) override;
    int getChildHeight(unsigned index, unsigned long width, unsigned long available) override;
    void updateSpringyHeights() override;
    void paintBorder(QPainter* painter, guiRect* rect, int highlight) override;
    bool turnParts(int step) override;

private:
    int barHeight() const;
    void putAway(int shown);
    void moveFocus(guiHtmlSheet* into);
};
