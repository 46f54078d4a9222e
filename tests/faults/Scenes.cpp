// SPDX-License-Identifier: BSL-1.0
#include "faults/Scenes.h"

#include "testing/Axes.h"
#include "testing/Numbers.h"
#include "testing/Paths.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/Calculations.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <iostream>
#include <streambuf>
#include <type_traits>

namespace TestSupport {

using namespace Ruv::Calculations;

std::ostream& operator<<(std::ostream& out, const Scene& scene) { return out << scene.name; }

namespace {

/// What scenes are made of: objects, a call, and questions that tell the objects' state.
template <class Object>
class SceneOf {
 public:
  using Make = std::function<std::shared_ptr<Object>()>;
  using Call = std::function<Numbers(Object&)>;

  SceneOf(std::vector<Scene>& scenes, std::string prefix, Make make, Call state)
      : m_scenes(scenes), m_prefix(std::move(prefix)), m_make(make), m_state(state) {}

  /// @param act on the object, with or without an answer
  template <class Act>
  SceneOf& add(const std::string& name, const Act& act) {
    addCall(name, [act](Object& object) {
      if constexpr (std::is_void_v<decltype(act(object))>) {
        act(object);
        return Numbers();
      } else {
        return Numbers(act(object));
      }
    });
    return *this;
  }

 private:
  /// No template for each act: those take long to compile.
  void addCall(const std::string& name, const Call& call) {
    m_scenes.push_back({m_prefix + name, [make = m_make, state = m_state, call] {
                          const std::shared_ptr<Object> object = make();
                          return Play{[object, call] { return call(*object); },
                                      [object, state] { return state(*object); }};
                        }});
  }

