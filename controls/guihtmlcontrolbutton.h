// controls/guihtmlcontrolbutton.h: push buttons, check boxes and radio buttons.
#pragma once

#include "controls/guihtmlcontrol.h"

class guiWidgetCheckBox;
class guiWidgetPushButton;
class guiWidgetRadioButton;

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

    guiButtonType getButtonType() const { return m_buttonType; }
    /// The state before any widget exists: what the parser sets.
    void init(guiButtonType type, bool checked);
    /// 1 or 0; asks the widget, if there is one.
    int isChecked();
    /// A radio button that is the checked one of its group can not be unchecked while it has a widget.
    void setChecked(int checked);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user pressed or checked it, or script did as if: follows the node's link or, without one, a submit button
    /// its form's.
    virtual void onClick();
    void triggerNow() override { onClick(); }

protected:
    void addScriptMethods(ScriptObject* object) override;

private:
    bool isCheckable() const { return m_buttonType == kButtonCheckBox || m_buttonType == kButtonRadio; }
    void createPushButton();
    void createCheckBox();
    void createRadioButton();
    void destroyWidgets();

    guiButtonType m_buttonType = kButtonPlain;
    int m_checked = 0;
    guiWidgetPushButton* m_pushButton = nullptr;   // owned, for the first three types
    guiWidgetCheckBox* m_checkBox = nullptr;       // owned
    guiWidgetRadioButton* m_radioButton = nullptr; // owned
};
