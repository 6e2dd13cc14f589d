#include "V7Doc/geometry/Mesh2D.h"

#include <algorithm>

#include "V7Doc/geometry/GaussRules.h"

namespace v7 {
namespace {

bool AllZero(const std::array<std::int32_t, 8>& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](std::int32_t n) { return n == 0; });
}

}  // namespace

bool ELEM::IsEmpty() const { return AllZero(anNodes_); }

int ELEM::CornerCount() const {
  if (anNodes_[3] != 0) return 4;
  if (anNodes_[2] != 0) return 3;
  return 2;
}

bool ELEM1D::IsEmpty() const { return AllZero(anNodes_); }

namespace Geom {

std::int32_t Mesh2D::AddNode(double x, double y) {
  nodes_.push_back({x, y});
  return static_cast<std::int32_t>(nodes_.size());
}

std::int32_t Mesh2D::AddElement(const ELEM& e) {
  elems_.push_back(e);
  return static_cast<std::int32_t>(elems_.size());
}

std::int32_t Mesh2D::AddElement1D(const ELEM1D& e) {
  elems1D_.push_back(e);
  return static_cast<std::int32_t>(elems1D_.size());
}

int Mesh2D::ElemCorners(std::int32_t e, double xy[4][2]) const {
  if (e < 1 || static_cast<std::size_t>(e) > elems_.size()) return 0;
  const ELEM& el = elems_[static_cast<std::size_t>(e) - 1];
  const int corners = el.CornerCount();
  if (corners < 3) return 0;
  for (int i = 0; i < corners; ++i) {
    const std::int32_t n = el.anNodes_[static_cast<std::size_t>(i)];
    if (n < 1 || static_cast<std::size_t>(n) > nodes_.size()) return 0;
    xy[i][0] = nodes_[static_cast<std::size_t>(n) - 1].dX_;
    xy[i][1] = nodes_[static_cast<std::size_t>(n) - 1].dY_;
  }
  return corners;
}

void Mesh2D::Validate(std::vector<gtl::status>& problems) const {
  for (std::size_t i = 0; i < elems_.size(); ++i) {
    const ELEM& e = elems_[i];
    if (e.IsEmpty()) continue;
    auto s = CheckElement(e.anNodes_, e.CornerCount(), e.nIntegrationOrder_, nodes_.size(), i + 1,
                          false);
    if (!s.succeeded()) problems.push_back(std::move(s));
  }
  for (std::size_t i = 0; i < elems1D_.size(); ++i) {
    const ELEM1D& e = elems1D_[i];
    if (e.IsEmpty()) continue;
    auto s = CheckElement(e.anNodes_, 2, e.nIntegrationOrder_, nodes_.size(), i + 1, true);
    if (!s.succeeded()) problems.push_back(std::move(s));
  }
  constexpr unsigned kMsgBadNodePair = 31044;
  for (std::size_t i = 0; i < nodePairs_.size(); ++i) {
    const NodePair& p = nodePairs_[i];
    const auto known = [&](std::int32_t n) {
      return n >= 1 && static_cast<std::size_t>(n) <= nodes_.size();
    };
    if (!known(p.nNode1_) || !known(p.nNode2_) || p.nNode1_ == p.nNode2_)
      problems.push_back(
          gtl::status::error(kMsgBadNodePair, i + 1, p.nNode1_, p.nNode2_, nodes_.size()));
  }
}

void Mesh2D::Clear() {
  nodes_.clear();
  elems_.clear();
  elems1D_.clear();
  nodePairs_.clear();
}

bool IsKnownIntegrationOrder(int corners, int order) { return !GaussRule(corners, order).empty(); }

gtl::status CheckElement(const std::array<std::int32_t, 8>& nodes, int corners, int order,
                         std::size_t nodeCount, std::size_t element, bool oneD) {
  const wchar_t* kind = oneD ? L"Line element" : L"Element";
  for (std::size_t p = 0; p < nodes.size(); ++p) {
    const std::int32_t n = nodes[p];
    if (n < 0 || static_cast<std::size_t>(n) > nodeCount)
      return gtl::status::error(34000, kind, element, p + 1, n, nodeCount);
  }
  for (int p = 0; p < corners; ++p)
    if (nodes[static_cast<std::size_t>(p)] == 0)
      return gtl::status::error(34001, kind, element, p + 1);
  if (!IsKnownIntegrationOrder(corners, order))
    return gtl::status::error(34002, kind, element, order, corners);
  return {};
}

}  // namespace Geom
}  // namespace v7
