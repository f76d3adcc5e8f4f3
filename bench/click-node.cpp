// bench/click-node.cpp: an addon with which bench/click.js clicks in its own window: click(title, count, done) calls
// done(seconds) after the GUI thread has clicked.

#include "bench/clicks.h"

#include <napi.h>

namespace {

Napi::Value click(Napi::CallbackInfo const& info)
{
    using Done = Napi::ThreadSafeFunction;
    Done done = Done::New(info.Env(), info[2].As<Napi::Function>(), "click", 0, 1);
    clickLater(info[0].ToString(), info[1].ToNumber(), [done](double seconds) {
        done.BlockingCall(
            [seconds](Napi::Env env, Napi::Function answer) { answer.Call({Napi::Number::New(env, seconds)}); });
        Done(done).Release();
    });
    return info.Env().Undefined();
}

Napi::Object init(Napi::Env env, Napi::Object exports)
{
    exports.Set("click", Napi::Function::New(env, click));
    return exports;
}

} // namespace

NODE_API_MODULE(tarn_click, init)
