// host/native/nativeobjecttable.h: every script object that exists, so that none outlives the component unnoticed.
#pragma once

#include "host/native/nativeobjectref.h"

#include <map>
#include <mutex>
#include <vector>

/// Any thread.
class NativeObjectTable
{
public:
    /// The object's number, by which `find` knows it: never 0 and never given twice.
    unsigned long long add(NativeObject* object);
    void remove(NativeObject* object);
    /// The objects whose end has not begun, oldest first.
    std::vector<NativeObjectRef> all() const;
    /// The object of this number, kept for the caller; empty when it is gone or its end has begun.
    NativeObjectRef find(unsigned long long number) const;
    size_t size() const;

private:
    mutable std::mutex m_mutex;
    unsigned long long m_next = 1;
    std::map<unsigned long long, NativeObject*> m_byAge;
    std::map<NativeObject*, unsigned long long> m_ageOf;
};
