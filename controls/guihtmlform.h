// controls/guihtmlform.h: the `form` element: a container with an action, which its submit buttons follow.
#pragma once

#include "page/guihtml.h"

/// GUI thread.
class guiHtmlForm : public guiHtml
{
public:
    explicit guiHtmlForm(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeForm; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    sstring getAction() const { return m_action; }
    void setAction(sstring const& link) { m_action = link; }

private:
    sstring m_action;
};