  std::vector<Scene>& m_scenes;
  std::string m_prefix;
  Make m_make;
  Call m_state;
};

void append(Numbers& numbers, double value) { numbers.push_back(value); }
void append(Numbers& numbers, const Point2D& p) { numbers.insert(numbers.end(), {p.x, p.y}); }
void append(Numbers& numbers, const ENHPoint& p) {
  numbers.insert(numbers.end(), {p.east, p.north, p.height});
}
void append(Numbers& numbers, const AxisPoint& p) {
  numbers.insert(numbers.end(), {p.stationing, p.offset, p.height});
}
void append(Numbers& numbers, const GuidanceOffsets& p) {
  numbers.insert(numbers.end(), {p.forward, p.horizontal, p.vertical});
}
void append(Numbers& numbers, const ProfilePointResult& p) {
  append(numbers, p.profilePoint);
  numbers.insert(numbers.end(), {p.distance, p.derolment});
}
void append(Numbers& numbers, const FittingResult& fit) {
  append(numbers, fit.center);
  numbers.insert(numbers.end(), {fit.radius, fit.semiAxisA, fit.semiAxisB, fit.rotation});
}
void append(Numbers& numbers, const std::wstring& id) {
  numbers.insert(numbers.end(), id.begin(), id.end());
}
template <class T>
void append(Numbers& numbers, const std::vector<T>& list);
void append(Numbers& numbers, const Polyline& line) { append(numbers, line.points()); }
void append(Numbers& numbers, const Polygon& polygon) { append(numbers, polygon.points()); }
void append(Numbers& numbers, const Path& path) {
  for (unsigned i = 0; i < path.numDiscretePathPoints(); ++i) {
    append(numbers, path.discretePathPointAt(i));
  }
}
void append(Numbers& numbers, const Pathes& paths) {
  append(numbers, paths.area());
  append(numbers, paths.paths());
}
void append(Numbers& numbers, const ThProfileDefinition& profile) {
  for (unsigned i = 0; i < profile.getNumSegments(); ++i) {
    append(numbers, profile.getSegmentStartAt(i));
    append(numbers, profile.getSegmentEndAt(i));
    append(numbers, profile.getSegmentRadiusAt(i));
  }
  append(numbers, profile.isDefinedClockwise());
  append(numbers, profile.getCircumference());
}
template <class T>
void append(Numbers& numbers, const std::vector<T>& list) {
  append(numbers, static_cast<double>(list.size()));
  for (const T& each : list) {
    append(numbers, each);
  }
}

template <class... Values>
Numbers numbersOf(const Values&... values) {
  Numbers numbers;
  (append(numbers, values), ...);
  return numbers;
}

// --- Axes

/// In national coordinates, with a straight, clothoids and an arc, roundings and changing slopes.
AxisPtr smallAxis() {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 100, 600000, 200000, 0.3);
  chain.straight(50).clothoid(0, 300, 40).arc(300, 60).clothoid(300, 0, 40).straight(50);
  axis->addVeralPointKink(100, 400);
  axis->addVeralPointArc(180, 402, 2000);
  axis->addVeralPointParabola(280, 399, 1500);
  axis->addVeralPointKink(340, 401);
  axis->addTransSlopeSegmentLinear(150, 190, 0, 4);
  axis->addTransSlopeSegmentConstant(190, 250, 4);
  axis->setStationingMappingValues(100, 1000);
  return axis;
}

AxisPtr shaft() {
  return AxisPtr(AxisDefinitionFactory::createShaftAxis(600000, 200000, 500, 400, 0));
}

Numbers elementsOf(AxisDefinition& axis) {
  Numbers numbers = numbersOf(axis.minimumStng2d(), axis.maximumStng2d());
  for (unsigned i = 0; i < axis.getNumHoralSegments(); ++i) {
    const auto& element = dynamic_cast<Ruv::CHoralElement&>(*axis.getHoralSegmentAt(i));
    const auto& start = dynamic_cast<Ruv::CHoralElement&>(*element.getPrevious());
    numbers.insert(numbers.end(), {start.getStationing(), start.getEast(), element.getStationing(),
                                   element.getEast(), element.getNorth(), element.getRadiusEnd()});
  }
  for (unsigned i = 0; i < axis.getNumVeralPoints(); ++i) {
    append(numbers, axis.getVeralPointAt(i)->getStationing());
  }
  return numbers;
}

Numbers conversionsOn(const AxisCalculator& calculator) {
  Numbers numbers;
  for (const double stationing : {101.0, 165.0, 200.0, 240.0, 330.0}) {
    for (const bool inSpace : {false, true}) {
      ENHPoint point;
      AxisPoint back;
      append(numbers,
             calculator.axisPointToEnhPoint(AxisPoint(stationing, 2, 1.5), point, inSpace, true));
      append(numbers, calculator.enhPointToAxisPoint(point, back, inSpace, true));
      append(numbers, numbersOf(point, back));
    }
    double tunnelmeter = 0;
    double back = 0;
    append(numbers, calculator.stationingToTunnelmeter(stationing, tunnelmeter));
    append(numbers, calculator.tunnelmeterToStationing(tunnelmeter, back));
    ENHPoint tangent;
    append(numbers, calculator.tangentAtStationingPerpendicular(stationing, tangent));
    const AxisProperties properties(calculator, stationing);
    append(numbers,
           numbersOf(tunnelmeter, back, tangent, properties.azimuth, properties.transPercent));
  }
  return numbers;
}

/// @param axis new, so that nothing is prepared yet
Numbers conversionsOn(AxisPtr axis) {
  return conversionsOn(AxisCalculator(boost::shared_ptr<const AxisDefinition>(std::move(axis))));
}

void addAxes(std::vector<Scene>& scenes) {
  SceneOf<AxisPtr>(
      scenes, "NewAxis", [] { return std::make_shared<AxisPtr>(newAxis()); },
      [](AxisPtr& axis) {
        Numbers numbers = elementsOf(*axis);
        append(numbers, conversionsOn(axis));
        return numbers;
      })
      .add("TakesAStraight",
           [](AxisPtr& axis) { axis->addHoralSegmentStraight(100, 600000, 200000, 0.3, 50); })
      .add("TakesAPoint", [](AxisPtr& axis) { axis->addVeralPointKink(100, 400); })
      .add("TakesATransSlope",
           [](AxisPtr& axis) { axis->addTransSlopeSegmentLinear(150, 190, 0, 4); });
  SceneOf<AxisPtr>(
      scenes, "Axis", [] { return std::make_shared<AxisPtr>(smallAxis()); },
      [](AxisPtr& axis) {
        Numbers numbers = elementsOf(*axis);
        append(numbers, conversionsOn(axis));
        return numbers;
      })
      .add("TakesAnArc",
           [](AxisPtr& axis) { axis->addHoralSegmentArc(340, 600150, 200150, 1.1, -200, 50); })
      .add("TakesAClothoid",
           [](AxisPtr& axis) {
             axis->addHoralSegmentClothoid(340, 600150, 200150, 1.1, 0, -200, 50);
           })
      .add("TakesAPointBetween", [](AxisPtr& axis) { axis->addVeralPointArc(240, 401, 500); })
      .add("TakesATransSlopeBetween",
           [](AxisPtr& axis) { axis->addTransSlopeSegmentConstant(120, 130, 1); })
      .add("GivesPolylines",
           [](AxisPtr& axis) {
             return numbersOf(axis->getHoralSegmentPolylineAt(1, 10),
                              axis->getVeralPointPolylineAt(1, 10), axis->getVeralPolyline(10));
           })
      .add("Converts", [](AxisPtr& axis) { return conversionsOn(axis); })
      .add("ConvertsForTheFirstTime", [](AxisPtr&) { return conversionsOn(smallAxis()); })
      .add("IsAShaft",
           [](AxisPtr&) {
             const AxisCalculator calculator{boost::shared_ptr<const AxisDefinition>(shaft())};
             ENHPoint point;
             AxisPoint back;
             calculator.axisPointToEnhPointPerpendicular(AxisPoint(30, 1, 2), point);
             calculator.enhPointToAxisPointPerpendicular(point, back);
             return numbersOf(point, back);
           })
      .add("HasBlocks", [](AxisPtr& axis) {
        const boost::shared_ptr<const BlockAxisDefinition> block(
            new BlockAxisDefinition(axis, 150, 165));
        const AxisMapper mapper(block, boost::shared_ptr<const AxisDefinition>(axis));
        return numbersOf(block->blockLength2d(), block->blockEndStng2d(), block->blockStartStng3d(),
                         block->blockLength3d(), mapper.canMap(155, false),
                         mapper.mapStationing(155, false, true),
                         elementsOf(const_cast<AxisDefinition&>(*block->asAxisDefinition())));
      });
}

// --- Guidance

struct Guided {
  boost::shared_ptr<const AxisDefinition> axis = smallAxis();
  boost::shared_ptr<const ThProfileDefinition> profile = circleProfile(5, 0, 2);
};

Numbers guidedBy(const Guided& scene, GuidanceVectorDefinition* created) {
  const boost::shared_ptr<const GuidanceVectorDefinition> vector(created);
  Numbers numbers = numbersOf(vector->getVectorOriginPoint(), vector->getVectorDirection());
  for (const bool perpendicular : {false, true}) {
    const GuidanceCalculator calculator(vector, scene.axis, perpendicular);
    const ENHPoint point = calculator.absolutePointAtForwardValue(12);
    append(numbers, numbersOf(point, calculator.calculateOffsets(point + ENHPoint(1, 1, 1))));
  }
  return numbers;
}

void addGuidance(std::vector<Scene>& scenes) {
  using Factory = GuidanceVectorFactory;
  SceneOf<Guided>(
      scenes, "GuidanceVector", [] { return std::make_shared<Guided>(); },
      [](Guided& scene) { return conversionsOn(AxisCalculator(scene.axis)); })
      .add("RunsAlongTheAxis",
           [](Guided& scene) {
             return guidedBy(scene,
                             Factory::createAsAxisParallelFromAxisCoordinate(AxisPoint(160, 1, 2)));
           })
      .add("HasComponents",
           [](Guided& scene) {
             return guidedBy(scene, Factory::createAsStraightFromAxisCoordinateAndVectorComponents(
                                        AxisPoint(160, 1, 2), GuidanceOffsets(5, 0.5, 0.1)));
           })
      .add("LiesInTheProfilePlane",
           [](Guided& scene) {
             return guidedBy(scene, Factory::createAsStraightInProfilePlaneWithVerticalAngle(
                                        AxisPoint(160, 1, 2), 0.6));
           })
      .add("IsRadial",
           [](Guided& scene) {
             return guidedBy(scene, Factory::createAsStraightRadialFromAxisCoordinateAndProfile(
                                        scene.profile, AxisPoint(160, 3, 4)));
           })
      .add("JoinsTwoPoints",
           [](Guided& scene) {
             return guidedBy(
                 scene, Factory::createAsStraightFromPairOfAxisCoordinates(
                            scene.axis, AxisPoint(160, 1, 2), AxisPoint(180, 2, 3), true, true));
           })
      .add("HasAngles", [](Guided&) {
        GuidanceVectorDefinition vector;
        vector.setVectorDirectionFromProjectedAnglesFrontAndTopViewPlane(1.2, 0.2, 1);
        GuidanceVectorDefinition other(vector);
        other.setVectorDirectionFromProjectedAnglesTopAndSideViewPlane(0.2, 0.1, 1);
        vector.setVectorDirectionFromProjectedAnglesFrontAndSideViewPlane(1.2, 0.1, 1);
        return numbersOf(vector.getVectorDirection(), other.getVectorDirection(),
                         other.getGuidanceAngleProjectedInFrontViewPlane());
      });
}

// --- Profiles

void addProfiles(std::vector<Scene>& scenes) {
  SceneOf<ProfilePtr>(
      scenes, "NewProfile", [] { return std::make_shared<ProfilePtr>(profileThrough({})); },
      [](ProfilePtr& profile) { return numbersOf(*profile); })
      .add("TakesAStraight", [](ProfilePtr& profile) { profile->addSegmentStraight(0, 0, 0, 3); })
      .add("TakesAnArc", [](ProfilePtr& profile) { profile->addSegmentArc(0, 0, 0, 3, 2); });
  SceneOf<ProfilePtr>(
      scenes, "Profile",
      [] { return std::make_shared<ProfilePtr>(profileThrough(roadTunnelNodes(), true)); },
      [](ProfilePtr& profile) { return numbersOf(*profile); })
      .add("TakesAnother", [](ProfilePtr& profile) { profile->addSegmentArc(-4.8, 0, 1, 1, 7); })
      .add("AnswersQuestions",
           [](ProfilePtr& profile) {
             const ThProfileCalculator calculator{
                 boost::shared_ptr<const ThProfileDefinition>(profile)};
             const std::vector<Point2D> points = {{0, 4}, {3, 8}, {-6, 1}, {4.8, 0}, {0, 20}};
             double interval = 0;
             return numbersOf(calculator.calculateProfilePoints(points),
                              calculator.calculateProfilePoint(Point2D(1, 1)),
                              calculator.applyRadialOffset(Point2D(1, 1), 0.3),
                              calculator.calcPointOnProfileAtDerolment(-3),
                              calculator.diameterAtProfilePoint(Point2D(5, 4)),
                              calculator.pointsOnProfileByInterval(5, true),
                              calculator.pointsOnProfileByFixedNumber(7, &interval), interval,
                              calculator.vertexPoints(), calculator.profilePointsAtGivenUpOffset(4),
                              calculator.profilePointsAtGivenRightOffset(0));
           })
      .add("IsMorphed", [](ProfilePtr& profile) {
        const ThProfileMorpher morpher(profile, circleProfile(6, 0, 4), 100, 200);
        const auto morphed = morpher.getMorphedProfile(130);
        return morphed ? numbersOf(*morphed) : Numbers();
      });
}

// --- Outlines

/// A star with twelve points, turned so that two of them cross everywhere.
Path star(double turned) {
  std::vector<Point2D> corners;
  for (int i = 0; i < 24; ++i) {
    const double angle = turned + 2 * kPi * i / 24;
    corners.push_back(Point2D(std::cos(angle), std::sin(angle)) * (2.0 + i % 2));
  }
  return ring(corners);
}

struct Outlines {
  Path first = star(0);
  Path second = star(0.1);
  Pathes several{box(-3, -3, 3, 3)};
  Pathes holes{box(-2, -2, -1, 2)};
  Path line = lineThrough({{-4, 1}, {0, 1}, {1, -3}, {4, -3}});

