// SPDX-License-Identifier: BSL-1.0
// The clipper is an implementation of Vatti's algorithm (Vatti 1992, A generic solution to polygon
// clipping, Commun. ACM 35). It sweeps a level line over the outlines, from one vertex to the next
// ("scanbeam"), and afterwards joins what the sweep has found. The sweep is led here, in the
// clipper's own steps and order; for the rest its own operation follows, which finds nothing left
// to sweep.
//
// Why it is led here: the clipper's own sweep turns every exception, and the loss of its way, into
// one and the same false. And it sorts minima and intersections by their levels alone with
// std::sort, so that those of one level come as the standard library likes: LLVM's and GCC's made
// other outlines of one excavation. Here they keep their order. Otherwise results are the clipper's
// to the last point.
//
//   active edges     those that the sweep line crosses at present, from left to right
//   local minimum    a vertex where two edges begin
//   scanbeam         the strip between the levels of two vertices
//   intersection     a place inside a scanbeam where two active edges change sides
//   ghost join       a level edge that may have to be joined to one found later

#include "profiles/paths/FailsafeClipper.h"

#include "foundation/Opened.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string_view>
#include <utility>

static_assert(std::string_view(CLIPPER_VERSION) == "6.4.2",
              "the sweep is led as this version of the clipper leads it");

namespace ClipperLib {

// The records of the sweep, word for word as in the source of the clipper, as the language wants it
// of a class that two sources define. The header only names them.
// NOLINTBEGIN(cppcoreguidelines-pro-type-member-init, readability-identifier-naming)
struct TEdge {
  IntPoint Bot;
  IntPoint Curr;
  IntPoint Top;
  double Dx;
  PolyType PolyTyp;
  EdgeSide Side;
  int WindDelta;
  int WindCnt;
  int WindCnt2;
  int OutIdx;
  TEdge* Next;
  TEdge* Prev;
  TEdge* NextInLML;
  TEdge* NextInAEL;
  TEdge* PrevInAEL;
  TEdge* NextInSEL;
  TEdge* PrevInSEL;
};

struct IntersectNode {
  TEdge* Edge1;
  TEdge* Edge2;
  IntPoint Pt;
};

struct LocalMinimum {
  cInt Y;
  TEdge* LeftBound;
  TEdge* RightBound;
};
// NOLINTEND(cppcoreguidelines-pro-type-member-init, readability-identifier-naming)

}  // namespace ClipperLib

namespace Ruv {
namespace Calculations {

/// What the clipper's sweep is made of.
struct ClipperSteps {
  using Clipper = ClipperLib::Clipper;
  using Step = void (Clipper::*)();
  using StepTo = void (Clipper::*)(ClipperLib::cInt);

