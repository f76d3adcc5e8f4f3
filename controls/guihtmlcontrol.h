// controls/guihtmlcontrol.h: what all form controls of a page have in common: a value or caption, a link, and a native
// widget of which only the part is shown that lies in the visible part of the page.
#pragma once

#include "foundation/vela-regexp.h"
#include "page/guihtml.h"

#include <QPointer>
#include <cstdint>
#include <memory>

class guiClipper;
class guiLateWidgets;
class QShortcut;
class guiMistakeMark;
class guiWidget;

/// What a page may ask of any value.
struct guiFieldRules
{
    bool isRequired = false;
    std::unique_ptr<Expr const> pattern; ///< of the whole value; null: any
    sstring hint;                        ///< what the pattern means, in the page's words
};

/// A control: a node with a value or caption and a link that is followed when the user works with it. Its widget exists
/// while the page is shown; on a large page it is made when it is needed (guilatewidgets.h), and until then the node is
/// all that there is. GUI thread.
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
        kControlValue = 6,
    };

    explicit guiHtmlControl(guiHtml* parent = nullptr);
    guiHtmlControl(guiHtmlControl const&) = delete;
    ~guiHtmlControl() override;

    int getType() override { return kTypeControl; }
    virtual int getControlType() { return kControlBase; }
    using guiHtml::operator=;
    /// Also copies the value and the link, never the widgets.
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// Stores the value, replaces an existing widget by one that shows it, and has the window laid out. 1, or 0 when
    /// the node was destroyed on the way. `directory` is not used: a control's text is not a page.
    int setText(sstring const& text, sstring const& directory) override;
    virtual sstring getText() { return m_content.text; }
    /// A control of another kind than those that say so themselves has no value.
    bool takesFormValue(ScriptValue&) const override { return false; }
    /// Stores the value that the page gives, before there is a widget.
    void initText(sstring const& text) { m_content.text = text; }
    /// Enables or disables the widget as well.
    void setEnabled(int enabled) override;
    /// The link that `onenter` names comes before the window's default button.
    int onEnter() override;
    /// Makes the widget, if the page is in a window and the control has one that need not wait, and puts it in its
    /// place.
    void setRect(guiRect* rect) override;
    /// Controls of one line do.
    bool keepsHeight() const override { return true; }
    /// Of a control of one line in the middle, of others behind the frame.
    std::optional<int> getBaseLine() override;
    sstring getAction() const { return m_content.action; }
    void setAction(sstring const& link) { m_content.action = link; }

    /// Gives the widget the new font and zoom.
    void onLookChange() override;
    /// Gives the control the focus, as far as it takes it.
    void onLabel() override;
    /// Alt and this letter, in upper case, do what a click on the label does. Before there is a widget.
    void setLabelKey(char16_t letter) { m_content.labelKey = letter; }

    // ---- Widgets that are made when they are needed (guihtmlcontrol-late.cpp) ----

    bool awaitsWidget() const override { return m_late.isAwaiting; }
    /// Whether the control can do without its widget while it is out of view.
    bool mayAwait() const { return m_content.labelKey == 0 && isOfFrequentKind(); }
    /// In a window, without a widget: from now on the node answers as the widget would.
    void await();
    /// Deletes the widget until it is needed again, unless the user is at work with it.
    void letGo();
    /// The widget, made if it is awaited; null when there is none.
    QWidget* needWidget();
    /// Controls that exist, in all windows. Any thread.
    static unsigned long living();

    // ---- What the page asks of the value (guihtmlcontrol-check.cpp) ----

    /// From now on the value has to obey these; shared with copies of the node. Null: anything is right.
    void setRules(std::shared_ptr<guiFieldRules const> const& rules) { m_content.rules = rules; }
    /// What is wrong with the value, in words for the user; "" when nothing is, or when the user could not change it.
    sstring getMistake();
    /// The user has been here, or wants to send the form: shows what is wrong, now and while it is wrong.
    void showMistake();
    /// The control gets the focus and says in a tip what is wrong.
    void pointOutMistake();

    /// The GuiControl object, made on the first call; null for a page without script. GUI thread or script thread. The
    /// GUI thread waits for script meanwhile, and the control may be gone afterwards.
    ScriptObject* getCustomObject() override;
    /// Makes the object. Script thread.
    void buildCustomObject_script() override;

