// tests/support/instrumented.h: whether a sanitizer watches this build, which makes everything slower and larger.
#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TARN_IS_INSTRUMENTED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TARN_IS_INSTRUMENTED 1
#endif
#endif

#ifdef TARN_IS_INSTRUMENTED
inline constexpr bool kIsInstrumented = true;
#else
inline constexpr bool kIsInstrumented = false;
#endif
