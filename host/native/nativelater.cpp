#include "host/native/nativelater.h"

#include <mutex>

struct NativeLater::State
{
    ~State()
    {
        NativeValue null;
        if (next)
            next(null);
    }

    std::mutex mutex;
    bool complete = false;
    NativeValue value;
    std::function<void(NativeValue&)> next; // waits for the value; empty once it has run
};

NativeLater::NativeLater() : state_(std::make_shared<State>()) {}

bool NativeLater::isComplete() const
{
    std::lock_guard lock(state_->mutex);
    return state_->complete;
}

void NativeLater::complete(NativeValue value) const
{
    std::function<void(NativeValue&)> next;
    {
        std::lock_guard lock(state_->mutex);
        if (std::exchange(state_->complete, true))
            return;
        state_->value = value;
        next = std::exchange(state_->next, nullptr);
    }
    if (next)
        next(value);
}

void NativeLater::whenComplete(std::function<void(NativeValue&)> next) const
{
    NativeValue value;
    {
        std::lock_guard lock(state_->mutex);
        if (!state_->complete) {
            state_->next = std::move(next);
            return;
        }
        value = state_->value;
    }
    next(value);
}

void NativeResult::whenComplete(std::function<void(NativeValue&)> next)
{
    if (auto* value = std::get_if<NativeValue>(&result_))
        next(*value);
    else
        std::get<NativeLater>(result_).whenComplete(std::move(next));
}
