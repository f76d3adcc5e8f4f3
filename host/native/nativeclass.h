// host/native/nativeclass.h: what a class of the component declared of itself.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/native/nativemethod.h"

/// Filled by ConfigCompClass on the script thread, then only read, on any thread.
class NativeClass final : public ScriptClass
{
public:
    explicit NativeClass(std::string name) : name_(std::move(name)) {}

    std::string const& name() const { return name_; }
    ScriptMethod createHandler() const { return create_; }
    ScriptMethod destroyHandler() const { return destroy_; }
    /// The instance or class method of this name, null when there is none.
    ScriptMethod findMethod(std::u16string const& name) const { return find(methods_, name); }
    ScriptMethod findClassMethod(std::u16string const& name) const { return find(classMethods_, name); }
    /// Names of the instance methods, in the order of their declaration.
    std::vector<std::string> const& methodNames() const { return methodNames_; }
    std::vector<std::string> const& classMethodNames() const { return classMethodNames_; }

    /// Whether the class has a dynamic property of this name; `self` is null for a property of the class itself.
    bool hasDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const;
    bool getDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue& out) const;
    bool setDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue const& value) const;
    bool removeDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const;

    // What the component calls.
    void setCreateHandler(ScriptMethod handler) override { create_ = handler; }
    void setDestroyHandler(ScriptMethod handler) override { destroy_ = handler; }
    void setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                             ScriptSetProp onSetProp) override;
    void addMethod(sstring const& name, ScriptMethod method) override;
    void addClassMethod(sstring const& name, ScriptMethod method) override;

private:
    using Table = std::map<std::u16string, ScriptMethod>;
    static ScriptMethod find(Table const& table, std::u16string const& name);

    std::string const name_;
    ScriptMethod create_ = nullptr;
    ScriptMethod destroy_ = nullptr;
    ScriptAddProp addProp_ = nullptr;
    ScriptDelProp delProp_ = nullptr;
    ScriptGetProp getProp_ = nullptr;
    ScriptSetProp setProp_ = nullptr;
    Table methods_;
    Table classMethods_;
    std::vector<std::string> methodNames_;
    std::vector<std::string> classMethodNames_;
};
