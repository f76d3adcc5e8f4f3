// controls/guihtmlcontrolbutton.h: push buttons, check boxes and radio buttons.
#pragma once

#include "controls/guihtmlcontrol.h"

enum guiButtonType : int
{
    kButtonPlain = 0,
    kButtonReset = 1,
    kButtonSubmit = 2,
    kButtonCheckBox = 3,
    kButtonRadio = 4,
};

/// An `input` element that is pressed or checked.
class guiHtmlControlButton : public guiHtmlControl
{
public:
    explicit guiHtmlControlButton(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlButton; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    guiButtonType getButtonType() const { return m_buttonType; }
    /// The state before any widget exists: what the parser sets.
    void init(guiButtonType type, bool checked);
    int isChecked() { return m_checked; }

    /// The user pressed or checked it, or script did as if: follows the node's link or, without one, a submit button
    /// its form's.
    virtual void onClick();
    void triggerNow() override { onClick(); }

private:
    guiButtonType m_buttonType = kButtonPlain;
    int m_checked = 0;
};
