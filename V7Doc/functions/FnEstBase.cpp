#include "V7Doc/functions/FnEstBase.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"

namespace v7 {

double FnEstBase::Calculate(const double* x, const double*) const {
  if (!x) return qvi::kNoValue;
  double s = *x;
  if (suction_) s = s < 0 ? -s : s >= 0 ? 0.0 : s;  // NaN stays NaN: no value
  // Slope-0 tails continue the end values beyond the points.
  const double y = Linear::operator()(s);
  if (!qvi::IsNoValue(y) || IsEmpty() || std::isnan(s)) return y;
  // An input the log axis cannot take (zero): the value at the first point,
  // by the same path as the point itself, so that both agree to the bit.
  return Linear::operator()(Points().front().x);
}

void FnEstBase::Evaluate(std::span<const double> in, std::span<double> out) const {
  const std::size_t n = std::min(in.size(), out.size());
  if (!suction_ && !LogX()) {
    // NaN and inputs beyond the points come back from the table loop through
    // the single-point path, as Calculate would treat them.
    Linear::Evaluate(in.data(), out.data(), n);
    if (!IsEmpty())
      for (std::size_t i = 0; i < n; ++i)
        if (qvi::IsNoValue(out[i])) out[i] = FnEstBase::Calculate(&in[i], nullptr);
    return;
  }
  for (std::size_t i = 0; i < n; ++i) out[i] = FnEstBase::Calculate(&in[i], nullptr);
}

gtl::status FnEstBase::EstimateError(const std::wstring& reason) const {
  return gtl::status::error(33510, Name(), reason);
}

std::vector<double> FnEstBase::LogSpaced(double lo, double hi, std::uint32_t n) {
  std::vector<double> s(n);
  const double l0 = std::log10(lo), l1 = std::log10(hi);
  for (std::uint32_t i = 0; i < n; ++i)
    s[i] = i == 0 ? lo : i + 1 == n ? hi : std::pow(10.0, l0 + (l1 - l0) * i / (n - 1));
  return s;
}

gtl::status FnEstBase::Tabulate(std::vector<double>& xs, std::vector<double>& ys) const {
  if (!(min_ > 0) || !(max_ > min_) || qvi::IsNoValue(max_) || numPoints_ < 2 || numPoints_ > kMaxPoints)
    return EstimateError(str::format(str::load_wstring(33514), kMaxPoints));
  xs = LogSpaced(min_, max_, numPoints_);
  return Generate(xs, ys);
}

gtl::status FnEstBase::UpdateCalculatedValues() {
  FnDataPoints::points_.clear();
  OnPointsChanged();
  std::vector<double> xs, ys;
  if (gtl::status s = Tabulate(xs, ys); !s.succeeded()) return lastError_ = s;
  if (SuctionInput()) {
    // Ascending pore-water pressure: from -Max up to -Min.
    for (std::size_t i = xs.size(); i-- > 0;) FnDataPoints::points_.push_back({-xs[i], ys[i], 0.0});
  } else {
    for (std::size_t i = 0; i < xs.size(); ++i) FnDataPoints::points_.push_back({xs[i], ys[i], 0.0});
  }
  OnPointsChanged();
  return lastError_ = {};
}

void FnEstBase::OnPointsChanged() {
  std::vector<math::fn::interpolate::Point> table;
  table.reserve(FnDataPoints::points_.size());
  bool positive = true;
  const bool suction = SuctionInput(), logX = LogInput();
  for (const FnPoint& p : FnDataPoints::points_) {
    if (p.HasMissing()) continue;
    const double x = suction ? -p.x : p.x;
    if (logX && !(x > 0)) continue;  // only positive inputs have a place on the log axis
    table.push_back({x, p.y});
    positive = positive && p.y > 0;
  }
  suction_ = suction;
  SetTailBefore(math::fn::TailType::Slope(0));
  SetTailAfter(math::fn::TailType::Slope(0));
  SetLogX(logX);
  SetLogY(LogOutput() && positive);
  Linear::Assign(table);
}

void FnEstBase::GetRangeAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMax(max_));
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrNumPoints(numPoints_));
}

bool FnEstBase::ReadRangeAttribute(const FnAttr& a, gtl::status& s) {
  if (a.Name == L"Min")
    ReadBounded(a, min_, s, std::numeric_limits<double>::min(), std::numeric_limits<double>::max(), false);
  else if (a.Name == L"Max")
    ReadBounded(a, max_, s, std::numeric_limits<double>::min(), std::numeric_limits<double>::max(), false);
  else if (a.Name == L"NumPoints")
    ReadBounded(a, numPoints_, s, 2, kMaxPoints);
  else
    return false;
  return true;
}

}  // namespace v7
