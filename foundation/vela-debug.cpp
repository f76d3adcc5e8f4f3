// foundation/vela-debug.cpp: see vela-debug.h.

#include "foundation/vela-debug.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>

namespace {

std::atomic<DebugReceiver> currentReceiver{nullptr};

} // namespace

DebugReceiver Debug_SetReceiver(DebugReceiver receiver) { return currentReceiver.exchange(receiver); }

void Debug_Print(char const* format, ...)
{
    DebugReceiver const receiver = currentReceiver;
    if (!receiver)
        return;
    char message[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    receiver(message);
}
