#include "OC/Schema.h"
#include "V7Doc/files/UpgradeList.h"

namespace oc {

template <>
const RecordType& TypeOf<v7::files::UpgradeItem>() {
  using T = v7::files::UpgradeItem;
  static const RecordType& t = Schema<T>(L"UpgradeItem")
      .Add(&T::vValues_, L"vValues_", L"Values[Value]")
      .Done();
  return t;
}

}  // namespace oc
