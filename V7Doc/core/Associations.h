#pragma once
// One analysis context ("Contexts[Context]"): the links that say which
// materials, boundary conditions and structural items the geometry uses.
// The record is stored with its own ID (QVAssociationsIDPolicy).
#include <string>

#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

struct Associations {
  GID nID_ = 0;  // written only through QVAssociationsIDPolicy
  std::wstring name_;
  // The association maps (region uses material, geometry uses BC, ...) join
  // this record with the materials and boundary-condition records.
  friend bool operator==(const Associations&, const Associations&) = default;
};

struct QVAssociationsIDPolicy : QVContainerStoredIDPolicy<Associations, &Associations::nID_> {};

using AssociationsTable = QVContainerTable<Associations, QVAssociationsIDPolicy>;

}  // namespace v7
