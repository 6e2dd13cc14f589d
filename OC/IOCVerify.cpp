// IOC::Verify: the data traits checked on values already stored (a record
// filled in code, a document assembled from parts), as Set checks them on
// the way in.
#include "OC/IOC.h"
#include "OC/OCError.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"

namespace oc {
namespace {
std::wstring Join(const std::wstring& where, const std::wstring& step) {
  return where.empty() ? step : where + L"." + step;
}
}  // namespace

gtl::status IOC::Verify() const {
  if (!IsValid()) return OCError::not_recognized(L"(no node)", where_);
  const ValueType t = Type();
  if (IsScalar(t)) {
    ScalarBox box;
    if (auto s = LoadScalar(box); s.failed()) return s;
    const auto& tr = member_->traits;
    if (t == ValueType::Enum) {
      if (box.i32 != qvi::kNone && tr.enum_table && !tr.enum_table->Contains(box.i32))
        return OCError::not_recognized(str::to_wstring(static_cast<long long>(box.i32)), where_);
      return {};
    }
    return CheckBounds(t, box.Slot(t));
  }
  const bool collection = kind_ == Kind::Member &&
                          (member_->type == ValueType::Array || member_->type == ValueType::Table);
  for (IOC c = begin(); c.IsValid(); c = GetNextSubOC(c)) {
    IOC child = c;
    if (collection)
      child.where_ = where_ + L"[" + str::to_wstring(static_cast<unsigned long long>(c.index_)) + L"]";
    else child.where_ = Join(where_, c.Name());
    if (auto s = child.Verify(); s.failed()) return s;
  }
  return {};
}

}  // namespace oc
