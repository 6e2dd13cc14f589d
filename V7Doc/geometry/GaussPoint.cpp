#include "V7Doc/geometry/GaussPoint.h"

#include <cmath>
#include <type_traits>

#include "V7Doc/geometry/ShapeFunctions.h"

namespace v7::Geom {
namespace {

// The global coordinates of the element's Gauss points, interpolated from
// its nodes with its own shape functions; empty when the rule is unknown.
std::vector<Point3D> ElementPoints(const std::array<std::int32_t, 8>& nodes, int corners,
                                   int order, const std::vector<NODE>& mesh) {
  std::vector<Point3D> out;
  for (const auto& [r, s, w] : GaussRule(corners, order)) {
    (void)w;
    double N[8];
    Shape_Function(N, r, s, nodes.data());
    Point3D p;
    for (std::size_t i = 0; i < 8; ++i) {
      if (nodes[i] <= 0 || N[i] == 0) continue;
      const NODE& n = mesh[static_cast<std::size_t>(nodes[i]) - 1];
      p.x += N[i] * n.dX_;
      p.y += N[i] * n.dY_;
    }
    out.push_back(p);
  }
  return out;
}

template <class Elem>
gtl::status Number(GaussPoint& gp, void (GaussPoint::*append)(std::uint32_t,
                                                              const std::vector<Point3D>&),
                   const std::vector<Elem>& elements, const std::vector<NODE>& nodes,
                   bool oneD) {
  gtl::status first;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const Elem& e = elements[i];
    if (e.IsEmpty()) continue;
    int corners = 2;
    if constexpr (std::is_same_v<Elem, ELEM>) corners = e.CornerCount();
    const gtl::status s =
        CheckElement(e.anNodes_, corners, e.nIntegrationOrder_, nodes.size(), i + 1, oneD);
    if (!s.succeeded()) {
      gtl::keep_first_failure(first, s);
      continue;
    }
    (gp.*append)(static_cast<std::uint32_t>(i + 1),
                 ElementPoints(e.anNodes_, corners, e.nIntegrationOrder_, nodes));
  }
  return first;
}

}  // namespace

GID GaussPoint::GetGaussPointID(std::uint32_t element, std::uint32_t index) const {
  if (element >= firstID_.size() || firstID_[element] == kNoPoints) return 0;
  const std::uint64_t id = std::uint64_t{firstID_[element]} + index;
  if (id >= pairs_.size() || pairs_[id].first != element) return 0;
  return static_cast<GID>(id);
}

std::pair<std::uint32_t, std::uint32_t> GaussPoint::GetElemGaussPair(GID id) const {
  if (id >= pairs_.size()) return {0, 0};
  return pairs_[id];
}

Point3D GaussPoint::GetCoord(GID id) const {
  if (id >= coords_.size()) return {qvi::kNoValue, qvi::kNoValue, qvi::kNoValue};
  return coords_[id];
}

std::size_t GaussPoint::Size() const { return pairs_.empty() ? 0 : pairs_.size() - 1; }

void GaussPoint::Clear() {
  firstID_.clear();
  pairs_.clear();
  coords_.clear();
}

void GaussPoint::Start(std::size_t elements) {
  Clear();
  firstID_.assign(elements + 1, kNoPoints);
  pairs_.emplace_back(0, 0);
  coords_.push_back({qvi::kNoValue, qvi::kNoValue, qvi::kNoValue});
}

void GaussPoint::Append(std::uint32_t element, const std::vector<Point3D>& coords) {
  firstID_[element] = static_cast<std::uint32_t>(pairs_.size() - 1);
  for (std::size_t k = 0; k < coords.size(); ++k) {
    pairs_.emplace_back(element, static_cast<std::uint32_t>(k + 1));
    coords_.push_back(coords[k]);
  }
}

gtl::status GaussPoint1D::Init(const std::vector<ELEM1D>& elements, const std::vector<NODE>& nodes) {
  Start(elements.size());
  return Number(*this, &GaussPoint1D::Append, elements, nodes, true);
}

gtl::status GaussPoint2D::Init(const std::vector<NODE>& nodes, const std::vector<ELEM>& elements) {
  Start(elements.size());
  return Number(*this, &GaussPoint2D::Append, elements, nodes, false);
}

}  // namespace v7::Geom
