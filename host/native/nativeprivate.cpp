#include "host/native/nativeprivate.h"

void* NativePrivate::getData(const char* key)
{
    std::lock_guard lock(mutex_);
    auto found = data_.find(std::string_view(key));
    return found == data_.end() ? nullptr : found->second;
}

void NativePrivate::setData(const char* key, void* data)
{
    std::lock_guard lock(mutex_);
    data_.insert_or_assign(key, data);
}

void NativePrivate::clear()
{
    std::lock_guard lock(mutex_);
    data_.clear();
}
