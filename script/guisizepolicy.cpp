// script/guisizepolicy.cpp: the constants SCROLL, RESIZE and FIXED of the class; each one's value is its own name.
#include "script/guisizepolicy.h"

namespace {

struct policyName
{
    char const* name;
    guiSizePolicy policy;
};

constexpr policyName kPolicies[] = {{"SCROLL", kPolicyScroll}, {"RESIZE", kPolicyResize}, {"FIXED", kPolicyFixed}};

} // namespace

// The names exist on the class, not on instances.
bool guiSizePolicy_onAddProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    return isStatic && guiSizePolicy_fromName(name.toString(0)).has_value();
}

bool guiSizePolicy_onDelProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, bool) { return false; }

bool guiSizePolicy_onGetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, ScriptValue& out,
                             bool)
{
    sstring wanted = name.toString(0);
    if (!guiSizePolicy_fromName(wanted))
        return false;
    out.setString(wanted);
    return true;
}

bool guiSizePolicy_onSetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue const&, bool)
{
    return false;
}

int guiSizePolicy_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setPropertyHandlers(guiSizePolicy_onAddProp, guiSizePolicy_onDelProp, guiSizePolicy_onGetProp,
                                    guiSizePolicy_onSetProp);
    return 1;
}

std::optional<guiSizePolicy> guiSizePolicy_fromName(sstring const& name)
{
    for (policyName const& known : kPolicies) {
        if (name == known.name)
            return known.policy;
    }
    return std::nullopt;
}

char const* guiSizePolicy_toName(guiSizePolicy policy)
{
    for (policyName const& known : kPolicies) {
        if (known.policy == policy)
            return known.name;
    }
    return "RESIZE";
}