  /// Edges that begin at a level become active.
  struct InsertLocalMinima {
    using Member = StepTo;
    friend Member memberOf(InsertLocalMinima name);
  };
  /// Level edges are walked along from end to end, as a level line cannot cross them.
  struct ProcessHorizontals {
    using Member = Step;
    friend Member memberOf(ProcessHorizontals name);
  };
  /// Collects where active edges change sides up to a level, by sorting a copy of them.
  struct BuildIntersectList {
    using Member = StepTo;
    friend Member memberOf(BuildIntersectList name);
  };
  /// Copies the row of active edges, to change sides in the copy.
  struct CopyAELToSEL {
    using Member = Step;
    friend Member memberOf(CopyAELToSEL name);
  };
  struct SwapPositionsInSEL {
    using Member = void (Clipper::*)(ClipperLib::TEdge*, ClipperLib::TEdge*);
    friend Member memberOf(SwapPositionsInSEL name);
  };
  /// Changes sides at the intersections, and adds them to outlines of the result.
  struct ProcessIntersectList {
    using Member = Step;
    friend Member memberOf(ProcessIntersectList name);
  };
  /// Deletes intersections that have not been treated.
  struct DisposeIntersectNodes {
    using Member = Step;
    friend Member memberOf(DisposeIntersectNodes name);
  };
  /// Ends the scanbeam: edges that end there give way to those that continue them.
  struct ProcessEdgesAtTop {
    using Member = StepTo;
    friend Member memberOf(ProcessEdgesAtTop name);
  };
  struct ClearJoins {
    using Member = Step;
    friend Member memberOf(ClearJoins name);
  };
  struct ClearGhostJoins {
    using Member = Step;
    friend Member memberOf(ClearGhostJoins name);
  };
  struct IntersectNodes {
    using Member = ClipperLib::IntersectList Clipper::*;
    friend Member memberOf(IntersectNodes name);
  };
  struct SortedEdges {
    using Member = ClipperLib::TEdge* Clipper::*;
    friend Member memberOf(SortedEdges name);
  };
};

// Private members of the clipper become reachable by the names above; Opened tells how.
template struct Opened<ClipperSteps::InsertLocalMinima,
                       &ClipperLib::Clipper::InsertLocalMinimaIntoAEL>;
template struct Opened<ClipperSteps::ProcessHorizontals, &ClipperLib::Clipper::ProcessHorizontals>;
template struct Opened<ClipperSteps::BuildIntersectList, &ClipperLib::Clipper::BuildIntersectList>;
template struct Opened<ClipperSteps::CopyAELToSEL, &ClipperLib::Clipper::CopyAELToSEL>;
template struct Opened<ClipperSteps::SwapPositionsInSEL, &ClipperLib::Clipper::SwapPositionsInSEL>;
template struct Opened<ClipperSteps::ProcessIntersectList,
                       &ClipperLib::Clipper::ProcessIntersectList>;
template struct Opened<ClipperSteps::DisposeIntersectNodes,
                       &ClipperLib::Clipper::DisposeIntersectNodes>;
template struct Opened<ClipperSteps::ProcessEdgesAtTop,
                       &ClipperLib::Clipper::ProcessEdgesAtTopOfScanbeam>;
template struct Opened<ClipperSteps::ClearJoins, &ClipperLib::Clipper::ClearJoins>;
template struct Opened<ClipperSteps::ClearGhostJoins, &ClipperLib::Clipper::ClearGhostJoins>;
template struct Opened<ClipperSteps::IntersectNodes, &ClipperLib::Clipper::m_IntersectList>;
template struct Opened<ClipperSteps::SortedEdges, &ClipperLib::Clipper::m_SortedEdges>;

PathViews viewsOf(const ClipperLib::Paths& paths) {
  PathViews views;
  views.reserve(paths.size());
  for (const ClipperLib::Path& path : paths) {
    views.push_back(&path);
  }
  return views;
}

ClipperLib::Paths copied(const PathViews& paths) {
  ClipperLib::Paths copies;
  copies.reserve(paths.size());
  for (const ClipperLib::Path* path : paths) {
    copies.push_back(*path);
  }
  return copies;
}

void refuseOutOfRange(const PathViews& paths) {
  const auto isInRange = [](ClipperLib::cInt coordinate) {
    return coordinate >= -ClipperLib::hiRange && coordinate <= ClipperLib::hiRange;
  };
  for (const ClipperLib::Path* path : paths) {
    for (const ClipperLib::IntPoint& p : *path) {
      if (isInRange(p.X) && isInRange(p.Y)) continue;
      throw ClipperLib::clipperException("Coordinate outside allowed range");
    }
  }
}

namespace {

/// @param edge null where an open line has no other end
void beginBound(ClipperLib::TEdge* edge, ClipperLib::EdgeSide side) {
  if (edge == nullptr) return;
  edge->Curr = edge->Bot;
  edge->Side = side;
  edge->OutIdx = -1;  // no outline yet
}

}  // namespace

template <class Step, class... Arguments>
decltype(auto) FailsafeClipper::take(Arguments... arguments) {
  return (static_cast<Clipper&>(*this).*memberOf(Step()))(arguments...);
}

/// Frees what the clipper frees after success only.
FailsafeClipper::~FailsafeClipper() {
  take<ClipperSteps::DisposeIntersectNodes>();
  take<ClipperSteps::ClearJoins>();
  take<ClipperSteps::ClearGhostJoins>();
  DisposeAllOutRecs();
}

void FailsafeClipper::add(const PathViews& paths, ClipperLib::PolyType role, bool areClosed) {
  m_edges.reserve(m_edges.size() + paths.size());  // the clipper loses what they do not take
  for (const ClipperLib::Path* path : paths) {
    AddPath(*path, role, areClosed);
  }
}

ClipperLib::Paths FailsafeClipper::outlines(ClipperLib::ClipType operation,
                                            ClipperLib::PolyFillType fill) {
  ClipperLib::Paths solution;
  // With no edges at all there is nothing to clip, which the clipper calls a failure. Once the
  // sweep is done only want of memory can fail, and the clipper tells it as false.
  if (hasEdges() && !Execute(operation, solution, fill, fill)) throw std::bad_alloc();
  return solution;
}

void FailsafeClipper::writeTo(ClipperLib::PolyTree& tree, ClipperLib::ClipType operation) {
  constexpr auto kFill = ClipperLib::pftEvenOdd;
  if (hasEdges() && !Execute(operation, tree, kFill, kFill)) throw std::bad_alloc();
}

void FailsafeClipper::Reset() {
  // The clipper's own operation begins with a reset, which would have it sweep a second time.
  if (m_isSwept) return;
  std::stable_sort(m_MinimaList.begin(), m_MinimaList.end(),
                   [](const ClipperLib::LocalMinimum& a, const ClipperLib::LocalMinimum& b) {
                     return a.Y > b.Y;
                   });
  m_Scanbeam = ScanbeamList();
  for (const ClipperLib::LocalMinimum& minimum : m_MinimaList) {
    InsertScanbeam(minimum.Y);
    beginBound(minimum.LeftBound, ClipperLib::esLeft);
    beginBound(minimum.RightBound, ClipperLib::esRight);
  }
  m_ActiveEdges = nullptr;
  m_CurrentLM = m_MinimaList.begin();
}

bool FailsafeClipper::ExecuteInternal() {
  try {
    sweep();
  } catch (const ClipperLib::clipperException&) {
    throw ClippingFailure();
  }
  m_isSwept = true;
  InsertScanbeam(0);  // without any the clipper would take the outlines for none at all
  return Clipper::ExecuteInternal();
}

/// The order of the steps is that of Clipper::ExecuteInternal in version 6.4.2.
void FailsafeClipper::sweep() {
  Reset();
  this->*memberOf(ClipperSteps::SortedEdges()) = nullptr;
  ClipperLib::cInt level = 0;
  if (!PopScanbeam(level)) return;
  take<ClipperSteps::InsertLocalMinima>(level);
  while (PopScanbeam(level) || LocalMinimaPending()) {
    take<ClipperSteps::ProcessHorizontals>();
    take<ClipperSteps::ClearGhostJoins>();
    if (m_ActiveEdges != nullptr) processIntersections(level);
    take<ClipperSteps::ProcessEdgesAtTop>(level);
    take<ClipperSteps::InsertLocalMinima>(level);
  }
}

void FailsafeClipper::processIntersections(ClipperLib::cInt top) {
  take<ClipperSteps::BuildIntersectList>(top);
  ClipperLib::IntersectList& nodes = this->*memberOf(ClipperSteps::IntersectNodes());
  if (nodes.size() > 1) {
    // A single intersection is in order by itself.
    order(nodes);
    processEachOf(nodes);
  } else if (!nodes.empty()) {
    take<ClipperSteps::ProcessIntersectList>();
  }
  this->*memberOf(ClipperSteps::SortedEdges()) = nullptr;
}

/// Sorts by levels, as far as only neighbours change sides: FixupIntersectionOrder of the clipper.
/// @throw ClippingFailure when there is no such order: rounding to the grid has led the sweep
/// astray
void FailsafeClipper::order(ClipperLib::IntersectList& nodes) {
  take<ClipperSteps::CopyAELToSEL>();
  const auto isAbove = [](const ClipperLib::IntersectNode* a, const ClipperLib::IntersectNode* b) {
    return a->Pt.Y > b->Pt.Y;
  };
  if (!std::is_sorted(nodes.begin(), nodes.end(), isAbove)) {
    std::stable_sort(nodes.begin(), nodes.end(), isAbove);
  }
  // The first of two edges is before the second until they change sides, once in all.
  const auto areNeighbours = [](const ClipperLib::IntersectNode* node) {
    return node->Edge1->NextInSEL == node->Edge2;
  };
  for (auto node = nodes.begin(); node != nodes.end(); ++node) {
    const auto next = std::find_if(node, nodes.end(), areNeighbours);
    if (next == nodes.end()) throw ClippingFailure();
    std::swap(*node, *next);
    take<ClipperSteps::SwapPositionsInSEL>((*node)->Edge1, (*node)->Edge2);
  }
}

/// The clipper is shown one node at a time: it deletes each after treating it, but keeps all of
/// them on its list until the last, to delete them again when one fails.
/// @param nodes the clipper's own list
void FailsafeClipper::processEachOf(ClipperLib::IntersectList& nodes) {
  ClipperLib::IntersectList waiting(1);
  waiting.swap(nodes);  // leaves the clipper a list of one place
  std::size_t next = 0;
  try {
    for (; next < waiting.size(); ++next) {
      nodes.assign(1, waiting[next]);
      take<ClipperSteps::ProcessIntersectList>();
    }
  } catch (...) {
    waiting.erase(waiting.begin(), waiting.begin() + static_cast<std::ptrdiff_t>(next));
    nodes.swap(waiting);  // those not yet deleted
    throw;
  }
  nodes.swap(waiting);  // keeps the room for the next list
  nodes.clear();
}

}  // namespace Calculations
}  // namespace Ruv
