// runtime/guifilter.cpp: the table of content filters.
// FIXME: filters are kept but not run yet: that takes the pattern expressions, which say for which pages a filter is
// meant.
#include "runtime/guifilter.h"

#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace {

/// One registered filter: either a function or an object with messages.
struct ONEFILTER
{
    ONEFILTER(sstring const& filterPattern, ScriptValue* filterFunction, ScriptObject* filterMessages)
        : pattern(filterPattern), function(filterFunction), messages(filterMessages)
    {}
    ~ONEFILTER()
    {
        if (function)
            guiComponent::DeleteScriptValue(function);
        if (messages)
            messages->letGo();
    }
    ONEFILTER(ONEFILTER const&) = delete;
    ONEFILTER& operator=(ONEFILTER const&) = delete;

    sstring pattern;
    ScriptValue* function;  // owned, or null
    ScriptObject* messages; // kept, or null
};

std::mutex theLock;
std::vector<std::unique_ptr<ONEFILTER>> theFilters; // guarded by theLock; null where one was removed

void insert(std::unique_ptr<ONEFILTER> filter)
{
    std::lock_guard<std::mutex> guard(theLock);
    auto hole = std::find(theFilters.begin(), theFilters.end(), nullptr);
    if (hole != theFilters.end())
        *hole = std::move(filter);
    else
        theFilters.push_back(std::move(filter));
}

} // namespace

void guiFilter_add(sstring pattern, ScriptObject* messages)
{
    assertOnScriptThread();
    messages->keep();
    insert(std::make_unique<ONEFILTER>(pattern, nullptr, messages));
}

void guiFilter_add(sstring pattern, ScriptValue* function)
{
    assertOnScriptThread();
    ScriptValue* copy = guiComponent::NewScriptValue();
    *copy = *function;
    insert(std::make_unique<ONEFILTER>(pattern, copy, nullptr));
}

void guiFilter_remove(sstring pattern)
{
    assertOnScriptThread();
    std::vector<std::unique_ptr<ONEFILTER>> removed; // destroyed last, after the lock: that goes to the host
    std::lock_guard<std::mutex> guard(theLock);
    for (std::unique_ptr<ONEFILTER>& filter : theFilters) {
        if (filter && filter->pattern == pattern)
            removed.push_back(std::move(filter));
    }
}

void guiFilter_destroyAll()
{
    std::vector<std::unique_ptr<ONEFILTER>> all;
    {
        std::lock_guard<std::mutex> guard(theLock);
        all.swap(theFilters);
    }
}

unsigned guiFilter_count()
{
    std::lock_guard<std::mutex> guard(theLock);
    return static_cast<unsigned>(
        std::count_if(theFilters.begin(), theFilters.end(), [](auto const& f) { return f != nullptr; }));
}

int guiFilter_load(ScriptObject*, sstring&, sstring&, ScriptObject*, ScriptObject*) { return 1; }
