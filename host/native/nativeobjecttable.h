// host/native/nativeobjecttable.h: every script object that exists, so that none outlives the component unnoticed.
#pragma once

#include <map>
#include <mutex>
#include <vector>

#include "host/native/nativeobjectref.h"

/// Any thread.
class NativeObjectTable
{
public:
    void add(NativeObject* object);
    void remove(NativeObject* object);
    /// The objects whose end has not begun, oldest first.
    std::vector<NativeObjectRef> all() const;
    size_t size() const;

private:
    mutable std::mutex mutex_;
    unsigned long long next_ = 0;
    std::map<unsigned long long, NativeObject*> byAge_;
    std::map<NativeObject*, unsigned long long> ageOf_;
};
