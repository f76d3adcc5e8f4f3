// controls/guihtmlcontrol.h: what all form controls of a page have in common: a value or caption, a link, and a native
// widget that stands in the page only as far as the page is visible there.
#pragma once

#include "page/guihtml.h"

#include <cstdint>

/// A control: a node with a value or caption and a link that is followed when the user uses it. Its widget exists while
/// the page is shown. GUI thread.
class guiHtmlControl : public guiHtml
{
public:
    /// What getControlType() returns.
    enum : int
    {
        kControlBase = -1,
        kControlButton = 0,
        kControlEdit = 1,
        kControlList = 2,
        kControlHidden = 3,
        kControlFlex = 4,
        kControlMenu = 5,
    };

    explicit guiHtmlControl(guiHtml* parent = nullptr) : guiHtml(parent) {}
    ~guiHtmlControl() override;

    int getType() override { return kTypeControl; }
    virtual int getControlType() { return kControlBase; }
    using guiHtml::operator=;
    /// Also copies the value and the link, never the widgets.
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// Stores the value, makes an existing widget anew with it and has the window laid out. Always 1. `directory` is
    /// not used: a control's text is no page.
    int setText(sstring const& text, sstring const& directory) override;
    virtual sstring getText() { return m_text; }
    /// Stores the value without telling anybody: what the parser does.
    void initText(sstring const& text) { m_text = text; }
    /// Also those of the widget.
    void setEnabled(int enabled) override;
    /// Makes the widget, if the page is in a window and the control has one, and puts it in its place.
    void setRect(guiRect* rect) override;
    sstring getAction() const { return m_action; }
    void setAction(sstring const& link) { m_action = link; }

    /// The GuiControl object, made the first time that it is asked for; null for a page without script. On the GUI
    /// thread that waits for script, and the control may be gone afterwards.
    ScriptObject* getCustomObject() override;
    /// Makes the object. Script thread.
    void buildCustomObject_script() override;

protected:
    /// Adds the methods that only this class of control has. Script thread.
    virtual void addScriptMethods(ScriptObject*) {}
    /// The parent of the control's widget, made on the first call: it cuts the widget off where the page does. Only
    /// while the page is in a window.
    QWidget* getClipWidget();
    /// Moves the clip widget to the visible part of `rect`, which is the control's place in the window.
    void onSetRect(guiRect* rect);
    /// The control's own widgets are gone: the clip widget goes, too.
    void onDestroyChildWidget();
    /// Puts a widget where the control is, inside the clip widget.
    void placeInClip(QWidget* widget);
    /// The focus chain of the window has to be made anew.
    void dirtyTabOrder();
    /// Gives a widget that was just made the control's font and state, and shows it.
    void finishWidget(QWidget* widget);
    bool hasWindow() { return getTopLevelWidget() != nullptr; }
    /// Pixels that the text is wide in the control's font, and from one of its lines to the next.
    int textWidth(sstring const& text);
    int lineSpacing();
    /// A measured length as nodes may have it: 0 to kMaxPixels.
    static int clampLength(std::int64_t pixels);
    /// Follows the link with the control's script object; nothing for "".
    void followLink(sstring const& link);

    sstring m_text;
    sstring m_action;

private:
    QWidget* m_clipWidget = nullptr; // owned
    int m_clipOffsetX = 0;           // where the visible part starts, relative to the control's rectangle
    int m_clipOffsetY = 0;
};
