#pragma once
// Mesh constraints (collection 55, "MeshConstraints"): what the mesher must
// honour on one geometry item, named by its GGID (a point, line or region).
// An element edge length or a number of divisions set here overrides the
// document's global edge length on that item.
//
// The tombstone is the constraint on no item (container 0).
#include <cstdint>

#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

struct MeshConstraint {
  GID nContainer_ = 0;  // "ContainerID": points 1, lines 2, regions 3
  GID nRecord_ = 0;     // "RecordID": the item in nContainer_
  double fEdgeLength_ = qvi::kNoValue;  // "EdgeLength", m; no value: the global length
  // "NumDivisions": element edges along a line; 0: from the edge length.
  std::int32_t nDivisions_ = 0;
  GGID Item() const { return GGID(nContainer_, nRecord_); }
  friend bool operator==(const MeshConstraint&, const MeshConstraint&) = default;
};
inline bool IsMissing(const MeshConstraint& c) { return c.nContainer_ == 0; }
inline void SetMissing(MeshConstraint& c) { c = MeshConstraint{}; }

using MeshConstraintTable = QVContainerTable<MeshConstraint>;

}  // namespace v7