protected:
    /// Whether there is no value at all.
    virtual bool isBlank() { return getText().getLength() == 0; }
    /// Whether a value may be wrong.
    virtual bool hasRules() const { return m_content.rules != nullptr; }
    /// What is wrong with the value; "" when nothing is.
    virtual sstring findMistake();
    /// To be called when the value has changed: what is shown as wrong may be right now, or the other way round.
    void recheck();
    /// Whether pages have so many controls of this kind that it keeps in the node all that its widget shows.
    virtual bool isOfFrequentKind() const { return false; }
    /// The page is one whose widgets are made late; called with each layout. There may be a widget.
    virtual void onLate() {}
    /// The node has to know from now on what a new widget would show.
    virtual void onAwait() {}
    /// The widget is about to go: takes over what only that knows.
    virtual void keepState() { getText(); }
    /// Whether the user has the control before him: its widget exists or is awaited.
    bool isPresent() { return awaitsWidget() || getChildWidget(); }
    guiWidget* getWindow();
    /// Adds the methods that only this class of control has. Script thread.
    virtual void addScriptMethods(ScriptObject*) {}
    /// The parent of the control's widget, made on the first call: it clips the widget to the visible part of the page.
    /// Only while the page is in a window.
    QWidget* getClipWidget();
    /// Moves the clip widget to the visible part of `rect`, which is the control's place in the window.
    void onSetRect(guiRect* rect);
    /// Deletes the clip widget, once the control's own widgets are gone.
    void onDestroyChildWidget();
    /// Puts a widget where the control is, inside the clip widget.
    void placeInClip(QWidget* widget);
    /// The window's focus chain is out of date.
    void dirtyTabOrder();
    /// Gives a widget the control's font, and its parts the size that goes with it.
    void showLook(QWidget* widget);
    /// Gives a new widget the control's font and state, and shows it.
    void finishWidget(QWidget* widget);
    bool hasWindow() { return getTopLevelWidget() != nullptr; }
    /// Pixels: the width of a text in the control's font, and the distance between its lines.
    int textWidth(sstring const& text);
    int lineSpacing();
    /// A measured length as nodes may have it: 0 to kMaxPixels.
    static int clampLength(std::int64_t pixels);
    /// What calcDynamicLayout() gives for a control that stands at an edge of the window, not where its tag is.
    int takeNoRoom();
    /// Follows the link, unless it is "", with the control's script object. Runs script: the control may be gone
    /// afterwards.
    void followLink(sstring const& link);

    /// What a copy of the node takes over.
    struct content
    {
        sstring text = sstring::unallocated();   // the value or caption
        sstring action = sstring::unallocated(); // the link
        std::shared_ptr<guiFieldRules const> rules;
        char16_t labelKey = 0; // 0: none
    };

    content m_content;

private:
    friend class guiLateWidgets;

    /// What is known of a widget that comes and goes.
    struct lateState
    {
        guiLateWidgets* keeper = nullptr; // the list of those that may go which has this control; not owned
        unsigned place = 0;               // in that list
        bool isAwaiting = false;
        bool isMarked = false; // mistakes are shown as soon as there is a widget
    };

    bool isOutOfView();
    bool isAtWork();
    bool awaits(guiWidget& window);
    void arrive();
    void listenToLabelKey(QWidget* widget);

    guiClipper* m_clipWidget = nullptr; // owned
    int m_clipOffsetX = 0;              // where the visible part starts, relative to the control's rectangle, pixels
    int m_clipOffsetY = 0;              //
    QPointer<guiMistakeMark> m_mark;    // belongs to the control's widget
    lateState m_late;
    QPointer<QShortcut> m_labelKey; // goes with the control's widget; null without one
};
