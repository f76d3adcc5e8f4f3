#include "host/native/nativeobjecttable.h"

#include "host/native/nativeobject.h"

unsigned long long NativeObjectTable::add(NativeObject* object)
{
    std::lock_guard lock(mutex_);
    ageOf_[object] = next_;
    byAge_[next_] = object;
    return next_++;
}

void NativeObjectTable::remove(NativeObject* object)
{
    std::lock_guard lock(mutex_);
    auto found = ageOf_.find(object);
    byAge_.erase(found->second);
    ageOf_.erase(found);
}

std::vector<NativeObjectRef> NativeObjectTable::all() const
{
    std::vector<NativeObjectRef> objects;
    std::lock_guard lock(mutex_);
    for (auto& [age, object] : byAge_) {
        if (object->tryKeep())
            objects.push_back(NativeObjectRef::adopt(object));
    }
    return objects;
}

NativeObjectRef NativeObjectTable::find(unsigned long long number) const
{
    std::lock_guard lock(mutex_);
    auto found = byAge_.find(number);
    return found != byAge_.end() && found->second->tryKeep() ? NativeObjectRef::adopt(found->second)
                                                             : NativeObjectRef();
}

size_t NativeObjectTable::size() const
{
    std::lock_guard lock(mutex_);
    return byAge_.size();
}
