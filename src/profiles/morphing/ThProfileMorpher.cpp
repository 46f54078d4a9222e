// SPDX-License-Identifier: BSL-1.0
#include <Calculations/ThProfileMorpher.h>

#include "profiles/ProfileSegments.h"
#include "profiles/morphing/ProfileMorphEngine.h"

#include <stdexcept>

namespace Ruv {
namespace Calculations {

namespace {

/// All steps, half circles allowed: a semicircular crown is the commonest of all.
constexpr int kAllSteps = 31;
/// Largest roll between two profiles that is followed, in divisions of the default, 1.5 degrees
/// each.
constexpr int kMostDivisionsTurned = 7;
constexpr int kFirstNumber = 1;
constexpr int kDefaultDivisions = 0;

constexpr int kSuccess = 0;

void addSegment(ThProfileDefinition& profile, const OutlineNode& from, const OutlineNode& to) {
  const Point2D& a = from.point;
  const Point2D& b = to.point;
  if (from.radius == 0.0) {
    profile.addSegmentStraight(a.x, a.y, b.x, b.y);
  } else {
    profile.addSegmentArc(a.x, a.y, b.x, b.y, from.radius);
  }
}

boost::shared_ptr<const ThProfileDefinition> profileOf(const OutlineNodes& nodes) {
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    addSegment(*profile, nodes[i], nodes[i + 1]);
  }
  if (profile->getNumSegments() > 0) addSegment(*profile, nodes.back(), nodes.front());
  return profile;
}

}  // namespace

class ThProfileMorpherImpl {
 public:
  boost::shared_ptr<const ThProfileDefinition> start;
  boost::shared_ptr<const ThProfileDefinition> end;
  double fromStationing = 0.0;
  double toStationing = 0.0;

  /// Negated comparisons, so that not-a-number is misuse too.
  void refuseMisuse(double atStationing) const {
    if (!start || !end) throw std::runtime_error("input profiles not set");
    if (!(fromStationing < toStationing)) {
      throw std::runtime_error("fromStationing must be less than toStationing");
    }
    if (!(atStationing >= fromStationing && atStationing <= toStationing)) {
      throw std::runtime_error("atStationing is out of range");
    }
  }
};

ThProfileMorpher::ThProfileMorpher(const boost::shared_ptr<const ThProfileDefinition>& start,
                                   const boost::shared_ptr<const ThProfileDefinition>& end,
                                   double fromStationing, double toStationing)
    : m_impl(new ThProfileMorpherImpl{start, end, fromStationing, toStationing}) {}

ThProfileMorpher::~ThProfileMorpher() = default;

boost::shared_ptr<const ThProfileDefinition> ThProfileMorpher::getMorphedProfile(
    double atStationing) const {
  m_impl->refuseMisuse(atStationing);
  ProfileMorphEngine engine;
  engine.configure(kAllSteps, kMostDivisionsTurned, kFirstNumber);
  const int status =
      engine.prepare(m_impl->fromStationing, m_impl->toStationing, segmentsOf(*m_impl->start),
                     segmentsOf(*m_impl->end), kDefaultDivisions);
  if (status != kSuccess) return {};
  const auto outline = engine.evaluate(atStationing);
  return outline ? profileOf(*outline) : boost::shared_ptr<const ThProfileDefinition>();
}

}  // namespace Calculations
}  // namespace Ruv
