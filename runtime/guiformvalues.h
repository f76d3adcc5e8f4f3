// runtime/guiformvalues.h: how the values of a page's controls travel to script and back. A window's form object has a
// property per named control. Before each handler the controls write their values into it; after the handler those
// properties that it changed are read back, and only those: a handler may as well have changed a control through its
// object.
#pragma once

#include "foundation/vela-string.h"

#include <string>
#include <unordered_map>
#include <vector>

class guiHtml;
class guiHtmlBase;
class ScriptObject;
class ScriptValue;

/// The form of one window; part of its page root. GUI thread, except for making and destroying it. Without a form
/// object, or without a component, every function does nothing.
class guiFormValues
{
public:
    explicit guiFormValues(guiHtmlBase& root) : m_root(root) {}
    ~guiFormValues();
    guiFormValues(guiFormValues const&) = delete;
    guiFormValues& operator=(guiFormValues const&) = delete;

    /// Bracket a call of a handler; calls nest. The end may run handlers of controls that change.
    void beginCall();
    void endCall();
    /// Writes all values, for script that looks at them after the window has closed. What a running handler has put
    /// into the form counts as read first.
    void store();
    /// The controls at and below a node are going: their properties go too.
    void erase(guiHtml* node);
    /// The controls at and below a node are new: properties that exist are their first values.
    void load(guiHtml* node);

private:
    using controlList = std::vector<guiHtml*>;
    using nameKey = std::u16string;

    ScriptObject* form() const;
    controlList const& controls();
    void writeAll();
    void readChanges();
    bool isChanged(nameKey const& name, ScriptValue* scratch);
    void remember(nameKey const& name);
    void forget(nameKey const& name);

    guiHtmlBase& m_root;
    controlList m_controls;                              // named controls in the page's order, as of m_generation
    unsigned long m_generation{};                        // see guiHtml::generation()
    std::unordered_map<nameKey, ScriptValue*> m_written; // owned; null: the form had no such property
    int m_depth = 0;                                     // handlers that run
};

/// Whether two values are the same for script: of one kind, with the same content or object.
bool guiIsSameValue(ScriptValue const& a, ScriptValue const& b);
