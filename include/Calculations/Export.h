// SPDX-License-Identifier: BSL-1.0
/// @file
/// Marks the classes that clients of the shared library may use.

#ifndef CALCULATIONS_EXPORT_H
#define CALCULATIONS_EXPORT_H

// CALCULATIONS_BUILDING is set while the library itself is compiled, CALCULATIONS_STATIC by
// those who link its objects directly.
#if defined(CALCULATIONS_STATIC) || !defined(_WIN32)
#if defined(__GNUC__)
#define CALCULATIONS_EXPORT __attribute__((visibility("default")))
#else
#define CALCULATIONS_EXPORT
#endif
#elif defined(CALCULATIONS_BUILDING)
#define CALCULATIONS_EXPORT __declspec(dllexport)
#else
#define CALCULATIONS_EXPORT __declspec(dllimport)
#endif

#endif
