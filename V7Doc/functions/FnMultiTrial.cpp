#include "V7Doc/functions/FnMultiTrial.h"

#include "QVI/str/Convert.h"
#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const std::wstring kSingle = L"Single.", kRange = L"Range.", kProb = L"Probabilistic.";

bool TrialsText(const std::wstring& text, IFn& fn, gtl::status& s) {
  s = FnMultiTrial::Create(text, fn);
  return s.succeeded();
}

const FnKindRegistrar kTrials(FnMultiTrial::TypeName(), &CreateFn<FnMultiTrial>);
const bool kTrialsText = (RegisterFnTextCreator(&TrialsText), true);

bool StripPrefix(const std::wstring& name, const std::wstring& prefix, std::wstring& rest) {
  if (name.size() <= prefix.size() || name.compare(0, prefix.size(), prefix) != 0) return false;
  rest = name.substr(prefix.size());
  return true;
}

}  // namespace

FnMultiTrial::FnMultiTrial() : single_(qvi::kNoValue), prob_(new FnProbNormal()) {}

gtl::status FnMultiTrial::Create(const std::wstring& text, IFn& fn) {
  std::wstring name;
  std::vector<FnAttr> attrs;
  if (gtl::status s = FnParse(text, name, attrs); !s.succeeded()) return s;
  if (str::trim(name) != TypeName()) return gtl::status::error(20547, name);
  auto* trials = new FnMultiTrial();
  fn = IFn(trials);
  return trials->SetAttributes(attrs);
}

FnAttr FnMultiTrial::AttrSingle(const FnAttr& a) { return FnAttrSub(FnAttr(L"Single"), a); }
FnAttr FnMultiTrial::AttrRange(const FnAttr& a) { return FnAttrSub(FnAttr(L"Range"), a); }
FnAttr FnMultiTrial::AttrProb(const FnAttr& a) { return FnAttrSub(FnAttr(L"Probabilistic"), a); }

FnProb& FnMultiTrial::fnProb() { return static_cast<FnProb&>(*prob_.Unshared()); }
const FnProb& FnMultiTrial::fnProb() const { return static_cast<const FnProb&>(*prob_); }

gtl::status FnMultiTrial::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  std::vector<FnAttr> single, range, prob;
  std::wstring rest;
  for (const FnAttr& a : attrs) {
    if (StripPrefix(a.Name, kSingle, rest))
      single.emplace_back(rest, a.Value);
    else if (StripPrefix(a.Name, kRange, rest))
      range.emplace_back(rest, a.Value);
    else if (!StripPrefix(a.Name, kProb, rest))
      continue;
    else if (rest != L"Type")
      prob.emplace_back(rest, a.Value);
    else if (const std::wstring type(str::trim(a.Value)); type != prob_->Name()) {
      IFn made;
      if (GetFnImplFromName(type, made).succeeded() && dynamic_cast<const FnProb*>(made.get()))
        prob_ = made;
      else
        gtl::keep_first_failure(s, AttributeError(a, str::format(str::load_wstring(33503), a.Value)));
    }
  }
  if (!single.empty()) gtl::keep_first_failure(s, single_.SetAttributes(single));
  if (!range.empty()) gtl::keep_first_failure(s, range_.SetAttributes(range));
  if (!prob.empty()) gtl::keep_first_failure(s, prob_.SetAttributes(prob));
  return s;
}

gtl::status FnMultiTrial::UpdateCalculatedValues() {
  FnProb& p = fnProb();
  return p.IsValid() ? p.UpdateCalculatedValues() : gtl::status{};
}

double FnMultiTrial::Calculate(const double* x, const double* y) const { return single_.Calculate(x, y); }

void FnMultiTrial::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(AttrSingle(FnAttrValue(single_.Value())));
  std::vector<FnAttr> part;
  range_.GetDataAttributes(part);
  for (const FnAttr& a : part) attrs.push_back(AttrRange(a));
  part.clear();
  part.push_back(FnAttrType(prob_->Name()));
  prob_->GetDataAttributes(part);
  for (const FnAttr& a : part) attrs.push_back(AttrProb(a));
}

void FnMultiTrial::GetCalcAttributes(std::vector<FnAttr>& attrs) const {
  std::vector<FnAttr> part;
  range_.GetCalcAttributes(part);
  for (const FnAttr& a : part) attrs.push_back(AttrRange(a));
  part.clear();
  prob_->GetCalcAttributes(part);
  for (const FnAttr& a : part) attrs.push_back(AttrProb(a));
}

}  // namespace v7
