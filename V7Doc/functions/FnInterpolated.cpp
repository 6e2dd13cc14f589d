#include "V7Doc/functions/FnInterpolated.h"

#include <algorithm>

#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kLinear(L"Linear", &CreateFn<FnLinear>);
const FnKindRegistrar kStep(L"Step", &CreateFn<FnStep>);
const FnKindRegistrar kSpline(L"Spline", &CreateFn<FnSpline>);
const FnKindRegistrar kSplineGEZero(L"SplineGEZero", &CreateFn<FnSplineGEZero>);
const FnKindRegistrar kVolWCSpline(L"VolWCSpline", &CreateFn<FnVolWCSpline>);
const FnKindRegistrar kHydKSpline(L"HydKFn", &CreateFn<FnHydKSpline>);
const FnKindRegistrar kMFSPWP(L"MFSPWPFn", &CreateFn<FnMFSPWP>);

}  // namespace

gtl::status FnInterpolated::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) {
    if (a.Name == L"SlopeBefore" || a.Name == L"SlopeAfter") {
      math::fn::TailType t;
      if (!ReadAttr(a.Value, t)) {
        gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
        continue;
      }
      if (a.Name == L"SlopeBefore")
        Table().SetTailBefore(t);
      else
        Table().SetTailAfter(t);
      continue;
    }
    ReadOwnAttribute(a, s);
  }
  return s;
}

bool FnInterpolated::ReadOwnAttribute(const FnAttr&, gtl::status&) { return false; }

void FnInterpolated::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrTailBefore(Table().TailBefore()));
  attrs.push_back(FnAttrTailAfter(Table().TailAfter()));
}

double FnInterpolated::InputRangeAt(int index) const {
  const auto& p = Table().Points();
  if (index < 0 || static_cast<std::size_t>(index) >= p.size()) return qvi::kNoValue;
  return p[static_cast<std::size_t>(index)].x;
}

int FnInterpolated::InputRangeNumPoints() const { return static_cast<int>(Table().Points().size()); }

void FnInterpolated::OnPointsChanged() {
  std::vector<math::fn::interpolate::Point> pts;
  pts.reserve(points_.size());
  for (const FnPoint& p : points_) pts.push_back({p.x, p.y});
  Table().Assign(pts);  // drops points with a missing (non-finite) coordinate
}

void FnInterpolated::FlatTailsWhereNone() {
  if (!Table().TailBefore().bTail) Table().SetTailBefore(math::fn::TailType::Slope(0));
  if (!Table().TailAfter().bTail) Table().SetTailAfter(math::fn::TailType::Slope(0));
}

FnLinear::FnLinear(const FnLinear& o) : FnInterpolated(o), interp_(o.interp_) { FlatTailsWhereNone(); }
FnStep::FnStep(const FnStep& o) : FnInterpolated(o), interp_(o.interp_) { FlatTailsWhereNone(); }

// "Smooth", "Tension", "SlopeBefore", "SlopeAfter", "LogInput", "LogOutput".
void FnSpline::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrSmooth(interp_.Smooth()));
  attrs.push_back(FnAttrTension(interp_.Tension()));
  FnInterpolated::GetDataAttributes(attrs);
  attrs.push_back(FnAttrLogInput(interp_.LogX()));
  attrs.push_back(FnAttrLogOutput(interp_.LogY()));
}

bool FnSpline::ReadOwnAttribute(const FnAttr& a, gtl::status& s) {
  if (a.Name == L"Smooth" || a.Name == L"Tension") {
    std::uint32_t n = 0;
    if (!ReadAttr(a.Value, n)) {
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
      return true;
    }
    if (a.Name == L"Smooth")
      interp_.SetSmooth(n);
    else
      interp_.SetTension(n);
    return true;
  }
  if (a.Name == L"LogInput" || a.Name == L"LogOutput") {
    bool b = false;
    if (!ReadAttr(a.Value, b)) {
      gtl::keep_first_failure(s, InvalidAttributeValue(Name(), a));
      b = false;  // an unreadable flag reads as its default
    }
    if (a.Name == L"LogInput")
      interp_.SetLogX(b);
    else
      interp_.SetLogY(b);
    return true;
  }
  return false;
}

double FnSplineGEZero::Calculate(const double* x, const double*) const {
  const double v = interp_(*x);
  return qvi::IsNoValue(v) ? v : std::max(0.0, v);
}

void FnSplineGEZero::Evaluate(std::span<const double> in, std::span<double> out) const {
  FnSpline::Evaluate(in, out);
  for (std::size_t i = 0, n = std::min(in.size(), out.size()); i < n; ++i)
    if (!qvi::IsNoValue(out[i])) out[i] = std::max(0.0, out[i]);
}

FnVolWCSpline::FnVolWCSpline() = default;
FnHydKSpline::FnHydKSpline() { interp_.SetLogY(true); }
FnMFSPWP::FnMFSPWP() = default;

}  // namespace v7
