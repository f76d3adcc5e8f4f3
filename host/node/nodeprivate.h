// host/node/nodeprivate.h: the slot of an object in which the component keeps pointers of its own.
#pragma once

#include "host/hostslots.h"

#include <map>
#include <mutex>
#include <string>

/// Pointers by key. Any thread.
class NodePrivate final : public ScriptPrivateSlots
{
public:
    /// Forgets every pointer: after the destroy handler ran, what they pointed to is gone.
    void clear();

    // What the component calls.
    void* getData(char const* key) override;
    void setData(char const* key, void* data) override;

private:
    std::mutex m_mutex;
    std::map<std::string, void*, std::less<>> m_data;
};
