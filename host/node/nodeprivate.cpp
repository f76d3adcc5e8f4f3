// host/node/nodeprivate.cpp: see the header.
#include "host/node/nodeprivate.h"

void NodePrivate::clear()
{
    std::lock_guard lock(m_mutex);
    m_data.clear();
}

void* NodePrivate::getData(char const* key)
{
    std::lock_guard lock(m_mutex);
    auto found = m_data.find(std::string_view(key));
    return found == m_data.end() ? nullptr : found->second;
}

void NodePrivate::setData(char const* key, void* data)
{
    std::lock_guard lock(m_mutex);
    m_data.insert_or_assign(key, data);
}
