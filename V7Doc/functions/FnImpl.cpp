#include "V7Doc/functions/FnImpl.h"

#include <algorithm>

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {

// ---- FnImpl defaults ----------------------------------------------------

FnImpl::~FnImpl() = default;

// Attributes with an empty value (unset numbers, absent tails) are left out:
// written alone they would be empty pieces, which read back as nothing, so
// the shorter text means the same.
std::wstring FnImpl::as_wstring() const { return as_wstring_nonempty(); }

std::wstring FnImpl::as_wstring_nonempty() const {
  std::vector<FnAttr> attrs;
  GetAllDataAttributes(attrs);
  return str::format(L"%s(%s)", Name(), JoinAttributes(attrs, true));
}

gtl::status FnImpl::UpdateCalculatedValues() { return {}; }
gtl::status FnImpl::LastError() const { return {}; }

gtl::status FnImpl::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s;
  for (const FnAttr& a : attrs) {
    DataParamType* target = a.Name == L"InputParam"    ? &InputParam_
                            : a.Name == L"OutputParam" ? &OutputParam_
                                                       : nullptr;
    if (!target) continue;
    DataParamType p = DataParamType::Undefined;
    if (str::trim(a.Value).empty() || ReadAttr(a.Value, p))
      *target = p;
    else
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
  }
  return s;
}

double FnImpl::InputRangeAt(int) const { return qvi::kNoValue; }
int FnImpl::InputRangeNumPoints() const { return 0; }
void FnImpl::GetDataAttributes(std::vector<FnAttr>&) const {}
void FnImpl::GetCalcAttributes(std::vector<FnAttr>&) const {}
IFnReview* FnImpl::GetReview() const { return nullptr; }

void FnImpl::Evaluate(std::span<const double> in, std::span<double> out) const {
  const std::size_t n = std::min(in.size(), out.size());
  for (std::size_t i = 0; i < n; ++i) out[i] = Calculate(&in[i], nullptr);
}

void FnImpl::GetAllDataAttributes(std::vector<FnAttr>& attrs) const {
  if (InputParam_ != DataParamType::Undefined) attrs.push_back(FnAttrInputParam(InputParam_));
  if (OutputParam_ != DataParamType::Undefined) attrs.push_back(FnAttrOutputParam(OutputParam_));
  GetDataAttributes(attrs);
}

void FnImpl::GetAttributes(std::vector<FnAttr>& attrs) const {
  attrs.clear();
  GetAllDataAttributes(attrs);
  std::vector<FnAttr> calc;
  if (const std::wstring name = Name(); !name.empty()) calc.push_back(FnAttrType(name));
  GetCalcAttributes(calc);
  // Merge by name: the first entry of a name takes the new value in place.
  for (FnAttr& c : calc) {
    auto it = std::find_if(attrs.begin(), attrs.end(),
                           [&](const FnAttr& a) { return a.Name == c.Name; });
    if (it != attrs.end())
      it->Value = std::move(c.Value);
    else
      attrs.push_back(std::move(c));
  }
  if (this == IFn::FnUndefined().get()) return;
  const bool hasDescription = std::any_of(attrs.begin(), attrs.end(),
                                          [](const FnAttr& a) { return a.Name == L"Description"; });
  if (hasDescription) return;
  if (InputParam_ == DataParamType::Undefined || OutputParam_ == DataParamType::Undefined)
    attrs.push_back(FnAttrDescription(as_wstring()));
  else
    attrs.push_back(FnAttrDescription(
        str::format(str::load_wstring(22845), meta::ToName(OutputParam_), meta::ToName(InputParam_))));
}

bool FnImpl::LookupAttribute(FnAttr& attr) const {
  FnAttr found;
  if (!LookupAttributeAt(found, 0, attr.Name)) return false;
  attr.Value = found.Value;
  return true;
}

bool FnImpl::LookupAttributeAt(FnAttr& attr, unsigned index, const std::wstring& name) const {
  std::vector<FnAttr> attrs;
  GetAttributes(attrs);
  auto find = [&](const std::wstring& n) {
    unsigned seen = 0;
    for (const FnAttr& a : attrs) {
      if (a.Name != n) continue;
      if (seen++ == index) {
        attr = a;
        return true;
      }
    }
    return false;
  };
  if (find(name)) return true;
  // A calculated value may be asked for by its composed name
  // ("Calculated.Min") while the kind lists it plainly ("Min").
  static const std::wstring kCalc = L"Calculated.";
  if (name.size() > kCalc.size() && name.compare(0, kCalc.size(), kCalc) == 0 &&
      find(name.substr(kCalc.size()))) {
    attr.Name = name;
    return true;
  }
  return false;
}

