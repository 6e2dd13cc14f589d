#pragma once
// The finite-element mesh of the document: nodes ("Items.Nodes[N]"), plane
// elements ("MeshItems.Elements[EL]") and line elements
// ("MeshItems.Elements1D[EL1D]") and node pairs ("MeshItems.NodePairs[NodePair]").
// Node and element numbers are one-based
// positions in their lists; a node number of 0 means "no node".
#include <array>
#include <cstdint>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/core/GID.h"

namespace v7 {

// A mesh node.
struct NODE {
  double dX_ = 0;
  double dY_ = 0;
  friend bool operator==(const NODE&, const NODE&) = default;
};

// A plane element: its node list in the eight-position layout (corners 1..4,
// mid-side nodes 5..8; see ShapeFunctions.h), its material (a GID into the
// materials table) and its integration order, the number of Gauss points it
// is integrated with (quadrilaterals 1, 4 or 9; triangles 1 or 3).
struct ELEM {
  std::array<std::int32_t, 8> anNodes_{};
  GID nMaterialID_ = 0;
  std::int32_t nIntegrationOrder_ = 0;

  // True for an unused row (no node at all).
  bool IsEmpty() const;
  // 4 for a quadrilateral, 3 for a triangle, 2 otherwise.
  int CornerCount() const;
  friend bool operator==(const ELEM&, const ELEM&) = default;
};

// A line element (bar, beam, interface): nodes in the positions 1, 2 and 5
// of the eight-position layout (the others 0), its material and its number
// of Gauss points (1, 2 or 3).
struct ELEM1D {
  std::array<std::int32_t, 8> anNodes_{};
  GID nMaterialID_ = 0;
  std::int32_t nIntegrationOrder_ = 0;

  bool IsEmpty() const;
  friend bool operator==(const ELEM1D&, const ELEM1D&) = default;
};

// Two nodes at one place that the mesh keeps apart (the two faces of an
// interface or a crack) but that a solver may tie together.
struct NodePair {
  std::int32_t nNode1_ = 0;
  std::int32_t nNode2_ = 0;
  friend bool operator==(const NodePair&, const NodePair&) = default;
};

namespace Geom {

class Mesh2D {
 public:
  // Appends a node; returns its number.
  std::int32_t AddNode(double x, double y);
  // Appends an element; returns its number.
  std::int32_t AddElement(const ELEM& e);
  std::int32_t AddElement1D(const ELEM1D& e);

  std::vector<NODE>& Nodes() { return nodes_; }
  const std::vector<NODE>& Nodes() const { return nodes_; }
  std::vector<ELEM>& Elements() { return elems_; }
  const std::vector<ELEM>& Elements() const { return elems_; }
  std::vector<ELEM1D>& Elements1D() { return elems1D_; }
  const std::vector<ELEM1D>& Elements1D() const { return elems1D_; }
  std::vector<NodePair>& NodePairs() { return nodePairs_; }
  const std::vector<NodePair>& NodePairs() const { return nodePairs_; }

  // Corner coordinates of element `e` (one-based) into xy; returns the
  // corner count (3 or 4), or 0 when e is not a plane element of the mesh or
  // names a node that is not in it.
  int ElemCorners(std::int32_t e, double xy[4][2]) const;

  // Checks every element's node numbers and integration order, and that
  // both nodes of every pair exist and differ; appends one status per fault,
  // naming the element or pair (validation never fails).
  void Validate(std::vector<gtl::status>& problems) const;

  // Empties the mesh.
  void Clear();
  bool IsEmpty() const {
    return nodes_.empty() && elems_.empty() && elems1D_.empty() && nodePairs_.empty();
  }
  friend bool operator==(const Mesh2D&, const Mesh2D&) = default;

 private:
  std::vector<NODE> nodes_;
  std::vector<ELEM> elems_;
  std::vector<ELEM1D> elems1D_;
  std::vector<NodePair> nodePairs_;
};

// Whether `order` Gauss points is a rule known for a plane element with
// `corners` corners (4: 1, 4, 9, 16; 3: 1, 3, 4, 6, 7) or a line element
// (2: 1 to 4); see GaussRules.h.
bool IsKnownIntegrationOrder(int corners, int order);

// The status of a node list that refers to a node beyond `nodeCount`, or of
// an unknown integration order; success otherwise. `element` and `oneD` name
// the element in the message.
gtl::status CheckElement(const std::array<std::int32_t, 8>& nodes, int corners, int order,
                         std::size_t nodeCount, std::size_t element, bool oneD);

}  // namespace Geom
}  // namespace v7
