#pragma once

// Marks the exports of the platform library. A host that links its own platform target may define TTPLATFORM_API
// itself, either as nothing or as its own import declaration.
#ifndef TTPLATFORM_API
#if defined(_WIN32)
#if defined(TTPLATFORM_BUILDING)
#define TTPLATFORM_API __declspec(dllexport)
#else
#define TTPLATFORM_API __declspec(dllimport)
#endif
#else
#define TTPLATFORM_API __attribute__((visibility("default")))
#endif
#endif
