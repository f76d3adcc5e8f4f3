// controls/guihtmlcustom.h: an `object` element whose behaviour and drawing are up to a component in script.
#pragma once

#include "page/guihtml.h"
#include "script/hostinterface.h"

#include <utility>
#include <vector>

/// GUI thread.
class guiHtmlCustom : public guiHtml
{
public:
    /// What the node shares with its script component.
    struct sharedState
    {
        ScriptObject* mouse = nullptr; ///< its properties "x" and "y" are the pointer's place; null without an instance
        int mouseX = 0;                ///< last place of the pointer, relative to the node, pixels
        int mouseY = 0;                //
    };

    explicit guiHtmlCustom(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeCustom; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// The name of the component.
    void setCompName(sstring const& name) { m_component.name = name; }
    sstring getCompName() const { return m_component.name; }
    /// Adds a property for the instance, as name and value.
    void setParam(sstring const& name, sstring const& value) { m_component.params.emplace_back(name, value); }
    std::vector<std::pair<sstring, sstring>> const& getParams() const { return m_component.params; }

    /// Called just before a handler of the instance runs: writes the pointer's place into the mouse object. Any thread.
    void onCallback();

    /// The custom node's record, open to the classes of the page.
    sharedState mx;

private:
    /// What a copy of the node takes over.
    struct component
    {
        sstring name;
        std::vector<std::pair<sstring, sstring>> params;
    };

    component m_component;
};
