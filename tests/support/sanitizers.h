#pragma once

// Which sanitizer this build has, as 0 or 1: some tests measure or waste memory, which it would not let them. And
// whether it counts coverage, TT_COUNTS_COVERAGE, which the build defines.

#if defined(__SANITIZE_ADDRESS__)
#define TT_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TT_ADDRESS_SANITIZER 1
#endif
#endif

#if defined(__SANITIZE_THREAD__)
#define TT_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define TT_THREAD_SANITIZER 1
#endif
#endif

#if !defined(TT_ADDRESS_SANITIZER)
#define TT_ADDRESS_SANITIZER 0
#endif
#if !defined(TT_THREAD_SANITIZER)
#define TT_THREAD_SANITIZER 0
#endif

#if !defined(TT_COUNTS_COVERAGE)
#define TT_COUNTS_COVERAGE 0
#endif

namespace tests {

inline constexpr bool kUnderSanitizer = TT_ADDRESS_SANITIZER != 0 || TT_THREAD_SANITIZER != 0;

// Tests that try very many generated texts try one in so many: a sanitizer makes them ten times as long, and counting
// coverage without the optimiser, too.
inline constexpr unsigned kTriedOneIn = kUnderSanitizer || TT_COUNTS_COVERAGE != 0 ? 4 : 1;

}  // namespace tests
