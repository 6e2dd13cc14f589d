#include "V7Doc/geometry/GeomContainers.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/geometry/GeomCompare.h"

namespace v7::Geom {
namespace {

// Appends `who` to usage[id] when `id` names a slot of the queried table; a
// reference beyond the table (a dangling ID) is not reported.
void Report(UsageList& usage, GID id, const GGID& who) {
  if (id != 0 && id < usage.size()) usage[id].push_back(who);
}

GID Renumbered(const std::vector<GID>& renumber, GID id) {
  return id < renumber.size() ? renumber[id] : 0;
}

std::pair<GID, GID> Edge(GID a, GID b) { return a < b ? std::pair{a, b} : std::pair{b, a}; }

// The edges of a polygon: consecutive points, closed when it has three or
// more points; a two-point polygon is one edge.
template <class F>
void ForEachEdge(const std::vector<GID>& pts, F&& f) {
  if (pts.size() < 2) return;
  for (std::size_t i = 0; i + 1 < pts.size(); ++i) f(pts[i], pts[i + 1]);
  if (pts.size() > 2) f(pts.back(), pts.front());
}

}  // namespace

GID PointTable::FindPoint(const Point2D& p, const Precision3D& precision) const {
  for (auto it = begin(); it != end(); ++it)
    if (IsEqual2D(it->XY(), p, precision)) return it.ID();
  return 0;
}

GID PointTable::AddNew(const Point2D& p, const Precision3D& precision) {
  if (!std::isfinite(p.x) || !std::isfinite(p.y) || p.x == qvi::kNoValue || p.y == qvi::kNoValue)
    return 0;
  if (GID found = FindPoint(p, precision)) return found;
  return Add(Point{p.x, p.y}).ID();
}

Extents2D PointTable::Extents() const {
  Extents2D e;
  for (const Point& p : *this) e.Add(p.XY());
  return e;
}

GID LineTable::FindLine(GID a, GID b) const {
  for (auto it = begin(); it != end(); ++it)
    if ((it->nPointID1_ == a && it->nPointID2_ == b) || (it->nPointID1_ == b && it->nPointID2_ == a))
      return it.ID();
  return 0;
}

GID LineTable::AddNew(GID a, GID b) {
  if (a == 0 || b == 0 || a == b) return 0;
  if (GID found = FindLine(a, b)) return found;
  return Add(Line{a, b}).ID();
}

void LineTable::OnRegistration() { Manager().Subscribe(this, ids::Points); }

void LineTable::OnGetUsageOf(GID container, UsageList& usage) {
  GeomTable<Line>::OnGetUsageOf(container, usage);
  if (container != ids::Points || container == ID()) return;
  for (auto it = begin(); it != end(); ++it) {
    const GGID who(ID(), it.ID());
    Report(usage, it->nPointID1_, who);
    if (it->nPointID2_ != it->nPointID1_) Report(usage, it->nPointID2_, who);
  }
}

void LineTable::OnIDUpdate(GID container, const std::vector<GID>& renumber) {
  if (container != ids::Points) return;
  std::vector<GID> orphans;
  for (auto it = begin(); it != end(); ++it) {
    it->nPointID1_ = Renumbered(renumber, it->nPointID1_);
    it->nPointID2_ = Renumbered(renumber, it->nPointID2_);
    if (it->nPointID1_ == 0 || it->nPointID2_ == 0) orphans.push_back(it.ID());
  }
  // A line with both ends gone already reads as a tombstone; Delete skips it
  // and trims it.
  Delete(orphans);
}

const LineTable* RegionTable::Lines() const {
  if (!IsRegistered()) return nullptr;
  return dynamic_cast<const LineTable*>(Manager().GetContainer(ids::Lines));
}

std::vector<GID> RegionTable::RegionLineIDs(GID id) const {
  std::vector<GID> out;
  const LineTable* lines = Lines();
  if (!lines || !IsValidID(id)) return out;
  ForEachEdge(At(id).pointIDs_, [&](GID a, GID b) {
    if (GID l = lines->FindLine(a, b)) out.push_back(l);
  });
  return out;
}

void RegionTable::OnRegistration() { Manager().Subscribe(this, ids::Lines); }

void RegionTable::OnGetUsageOf(GID container, UsageList& usage) {
  GeomTable<Region>::OnGetUsageOf(container, usage);
  if (container == ids::Lines) {
    const LineTable* lines = Lines();
    if (!lines) return;
    // One pass over the lines, then one look-up per polygon edge.
    std::map<std::pair<GID, GID>, std::vector<GID>> byEdge;
    for (auto it = lines->begin(); it != lines->end(); ++it)
      byEdge[Edge(it->nPointID1_, it->nPointID2_)].push_back(it.ID());
    for (auto it = begin(); it != end(); ++it) {
      std::vector<GID> used;
      ForEachEdge(it->pointIDs_, [&](GID a, GID b) {
        auto found = byEdge.find(Edge(a, b));
        if (found != byEdge.end()) used.insert(used.end(), found->second.begin(), found->second.end());
      });
      std::sort(used.begin(), used.end());
      used.erase(std::unique(used.begin(), used.end()), used.end());
      for (GID l : used) Report(usage, l, GGID(ID(), it.ID()));
    }
  }
}

}  // namespace v7::Geom
