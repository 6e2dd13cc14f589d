#include "V7Doc/functions/FnIntegral.h"

#include <algorithm>
#include <cmath>

#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kIntegral(L"FnIntegral", &CreateFn<FnIntegral>);

// An integral's integrand may be an integral; text nested deeper than this is
// refused, so that a crafted text cannot exhaust the stack.
constexpr int kMaxNesting = 8;
int nesting = 0;  // the library starts no threads

const std::wstring kPrefix = L"Function.";

}  // namespace

FnIntegral::FnIntegral(const IFn& fn, int steps, DataParamType input, DataParamType output)
    : FnDataPoints(input, output), fn_(fn), steps_(steps > 0 ? static_cast<std::uint32_t>(steps) : 1) {
  Rebuild();
}

gtl::status FnIntegral::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  const FnAttr* function = nullptr;
  std::vector<FnAttr> inner;
  for (const FnAttr& a : attrs) {
    if (a.Name == L"Function") {
      function = &a;
    } else if (a.Name.compare(0, kPrefix.size(), kPrefix) == 0) {
      inner.emplace_back(a.Name.substr(kPrefix.size()), a.Value);
    } else if (a.Name == L"Steps") {
      std::uint32_t n = 0;
      if (ReadAttr(a.Value, n) && n >= 1 && n <= 1000)
        steps_ = n;
      else
        gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
    }
  }
  if (function) {
    if (nesting >= kMaxNesting) {
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), *function));
    } else {
      ++nesting;
      IFn f;
      double constant = 0;
      gtl::status fs;
      if (inner.empty() && str::parse(function->Value, constant)) {
        fs = FnCreate(function->Value, f);
      } else {
        fs = GetFnImplFromName(function->Value, f);
        if (fs.succeeded()) fs = f.SetAttributes(inner);
      }
      --nesting;
      gtl::keep_first_failure(s, fs);
      fn_ = f;
    }
  }
  Rebuild();
  return s;
}

void FnIntegral::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  const std::wstring text = fn_.as_wstring();
  std::wstring name;
  std::vector<FnAttr> inner;
  if (fn_->Name().empty() || !FnParse(text, name, inner).succeeded()) {
    attrs.push_back(FnAttrFunction(text));  // a constant: its number
  } else {
    attrs.push_back(FnAttrFunction(name));
    const FnAttr outer(L"Function");
    for (const FnAttr& a : inner)
      if (!a.Name.empty()) attrs.push_back(FnAttrSub(outer, a));
  }
  attrs.push_back(FnAttrSteps(steps_));
}

gtl::status FnIntegral::UpdateCalculatedValues() {
  const gtl::status s = fn_.IsUndefined() ? gtl::status() : fn_.Unshared()->UpdateCalculatedValues();
  Rebuild();
  return s;
}

void FnIntegral::Rebuild() {
  grid_.clear();
  if (!points_.empty()) {
    for (const FnPoint& p : points_)
      if (std::isfinite(p.x) && !qvi::IsNoValue(p.x)) grid_.push_back(p.x);
  } else {
    const int n = std::min(fn_->InputRangeNumPoints(), 100000);
    for (int i = 0; i < n; ++i)
      if (double x = fn_->InputRangeAt(i); std::isfinite(x) && !qvi::IsNoValue(x)) grid_.push_back(x);
  }
  std::sort(grid_.begin(), grid_.end());
  grid_.erase(std::unique(grid_.begin(), grid_.end()), grid_.end());
  cum_.assign(grid_.size(), 0.0);
  for (std::size_t i = 1; i < grid_.size(); ++i) {
    const double part = Simpson(grid_[i - 1], grid_[i]);
    cum_[i] = qvi::IsNoValue(part) || qvi::IsNoValue(cum_[i - 1]) ? qvi::kNoValue : cum_[i - 1] + part;
  }
}

double FnIntegral::Simpson(double a, double b) const {
  const std::uint32_t n = std::max<std::uint32_t>(steps_, 1);
  const double h = (b - a) / n;
  double sum = 0;
  for (std::uint32_t k = 0; k < n; ++k) {
    const double x0 = a + k * h, xm = x0 + 0.5 * h, x1 = k + 1 == n ? b : x0 + h;
    const double f0 = fn_(x0), fm = fn_(xm), f1 = fn_(x1);
    if (qvi::IsNoValue(f0) || qvi::IsNoValue(fm) || qvi::IsNoValue(f1)) return qvi::kNoValue;
    sum += (x1 - x0) / 6.0 * (f0 + 4.0 * fm + f1);
  }
  return std::isfinite(sum) ? sum : qvi::kNoValue;
}

double FnIntegral::Calculate(const double* x, const double*) const {
  const double v = *x;
  if (grid_.empty() || !(v >= grid_.front()) || !(v <= grid_.back())) return qvi::kNoValue;
  auto it = std::upper_bound(grid_.begin(), grid_.end(), v);
  const std::size_t i = static_cast<std::size_t>(it - grid_.begin()) - 1;
  if (qvi::IsNoValue(cum_[i])) return qvi::kNoValue;
  if (v == grid_[i]) return cum_[i];
  const double part = Simpson(grid_[i], v);
  return qvi::IsNoValue(part) ? part : cum_[i] + part;
}

double FnIntegral::InputRangeAt(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= grid_.size()) return qvi::kNoValue;
  return grid_[static_cast<std::size_t>(index)];
}

int FnIntegral::InputRangeNumPoints() const { return static_cast<int>(grid_.size()); }

}  // namespace v7