  Outlines() {
    several.addPath(box(3, 1, 5, 2.5));  // they share an edge
    holes.addPath(box(0.5, -1, 1, 1));
  }
};

void addOutlines(std::vector<Scene>& scenes) {
  SceneOf<Outlines> scene(
      scenes, "Outline", [] { return std::make_shared<Outlines>(); },
      [](Outlines& o) {
        return numbersOf(o.first, o.second, o.several, o.holes, o.line, o.line.lineLength(),
                         o.first.pointWithin(Point2D(1, 1)));
      });
  scene
      .add("Begins",
           [](Outlines&) {
             Path path;
             path.addSegment(PathSegment(1, 1));
             return numbersOf(path);
           })
      .add("TakesAnArc", [](Outlines& o) { o.line.addSegment(PathSegment(5, 1, 3)); })
      .add("IsClosed", [](Outlines& o) { o.line.close(true); })
      .add("IsAssigned", [](Outlines& o) { o.line = o.first; })
      .add("ListTakesOne", [](Outlines& o) { o.several.addPath(o.first); })
      .add("ListTakesItself", [](Outlines& o) { o.several.addPaths(o.several); })
      .add("ListIsAssigned", [](Outlines& o) { o.several = o.holes; });
  scene.add("Within", [](Outlines& o) { return numbersOf(Path::within(o.first, o.second)); })
      .add("Without", [](Outlines& o) { return numbersOf(Path::without(o.first, o.second)); })
      .add("ListWithin", [](Outlines& o) { return numbersOf(Pathes::within(o.several, o.first)); })
      .add("CutAtHoles", [](Outlines& o) { return numbersOf(Pathes::without(o.several, o.holes)); })
      .add("Grown", [](Outlines& o) { return numbersOf(Path::expand(o.holes.pathAt(0), 0.1)); })
      .add("Shrunk", [](Outlines& o) { return numbersOf(Pathes::expand(o.several, -0.1)); })
      .add("ShrunkAway", [](Outlines& o) { return numbersOf(Pathes::expand(o.holes, -2)); })
      .add("Band", [](Outlines& o) { return numbersOf(Path::expandLine(o.line, 0.1)); })
      .add("ClosedBand", [](Outlines& o) { return numbersOf(Path::expandLine(o.first, 0.01)); })
      .add("LinesWithin", [](Outlines& o) { return numbersOf(Path::linesWithin(o.line, o.first)); })
      .add("LinesWithinList",
           [](Outlines& o) {
             return numbersOf(Pathes::linesWithin(Pathes(o.line), o.several, false));
           })
      .add("BorderWithin",
           [](Outlines& o) { return numbersOf(o.first.borderWithinOtherPathes(o.several)); })
      .add("Converted", [](Outlines& o) {
        const ClipperLib::Paths paths = PathHelper::clipperLibPathsFromPathes(o.several);
        return numbersOf(
            PathHelper::pathesFromClipperLibPaths(PathHelper::simplyfyLines(paths, 2)),
            PathHelper::profileAreasFromPathes(o.several, 0.1),
            PathHelper::profileLinesFromPathes(o.several),
            PathHelper::pathesFromClipperLibPaths(PathHelper::convertRingToSimplePaths(paths)));
      });
}

// --- Measured profiles

/// Two sections of a few edges, one of them beyond the other in places.
struct Comparison {
  ProfilePtr design = profileThrough({{-3, 0, 0}, {-3, 3, 0}, {3, 3, 4}, {3, 0, 0}, {-3, 0, 0}});
  MeasuredPtr scan = measuredThrough({{-3.2, -0.1}, {3.1, 0.1}, {3.3, 2}, {2, 4.5}, {-2.9, 3.4}});
  MeasuredProfileCalculator calculator{boost::shared_ptr<const ThProfileDefinition>(design),
                                       boost::shared_ptr<const MeasuredProfile>(scan)};
};

Numbers stateOf(const Comparison& c) {
  const MeasuredProfileCalculator& calculator = c.calculator;
  Numbers numbers = numbersOf(*c.design, c.scan->getCircumference());
  append(numbers, numbersOf(calculator.overProfileArea(), calculator.underProfileArea(),
                            calculator.referenceArea(), calculator.comparisonCircumference(),
                            calculator.calculateProfilePoint(Point2D(1, 2))));
  for (const Point2D& p : {Point2D(0, 0.5), Point2D(0, 4), Point2D(-3, 1), Point2D(3, 1)}) {
    append(numbers, calculator.isInFilteredArea(p));
  }
  return numbers;
}

/// Asked before and changed since.
std::shared_ptr<Comparison> changedComparison() {
  auto changed = std::make_shared<Comparison>();
  stateOf(*changed);
  changed->scan->addPoint(Point2D(-3.5, 1));
  changed->design->resetThProfile();
  const Point2D corners[] = {{-2, 0}, {-2, 3}, {2, 3}, {2, 0}, {-2, 0}};
  for (std::size_t i = 1; i < 5; ++i) {
    changed->design->addSegmentStraight(corners[i - 1].x, corners[i - 1].y, corners[i].x,
                                        corners[i].y);
  }
  return changed;
}

void addMeasured(std::vector<Scene>& scenes) {
  using Method = GeologicalOverProfileMethod;
  const auto fresh = [] { return std::make_shared<Comparison>(); };
  SceneOf<Comparison>(scenes, "Measured", fresh, stateOf)
      .add("TakesAPoint", [](Comparison& c) { c.scan->addPoint(Point2D(-3.5, 1)); })
      .add("TakesALineFilter", [](Comparison& c) { c.calculator.setFilterExcludeAbove(2.5); })
      .add("TakesAnAngleFilter",
           [](Comparison& c) { c.calculator.setFilterExcludeBetweenAngles(1, 2, Point2D(0, 1)); })
      .add("IsFitted",
           [](Comparison& c) {
             Numbers numbers;
             for (int method = 0; method < 5; ++method) {
               append(numbers, c.calculator.leastSquarePointOfComparisonProfile(
                                   static_cast<FittingMethod::Method>(method)));
             }
             return numbers;
           })
      .add("IsCut", [](Comparison& c) {
        return numbersOf(c.calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(1),
                         c.calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(1),
                         c.calculator.horizontalDistanceToComparisonProfile(Point2D(0, 1)),
                         c.calculator.radialDistanceToComparisonProfile(Point2D(1, 2)));
      });
  const auto unasked = [](Comparison&) { return Numbers(); };
  SceneOf<Comparison>(scenes, "MeasuredAnew", changedComparison, unasked)
      .add("GivesAreas",
           [](Comparison& c) {
             return numbersOf(c.calculator.overProfileArea(), c.calculator.underProfileArea());
           })
      .add("GivesPoints",
           [](Comparison& c) {
             return numbersOf(c.calculator.calculateProfilePoints({{0, 1}, {3, 3}}));
           })
      .add("GivesOutlines",
           [](Comparison& c) {
             return numbersOf(c.calculator.overProfileAreaPathes(),
                              c.calculator.comparisonCircumferenceLines(true));
           })
      .add("IsDivided", [](Comparison& c) {
        const auto parts = c.calculator.overProfileDividedByGeologicalAreaPathes(
            Method::GeologicalBandFromReference, 0.02, 0);
        return numbersOf(parts.first, parts.second);
      });
  const auto filtered = [] {
    auto scene = std::make_shared<Comparison>();
    scene->calculator.setFilterExcludeBelow(0.5);
    scene->calculator.setFilterExcludeBetweenAngles(-0.2, 0.2, Point2D(0, 1));
    return scene;
  };
  SceneOf<Comparison>(scenes, "Filtered", filtered, stateOf)
      .add("IsUnfiltered", [](Comparison& c) { c.calculator.resetAllFilters(); })
      .add("TakesAnother", [](Comparison& c) { c.calculator.setFilterExcludeLeftOf(-2); })
      .add("IsDivided", [](Comparison& c) {
        return numbersOf(c.calculator.geologicalOverProfileAreaPathes(
            Method::GeologicalBeyondLimitOnly, 0.02, 0));
      });
}

// --- Fits

void addFits(std::vector<Scene>& scenes) {
  const auto points = [] {
    Random random(5);
    auto all = std::make_shared<std::vector<Point2D>>();
    for (int i = 0; i < 30; ++i) {
      const double angle = 0.2 * i;
      all->emplace_back(3 + 5 * std::cos(angle) + random.uniform(-0.01, 0.01), 4 * std::sin(angle));
    }
    (*all)[7] = Point2D(20, 20);
    return all;
  };
  SceneOf<std::vector<Point2D>>(scenes, "Points", points,
                                [](std::vector<Point2D>& all) { return numbersOf(all); })
      .add("OnACircle",
           [](std::vector<Point2D>& all) {
             return numbersOf(FittingHelper::circleFitKasa(all),
                              FittingHelper::circleFitLandau(all),
                              FittingHelper::circleFitRuvLegacy(all));
           })
      .add("OnAnEllipse",
           [](std::vector<Point2D>& all) {
             std::vector<bool> used;
             const FittingResult fit = FittingHelper::ellipseFitFitzgibbon(all, used, 10);
             return numbersOf(fit, Numbers(used.begin(), used.end()));
           })
      .add("InLists", [](std::vector<Point2D>& all) {
        const Polygon polygon{all};
        return numbersOf(Polygon(polygon), Polyline(polygon.points()));
      });
  using Lists = std::pair<Polyline, Polygon>;
  const std::vector<Point2D> one = {{1, 2}};
  const std::vector<Point2D> many = {{3, 4}, {5, 7}, {6, 9}};
  SceneOf<Lists>(
      scenes, "List", [=] { return std::make_shared<Lists>(one, one); },
      [](Lists& lists) { return numbersOf(lists.first, lists.second); })
      .add("OfALineIsAssigned", [=](Lists& lists) { lists.first = Polyline(many); })
      .add("OfAPolygonIsAssigned", [=](Lists& lists) { lists.second = Polygon(many); });
}

// --- Stations

/// Fix points in a hall, and measurements of five of them from a tilted instrument.
struct Station {
  std::vector<ENHPoint> points = {{3, 0, 1}, {0, 7, 2}, {-5, 1, 4}, {2, -8, 3}, {6, 6, -1}};
  Resection resection;
  PointDetermination determination;

