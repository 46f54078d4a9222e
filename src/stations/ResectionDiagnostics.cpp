// SPDX-License-Identifier: BSL-1.0
#include "stations/ResectionDiagnostics.h"

#include <limits>
#include <locale>

namespace Ruv {
namespace Calculations {

ResectionDiagnostics::ResectionDiagnostics(std::ostream& sink) : m_sink(sink) {
  // The classic locale writes a point for the decimal sign whatever the program has set, and
  // seventeen digits give every double back. A stream without a buffer is not good.
  if (!sink.good()) return;
  m_text.emplace();
  m_text->imbue(std::locale::classic());
  m_text->precision(std::numeric_limits<double>::max_digits10);
}

void ResectionDiagnostics::add(const char* name, double value) {
  if (m_text) *m_text << name << ' ' << value << '\n';
}

void ResectionDiagnostics::add(const char* name, const Eigen::Ref<const Eigen::MatrixXd>& matrix) {
  if (m_text) *m_text << name << '\n' << matrix << '\n';
}

void ResectionDiagnostics::write() {
  if (m_text) m_sink << m_text->str();
}

}  // namespace Calculations
}  // namespace Ruv
