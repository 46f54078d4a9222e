// SPDX-License-Identifier: BSL-1.0
/// @file
/// The text that the spatial resection writes about its steps.

#ifndef CALCULATIONS_STATIONS_RESECTION_DIAGNOSTICS_H
#define CALCULATIONS_STATIONS_RESECTION_DIAGNOSTICS_H

#include <Eigen/Core>

#include <optional>
#include <ostream>
#include <sstream>

namespace Ruv {
namespace Calculations {

/// Collects numbers and matrices as text and hands it to a stream in one piece: diagnostic streams
/// are unbuffered as a rule, so that each piece costs a call of the system.
///
/// Formatting takes far longer than the adjustment. Nothing is formatted for a stream that cannot
/// pass text on.
class ResectionDiagnostics {
 public:
  explicit ResectionDiagnostics(std::ostream& sink);

  /// Whether there is any use in computing something for add().
  bool isRead() const { return m_text.has_value(); }

  void add(const char* name, double value);
  void add(const char* name, const Eigen::Ref<const Eigen::MatrixXd>& matrix);

  /// Passes the text on, without flushing.
  void write();

 private:
  std::ostream& m_sink;
  std::optional<std::ostringstream> m_text;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