  Station() {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const std::wstring id = L"a fix point with a long name " + std::to_wstring(i);
      const ENHPoint tilted = Utilities::rotateAroundEastXaxis(points[i], 0.01);
      const ENHPoint known = points[i] + ENHPoint(600000, 200000, 400 + 1e-4 * double(i * i));
      resection.addFixPoint(id, known);
      resection.addMeasurement(id, Utilities::convertToPolarMeasurement(tilted));
      determination.addPoint(id, known);
      determination.addMeasurement(L"sight " + std::to_wstring(i),
                                   Utilities::convertToPolarMeasurement(points[i]));
    }
  }
};

/// Takes text and keeps none, so that diagnostics are written and not shown.
class NoText : public std::streambuf {
 protected:
  std::streamsize xsputn(const char* /*text*/, std::streamsize count) override { return count; }
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
};

Numbers placeOf(const Resection& resection, bool inSpace) {
  NoText noText;
  const std::shared_ptr<std::streambuf> shown(
      std::clog.rdbuf(&noText), [](std::streambuf* buffer) { std::clog.rdbuf(buffer); });
  ENHPoint station;
  ENHPoint stationStdDev;
  double orientation = 0;
  double scale = 0;
  double orientationStdDev = 0;
  double scaleStdDev = 0;
  const auto calculate =
      inSpace ? &Resection::calculateResectionHelmert3d : &Resection::calculateResectionHelmert2d;
  const bool isFound = (resection.*calculate)(station, orientation, scale, stationStdDev,
                                              orientationStdDev, scaleStdDev);
  return numbersOf(isFound, station, orientation, scale, stationStdDev, orientationStdDev);
}

