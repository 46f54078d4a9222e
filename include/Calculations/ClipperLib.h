// SPDX-License-Identifier: BSL-1.0
/// @file
/// The polygon clipping library, as everything of this library includes it.

#ifndef CALCULATIONS_CLIPPER_LIB_H
#define CALCULATIONS_CLIPPER_LIB_H

// Its exception is thrown by one shared library and caught by another. LLVM's runtime compares
// types by their address, so the type must not be hidden in any of them, however they are compiled.
// A caller who has included the clipper before has decided on this already.
#if defined(__GNUC__) && !defined(_WIN32) && !defined(clipper_hpp)
namespace ClipperLib {
class __attribute__((visibility("default"))) clipperException;
}
#endif

#include <clipper.hpp>

#endif
