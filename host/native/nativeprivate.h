// host/native/nativeprivate.h: the slot of an object in which the component keeps pointers of its own.
#pragma once

#include <map>
#include <mutex>
#include <string>

#include "script/hostinterface.h"

/// Pointers by key. Any thread.
class NativePrivate final : public ScriptPrivate
{
public:
    void reserved1() override {}
    void* getData(char const* key) override;
    void reserved3() override {}
    void reserved4() override {}
    void setData(char const* key, void* data) override;

    /// Forgets every pointer: after the destroy handler ran, what they pointed to is gone.
    void clear();

private:
    std::mutex m_mutex;
    std::map<std::string, void*, std::less<>> m_data;
};