Numbers identitiesOf(const PointDetermination& determination) {
  Numbers numbers = numbersOf(determination.getNumPoints(), determination.getNumMeasurements(),
                              determination.isBestSolutionSignificantlyBetter());
  for (int i = 0; i < 8; ++i) {
    append(numbers, determination.getFixPointIdForMeasurementId(L"sight " + std::to_wstring(i)));
  }
  return numbers;
}

void addStations(std::vector<Scene>& scenes) {
  SceneOf<Station>(
      scenes, "Station", [] { return std::make_shared<Station>(); },
      [](Station& s) {
        return numbersOf(s.resection.getNumFixpoints(), s.resection.getNumFixPointMeasurements(),
                         placeOf(s.resection, false), placeOf(s.resection, true),
                         identitiesOf(s.determination));
      })
      .add("TakesAFixPoint",
           [](Station& s) { s.resection.addFixPointU(u"new", ENHPoint(600001, 200001, 401)); })
      .add("TakesAMeasurement",
           [](Station& s) {
             s.resection.addMeasurement(L"a new point with a long name", PolarPoint(1, 1.5, 8));
           })
      .add("TakesAMeasurementAgain",
           [](Station& s) {
             s.resection.addMeasurement(L"a fix point with a long name 1", PolarPoint(1, 1.5, 8));
           })
      .add("IsPlaced",
           [](Station& s) {
             return numbersOf(placeOf(s.resection, false), placeOf(s.resection, true));
           })
      .add("TakesAPointToIdentify",
           [](Station& s) {
             s.determination.addPoint(L"a new point with a long name", ENHPoint(600009, 200001, 3));
           })
      .add("TakesASightToIdentify",
           [](Station& s) {
             s.determination.addMeasurement(L"sight 7, with a long name", PolarPoint(1, 1.5, 8));
           })
      .add("IdentifiesAll", [](Station& s) { s.determination.determineMeasuredPointsStrict(); })
      .add("IdentifiesSome", [](Station& s) { s.determination.determineMeasuredPointsRobust(); });
}

