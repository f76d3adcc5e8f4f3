// host/native/nativeprivate.cpp: see nativeprivate.h.
#include "host/native/nativeprivate.h"

void* NativePrivate::getData(char const* key)
{
    std::lock_guard lock(m_mutex);
    auto found = m_data.find(std::string_view(key));
    return found == m_data.end() ? nullptr : found->second;
}

void NativePrivate::setData(char const* key, void* data)
{
    std::lock_guard lock(m_mutex);
    m_data.insert_or_assign(key, data);
}

void NativePrivate::clear()
{
    std::lock_guard lock(m_mutex);
    m_data.clear();
}
