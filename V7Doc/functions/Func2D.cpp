#include "V7Doc/functions/Func2D.h"

#include <algorithm>

#include "QVI/str/Messages.h"

namespace v7 {

Func2D::Func2D(std::wstring name, std::wstring description, IFn fn) {
  strName_ = std::move(name);
  strDescription_ = std::move(description);
  fn_ = std::move(fn);
}

Func2D Func2D::NewFunction(IFn fn) { return Func2D(str::load_wstring(20248), {}, std::move(fn)); }

void Func2D::ClearMissingPoints() {
  std::erase_if(points_, [](const FnPoint& p) { return p.HasMissing(); });
}

gtl::status Func2D::UpdateFn() {
  if (!dynamic_cast<const IFnDataPoints*>(fn_.get())) {
    return fn_.IsUndefined() ? gtl::status() : fn_.Unshared()->UpdateCalculatedValues();
  }
  FnImpl* fn = fn_.Unshared();
  const FnPoint* first = points_.data();
  const FnPoint* last = first + points_.size();
  if (!points_.empty() && points_.back().HasMissing()) --last;
  dynamic_cast<IFnDataPoints*>(fn)->Assign(first, last);
  return fn->UpdateCalculatedValues();
}

void Func2DTable::GetAllXYTypes(std::vector<eFunc2D_XYTypes>& types) const {
  types.clear();
  for (const eFunc2D_XYTypes* p = Func2DXYTypesRow(type_); *p != eXYNone; ++p) types.push_back(*p);
}

void Func2DTable::OnUpdateCalculatedValues() {
  // Leading missing slots are skipped; so are missing ones further on.
  for (auto it = begin(); it != end(); ++it) {
    it->ClearMissingPoints();
    it->UpdateFn();
  }
}

}  // namespace v7
