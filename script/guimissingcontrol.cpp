// script/guimissingcontrol.cpp: see the header.
#include "script/guimissingcontrol.h"

#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guinearest.h"
#include "runtime/guihtmlbase.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::string folded(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

void collectNames(guiHtml* node, std::vector<std::string>& names)
{
    if (node->hasString(kStringName))
        names.push_back(velaPrintable(node->getName()));
    for (unsigned i = 0; i < node->getChildCount(); ++i)
        if (guiChildList::isNode(node->getChild(i)))
            collectNames(node->getChild(i), names);
}

/// The name on the page that comes closest, "" when none does. Letters' case does not matter.
std::string nearestName(guiHtmlBase& root, std::string const& name)
{
    std::vector<std::string> names;
    collectNames(&root, names);
    std::vector<std::string> lower;
    lower.reserve(names.size());
    for (std::string const& each : names)
        lower.push_back(folded(each));
    std::string const wanted = folded(name);
    std::string_view const nearest = guiNearestWord(wanted, {lower.begin(), lower.end()});
    auto const found = std::find(lower.begin(), lower.end(), nearest);
    return nearest.empty() || found == lower.end() ? std::string()
                                                   : names[static_cast<std::size_t>(found - lower.begin())];
}

} // namespace

void guiTellMissingControl(guiHtmlBase& root, sstring const& name, char const* caller)
{
    assertOnGuiThread();
    std::string const printed = velaPrintable(name);
    std::string const nearest = nearestName(root, printed);
    std::string hint;
    if (!nearest.empty()) {
        hint += "; did you mean ";
        hint += nearest;
        if (root.hasString(kStringFile))
            hint += " in ";
        hint += velaPrintable(root.getString(kStringFile));
        hint += "?";
    }
    velaLog("%s - control %s not found in window%s\n", caller, printed.c_str(), hint.c_str());
}

void guiCheckControl(guiHtmlBase& root, sstring const& name, char const* caller)
{
    sstring wanted(name);
    if (name.getLength() != 0 && root.hasPage() && !root.getNamed(wanted))
        guiTellMissingControl(root, name, caller);
}
