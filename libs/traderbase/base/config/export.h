#pragma once

// Marks what the configuration library offers to its clients; everything else stays inside it.
#if defined(TRADERBASE_STATIC)
#define TRADERBASE_API
#elif defined(_WIN32)
#if defined(TRADERBASE_BUILDING)
#define TRADERBASE_API __declspec(dllexport)
#else
#define TRADERBASE_API __declspec(dllimport)
#endif
#else
#define TRADERBASE_API __attribute__((visibility("default")))
#endif
