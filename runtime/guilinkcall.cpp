// runtime/guilinkcall.cpp: see guilinkcall.h.
#include "runtime/guilinkcall.h"

#include "controls/guihtmlcontrolbutton.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "page/guirefusal.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guihtmlbase.h"

#include <functional>
#include <memory>
#include <utility>

namespace {

/// What is to be known about a call when its promise settles.
struct linkCall
{
    linkCall(guiHtml* n, bool isOwn, sstring e, sstring f)
        : node(n), root(guiHtmlBase::of(n)), isOfNode(isOwn), event(std::move(e)), frame(std::move(f))
    {}

    guiNodeWatch node;
    guiNodeWatch root;
    bool isOfNode; // the handler is one of the node's own object
    sstring event;
    sstring frame;
    sstring text;                  // of a field when the handler was called
    std::function<void()> refused; // what is done when the handler says no; may be empty
    bool isNodeLeft = true;        // the handler has not destroyed the node
};

bool hasText(guiHtmlControl* control)
{
    int const type = control->getControlType();
    return type == guiHtmlControl::kControlEdit || type == guiHtmlControl::kControlValue;
}

sstring textOf(guiHtml* node)
{
    auto* control = dynamic_cast<guiHtmlControl*>(node);
    return control && hasText(control) ? control->getText() : sstring();
}

/// Whether the control has a value that the user may have changed while its handler was not called.
bool hasNewValue(guiHtml* node, linkCall const& call)
{
    auto* control = dynamic_cast<guiHtmlControl*>(node);
    int const type = control ? control->getControlType() : guiHtmlControl::kControlBase;
    if (type == guiHtmlControl::kControlBase || type == guiHtmlControl::kControlMenu)
        return false;
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(control))
        return button->isCheckable();
    return !hasText(control) || textOf(node) != call.text;
}

void follow(linkCall const& call, sstring reply)
{
    auto* window = static_cast<guiHtmlBase*>(call.root.get());
    if (!window || window->isReleased() || reply.getLength() == 0)
        return;
    guiHtml* from = call.isNodeLeft ? call.node.get() : window;
    if (!from)
        return; // its part of the page shows something else by now
    sstring frame = call.frame;
    from->onHyperlinkFile(reply, frame);
}

void callAgain(linkCall const& call)
{
    guiHtml* node = call.node.get();
    if (!node || !hasNewValue(node, call))
        return;
    guiNodeWatch const live(node);
    ScriptObject* target = call.isOfNode ? node->getCustomObject() : guiPageObjectOf(node);
    if (target && live.alive())
        follow(call, guiLinkCall_run(node, target, call.event, call.frame));
}

void noteAnswer(linkCall const& call, ScriptValue const& value)
{
    if (call.refused && value.isBool() && !value.toBool(1))
        call.refused();
}

void settle(linkCall const& call, ScriptValue const& value, bool wasRaised)
{
    noteAnswer(call, value);
    if (value.isString())
        follow(call, value.toString(0));
    if (wasRaised)
        callAgain(call);
}

} // namespace

sstring guiLinkCall_run(guiHtml* node, ScriptObject* target, sstring const& event, sstring const& frame)
{
    assertOnGuiThread();
    auto call = std::make_shared<linkCall>(node, target != guiPageObjectOf(node), event, frame);
    call->text = textOf(node);
    call->refused = guiRefusalScope::take();
    guiOwnedValue result = guiNewValue();
    guiCallback_CallEvent(
        node, target, event, pGUI->getSession(), result.get(),
        {node, event, false, [call](ScriptValue const& value, bool wasRaised) { settle(*call, value, wasRaised); }});
    noteAnswer(*call, *result);
    call->isNodeLeft = call->node.alive();
    return result->isString() ? result->toString(0) : sstring();
}
