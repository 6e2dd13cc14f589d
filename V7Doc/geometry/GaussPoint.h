#pragma once
// Numbering of the mesh's Gauss points: identifiers run from 1 without gaps,
// element by element, and each names its (element, index) pair and its
// global coordinate.
#include <cstdint>
#include <utility>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/geometry/GaussRules.h"
#include "V7Doc/geometry/GeomTypes.h"
#include "V7Doc/geometry/Mesh2D.h"

namespace v7::Geom {


class GaussPoint {
 public:
  // The marker of an element without Gauss points in the first-point table.
  static constexpr std::uint32_t kNoPoints = 0xFFFFFFFF;

  virtual ~GaussPoint() = default;

  // The identifier of the k-th point (k from 1) of element e (from 1); 0 when
  // the element has no points or k does not name one of its own.
  GID GetGaussPointID(std::uint32_t element, std::uint32_t index) const;
  // The (element, index) pair of a point; (0, 0) for an unknown identifier.
  std::pair<std::uint32_t, std::uint32_t> GetElemGaussPair(GID id) const;
  // The global coordinate of a point; all no-value for an unknown identifier.
  Point3D GetCoord(GID id) const;
  // The number of Gauss points (0 when empty).
  std::size_t Size() const;
  // Empties every table.
  void Clear();

 protected:
  // Starts the tables for `elements` elements: every first-point entry none,
  // the placeholder pair and coordinate at identifier 0.
  void Start(std::size_t elements);
  // Numbers the points of element `element` (from 1) at `coords`.
  void Append(std::uint32_t element, const std::vector<Point3D>& coords);

 private:
  std::vector<std::uint32_t> firstID_;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs_;
  std::vector<Point3D> coords_;
};

// Gauss points of the line elements.
class GaussPoint1D : public GaussPoint {
 public:
  // Numbers the points of every non-empty line element, with the rules of
  // GaussRules.h. An element with a bad node number or a point count that
  // has no rule gets no points and the first such fault is returned (error
  // 34002 names the element and the count); the others are numbered all
  // the same.
  gtl::status Init(const std::vector<ELEM1D>& elements, const std::vector<NODE>& nodes);
};

// Gauss points of the plane elements.
class GaussPoint2D : public GaussPoint {
 public:
  // As GaussPoint1D::Init, for plane elements.
  gtl::status Init(const std::vector<NODE>& nodes, const std::vector<ELEM>& elements);
};

}  // namespace v7::Geom
