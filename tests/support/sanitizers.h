#pragma once

// Which sanitizer this build uses, as 0 or 1: some tests measure or waste memory in ways that a sanitizer does not
// allow. The build defines TT_COUNTS_COVERAGE when it counts coverage.

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

// Tests that generate very many texts try only one in so many here: they take ten times as long under a sanitizer, and
// about as long in an unoptimised coverage build.
inline constexpr unsigned kTriedOneIn = kUnderSanitizer || TT_COUNTS_COVERAGE != 0 ? 4 : 1;

}  // namespace tests
