#include "V7Doc/functions/FnProbFN.h"

#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/Func2D.h"

namespace v7 {
namespace {
const FnKindRegistrar kProbFN(FnProbFN::TypeName(), &CreateFn<FnProbFN>);
constexpr GID kProbFns = 40;
}  // namespace

FnProbFN::FnProbFN(const std::uint32_t& fnNum, const double& min, const double& max) : fnNum_(fnNum) {
  min_ = min;
  max_ = max;
}

bool FnProbFN::IsValid() const {
  return fnNum_ != 0 && fnNum_ != 0xFFFFFFFFu && !qvi::IsNoValue(min_) && !qvi::IsNoValue(max_) &&
         min_ < max_;
}

bool FnProbFN::ReadParameter(const FnAttr& a, gtl::status& s) {
  if (a.Name != L"ProbFnNum") return FnProb::ReadParameter(a, s);
  ReadBounded(a, fnNum_, s);
  return true;
}

void FnProbFN::GetFnReferences(std::vector<FnReference>& refs) const {
  refs.push_back({kProbFns, fnNum_});
}

gtl::status FnProbFN::Build(Table& t) const {
  const Func2D* f = fnNum_ <= 0x7FFFFFFFu ? FindFunc2D(kProbFns, static_cast<int>(fnNum_)) : nullptr;
  const auto noArea = [&] { return ProbError(str::format(str::load_wstring(33521), fnNum_)); };
  if (!f) return noArea();
  if (gtl::status s = CheckFnReferences(*this); s.failed()) return s;
  const double h = (max_ - min_) / kSteps;
  std::vector<double> x(kSteps + 1), density(kSteps + 1), cum(kSteps + 1, 0.0);
  for (int i = 0; i <= kSteps; ++i) {
    x[i] = i == kSteps ? max_ : min_ + i * h;
    const double d = CalculateFunc2D(kProbFns, static_cast<int>(fnNum_), &x[i], nullptr);
    density[i] = qvi::IsNoValue(d) || !(d > 0) || !std::isfinite(d) ? 0.0 : d;
  }
  double moment = 0;
  for (int i = 1; i <= kSteps; ++i) {
    const double dx = x[i] - x[i - 1];
    cum[i] = cum[i - 1] + 0.5 * (density[i] + density[i - 1]) * dx;
    moment += 0.5 * (x[i] * density[i] + x[i - 1] * density[i - 1]) * dx;
  }
  const double area = cum.back();
  if (!(area > 0) || !std::isfinite(area)) return noArea();
  // The inverse: (cumulative, value) pairs. Where the density is nil the
  // cumulative stays flat; the inverse takes the last value of a flat start
  // (where probability begins) and the first value of any later flat run.
  std::vector<double> p, v;
  for (int i = 0; i <= kSteps; ++i) {
    const double c = i == kSteps ? 1.0 : cum[i] / area;
    if (!p.empty() && c <= p.back()) {
      if (p.back() == 0.0) v.back() = x[i];
      continue;
    }
    p.push_back(c);
    v.push_back(x[i]);
  }
  if (p.back() < 1.0) p.back() = 1.0;
  t.inverse.Assign(p.data(), v.data(), p.size());
  t.mean = moment / area;
  return {};
}

void FnProbFN::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrProbFnNum(fnNum_));
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrMax(max_));
}

}  // namespace v7
