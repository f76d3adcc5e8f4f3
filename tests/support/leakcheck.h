// tests/support/leakcheck.h: asks the leak detector in the middle of a test, where the build has one.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define TARN_HAS_LEAK_DETECTOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TARN_HAS_LEAK_DETECTOR 1
#endif
#endif
#ifdef TARN_HAS_LEAK_DETECTOR
#include <sanitizer/lsan_interface.h>
#endif

/// Whether something has leaked until now; what it is stands on standard error. Always false without AddressSanitizer.
inline bool hasLeaks()
{
#ifdef TARN_HAS_LEAK_DETECTOR
    return __lsan_do_recoverable_leak_check() != 0;
#else
    return false;
#endif
}