/// A question without objects of its own.
Scene question(const std::string& name, const std::function<Numbers()>& ask) {
  return {name, [ask] { return Play{ask, [] { return Numbers(); }}; }};
}

Numbers alongAxis(const std::string& name) {
  const AxisPtr axis = goldenAxis(name);
  const AxisCalculator calculator{boost::shared_ptr<const AxisDefinition>(axis)};
  const double start = axis->minimumStng2d();
  Numbers numbers = numbersOf(axis->getVeralPolyline(5));
  for (int i = 0; i <= 100; ++i) {
    const double stationing = start + (axis->maximumStng2d() - start) * i / 100;
    ENHPoint point;
    AxisPoint back;
    calculator.axisPointToEnhPointPerpendicular(AxisPoint(stationing, 3, 2), point);
    calculator.enhPointToAxisPointPerpendicular(point, back);
    append(numbers, back);
    calculator.enhPointToAxisPointVertical(point + ENHPoint(90, -40, 5), back);
    append(numbers, back);
    append(numbers, AxisProperties(calculator, stationing).azimuth);
    // The same point again and again, so that each search begins where the last one ended.
    const std::vector<ENHPoint> scan(8, point);
    std::vector<AxisPoint> places(scan.size());
    for (const bool perpendicular : {false, true}) {
      calculator.enhPointsToAxisPoints(scan.data(), scan.size(), places.data(), nullptr,
                                       perpendicular, true);
      append(numbers, places);
    }
  }
  AxisPoint place;
  ENHPoint point;
  double tunnelmeter = 0;
  for (const double beyond : {start - 10, start + 1e6}) {
    append(numbers, calculator.axisPointToEnhPointVertical(AxisPoint(beyond, 0, 0), point));
    append(numbers, calculator.stationingToTunnelmeter(beyond, tunnelmeter));
    append(numbers, calculator.enhPointToAxisPointPerpendicular(ENHPoint(beyond, 0, 0), place));
  }
  return numbers;
}

