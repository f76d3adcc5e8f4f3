// runtime/guiformvalues.h: how the values of a page's controls travel to script and back. A window's form object has a
// property for each named control. Before each handler the controls write their values into it. After the handler only
// the properties that it changed are read back: it may have changed other controls through their own objects, which the
// form's old values must not undo. What the handler assigned is collected whole before the first control takes its
// value: that control may call a handler of its own, before which the controls that still wait write nothing.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"

#include <string>
#include <unordered_map>
#include <vector>

class guiHtml;
class guiHtmlBase;

/// The form of one window; part of its page root. Made and destroyed on any thread. Without a form object, or without a
/// component, every function does nothing.
class guiFormValues
{
public:
    explicit guiFormValues(guiHtmlBase& root) : m_root(root) {}
    guiFormValues(guiFormValues const&) = delete;
    guiFormValues& operator=(guiFormValues const&) = delete;

    /// Before and after a call of a handler; calls nest. The end may run handlers of controls that change.
    void beginCall() TARN_ON(velaGuiRole);
    void endCall() TARN_ON(velaGuiRole);
    /// From the return of a handler that left a promise until that settles, what script puts into the form is read into
    /// the controls as well: at the end, and before each other handler.
    void beginPromise() TARN_ON(velaGuiRole) { ++m_promises; }
    void endPromise() TARN_ON(velaGuiRole);
    /// The promise is forgotten: what script does from now on is nothing to the page.
    void dropPromise() TARN_ON(velaGuiRole);

    /// What the controls of this name show now, or, when a handler has assigned another value that they do not show
    /// yet, that one. False, and null in `value`, when there is nothing of this name.
    bool read(sstring const& name, ScriptValue& value) TARN_ON(velaGuiRole);
    /// Gives the controls of this name a value: at once, or `later`, when the handlers that run have returned. Booleans
    /// and numbers are converted. Without a control the form keeps the value. False when a control can not take it.
    /// Runs script.
    bool write(sstring const& name, ScriptValue& value, bool later) TARN_ON(velaGuiRole);

    /// Writes all values, for script that looks at them after the window has closed. Before that it reads what running
    /// handlers have put into the form.
    void store() TARN_ON(velaGuiRole);
    /// The controls at and below a node are going: removes their properties.
    void erase(guiHtml* node) TARN_ON(velaGuiRole);
    /// The controls at and below a node are new: they take the properties that exist as their first values.
    void load(guiHtml* node) TARN_ON(velaGuiRole);

private:
    using controlList = std::vector<guiHtml*>;
    using nameKey = std::u16string;

    ScriptObject* form() const;
    bool isTracking() const TARN_ON(velaGuiRole) { return m_depth > 0 || m_promises > 0; }
    void stopTracking() TARN_ON(velaGuiRole);
    bool isPending(sstring const& name) TARN_ON(velaGuiRole);
    controlList const& controlsOf(sstring const& name) TARN_ON(velaGuiRole);
    controlList const& controls() TARN_ON(velaGuiRole);
    void writeAll() TARN_ON(velaGuiRole);
    void readChanges() TARN_ON(velaGuiRole);
    controlList collectChanges() TARN_ON(velaGuiRole);
    void noteRead(nameKey const& name) TARN_ON(velaGuiRole);
    bool isChanged(nameKey const& name, ScriptValue& scratch) TARN_ON(velaGuiRole);
    void remember(nameKey const& name) TARN_ON(velaGuiRole);

    guiHtmlBase& m_root;
    controlList m_controls TARN_GUARDED_BY(velaGuiRole);       // named controls in the page's order, as of m_generation
    unsigned long m_generation TARN_GUARDED_BY(velaGuiRole){}; // see guiHtml::generation()
    // The same by name, made when the first of them is asked for by name; empty: not made yet.
    std::unordered_map<nameKey, controlList> m_byName TARN_GUARDED_BY(velaGuiRole);
    // What the form held when a handler was called; null: it had no such property.
    std::unordered_map<nameKey, guiOwnedValue> m_written TARN_GUARDED_BY(velaGuiRole);
    // How many controls of a name have yet to take what a handler assigned to it.
    std::unordered_map<nameKey, unsigned> m_unread TARN_GUARDED_BY(velaGuiRole);
    int m_depth TARN_GUARDED_BY(velaGuiRole) = 0;    // handlers that are running
    int m_promises TARN_GUARDED_BY(velaGuiRole) = 0; // of handlers that have returned
};

/// Whether two values are the same for script: of one kind, with the same content or object.
bool guiIsSameValue(ScriptValue const& a, ScriptValue const& b);
