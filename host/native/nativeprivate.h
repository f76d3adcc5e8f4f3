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
    void* getData(const char* key) override;
    void reserved3() override {}
    void reserved4() override {}
    void setData(const char* key, void* data) override;

    /// Forgets every pointer: after the destroy handler ran, what they pointed to is gone.
    void clear();

private:
    std::mutex mutex_;
    std::map<std::string, void*, std::less<>> data_;
};
