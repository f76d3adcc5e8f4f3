// controls/guihtmlcontrol.h: what all form controls of a page have in common.
#pragma once

#include "page/guihtml.h"

/// A control: a node with a value or caption and a link that is followed when the user uses it.
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

    int getType() override { return kTypeControl; }
    virtual int getControlType() { return kControlBase; }
    using guiHtml::operator=;
    /// Also copies the value and the link.
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    sstring getText() const { return m_text; }
    /// Stores the value without telling anybody: what the parser does.
    void initText(sstring const& text) { m_text = text; }
    sstring getAction() const { return m_action; }
    void setAction(sstring const& link) { m_action = link; }

protected:
    sstring m_text;
    sstring m_action;
};
