// SPDX-License-Identifier: BSL-1.0
/// @file
/// Reaches private members of a class.

#ifndef CALCULATIONS_FOUNDATION_OPENED_H
#define CALCULATIONS_FOUNDATION_OPENED_H

namespace Ruv {
namespace Calculations {

/// Makes memberOf(Name()) give a pointer to a member, private ones included: an explicit
/// instantiation may name any member (ISO C++17, 17.7.2, paragraph 12).
///
/// The library opens nothing but the clipper, whose failures show only to who leads its steps from
/// outside (FailsafeClipper). The steps are those of Clipper 6.4.2, the last version with this
/// interface; a version without them does not compile. Tests open private functions of public
/// classes, so that no public header has to name the tests.
/// @tparam Name declares the type Member and the friend Member memberOf(Name); a class, or a class
///   within one, of this namespace
template <class Name, typename Name::Member kMember>
struct Opened {
  friend typename Name::Member memberOf(Name /*name*/) { return kMember; }
};

}  // namespace Calculations
}  // namespace Ruv

#endif
