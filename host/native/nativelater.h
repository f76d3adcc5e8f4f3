// host/native/nativelater.h: a result that comes later, and what a handler may return.
#pragma once

#include "host/native/nativevalue.h"

#include <concepts>
#include <functional>
#include <memory>
#include <utility>
#include <variant>

/// A result that comes later. A handler keeps a copy and returns another; the call ends when `complete` is called on
/// any copy, on any thread, or with null when the last copy the handler kept is gone. The script thread serves other
/// work meanwhile.
class NativeLater
{
public:
    NativeLater();
    /// Ends the call with `value`. Only the first one counts.
    void complete(NativeValue value) const;
    /// Whether `complete` has been called.
    bool isComplete() const;

    /// Runs `next` with the result, at once when it is there already. For the host, which calls it once.
    void whenComplete(std::function<void(NativeValue&)> next) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// What a handler returns: a value, or the promise of one.
class NativeResult
{
public:
    NativeResult() = default;
    NativeResult(NativeLater later) : m_result(std::move(later)) {}
    template <std::convertible_to<NativeValue> Value>
    NativeResult(Value value) : m_result(NativeValue(std::move(value)))
    {}

    /// Runs `next` once with the value: now, or when it is there.
    void whenComplete(std::function<void(NativeValue&)> next);

private:
    std::variant<NativeValue, NativeLater> m_result;
};
