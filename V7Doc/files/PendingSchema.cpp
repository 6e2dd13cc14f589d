// Minimal declarations of the records whose full definition has not been
// written yet (PendingRecord<N>): only their name persists. When the real
// record of a collection arrives, its entry here goes and the document's
// root line stays as it is.
#include "OC/Schema.h"
#include "V7Doc/core/PendingRecords.h"

namespace oc {
namespace {
template <int N>
const RecordType& PendingType(const wchar_t* name) {
  static const RecordType& t =
      Schema<v7::PendingRecord<N>>(name).Add(&v7::PendingRecord<N>::name_, L"name_", L"Name").Done();
  return t;
}
}  // namespace

#define V7_PENDING_SCHEMA(N, NAME) \
  template <>                      \
  const RecordType& TypeOf<v7::PendingRecord<N>>() { return PendingType<N>(NAME); }

V7_PENDING_SCHEMA(6, L"StructuralBarAttribute")
V7_PENDING_SCHEMA(7, L"StructuralBeamAttribute")
V7_PENDING_SCHEMA(55, L"MeshConstraint")

#undef V7_PENDING_SCHEMA

}  // namespace oc
