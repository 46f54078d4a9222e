// SPDX-License-Identifier: BSL-1.0
/// @file
/// A value that is worked out when it is first asked for.

#ifndef CALCULATIONS_FOUNDATION_DERIVED_ON_DEMAND_H
#define CALCULATIONS_FOUNDATION_DERIVED_ON_DEMAND_H

#include <atomic>
#include <memory>

namespace Ruv {

/// Holds a value derived from its owner's data, from the first question until the data change.
///
/// Several threads may ask at once: each that finds nothing works the value out, the first to
/// finish publishes its own, the others throw theirs away. They are equal, so results never depend
/// on who was first. Nobody waits and nothing is locked. Changing the owner's data needs exclusive
/// access anyway, and so does forget().
template <class T>
class DerivedOnDemand {
 public:
  DerivedOnDemand() = default;
  DerivedOnDemand(const DerivedOnDemand&) = delete;
  DerivedOnDemand& operator=(const DerivedOnDemand&) = delete;
  ~DerivedOnDemand() { forget(); }

  template <class Derive>
  const T& get(const Derive& derive) const {
    const T* known = m_value.load(std::memory_order_acquire);
    if (known != nullptr) return *known;
    auto fresh = std::make_unique<const T>(derive());
    if (m_value.compare_exchange_strong(known, fresh.get(), std::memory_order_acq_rel,
                                        std::memory_order_acquire)) {
      return *fresh.release();
    }
    return *known;
  }

  void forget() { delete m_value.exchange(nullptr, std::memory_order_acq_rel); }

 private:
  mutable std::atomic<const T*> m_value{nullptr};
};

}  // namespace Ruv

#endif
