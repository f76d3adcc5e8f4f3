// runtime/guifilter.cpp: the table of content filters, and how they run over a page. Script may add and remove filters
// while one runs: a page goes through the filters that existed when it was loaded, without those that are removed
// before their turn.
#include "runtime/guifilter.h"

#include "foundation/vela-log.h"
#include "foundation/vela-regexp.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <memory>
#include <mutex>
#include <vector>

namespace {

sstring expressionFor(sstring const& pattern)
{
    bool const isEnding = pattern.getLength() > 1 && pattern[0u] == '*';
    return isEnding ? sstring(".") + pattern : pattern;
}

/// One registered filter: either a function or an object with messages. Held by the table and by the pages that are
/// being filtered.
class oneFilter
{
public:
    oneFilter(sstring const& filterPattern, ScriptValue* filterFunction, ScriptObject* filterMessages)
        : pattern(filterPattern), function(filterFunction), messages(filterMessages), m_names(expressionFor(pattern))
    {
        assert((function != nullptr) != (messages != nullptr));
        if (!m_names.Compile())
            velaLog("guiFilter_add() - %s is not a valid pattern: it matches nothing\n",
                    velaPrintable(pattern).c_str());
    }
    ~oneFilter()
    {
        if (function)
            guiComponent::DeleteScriptValue(function);
        if (messages)
            messages->letGo();
    }
    oneFilter(oneFilter const&) = delete;
    oneFilter& operator=(oneFilter const&) = delete;

    /// Whether it is meant for the page whose file has this full name.
    bool isFor(sstring const& path) const
    {
        unsigned const slash = pattern.find('/') == sstring::npos ? path.rfind('/') : sstring::npos;
        return m_names == (slash == sstring::npos ? path : path.subString(slash + 1));
    }

    sstring const pattern;
    ScriptValue* const function;  // owned, or null
    ScriptObject* const messages; // kept, or null
    std::atomic<bool> isRemoved{false};

private:
    Expr m_names;
};

using filterList = std::vector<std::shared_ptr<oneFilter>>;

std::mutex theLock;
filterList theFilters; // guarded by theLock; null where one was removed

void insert(std::shared_ptr<oneFilter> filter)
{
    std::lock_guard<std::mutex> guard(theLock);
    auto hole = std::find(theFilters.begin(), theFilters.end(), nullptr);
    if (hole != theFilters.end())
        *hole = std::move(filter);
    else
        theFilters.push_back(std::move(filter));
}

filterList filtersFor(sstring const& path)
{
    filterList all;
    {
        std::lock_guard<std::mutex> guard(theLock);
        all = theFilters;
    }
    std::erase_if(all, [&](auto const& filter) { return !filter || !filter->isFor(path); });
    return all;
}

/// A function that returns nothing leaves the text as it is.
void runFunction(oneFilter const& filter, ScriptObject* owner, sstring& text, ScriptObject* window)
{
    sstring filtered = guiCallback_CallFilter(owner, filter.function, window, text);
    if (std::size_t{filtered.getLength()} * sizeof(unsigned short) > kFilteredBytes)
        velaLog("guiFilter_load() - the filter for %s returned more than 64 MiB: its text is left out\n",
                velaPrintable(filter.pattern).c_str());
    else if (filtered.getLength() != 0)
        text.swap(filtered);
}

void run(oneFilter const& filter, ScriptObject* owner, sstring& text, ScriptObject* window, ScriptObject* form)
{
    if (filter.messages)
        text = guiFilter_applyMessages(text, filter.messages);
    if (!filter.function)
        return;
    guiFilter_showText(form, text);
    runFunction(filter, owner, text, window);
    guiFilter_showText(form, text);
}

} // namespace

void guiFilter_add(sstring pattern, ScriptObject* messages)
{
    assertOnScriptThread();
    assert(messages);
    messages->keep();
    insert(std::make_shared<oneFilter>(pattern, nullptr, messages));
}

void guiFilter_add(sstring pattern, ScriptValue* function)
{
    assertOnScriptThread();
    assert(function);
    ScriptValue* copy = guiComponent::NewScriptValue();
    *copy = *function;
    insert(std::make_shared<oneFilter>(pattern, copy, nullptr));
}

void guiFilter_remove(sstring pattern)
{
    assertOnScriptThread();
    filterList removed; // declared before the guard, so that filters end, which calls the host, without the lock
    std::lock_guard<std::mutex> guard(theLock);
    for (std::shared_ptr<oneFilter>& filter : theFilters) {
        if (!filter || filter->pattern != pattern)
            continue;
        filter->isRemoved = true;
        removed.push_back(std::move(filter));
    }
}

void guiFilter_destroyAll()
{
    assertOnScriptThread();
    filterList all; // as in guiFilter_remove()
    std::lock_guard<std::mutex> guard(theLock);
    all.swap(theFilters);
}

unsigned guiFilter_count()
{
    std::lock_guard<std::mutex> guard(theLock);
    return static_cast<unsigned>(
        std::count_if(theFilters.begin(), theFilters.end(), [](auto const& f) { return f != nullptr; }));
}

void guiFilter_showText(ScriptObject* form, sstring const& text)
{
    if (form)
        pGUI->getFormProp()->setPageText(form, text);
}

int guiFilter_load(ScriptObject* owner, sstring& name, sstring& text, ScriptObject* window, ScriptObject* form)
{
    assert(!pGUI || !pGUI->holdsLock()); // filters call script
    for (std::shared_ptr<oneFilter> const& filter : filtersFor(name))
        if (!filter->isRemoved)
            run(*filter, owner, text, window, form);
    unsigned expanded = 0;
    while (expanded < kFilteredIncludes && guiFilter_ProcessSSI(owner, window, form, text))
        ++expanded;
    if (expanded == kFilteredIncludes && guiFilter_hasInclude(text))
        velaLog("guiFilter_load() - %s has more than %u includes: the rest stay as they are\n",
                velaPrintable(name).c_str(), kFilteredIncludes);
    return 1;
}
