// host/native/nativemethod.h: what a method name stands for.
#pragma once

#include "host/native/nativearguments.h"
#include "host/native/nativelater.h"

#include <functional>
#include <memory>
#include <type_traits>
#include <variant>

class NativeObject;

/// A handler written in C++: the `this` object and the arguments in, a value or a NativeLater out. Runs on the script
/// thread. What it throws is reported on standard error, and the call returns null.
using NativeHandler = std::function<NativeResult(NativeObject& self, NativeArguments const& args)>;

/// A method of the component, a handler of the application, or nothing.
using NativeMethod = std::variant<std::monostate, ScriptMethod, std::shared_ptr<NativeHandler const>>;

inline bool nativeIsMethod(NativeMethod const& method) { return method.index() != 0; }

/// Turns any callable that takes (Self&, NativeArguments const&) and returns a value, a NativeLater or nothing into a
/// function that returns a NativeResult.
template <typename Self, typename Callable>
std::function<NativeResult(Self&, NativeArguments const&)> nativeWrap(Callable callable)
{
    return [callable = std::move(callable)](Self& self, NativeArguments const& args) mutable -> NativeResult {
        if constexpr (std::is_void_v<std::invoke_result_t<Callable&, Self&, NativeArguments const&>>) {
            callable(self, args);
            return {};
        } else {
            return callable(self, args);
        }
    };
}
