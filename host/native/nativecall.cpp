#include "host/native/nativecall.h"

void NativeCall::end(NativeValue& result)
{
    if (!ended_.exchange(true) && done_)
        done_(result, context_);
}

bool NativeCallTable::add(std::shared_ptr<NativeCall> const& call)
{
    std::lock_guard lock(mutex_);
    if (!closed_)
        calls_.insert(call);
    return !closed_;
}

void NativeCallTable::end(std::shared_ptr<NativeCall> const& call, NativeValue& result)
{
    {
        std::lock_guard lock(mutex_);
        calls_.erase(call);
    }
    call->end(result);
}

void NativeCallTable::close()
{
    std::unordered_set<std::shared_ptr<NativeCall>> left;
    {
        std::lock_guard lock(mutex_);
        closed_ = true;
        left.swap(calls_);
    }
    for (auto& call : left) {
        NativeValue null;
        call->end(null);
    }
}

size_t NativeCallTable::size() const
{
    std::lock_guard lock(mutex_);
    return calls_.size();
}
