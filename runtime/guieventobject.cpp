// runtime/guieventobject.cpp: see guieventobject.h.
#include "runtime/guieventobject.h"

#include "controls/guiscriptvalue.h"
#include "page/guipageroot.h"
#include "page/guiuserevent.h"

#include <QWidget>

namespace {

void setUnlessEmpty(ScriptObject* object, char const* name, sstring const& text)
{
    if (text.getLength() != 0)
        guiSetText(object, sstring(name), text);
}

void fill(ScriptObject* object, guiUserEvent const& event, QWidget const* window)
{
    guiSetText(object, "type", event.input.type);
    setUnlessEmpty(object, "button", event.input.button);
    setUnlessEmpty(object, "key", event.input.key);
    guiSetText(object, "modifiers", event.input.modifiers);
    std::optional<QPoint> const place = event.detail.place ? event.detail.place : event.input.place;
    if (place && window) {
        QPoint const inWindow = window->mapFromGlobal(*place);
        guiSetNumber(object, "x", inWindow.x());
        guiSetNumber(object, "y", inWindow.y());
    }
    if (event.detail.row)
        guiSetText(object, "row", *event.detail.row);
    if (event.detail.column)
        guiSetNumber(object, "column", *event.detail.column);
    if (event.detail.text)
        guiSetText(object, "text", *event.detail.text);
}

} // namespace

std::shared_ptr<ScriptObject> guiEventObject_make(guiHtml* node)
{
    if (!guiControlHost::current().isGuiThread())
        return nullptr;
    assertOnGuiThread();
    std::optional<guiUserEvent> const event = guiCurrentEvent();
    ScriptObject* page = event ? guiPageObjectOf(node) : nullptr;
    HostPlatform* platform = guiControlHost::current().platform();
    ScriptObject* made = page && platform ? platform->createObject(page->getEngine()) : nullptr;
    if (!made)
        return nullptr;
    fill(made, *event, node->getTopLevelWidget());
    return {made, [platform](ScriptObject* object) { platform->destroyObject(object); }};
}
