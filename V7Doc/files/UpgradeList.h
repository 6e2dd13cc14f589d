#pragma once
// Values of an old document that have no place of their own in this
// generation ("UpgradeList[Upgrade]"): each item gathers one old member,
// one value per analysis ("Values[Value]", at the position of the
// analysis's ID; positions of no analysis hold the no-value marker).
//
//   item 1: "Analyses[$1].CapSuction"  the suction at which an analysis capped
//           negative pore-water pressures;
//   item 2: "Analyses[$1].MaxSuction"  the largest suction an analysis allowed.
//
// Today's analysis record has no member for either, so after a read they
// stay here, are saved with the document and read back unchanged: nothing
// the old project held is lost, and a later generation that gains such a
// member takes them from here.
#include <vector>

#include "OC/RecordType.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7::files {

struct UpgradeItem {
  std::vector<double> vValues_;  // "Values[Value]", by analysis ID
  bool bMissing_ = false;        // deleted (never persisted)
  friend bool operator==(const UpgradeItem&, const UpgradeItem&) = default;
};
inline bool IsMissing(const UpgradeItem& r) { return r.bMissing_; }
inline void SetMissing(UpgradeItem& r) {
  r = UpgradeItem{};
  r.bMissing_ = true;
}

using UpgradeTable = QVContainerTable<UpgradeItem>;

}  // namespace v7::files

template <>
const oc::RecordType& oc::TypeOf<v7::files::UpgradeItem>();
