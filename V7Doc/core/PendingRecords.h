#pragma once
// Records of collections whose full definition has not been written yet.
//
// The document registers every collection under its fixed GID and name from
// the start, so that IDs, names and registration order never change when the
// real record type arrives. Until then such a collection holds PendingRecord:
// a named record whose tombstone is an explicit flag. Each alias below is
// replaced by the real table type when its record is defined.
#include <string>

#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

template <int CollectionGID>
struct PendingRecord {
  std::wstring name_;
  bool bMissing_ = false;
  friend bool operator==(const PendingRecord&, const PendingRecord&) = default;
};

template <int N>
bool IsMissing(const PendingRecord<N>& r) {
  return r.bMissing_;
}
template <int N>
void SetMissing(PendingRecord<N>& r) {
  r = PendingRecord<N>{};
  r.bMissing_ = true;
}

template <int N>
using PendingTable = QVContainerTable<PendingRecord<N>>;

using StructuralBarAttributeTable = PendingTable<6>;
using StructuralBeamAttributeTable = PendingTable<7>;
using MeshConstraintTable = PendingTable<55>;

}  // namespace v7
