// host/native/nativelater.cpp: see nativelater.h.
#include "host/native/nativelater.h"

#include <cassert>
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

NativeLater::NativeLater() : m_state(std::make_shared<State>()) {}

bool NativeLater::isComplete() const
{
    std::lock_guard lock(m_state->mutex);
    return m_state->complete;
}

void NativeLater::complete(NativeValue value) const
{
    std::function<void(NativeValue&)> next;
    {
        std::lock_guard lock(m_state->mutex);
        if (std::exchange(m_state->complete, true))
            return;
        assert(m_state->value.isNull());
        m_state->value = value;
        next = std::exchange(m_state->next, nullptr);
    }
    if (next)
        next(value);
}

void NativeLater::whenComplete(std::function<void(NativeValue&)> next) const
{
    NativeValue value;
    {
        std::lock_guard lock(m_state->mutex);
        if (!m_state->complete) {
            assert(!m_state->next); // one call waits for one answer
            m_state->next = std::move(next);
            return;
        }
        value = m_state->value;
    }
    next(value);
}

void NativeResult::whenComplete(std::function<void(NativeValue&)> next)
{
    if (auto* value = std::get_if<NativeValue>(&m_result))
        next(*value);
    else
        std::get<NativeLater>(m_result).whenComplete(std::move(next));
}
