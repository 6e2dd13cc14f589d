#include "V7Doc/functions/FnRange.h"

#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {
const FnKindRegistrar kRange(FnRange::TypeName(), &CreateFn<FnRange>);
}

gtl::status FnRange::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    bool ok = true;
    if (a.Name == L"Mean") {
      ok = ReadAttr(a.Value, mean_);
    } else if (a.Name == L"Delta") {
      ok = ReadAttr(a.Value, delta_);
    } else if (a.Name == L"Steps") {
      if (str::trim(a.Value).empty())
        steps_ = kUnsetSteps;
      else
        ok = ReadAttr(a.Value, steps_);
    }
    if (!ok) gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
  }
  return s;
}

double FnRange::Min() const { return IsValid() ? mean_ - Steps() * delta_ : qvi::kNoValue; }
double FnRange::Max() const { return IsValid() ? mean_ + Steps() * delta_ : qvi::kNoValue; }

int FnRange::InputRangeNumPoints() const {
  // Bounded so that a huge step count cannot make a huge walk.
  if (!IsValid() || Steps() > 100000) return 0;
  return static_cast<int>(2 * Steps() + 1);
}

double FnRange::InputRangeAt(int index) const {
  if (index < 0 || index >= InputRangeNumPoints()) return qvi::kNoValue;
  return mean_ + (index - static_cast<double>(Steps())) * delta_;
}

void FnRange::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMean(mean_));
  attrs.push_back(FnAttrDelta(delta_));
  attrs.push_back(steps_ == kUnsetSteps ? FnAttr(L"Steps") : FnAttrSteps(steps_));
}

void FnRange::GetCalcAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMin(Min()));
  attrs.push_back(FnAttrMax(Max()));
  attrs.push_back(FnAttrSteps(Steps()));
}

}  // namespace v7
