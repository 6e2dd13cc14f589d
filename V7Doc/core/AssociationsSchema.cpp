// Persisted names of the association records ("Contexts[Context]"). The ID
// is written by the table itself, so nID_ is not declared.
#include "OC/Schema.h"
#include "V7Doc/core/Associations.h"

namespace oc {

template <>
const RecordType& TypeOf<v7::Associations>() {
  static const RecordType& t = Schema<v7::Associations>(L"Associations")
      .Add(&v7::Associations::name_, L"name_", L"Name")
      .Done();
  return t;
}

}  // namespace oc
