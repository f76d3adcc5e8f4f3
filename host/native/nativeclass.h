// host/native/nativeclass.h: what a class of the component declared of itself.
#pragma once

#include "host/native/nativemethod.h"

#include <map>
#include <string>
#include <vector>

/// Filled by ConfigCompClass on the script thread, then only read, on any thread.
class NativeClass final : public ScriptClass
{
public:
    explicit NativeClass(std::string name) : m_name(std::move(name)) {}

    std::string const& name() const { return m_name; }
    ScriptMethod createHandler() const { return m_create; }
    ScriptMethod destroyHandler() const { return m_destroy; }
    /// The instance or class method of this name, null when there is none.
    ScriptMethod findMethod(std::u16string const& name) const { return find(m_methods, name); }
    ScriptMethod findClassMethod(std::u16string const& name) const { return find(m_classMethods, name); }
    /// Names of the instance methods, in the order of their declaration.
    std::vector<std::string> const& methodNames() const { return m_methodNames; }
    std::vector<std::string> const& classMethodNames() const { return m_classMethodNames; }

    /// Whether the class has a dynamic property of this name; `self` is null for a property of the class itself.
    bool hasDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const;
    bool getDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue& out) const;
    bool setDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue const& value) const;
    bool removeDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const;

    // What the component calls.
    void setCreateHandler(ScriptMethod handler) override { m_create = handler; }
    void setDestroyHandler(ScriptMethod handler) override { m_destroy = handler; }
    void setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                             ScriptSetProp onSetProp) override;
    void addMethod(sstring const& name, ScriptMethod method) override;
    void addClassMethod(sstring const& name, ScriptMethod method) override;

private:
    using Table = std::map<std::u16string, ScriptMethod>;
    static ScriptMethod find(Table const& table, std::u16string const& name);

    std::string const m_name;
    ScriptMethod m_create = nullptr;
    ScriptMethod m_destroy = nullptr;
    ScriptAddProp m_addProp = nullptr;
    ScriptDelProp m_delProp = nullptr;
    ScriptGetProp m_getProp = nullptr;
    ScriptSetProp m_setProp = nullptr;
    Table m_methods;
    Table m_classMethods;
    std::vector<std::string> m_methodNames;
    std::vector<std::string> m_classMethodNames;
};
