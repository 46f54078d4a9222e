/// @file
/// Reaches private members of the clipping library.

#ifndef CALCULATIONS_FOUNDATION_OPENED_H
#define CALCULATIONS_FOUNDATION_OPENED_H

namespace Ruv {
namespace Calculations {

/// Makes memberOf(Name()) give a pointer to a member, private ones included: an explicit
/// instantiation may name any member (ISO C++17, 17.7.2, paragraph 12).
///
/// The clipper catches what goes wrong within it, deletes some of its nodes twice on the way, and
/// reports no more than false. Nothing that it offers to callers prevents that; its own steps, led
/// from outside, do. They are those of Clipper 6.4.2, the last version with this interface; one
/// without them does not compile.
/// @tparam Name declares the type Member and the friend Member memberOf(Name); a class, or a class
///   within one, of this namespace
template <class Name, typename Name::Member kMember>
struct Opened {
  friend typename Name::Member memberOf(Name /*name*/) { return kMember; }
};

}  // namespace Calculations
}  // namespace Ruv

#endif
