#include "V7Doc/functions/FnTimeHistory.h"

#include <algorithm>

#include "QVI/str/Convert.h"
#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kXAcc(L"FnXAcc", &CreateFn<FnXAcc>);
const FnKindRegistrar kXVel(L"FnXVel", &CreateFn<FnXVel>);
const FnKindRegistrar kYAcc(L"FnYAcc", &CreateFn<FnYAcc>);
const FnKindRegistrar kYVel(L"FnYVel", &CreateFn<FnYVel>);

}  // namespace

FnTimeHistory::FnTimeHistory(const wchar_t* name, DataParamType output) : name_(name) {
  SetInputParam(DataParamType::Time);
  SetOutputParam(output);
}

gtl::status FnTimeHistory::SetAttributes(const std::vector<FnAttr>& attrs) {
  // Unset would not survive a save: the writer leaves an undefined type
  // out, and the reader gives this kind its own. So neither an empty value
  // nor one that names no quantity is taken.
  for (const FnAttr& a : attrs) {
    if (a.Name != L"InputParam" && a.Name != L"OutputParam") continue;
    DataParamType p = DataParamType::Undefined;
    if (str::trim(a.Value).empty() || (ReadAttr(a.Value, p) && p == DataParamType::Undefined))
      return AttributeError(a, str::load_wstring(33534));
  }
  return FnLinear::SetAttributes(attrs);
}

std::vector<FnPoint> IntegrateAcceleration(const std::vector<FnPoint>& acceleration) {
  std::vector<FnPoint> a;
  for (const FnPoint& p : acceleration)
    if (!p.HasMissing()) a.push_back(p);
  std::stable_sort(a.begin(), a.end(),
                   [](const FnPoint& l, const FnPoint& r) { return l.x < r.x; });
  std::vector<FnPoint> v;
  double vel = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (i > 0) vel += 0.5 * (a[i].y + a[i - 1].y) * (a[i].x - a[i - 1].x);
    v.push_back({a[i].x, vel, 0.0});
  }
  return v;
}

IFn VelocityFromAcceleration(const IFn& acceleration) {
  FnTimeHistory* v = nullptr;
  if (dynamic_cast<const FnXAcc*>(acceleration.get()))
    v = new FnXVel();
  else if (dynamic_cast<const FnYAcc*>(acceleration.get()))
    v = new FnYVel();
  else
    return IFn();
  const std::vector<FnPoint> pts =
      IntegrateAcceleration(dynamic_cast<const FnDataPoints&>(*acceleration).DataPoints());
  v->Assign(pts.data(), pts.data() + pts.size());
  return IFn(v);
}

}  // namespace v7
