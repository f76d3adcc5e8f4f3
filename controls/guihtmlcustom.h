// controls/guihtmlcustom.h: an `object` element whose behaviour and drawing live in a script component.
#pragma once

#include "page/guihtml.h"
#include "script/hostinterface.h"

#include <utility>
#include <vector>

class guiHtmlCustom : public guiHtml
{
public:
    /// What the node shares with its script component.
    struct sharedState
    {
        ScriptObject* mouse = nullptr; ///< object with the properties "x" and "y", null while there is no instance
        int mouseX = 0;                ///< last place of the pointer, relative to the node
        int mouseY = 0;                //
    };

    explicit guiHtmlCustom(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeCustom; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// The component's name; makes its instance.
    void setCompName(sstring const& name) { m_compName = name; }
    sstring getCompName() const { return m_compName; }
    /// Sets a property of the instance. After setCompName.
    void setParam(sstring const& name, sstring const& value) { m_params.emplace_back(name, value); }
    std::vector<std::pair<sstring, sstring>> const& getParams() const { return m_params; }

    /// Called just before a handler of the instance runs: brings the pointer's place to the mouse object. Any thread.
    void onCallback();

    /// The custom node's record, open to the classes of the page.
    sharedState mx;

private:
    sstring m_compName;
    std::vector<std::pair<sstring, sstring>> m_params;
};
