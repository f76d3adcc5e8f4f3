// script/guiwindowcontrols.cpp: see the header.
#include "script/guiwindowcontrols.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guihtmlbase.h"
#include "script/guicontrol.h"
#include "script/guiwindow.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <mutex>
#include <vector>

namespace {

constexpr std::size_t kFirstLimit = 64;

struct keptControls
{
    std::map<QString, ScriptObject*> byName; // each is kept once
    std::size_t limit = kFirstLimit;         // with so many, those of elements that are gone are given up
};

std::mutex theLock;
std::map<ScriptObject*, keptControls> theControls; // by window; guarded by theLock

/// Takes out the objects of elements that the page does not have.
std::vector<ScriptObject*> takeForgotten(keptControls& kept, guiHtmlBase& root)
{
    std::vector<ScriptObject*> forgotten;
    std::erase_if(kept.byName, [&](auto const& each) {
        bool const isGone = !root.getNamed(qtoss(each.first));
        if (isGone)
            forgotten.push_back(each.second);
        return isGone;
    });
    kept.limit = std::max(kFirstLimit, 2 * kept.byName.size());
    return forgotten;
}

/// Without the lock: an object may end with this.
void letGo(std::vector<ScriptObject*> const& objects)
{
    for (ScriptObject* object : objects)
        object->letGo();
}

ScriptObject* findControl(ScriptObject* window, QString const& name)
{
    std::lock_guard<std::mutex> guard(theLock);
    auto const at = theControls.find(window);
    if (at == theControls.end())
        return nullptr;
    auto const found = at->second.byName.find(name);
    return found == at->second.byName.end() ? nullptr : found->second;
}

} // namespace

ScriptObject* guiWindowControls_get(guiWindowData& window, guiHtml& element, sstring const& name)
{
    assertOnGuiThread();
    assert(window.root);
    QString const key = name.getLength() ? sstoq(element.getName()) : QString(); // "" is the page itself
    if (ScriptObject* known = findControl(window.window, key))
        return known;
    ScriptObject* const made = CreateControlObject(window.window);
    if (!made)
        return nullptr;
    guiControl_setPrivateInfo(made->getPrivate(), window.window, name);
    std::vector<ScriptObject*> forgotten;
    {
        std::lock_guard<std::mutex> guard(theLock);
        keptControls& kept = theControls[window.window];
        if (kept.byName.size() >= kept.limit)
            forgotten = takeForgotten(kept, *window.root);
        kept.byName[key] = made;
    }
    letGo(forgotten);
    return made;
}

void guiWindowControls_release(ScriptObject* window)
{
    assertOnScriptThread();
    std::vector<ScriptObject*> objects;
    {
        std::lock_guard<std::mutex> guard(theLock);
        auto const kept = theControls.extract(window);
        if (!kept.empty())
            for (auto const& [name, object] : kept.mapped().byName)
                objects.push_back(object);
    }
    letGo(objects);
}
