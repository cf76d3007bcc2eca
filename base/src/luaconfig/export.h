#pragma once

// Marks what the configuration library exports; everything else stays hidden. Where the system exports members one by
// one, TRADERBASE_HIDDEN hides single members of an exported class as well.
#if defined(TRADERBASE_STATIC)
#define TRADERBASE_API
#define TRADERBASE_HIDDEN
#elif defined(_WIN32)
#if defined(TRADERBASE_BUILDING)
#define TRADERBASE_API __declspec(dllexport)
#else
#define TRADERBASE_API __declspec(dllimport)
#endif
#define TRADERBASE_HIDDEN
#else
#define TRADERBASE_API __attribute__((visibility("default")))
#define TRADERBASE_HIDDEN __attribute__((visibility("hidden")))
#endif
