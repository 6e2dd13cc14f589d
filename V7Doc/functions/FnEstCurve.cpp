#include "V7Doc/functions/FnEstCurve.h"

#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {

FnAttr FnEstField::Write(double v) const {
  switch (kind) {
    case Double:
      return makeDouble(v);
    case Unsigned:
      return makeUnsigned(static_cast<std::uint32_t>(v));
    case Enum:
      return makeEnum(static_cast<std::int32_t>(v));
  }
  return {};
}

bool FnEstField::Read(const FnAttr& a, double& v, gtl::status& s) const {
  if (kind == Double) return ReadBounded(a, v, s, lo, hi, allowUnset);
  if (kind == Unsigned) {
    std::uint32_t n = 0;
    if (!ReadBounded(a, n, s, static_cast<std::uint32_t>(lo), static_cast<std::uint32_t>(hi)))
      return false;
    v = n;
    return true;
  }
  std::int32_t e = 0;
  if (!ReadEnum(a, e, s, table())) return false;
  v = e;
  return true;
}

FnEstField EstDouble(FnAttr (*make)(double), double def, double lo, double hi, bool allowUnset) {
  FnEstField f;
  f.makeDouble = make;
  f.def = def, f.lo = lo, f.hi = hi, f.allowUnset = allowUnset;
  f.name = make(0).Name;
  return f;
}

FnEstField EstCount(FnAttr (*make)(std::uint32_t), std::uint32_t def, std::uint32_t lo,
                    std::uint32_t hi) {
  FnEstField f;
  f.kind = FnEstField::Unsigned;
  f.makeUnsigned = make;
  f.def = def, f.lo = lo, f.hi = hi;
  f.name = make(0).Name;
  return f;
}

FnEstField EstEnum(FnAttr (*make)(std::int32_t), const meta::MetaEnumCommon& (*table)(),
                   std::int32_t def) {
  FnEstField f;
  f.kind = FnEstField::Enum;
  f.makeEnum = make;
  f.table = table;
  f.def = def;
  f.name = make(0).Name;
  return f;
}

gtl::status FindWaterContentFn(std::uint32_t num, IFn& fn) {
  const Func2D* f = num <= 0x7FFFFFFFu ? FindFunc2D(container::VolWCFns, static_cast<int>(num)) : nullptr;
  if (!f || f->Fn().IsUndefined())
    return AttributeError(FnAttrVolWCFnNum(num), str::format(str::load_wstring(33515), num));
  fn = f->Fn();
  return {};
}

FnEstCurve::FnEstCurve(const std::vector<FnEstField>& fields, const wchar_t* input,
                       const wchar_t* output)
    : fields_(&fields), input_(input), output_(output) {
  for (const FnEstField& f : fields) values_.push_back(f.def);
  SyncRange();
}

void FnEstCurve::GetFnReferences(std::vector<FnReference>& refs) const {
  const double num = Param(FnAttrVolWCFnNum(0).Name);
  if (!qvi::IsNoValue(num) && num >= 1) refs.push_back({container::VolWCFns, static_cast<GID>(num)});
}

void FnEstCurve::SyncRange() {
  if (const double v = Param(L"Min"); !qvi::IsNoValue(v)) min_ = v;
  if (const double v = Param(L"Max"); !qvi::IsNoValue(v)) max_ = v;
  if (const double v = Param(L"NumPoints"); !qvi::IsNoValue(v))
    numPoints_ = static_cast<std::uint32_t>(v);
}

gtl::status FnEstCurve::ParamError(std::wstring_view name, const std::wstring& reason) const {
  for (std::size_t i = 0; i < fields_->size(); ++i)
    if ((*fields_)[i].Name() == name)
      return AttributeError((*fields_)[i].Write(values_[i]), reason);
  return AttributeError(FnAttr(std::wstring(name)), reason);
}

double FnEstCurve::Param(std::wstring_view name) const {
  for (std::size_t i = 0; i < fields_->size(); ++i)
    if ((*fields_)[i].Name() == name) return values_[i];
  return qvi::kNoValue;
}

gtl::status FnEstCurve::SetAttributes(const std::vector<FnAttr>& attrs) {
  // Parse into copies; commit only when everything read.
  std::vector<double> values = values_;
  gtl::status s;
  for (const FnAttr& a : attrs)
    for (std::size_t i = 0; i < fields_->size(); ++i)
      if ((*fields_)[i].Name() == a.Name) (*fields_)[i].Read(a, values[i], s);
  if (!s.succeeded()) return s;
  const DataParamType in = InputParam(), out = OutputParam();
  if (gtl::status p = FnImpl::SetAttributes(attrs); !p.succeeded()) {
    SetInputParam(in);
    SetOutputParam(out);
    return p;
  }
  values_ = std::move(values);
  SyncRange();
  return {};
}

void FnEstCurve::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  for (std::size_t i = 0; i < fields_->size(); ++i)
    attrs.push_back((*fields_)[i].Write(values_[i]));
}

std::vector<double> FnEstCurve::LinSpaced(double lo, double hi, std::uint32_t n) {
  std::vector<double> x(n);
  for (std::uint32_t i = 0; i < n; ++i) x[i] = i + 1 == n ? hi : lo + (hi - lo) * i / (n - 1);
  return x;
}

gtl::status FnEstCurve::Tabulate(std::vector<double>& xs, std::vector<double>& ys) const {
  if (gtl::status s = Check(); !s.succeeded()) return s;
  xs = Abscissae();
  return Generate(xs, ys);
}

gtl::status FnEstCurve::Generate(const std::vector<double>& xs, std::vector<double>& ys) const {
  ys.clear();
  ys.reserve(xs.size());
  for (double x : xs) {
    const double y = Estimate(x);
    if (!std::isfinite(y) || qvi::IsNoValue(y))
      return EstimateError(str::format(str::load_wstring(33530), x));
    ys.push_back(y);
  }
  return {};
}

}  // namespace v7
