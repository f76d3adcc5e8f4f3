// runtime/guiformvalues.cpp: see guiformvalues.h. Reading a property into a control may call a handler, which may
// replace the page: the registry is asked for each node before it is used.
#include "runtime/guiformvalues.h"

#include "page/guihtml.h"
#include "page/guilayouthold.h"
#include "runtime/guihtmlbase.h"

#include <cassert>
#include <unordered_set>

namespace {

std::u16string keyOf(sstring const& name)
{
    return {reinterpret_cast<char16_t const*>(name.getUnicode()), name.getLength()};
}

sstring nameOf(std::u16string const& key)
{
    return {reinterpret_cast<unsigned short const*>(key.data()), 0, static_cast<unsigned>(key.size())};
}

/// Whether the node has a value for a property: it is a control, or has a name and no content.
bool isControl(guiHtml* node)
{
    return node->hasString(kStringName) && (node->getType() == guiHtml::kTypeControl || node->getChildCount() == 0);
}

void collect(guiHtml* node, std::vector<guiHtml*>& controls)
{
    if (isControl(node))
        controls.push_back(node);
    for (unsigned i = 0; i < node->getChildCount(); ++i)
        if (guiChildList::isNode(node->getChild(i)))
            collect(node->getChild(i), controls);
}

} // namespace

bool guiIsSameValue(ScriptValue const& a, ScriptValue const& b)
{
    if (a.isString() || b.isString())
        return a.isString() && b.isString() && a.toString(0) == b.toString(0);
    if (a.isNumber() || b.isNumber())
        return a.isNumber() && b.isNumber() && a.toNumber(0) == b.toNumber(0);
    if (a.isBool() || b.isBool())
        return a.isBool() && b.isBool() && a.toBool(0) == b.toBool(0);
    return a.toObject(0) == b.toObject(0); // no object: null
}

ScriptObject* guiFormValues::form() const { return pGUI ? m_root.getFormObject() : nullptr; }

guiFormValues::controlList const& guiFormValues::controls()
{
    unsigned long now = guiHtml::generation();
    if (m_generation != now) {
        m_controls.clear();
        m_byName.clear();
        collect(&m_root, m_controls);
        m_generation = now;
    }
    return m_controls;
}

void guiFormValues::beginCall()
{
    assert(isTracking() || m_written.empty());
    if (isTracking())
        readChanges(); // of the handler that called this one and waits for it, and of those that go on
    ++m_depth;
    writeAll();
}

void guiFormValues::endCall()
{
    assert(m_depth > 0);
    readChanges();
    --m_depth;
    stopTracking();
}

void guiFormValues::stopTracking()
{
    if (isTracking())
        return;
    assert(m_unread.empty());
    m_written.clear();
}

void guiFormValues::endPromise()
{
    if (m_promises == 0)
        return;
    readChanges();
    dropPromise();
}

void guiFormValues::dropPromise()
{
    if (m_promises > 0)
        --m_promises;
    if (m_depth == 0)
        stopTracking();
}

guiFormValues::controlList const& guiFormValues::controlsOf(sstring const& name)
{
    static auto const& none = *new controlList;
    controlList const& all = controls();
    if (m_byName.empty())
        for (guiHtml* node : all)
            m_byName[keyOf(node->getName())].push_back(node);
    auto const found = m_byName.find(keyOf(name));
    return found == m_byName.end() ? none : found->second;
}

/// Whether script has put a value into the form that no control has read yet.
bool guiFormValues::isPending(sstring const& name)
{
    nameKey const key = keyOf(name);
    return isTracking() && m_written.contains(key) && isChanged(key, *guiNewValue());
}

bool guiFormValues::read(sstring const& name, ScriptValue& value)
{
    value.setNull();
    if (!form())
        return false;
    if (!isPending(name)) {
        controlList const nodes = controlsOf(name);
        for (guiHtml* node : nodes)
            node->writeFormProperty(form());
        if (isTracking() && !nodes.empty())
            remember(keyOf(name));
    }
    return pGUI->getFormProp()->readProperty(form(), name, &value);
}