bool FnImpl::HasAttribute(const std::wstring& name) const {
  FnAttr a(name);
  return LookupAttribute(a);
}

double IFn_iterator_sequence_step::at(const FnImpl& fn, int index) { return fn.InputRangeAt(index); }

// ---- IFn ----------------------------------------------------------------

IFn::IFn() : p_(FnUndefined().p_) {}
IFn::IFn(FnImpl* fn) : p_(fn) {
  if (!p_) p_ = FnUndefined().p_;
}
IFn::IFn(IFn&& o) noexcept : p_(o.p_) {}  // a moved-from handle stays valid (never null)
IFn& IFn::operator=(IFn&& o) noexcept {
  p_ = o.p_;
  return *this;
}

const IFn& IFn::FnZero() {
  static const IFn zero = Constant(0.0);
  return zero;
}

const IFn& IFn::FnOne() {
  static const IFn one = Constant(1.0);
  return one;
}

const IFn& IFn::FnUndefined() {
  static const IFn undefined(new FnUndefinedType());
  return undefined;
}

IFn IFn::Constant(double value) {
  if (qvi::IsNoValue(value)) return IFn(new FnUndefinedType());
  return IFn(new FnConst(value));
}

gtl::status IFn::InvalidInputError() { return gtl::status::error(33002, L""); }

bool IFn::IsUndefined() const { return p_ == FnUndefined().p_; }

void IFn::reset() { p_ = FnUndefined().p_; }

FnImpl* IFn::Unshared() {
  if (p_->ref_count() > 1) p_ = gtl::handle<FnImpl>(p_->Clone());
  return p_.get();
}

gtl::status IFn::SetAttributes(const std::vector<FnAttr>& attrs) {
  return Unshared()->SetAttributes(attrs);
}

gtl::status IFn::SetAttribute(const FnAttr& attr) { return SetAttributes(std::vector<FnAttr>{attr}); }

gtl::status IFn::InitializeInstance(GID fnNum, GID mfnNum) {
  if (!dynamic_cast<const ITableContext*>(p_.get())) return {};
  return dynamic_cast<ITableContext*>(Unshared())->InitializeInstance(fnNum, mfnNum);
}

bool operator==(const IFn& a, const IFn& b) {
  if (a.p_ == b.p_) return true;
  return a.p_->Name() == b.p_->Name() && a.p_->as_wstring() == b.p_->as_wstring();
}

// ---- text ---------------------------------------------------------------

gtl::status FnParse(const std::wstring& text, std::wstring& name, std::vector<FnAttr>& attrs) {
  name.clear();
  attrs.clear();
  const std::size_t open = text.find(L'(');
  const std::size_t close = text.rfind(L')');
  if (open == std::wstring::npos || close == std::wstring::npos || close < open)
    return gtl::status::error(33000, text);
  name = text.substr(0, open);
  const std::wstring inner = text.substr(open + 1, close - open - 1);
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = inner.find(L',', start);
    const std::wstring piece =
        inner.substr(start, comma == std::wstring::npos ? std::wstring::npos : comma - start);
    const std::size_t eq = piece.find(L'=');
    if (piece.empty())
      attrs.emplace_back();
    else if (eq == std::wstring::npos)
      attrs.emplace_back(L"Value", piece);
    else
      attrs.emplace_back(piece.substr(0, eq), piece.substr(eq + 1));
    if (comma == std::wstring::npos) break;
    start = comma + 1;
  }
  return {};
}

gtl::status GetFnImplFromName(const std::wstring& name, IFn& fn) {
  FnCreator create = FindFnKind(name);
  if (!create) {
    fn.reset();
    return gtl::status::error(20547, name);
  }
  fn = IFn(create());
  return {};
}

gtl::status FnCreate(const std::wstring& text, IFn& fn) {
  fn.reset();
  if (text.empty()) return {};
  if (text == L"0") {
    fn = IFn::FnZero();
    return {};
  }
  double value = 0;
  if (str::parse(text, value) && !std::isnan(value) && !std::isinf(value)) {
    fn = IFn::Constant(value);
    return {};
  }
  for (FnTextCreator create : RegisteredFnTextCreators()) {
    gtl::status s;
    if (create(text, fn, s)) return s;
    fn.reset();
  }
  std::wstring name;
  std::vector<FnAttr> attrs;
  if (gtl::status s = FnParse(text, name, attrs); !s.succeeded()) return s;
  if (gtl::status s = GetFnImplFromName(name, fn); !s.succeeded()) return s;
  return fn.SetAttributes(attrs);
}

}  // namespace v7
