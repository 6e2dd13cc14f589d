#include "V7Doc/geometry/Geometry.h"

namespace v7::Geom {
namespace {

// IDs of the live records of `table` that no registered container refers to.
template <class Table>
std::vector<GID> Unused(Table& table) {
  std::vector<GID> unused;
  if (!table.IsRegistered()) return unused;
  UsageList usage;
  table.Manager().GetUsageOf(table.ID(), usage);
  for (auto it = table.begin(); it != table.end(); ++it)
    if (it.ID() >= usage.size() || usage[it.ID()].empty()) unused.push_back(it.ID());
  return unused;
}

}  // namespace

void Geometry::Init(QVContainerManager& manager) {
  manager.Register(&points_, L"Points", ids::Points);
  manager.Register(&lines_, L"Lines", ids::Lines);
}

void Geometry::RegisterRegions(QVContainerManager& manager) {
  manager.Register(&regions_, L"Regions", ids::Regions);
}

void Geometry::RegisterSurface(QVContainerManager& manager) {
  manager.Register(&surface_, L"Surface", ids::Surface);
}

void Geometry::Reset() {
  points_.Clear();
  lines_.Clear();
  regions_.Clear();
  surface_.Clear();
  mesh_.Clear();
  precision_ = Precision3D(7, 7, 7);
}

const Precision3D& Geometry::UpdatePrecision() {
  precision_ = ComputePrecisionOfExtents(points_.Extents());
  SetCompPrecision(precision_);
  return precision_;
}

std::vector<bool> Geometry::GetAllIsPointUsed() {
  std::vector<bool> used(points_.Size() + 1, false);
  if (!points_.IsRegistered()) return used;
  UsageList usage;
  points_.Manager().GetUsageOf(points_.ID(), usage);
  for (std::size_t p = 1; p < used.size() && p < usage.size(); ++p) used[p] = !usage[p].empty();
  return used;
}

std::size_t Geometry::CleanUnusedPoints() {
  const auto unused = Unused(points_);
  points_.Delete(unused);
  return unused.size();
}

std::size_t Geometry::CleanUnusedLines() {
  const auto unused = Unused(lines_);
  lines_.Delete(unused);
  return unused.size();
}

}  // namespace v7::Geom
