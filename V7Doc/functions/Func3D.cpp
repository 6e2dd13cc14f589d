#include "V7Doc/functions/Func3D.h"

#include <algorithm>
#include <utility>

#include "QVI/str/Messages.h"

namespace v7 {
namespace {
constexpr unsigned kMsgNewFunction3D = 20249;

std::vector<math::fn::Point3D> AsPoints(const std::vector<FnPoint>& pts) {
  std::vector<math::fn::Point3D> out;
  out.reserve(pts.size());
  for (const FnPoint& p : pts) out.push_back({p.x, p.y, p.z});
  return out;
}
}  // namespace

Func3D::Func3D() { strDescription_ = str::load_wstring(kMsgNewFunction3D); }

Func3D::Func3D(Func3D&& other) noexcept
    : Func3DData(std::move(other)), fn_(std::move(other.fn_)), range_(other.range_),
      bUpToDate_(std::exchange(other.bUpToDate_, false)) {}

Func3D& Func3D::operator=(const Func3D& other) {
  if (this != &other) {
    Func3DData::operator=(other);
    fn_.reset();
    bUpToDate_ = false;
  }
  return *this;
}

Func3D& Func3D::operator=(Func3D&& other) noexcept {
  Func3DData::operator=(std::move(other));
  fn_ = std::move(other.fn_);
  range_ = other.range_;
  bUpToDate_ = std::exchange(other.bUpToDate_, false);
  return *this;
}

Func3D::~Func3D() = default;

void Func3D::SetUserMin(double v) {
  fUserMin_ = v;
  if (bUpToDate_) {
    std::vector<FnPoint> defined;
    GetDefinedPts(defined);
    UpdateRange(defined);
  }
}

void Func3D::SetUserMax(double v) {
  fUserMax_ = v;
  SetUserMin(fUserMin_);
}

void Func3D::SetRangeConstraint(ERangeConstraint c) {
  eRangeConstraint_ = c;
  SetUserMin(fUserMin_);
}

void Func3D::Model(Func3DModel::Func3DModel m) {
  eModel_ = m;
  fn_.reset();
  bUpToDate_ = false;
}

void Func3D::GetDefinedPts(std::vector<FnPoint>& pts) const {
  pts.clear();
  for (const FnPoint& p : points_)
    if (!p.HasMissing()) pts.push_back(p);
}

void Func3D::UpdateRange(const std::vector<FnPoint>& defined) const {
  range_ = {-qvi::kNoValue, qvi::kNoValue};
  if (eRangeConstraint_ == ERangeConstraint::UserRange) {
    if (!qvi::IsNoValue(fUserMin_)) range_.min = fUserMin_;
    if (!qvi::IsNoValue(fUserMax_)) range_.max = fUserMax_;
    // Bounds given in the wrong order still bound the output between them.
    if (!range_.valid()) std::swap(range_.min, range_.max);
  } else if (eRangeConstraint_ == ERangeConstraint::DataRange && !defined.empty()) {
    range_ = {defined.front().z, defined.front().z};
    for (const FnPoint& p : defined) range_ = range_.extended(p.z);
  }
}

gtl::status Func3D::Update() const {
  std::vector<FnPoint> defined;
  GetDefinedPts(defined);
  UpdateRange(defined);
  bUpToDate_ = true;
  // A stand-by surface is no surface: the model's own is tried again.
  if (fn_ && dynamic_cast<const math::fn::Func3DMissing*>(fn_.get())) fn_.reset();
  if (!fn_) {
    if (eModel_ == Func3DModel::Kriging)
      fn_ = std::make_unique<math::fn::Func3DImplAlg<math::fn::interpolate::KrigSurface>>();
    else if (eModel_ == Func3DModel::Linear)
      fn_ = std::make_unique<math::fn::Func3DImplAlg<math::fn::interpolate::Linear3D>>();
    else
      return {};
  }
  gtl::status s = fn_->SetPoints(AsPoints(defined));
  if (s.failed()) fn_ = std::make_unique<math::fn::Func3DMissing>(s);
  return s;
}

gtl::status Func3D::UpdatePressureHeadRange() { return Update(); }

void Func3D::EnsureUpToDate() const {
  if (!bUpToDate_) Update();
}

const math::fn::I3D* Func3D::Fn() const {
  EnsureUpToDate();
  return fn_.get();
}

gtl::range<double> Func3D::RangeOutput() const {
  EnsureUpToDate();
  return range_;
}

double Func3D::Calculate(double x, double y) const {
  EnsureUpToDate();
  if (!fn_) return qvi::kNoValue;
  const double v = fn_->Calculate(x, y);
  return qvi::IsNoValue(v) ? v : range_.truncate(v);
}

void Func3D::ClearMissingPoints() {
  std::erase_if(points_, [](const FnPoint& p) { return p.HasMissing(); });
}

void Func3D::Clear() {
  static_cast<Func3DData&>(*this) = Func3DData{};
  fn_.reset();
  bUpToDate_ = false;
}

bool IsMissing(const Func3D& f) {
  return f.Description().empty() && qvi::IsNoValue(f.UserMax()) && f.Points().empty();
}

void SetMissing(Func3D& f) {
  f = Func3D();
  f.SetDescription(L"");
}

}  // namespace v7
