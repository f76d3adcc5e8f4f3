// page/guimissinghandler.cpp: see the header.
#include "page/guimissinghandler.h"

#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guieventprefix.h"
#include "page/guihandlerplaces.h"
#include "page/guinearest.h"
#include "page/guipagehost.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace {

/// Whether the component calls a handler of this name for elements that do not ask for it.
bool isCalledAnyway(std::string const& handler)
{
    static char const* const kNames[] = {"eMouseMove", "eMouseOver", "eMouseOut", "eMouseDown",
                                         "eMouseUp",   "eSelect",    "eChange",   "eStopped"};
    return std::find(std::begin(kNames), std::end(kNames), handler) != std::end(kNames);
}

void addMethodNames(std::vector<std::string>& names, ScriptObject* object)
{
    if (!object)
        return;
    for (sstring const& name : guiPageHost::current().methodNames(object))
        names.push_back(velaPrintable(name));
}

} // namespace

void guiTellMissingHandler(guiHandlerPlaces& places, ScriptObject* page, ScriptObject* object, sstring const& event)
{
    assertOnGuiThread();
    std::u16string const key = guiHandlerIn(sstring(kEventPrefix) + event);
    std::string const handler = velaPrintable(
        sstring(reinterpret_cast<unsigned short const*>(key.data()), 0, static_cast<unsigned>(key.size())));
    std::string place;
    if (!page || handler.empty() || isCalledAnyway(handler) || !places.take(key, place))
        return;
    std::vector<std::string> names;
    addMethodNames(names, object != page ? object : nullptr);
    addMethodNames(names, page);
    std::string_view const nearest = guiNearestWord(handler, {names.begin(), names.end()});
    velaLog("tarn: no handler %s for event://%s%s%s%s%s\n", handler.c_str(), velaPrintable(event).c_str(),
            place.c_str(), nearest.empty() ? "" : "; did you mean ", std::string(nearest).c_str(),
            nearest.empty() ? "" : "?");
}
