// controls/guihtmlcustom-events.cpp: how a custom element's instance hears of the pointer. A handler runs while the GUI
// thread goes on with its events; what happens to the element meanwhile waits until the handler has ended. Of moves
// that wait only the last one is told, and turns of the wheel are added up.
#include "controls/guihtmlcustom.h"
#include "controls/guiscriptvalue.h"
#include "controls/guiwidgetfocus.h"
#include "foundation/vela-threadrole.h"
#include "page/guilaterevents.h"
#include "page/guinodewatch.h"

#include <cassert>
#include <cstring>
#include <utility>

namespace {

constexpr char kMove[] = "eMouseMove";
constexpr char kWheel[] = "eMouseWheel";

int theTelling = 0; // GUI thread

/// While an element's handler runs or others of it wait; it may go meanwhile.
struct tellingScope
{
    tellingScope() { ++theTelling; }
    ~tellingScope() { --theTelling; }
    tellingScope(tellingScope const&) = delete;
    tellingScope& operator=(tellingScope const&) = delete;
};

} // namespace

int guiHtmlCustom::tellingCount()
{
    assertOnGuiThread();
    return theTelling;
}

void guiHtmlCustom::onCallback()
{
    if (!mx.mouse)
        return;
    guiSetNumber(mx.mouse, "x", mx.mouseX);
    guiSetNumber(mx.mouse, "y", mx.mouseY);
    guiSetText(mx.mouse, "button", mx.input.button);
    guiSetText(mx.mouse, "modifiers", mx.input.modifiers);
    guiSetNumber(mx.mouse, "wheel", mx.input.wheel);
    if (!mx.keyboard)
        return;
    guiSetText(mx.keyboard, "key", mx.input.key);
    guiSetText(mx.keyboard, "text", mx.input.text);
    guiSetText(mx.keyboard, "modifiers", mx.input.modifiers);
}

void guiHtmlCustom::setPointer(int x, int y)
{
    mx.mouseX = x - m.border;
    mx.mouseY = y - m.border;
}

void guiHtmlCustom::onMouseOn() { tell("eMouseOver"); }
void guiHtmlCustom::onMouseOff() { tell("eMouseOut"); }
void guiHtmlCustom::onMouseUp() { tell("eMouseUp"); }

void guiHtmlCustom::onMouseDown(int x, int y)
{
    setPointer(x, y);
    tell("eMouseDown");
}

void guiHtmlCustom::onMouseMove(int x, int y)
{
    setPointer(x, y);
    tell(kMove);
}

void guiHtmlCustom::onMouseWheel(int x, int y)
{
    setPointer(x, y);
    tell(kWheel);
}

void guiHtmlCustom::onKey() { tell("eKey"); }
void guiHtmlCustom::onFocus(bool hasFocus) { tell(hasFocus ? "eFocus" : "eBlur"); }

void guiHtmlCustom::takeFocus()
{
    if (m_focusWidget)
        m_focusWidget->setFocus(Qt::MouseFocusReason);
}

bool guiHtmlCustom::hearsWheel() { return canHear(kWheel); }

bool guiHtmlCustom::canHear(char const* name)
{
    return m_hasInstance && m.enabled && !guiLaterEvents::isActive() && m.object.load()->hasMethod(sstring(name));
}

void guiHtmlCustom::queue(happening what)
{
    constexpr std::size_t kMostWaiting = 1000; // a handler that never ends must not collect events for ever
    happening* const last = m_waiting.empty() ? nullptr : &m_waiting.back();
    bool const isSame = last && std::strcmp(last->name, what.name) == 0;
    bool const isWheel = std::strcmp(what.name, kWheel) == 0;
    if (isSame && isWheel)
        what.input.wheel += last->input.wheel;
    if (isSame && (isWheel || std::strcmp(what.name, kMove) == 0))
        *last = std::move(what);
    else if (m_waiting.size() < kMostWaiting)
        m_waiting.push_back(std::move(what));
}

void guiHtmlCustom::tell(char const* name)
{
    assertOnGuiThread();
    if (!canHear(name))
        return;
    queue({name, mx.mouseX, mx.mouseY, m_nextInput});
    if (std::exchange(m_isTelling, true))
        return;
    tellingScope const scope;
    guiNodeWatch const self(this);
    while (self.alive() && !m_waiting.empty()) {
        happening const next = std::move(m_waiting.front());
        m_waiting.pop_front();
        call(next);
    }
    if (self.alive())
        m_isTelling = false;
}

void guiHtmlCustom::call(happening const& what)
{
    assertOnGuiThread();
    assert(m_hasInstance);
    mx.mouseX = what.x;
    mx.mouseY = what.y;
    mx.input = what.input;
    guiControlHost::current().callElement(this, m.object, what.name);
}
