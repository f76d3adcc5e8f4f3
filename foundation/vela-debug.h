// foundation/vela-debug.h: messages for developers of this library. They are discarded unless a receiver is set.
#pragma once

/// Sends a printf-style message, cut to 1,023 bytes, to the receiver. Any thread.
void Debug_Print(char const* format, ...) __attribute__((format(printf, 1, 2)));

/// Sets the function that receives every message from now on; null, the initial state, discards them. The receiver may
/// be called on any thread. Returns the previous one.
using DebugReceiver = void (*)(char const* message);
DebugReceiver Debug_SetReceiver(DebugReceiver receiver);
