// controls/guihtmlcontrolbutton.h: push buttons, check boxes and radio buttons. guihtmlcontrolbutton-press.cpp has what
// pressing them does.
#pragma once

#include "controls/guihtmlcontrol.h"

class guiFormProperty;
class guiWidgetCheckBox;
class guiWidgetPushButton;
class guiWidgetRadioButton;
struct guiRadioGroup;

enum guiButtonType : int
{
    kButtonPlain = 0,
    kButtonReset = 1,
    kButtonSubmit = 2,
    kButtonCheckBox = 3,
    kButtonRadio = 4,
};

/// An `input` element that is pressed or checked. Its value is a push button's label, and what a checked box or radio
/// button contributes to the form.
class guiHtmlControlButton : public guiHtmlControl
{
public:
    /// Side in pixels of check boxes and radio buttons.
    static constexpr int kCheckSize = 13;

    explicit guiHtmlControlButton(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlButton() override;

    int getControlType() override { return kControlButton; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    guiButtonType getButtonType() const { return m_state.type; }
    bool isCheckable() const { return m_state.type == kButtonCheckBox || m_state.type == kButtonRadio; }
    /// The state before any widget exists: what the parser sets.
    void init(guiButtonType type, bool checked);
    /// A submit button follows its link only when the values of the form are right, or in any case.
    void setChecksForm(bool checks) { m_state.checksForm = checks; }
    /// 1 or 0, as the widget says if there is one.
    int isChecked();
    /// While it has a widget or awaits one, the checked radio button of a group cannot be unchecked.
    void setChecked(int checked);

    /// The label of a push button; the focus stays. A box has a caption as any other node.
    void setCaption(sstring const& caption) override;

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user pressed or checked the control, or script triggered it: follows the node's link. A submit button
    /// without a link follows its form's.
    virtual void onClick();
    /// Whether Enter triggers this control from everywhere on the page.
    bool isEnterControl();
    /// Does nothing while the control is disabled.
    void triggerNow() override;
    /// Also checks a box or a radio button, as a click on it does.
    void onLabel() override;
    /// The radio buttons of the same name on a page whose widgets are made late; null on any other.
    guiRadioGroup const* getTabGroup() const override { return m_group.get(); }
    bool isTabEntry() const override;
    /// The radio button is to be left for the one before or behind it: makes that, and scrolls to it, where the toolkit
    /// would find only those that have widgets.
    void readyNeighbour(bool forward);

protected:
    /// A box that is off; a radio button of a group in which none is on.
    bool isBlank() override;
    sstring findMistake() override;
    void addScriptMethods(ScriptObject* object) override;
    bool isOfFrequentKind() const override { return true; }
    /// A radio button joins its group: some of its buttons may have no widget.
    void onLate() override;

private:
    /// What a copy of the node takes over.
    struct buttonState
    {
        guiButtonType type = kButtonPlain;
        int checked = 0; // as of the last question to the widget
        bool checksForm = true;
    };

    bool isBoolean(guiFormProperty const& property) const;
    bool hasOneWidgetAtMost() const;
    void recheckAll();
    void createPushButton();
    void createCheckBox();
    void createRadioButton();
    void destroyWidgets();
    void noteChecked();
    void giveWay();
    void leaveGroup();

    buttonState m_state;
    std::shared_ptr<guiRadioGroup> m_group;        // null: the toolkit alone keeps one button checked
    guiWidgetPushButton* m_pushButton = nullptr;   // owned, for the first three types
    guiWidgetCheckBox* m_checkBox = nullptr;       // owned
    guiWidgetRadioButton* m_radioButton = nullptr; // owned
};