/// A section beside a design, everything asked, on the outline and in the middle too.
Numbers compared(const ProfilePtr& design, const MeasuredPtr& scan) {
  MeasuredProfileCalculator calculator{boost::shared_ptr<const ThProfileDefinition>(design),
                                       boost::shared_ptr<const MeasuredProfile>(scan)};
  Numbers numbers;
  for (unsigned i = 0; i < scan->getNumPoints(); i += scan->getNumPoints() / 20 + 1) {
    const Point2D p = scan->getPointAt(i);
    append(numbers, calculator.calculateProfilePoints({p, design->getSegmentStartAt(0), {0, 4}}));
    append(numbers, calculator.radialDistanceToComparisonProfile(p));
    append(numbers, calculator.verticalDistanceToComparisonProfile(p));
  }
  for (const bool isFiltered : {false, true}) {
    if (isFiltered) calculator.setFilterExcludeBelow(1.0);
    append(numbers, calculator.comparisonCircumference());
    append(numbers, calculator.referenceCircumferenceLines(true));
    append(numbers, calculator.overProfileAreaPathes());
    append(numbers, calculator.underProfileArea());
    append(numbers, calculator.geologicalOverProfileArea(
                        GeologicalOverProfileMethod::GeologicalBandFromReference, 0.1, 0));
    for (int method = 0; method < 5; ++method) {
      append(numbers, calculator.leastSquarePointOfComparisonProfile(
                          static_cast<FittingMethod::Method>(method)));
    }
  }
  return numbers;
}

