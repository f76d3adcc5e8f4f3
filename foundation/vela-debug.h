// foundation/vela-debug.h: messages for who works on the library itself. They are discarded unless a receiver is set.
#pragma once

/// Takes a printf-style message, at most 1,023 bytes of which count. Any thread.
void Debug_Print(char const* format, ...) __attribute__((format(printf, 1, 2)));

/// Who is given each formatted message from now on; null discards them again, which is the state at start. The receiver
/// may be called on any thread. Returns the previous one.
typedef void (*DebugReceiver)(char const* message);
DebugReceiver Debug_SetReceiver(DebugReceiver receiver);
