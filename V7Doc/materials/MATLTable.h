#pragma once
// The document's material table (collection 4, "Materials"): MATL records
// that keep their own ID in nMatlNum. Materials are edited by the user and
// follow the undo contract (UndoEquality, UndoAssignment, UndoFreeMemory),
// so the table takes part in the undo history.
#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/materials/MATL.h"

namespace v7 {

struct MatlIDPolicy {
  static constexpr bool kStoresID = true;
  static bool IsMissing(const MATL& m) { return m.nMatlNum_ == 0; }
  // A deleted row is a new material's defaults with ID 0.
  static void SetMissing(MATL& m) { m = MATL(); }
  static void SetID(MATL& m, const GID& id) { m.nMatlNum_ = id; }
  static GID GetID(const MATL& m) { return m.nMatlNum_; }
};

class MATLTable : public QVContainerTable<MATL, MatlIDPolicy, QVContainerOpUndoPolicy<MATL>> {
 public:
  MATLTable() = default;
};

}  // namespace v7