/// As few sightings as there may be, free of error.
Numbers placedByFewest(std::size_t count) {
  const Station all;
  Resection resection;
  PointDetermination determination;
  for (std::size_t i = 0; i < count; ++i) {
    const std::wstring id = std::to_wstring(i);
    const PolarPoint sight = Utilities::convertToPolarMeasurement(all.points[i]);
    resection.addFixPoint(id, all.points[i]);
    resection.addMeasurement(id, sight);
    determination.addPoint(id, all.points[i]);
    determination.addMeasurement(L"sight " + id, sight);
  }
  determination.determineMeasuredPointsStrict();
  determination.determineMeasuredPointsRobust();
  return numbersOf(placeOf(resection, false), placeOf(resection, true),
                   identitiesOf(determination));
}

}  // namespace

std::vector<Scene> realScenes() {
  std::vector<Scene> scenes;
  for (const char* name :
       {"metro_th_3122m", "rail_ch_2500m", "rail_ch_a50068a", "rail_fr_v1", "rail_it_1030m",
        "road_au_12d_6", "road_de_roundabout_30m", "tram_fr_san1_com", "tram_fr_san1_xd_b02"}) {
    scenes.push_back(question(name, [name] { return alongAxis(name); }));
  }
  for (const char* name :
       {"circle_r2900", "cz_rail1_160_out", "cz_rail2_230_in", "cz_road_80_cut", "no_t12p5"}) {
    scenes.push_back(question(name, [name] {
      const ProfilePtr design = goldenProfile(name);
      const ThProfileMorpher morpher(design, goldenProfile("cz_road_75_in"), 0, 10);
      const auto morphed = morpher.getMorphedProfile(4);
      Numbers numbers = morphed ? numbersOf(*morphed) : Numbers();
      append(numbers,
             compared(design, measuredThrough(ThProfileCalculator(design).vertexPoints())));
      return numbers;
    }));
  }
  scenes.push_back(question("DigitisedOutline", [] {
    return compared(profileThrough(roadTunnelNodes()), measuredThrough(digitisedOutline()));
  }));
  scenes.push_back(question("RepeatedPoints", [] {
    return compared(circleProfile(5), measuredThrough({{5, 0}, {5, 0}, {0, 5}, {-5, 0}, {-5, 0}}));
  }));
  std::vector<Point2D> line;
  for (int i = 0; i < 13; ++i) {
    line.emplace_back(i, i);
  }
  for (const std::vector<Point2D>& points : std::vector<std::vector<Point2D>>{
           {}, {{1, 2}}, {{1, 2}, {3, 4}}, std::vector<Point2D>(20, {1, 2}), line}) {
    scenes.push_back(question("NoCurveThrough" + std::to_string(points.size()), [points] {
      std::vector<bool> used;
      return numbersOf(FittingHelper::circleFitKasa(points), FittingHelper::circleFitLandau(points),
                       FittingHelper::circleFitRuvLegacy(points),
                       FittingHelper::ellipseFitFitzgibbon(points, used, 10),
                       compared(circleProfile(5), measuredThrough(points)));
    }));
  }
  for (const std::vector<ProfileNode>& nodes : {std::vector<ProfileNode>(),
                                                {{0, 0, 0}, {3, 0, 0}},
                                                {{0, 0, 0}, {3, 0, 0}, {0, 0, 0}},
                                                {{0, 0, 0}, {0, 3, 0}, {3, 3, 2}, {3, 0, 0}}}) {
    scenes.push_back(question("OpenProfile" + std::to_string(nodes.size()), [nodes] {
      return compared(profileThrough(nodes), measuredCircle(5, 20));
    }));
  }
  for (const std::size_t count : {0u, 1u, 2u, 3u, 4u}) {
    scenes.push_back(
        question("Fewest" + std::to_string(count), [count] { return placedByFewest(count); }));
  }
  return scenes;
}

std::vector<Scene> allScenes() {
  std::vector<Scene> scenes;
  addAxes(scenes);
  addGuidance(scenes);
  addProfiles(scenes);
  addOutlines(scenes);
  addMeasured(scenes);
  addFits(scenes);
  addStations(scenes);
  return scenes;
}

}  // namespace TestSupport
