// host/native/nativeobjecttable.cpp: see nativeobjecttable.h.
#include "host/native/nativeobjecttable.h"

#include "host/native/nativeobject.h"

#include <cassert>

unsigned long long NativeObjectTable::add(NativeObject* object)
{
    std::lock_guard lock(m_mutex);
    assert(!m_ageOf.contains(object));
    m_ageOf[object] = m_next;
    m_byAge[m_next] = object;
    return m_next++;
}

void NativeObjectTable::remove(NativeObject* object)
{
    std::lock_guard lock(m_mutex);
    auto found = m_ageOf.find(object);
    assert(found != m_ageOf.end() && m_byAge.contains(found->second));
    m_byAge.erase(found->second);
    m_ageOf.erase(found);
}

std::vector<NativeObjectRef> NativeObjectTable::all() const
{
    std::vector<NativeObjectRef> objects;
    std::lock_guard lock(m_mutex);
    for (auto& [age, object] : m_byAge) {
        if (object->tryKeep())
            objects.push_back(NativeObjectRef::adopt(object));
    }
    return objects;
}

NativeObjectRef NativeObjectTable::find(unsigned long long number) const
{
    std::lock_guard lock(m_mutex);
    auto found = m_byAge.find(number);
    return found != m_byAge.end() && found->second->tryKeep() ? NativeObjectRef::adopt(found->second)
                                                              : NativeObjectRef();
}

size_t NativeObjectTable::size() const
{
    std::lock_guard lock(m_mutex);
    return m_byAge.size();
}