bool guiFormValues::write(sstring const& name, ScriptValue& value, bool later)
{
    if (!form())
        return true;
    controlList const nodes = controlsOf(name);
    for (guiHtml const* node : nodes)
        if (!node->takesFormValue(value))
            return false;
    pGUI->getFormProp()->writeProperty(form(), name, &value);
    if (later || nodes.empty())
        return true;
    if (isTracking())
        remember(keyOf(name));
    guiLayoutHold hold;
    for (guiHtml* node : nodes)
        if (pGUI->contains(node) && form())
            node->readFormProperty(form());
    hold.release();
    return true;
}

void guiFormValues::store()
{
    if (isTracking())
        readChanges();
    writeAll();
}

void guiFormValues::writeAll()
{
    ScriptObject* target = form();
    if (!target)
        return;
    for (guiHtml* node : controls())
        if (!m_unread.contains(keyOf(node->getName())))
            node->writeFormProperty(target);
    if (!isTracking())
        return;
    for (guiHtml* node : m_controls)
        remember(keyOf(node->getName()));
}

/// Notes what the form holds under the name.
void guiFormValues::remember(nameKey const& name)
{
    assert(isTracking()); // else nobody would forget it
    guiOwnedValue& value = m_written[name];
    if (!value)
        value = guiNewValue();
    if (!pGUI->getFormProp()->readProperty(form(), nameOf(name), value.get()))
        value.reset();
}

bool guiFormValues::isChanged(nameKey const& name, ScriptValue& scratch)
{
    auto found = m_written.find(name);
    ScriptValue* before = found != m_written.end() ? found->second.get() : nullptr;
    bool exists = pGUI->getFormProp()->readProperty(form(), nameOf(name), &scratch);
    if (!exists || !before)
        return exists != (before != nullptr);
    return !guiIsSameValue(*before, scratch);
}

/// The controls whose properties have changed. From now on these count as unread, and what they are to take as written.
guiFormValues::controlList guiFormValues::collectChanges()
{
    std::unordered_set<nameKey> changed; // several nodes may have one name: all of them read it
    guiOwnedValue scratch = guiNewValue();
    controlList due;
    for (guiHtml* node : controls()) {
        nameKey name = keyOf(node->getName());
        if (!changed.contains(name) && !isChanged(name, *scratch))
            continue;
        due.push_back(node);
        ++m_unread[name];
        changed.insert(std::move(name));
    }
    for (nameKey const& name : changed)
        remember(name);
    return due;
}

/// The name may be gone already, with the page that it was on.
void guiFormValues::noteRead(nameKey const& name)
{
    auto found = m_unread.find(name);
    if (found != m_unread.end() && --found->second == 0)
        m_unread.erase(found);
}

void guiFormValues::readChanges()
{
    if (!form())
        return;
    controlList const due = collectChanges();
    std::vector<nameKey> names; // a control that is read may end others that wait
    names.reserve(due.size());
    for (guiHtml* node : due)
        names.push_back(keyOf(node->getName()));

    guiLayoutHold hold; // each control that changes may lay its window out: once for all is enough
    for (std::size_t i = 0; i < due.size(); ++i) {
        noteRead(names[i]);
        if (pGUI->contains(due[i]) && form())
            due[i]->readFormProperty(form());
    }
    hold.release();
}

void guiFormValues::erase(guiHtml* node)
{
    if (!form())
        return;
    controlList going;
    collect(node, going);
    for (guiHtml* control : going) {
        control->eraseFormProperty(form());
        m_written.erase(keyOf(control->getName()));
        m_unread.erase(keyOf(control->getName()));
    }
}

void guiFormValues::load(guiHtml* node)
{
    if (!form())
        return;
    controlList added;
    collect(node, added);
    guiLayoutHold hold;
    for (guiHtml* control : added) {
        if (!pGUI->contains(control) || !form())
            continue;
        control->readFormProperty(form());
        if (isTracking() && pGUI->contains(control) && form())
            remember(keyOf(control->getName()));
    }
    hold.release();
}
