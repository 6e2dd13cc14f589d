#include "V7Doc/functions/FnProb.h"

#include <boost/math/distributions/lognormal.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/triangular.hpp>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnAttrCheck.h"
#include "V7Doc/functions/FnRegistry.h"

namespace v7 {
namespace {

const FnKindRegistrar kNormal(FnProbNormal::TypeName(), &CreateFn<FnProbNormal>);
const FnKindRegistrar kLogNormal(FnProbLogNormal::TypeName(), &CreateFn<FnProbLogNormal>);
const FnKindRegistrar kUniform(FnProbUniform::TypeName(), &CreateFn<FnProbUniform>);
const FnKindRegistrar kTriangular(FnProbTriangular::TypeName(), &CreateFn<FnProbTriangular>);

bool Set(double v) { return !qvi::IsNoValue(v); }

constexpr std::size_t kStartIntervals = 64;
constexpr std::size_t kMaxTablePoints = 4097;
constexpr double kRefineTolerance = 1e-5;

// The cumulative-probability window of a distribution truncated by the
// bounds that are set, no wider than the tail cut on either side.
struct Window {
  double pl, pu;  // cumulative probabilities of the lower and upper ends
  bool lowerAtMin, upperAtMax;  // whether an end is the entered bound itself
};

template <class Dist>
Window WindowOf(const Dist& d, double min, double max, double shift = 0.0) {
  Window w{FnProb::kTailCut, 1.0 - FnProb::kTailCut, false, false};
  const auto support = boost::math::support(d);
  if (Set(min)) {
    const double p = min - shift <= support.first ? 0.0 : boost::math::cdf(d, min - shift);
    if (p > w.pl) w = {p, w.pu, true, false};
  }
  if (Set(max)) {
    const double p = max - shift <= support.first ? 0.0 : boost::math::cdf(d, max - shift);
    if (p < w.pu) w.pu = p, w.upperAtMax = true;
  }
  return w;
}

// The inverse of `d` (shifted by `shift`) on [0, 1] mapped onto the window.
template <class Dist>
std::function<double(double)> InverseOn(const Dist& d, const Window& w, double min, double max,
                                        double shift = 0.0) {
  return [=](double p) {
    if (p <= 0 && w.lowerAtMin) return min;
    if (p >= 1 && w.upperAtMax) return max;
    return shift + boost::math::quantile(d, w.pl + p * (w.pu - w.pl));
  };
}

}  // namespace

// ---- FnProb -------------------------------------------------------------

FnProb::FnProb(const FnProb& o)
    : FnImpl(o), min_(o.min_), max_(o.max_), table_(o.table_ ? std::make_unique<Table>(*o.table_) : nullptr) {}

FnProb& FnProb::operator=(const FnProb& o) {
  if (this == &o) return *this;
  FnImpl::operator=(o);
  min_ = o.min_;
  max_ = o.max_;
  table_ = o.table_ ? std::make_unique<Table>(*o.table_) : nullptr;
  return *this;
}

FnProb::~FnProb() = default;

double FnProb::Calculate(const double* x, const double*) const {
  if (!table_ || !x || !(*x >= 0.0 && *x <= 1.0)) return qvi::kNoValue;
  return table_->inverse(*x);
}

gtl::status FnProb::ProbError(const std::wstring& reason) const {
  return gtl::status::error(33520, Name(), reason);
}

gtl::status FnProb::UpdateCalculatedValues() {
  if (!IsValid()) return ProbError(str::load_wstring(33522));
  auto t = std::make_unique<Table>();
  try {
    if (gtl::status s = Build(*t); !s.succeeded()) return s;
  } catch (const std::exception&) {
    // Boost.Math reports parameters it cannot take by exception; the checks
    // of IsValid leave only extreme values to get here.
    return ProbError(str::load_wstring(33522));
  }
  t->median = t->inverse(0.5);
  table_ = std::move(t);
  return {};
}

gtl::status FnProb::SetAttributes(const std::vector<FnAttr>& attrs) {
  gtl::status s = FnImpl::SetAttributes(attrs);
  for (const FnAttr& a : attrs) ReadParameter(a, s);
  return s;
}

bool FnProb::ReadParameter(const FnAttr& a, gtl::status& s) {
  if (a.Name == L"Min")
    ReadBounded(a, min_, s);
  else if (a.Name == L"Max")
    ReadBounded(a, max_, s);
  else
    return false;
  return true;
}

void FnProb::Tabulate(const std::function<double(double)>& q, Table& t) {
  std::vector<double> p, v;
  for (std::size_t i = 0; i <= kStartIntervals; ++i) {
    p.push_back(static_cast<double>(i) / kStartIntervals);
    v.push_back(q(p.back()));
  }
  const double tol = kRefineTolerance * std::abs(v.back() - v.front());
  bool refined = true;
  while (refined && p.size() < kMaxTablePoints) {
    refined = false;
    std::vector<double> np{p.front()}, nv{v.front()};
    for (std::size_t i = 0; i + 1 < p.size(); ++i) {
      if (np.size() + (p.size() - i) < kMaxTablePoints) {
        const double pm = 0.5 * (p[i] + p[i + 1]);
        const double vm = q(pm);
        if (std::abs(vm - 0.5 * (v[i] + v[i + 1])) > tol) {
          np.push_back(pm);
          nv.push_back(vm);
          refined = true;
        }
      }
      np.push_back(p[i + 1]);
      nv.push_back(v[i + 1]);
    }
    p.swap(np);
    v.swap(nv);
  }
  t.inverse.Assign(p.data(), v.data(), p.size());
}

void FnProb::AppendBoundsInForce(std::vector<FnAttr>& attrs) const {
  if (table_ && !table_->inverse.IsEmpty()) {
    attrs.push_back(FnAttrMin(table_->inverse.Points().front().y));
    attrs.push_back(FnAttrMax(table_->inverse.Points().back().y));
  } else {
    attrs.push_back(FnAttrMin(min_));
    attrs.push_back(FnAttrMax(max_));
  }
}

// ---- Normal -------------------------------------------------------------

FnProbNormal::FnProbNormal(const double& mean, const double& sd) : mean_(mean), sd_(sd) {}
FnProbNormal::FnProbNormal(const double& mean, const double& sd, const double& min, const double& max)
    : mean_(mean), sd_(sd) {
  min_ = min;
  max_ = max;
}

bool FnProbNormal::IsValid() const {
  return Set(mean_) && Set(sd_) && sd_ > 0 && !(Set(min_) && Set(max_) && !(min_ < max_));
}

bool FnProbNormal::ReadParameter(const FnAttr& a, gtl::status& s) {
  if (a.Name == L"Mean")
    ReadBounded(a, mean_, s);
  else if (a.Name == L"SD")
    ReadBounded(a, sd_, s, 0.0);
  else
    return FnProb::ReadParameter(a, s);
  return true;
}

gtl::status FnProbNormal::Build(Table& t) const {
  const boost::math::normal d(mean_, sd_);
  const Window w = WindowOf(d, min_, max_);
  if (!(w.pu > w.pl)) return ProbError(str::load_wstring(33523));
  Tabulate(InverseOn(d, w, min_, max_), t);
  // Mean of the truncated normal (Johnson, Kotz and Balakrishnan, 1994):
  // mu + sigma (phi(alpha) - phi(beta)) / (Phi(beta) - Phi(alpha)).
  const boost::math::normal z;
  const double alpha = boost::math::quantile(z, w.pl), beta = boost::math::quantile(z, w.pu);
  t.mean = mean_ + sd_ * (boost::math::pdf(z, alpha) - boost::math::pdf(z, beta)) / (w.pu - w.pl);
  return {};
}

void FnProbNormal::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMean(mean_));
  attrs.push_back(FnAttrSD(sd_));
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrMax(max_));
}

void FnProbNormal::GetCalcAttributes(std::vector<FnAttr>& attrs) const { AppendBoundsInForce(attrs); }

// ---- Log normal ---------------------------------------------------------

FnProbLogNormal::FnProbLogNormal(const double& loc, const double& mean, const double& sd, const double& min,
                                 const double& max)
    : loc_(loc), mean_(mean), sd_(sd) {
  min_ = min;
  max_ = max;
}

bool FnProbLogNormal::IsValid() const {
  return Set(mean_) && Set(sd_) && sd_ > 0 && mean_ > Loc() && !(Set(min_) && Set(max_) && !(min_ < max_));
}

bool FnProbLogNormal::ReadParameter(const FnAttr& a, gtl::status& s) {
  if (a.Name == L"Loc")
    ReadBounded(a, loc_, s);
  else if (a.Name == L"Mean")
    ReadBounded(a, mean_, s);
  else if (a.Name == L"SD")
    ReadBounded(a, sd_, s, 0.0);
  else
    return FnProb::ReadParameter(a, s);
  return true;
}

gtl::status FnProbLogNormal::Build(Table& t) const {
  // Y = X - Loc is log-normal with mean Mean - Loc and the standard
  // deviation SD: sigma^2 = ln(1 + SD^2 / mean_Y^2), mu = ln(mean_Y) - sigma^2/2.
  const double meanY = mean_ - Loc();
  const double sigma = std::sqrt(std::log1p((sd_ / meanY) * (sd_ / meanY)));
  const double mu = std::log(meanY) - 0.5 * sigma * sigma;
  const boost::math::lognormal d(mu, sigma);
  const Window w = WindowOf(d, min_, max_, Loc());
  if (!(w.pu > w.pl)) return ProbError(str::load_wstring(33523));
  Tabulate(InverseOn(d, w, min_, max_, Loc()), t);
  // Truncated log-normal mean: exp(mu + sigma^2/2) (Phi(zu - sigma) -
  // Phi(zl - sigma)) / (Phi(zu) - Phi(zl)), z the standard scores of the ends.
  const boost::math::normal z;
  const double zl = boost::math::quantile(z, w.pl), zu = boost::math::quantile(z, w.pu);
  t.mean = Loc() + std::exp(mu + 0.5 * sigma * sigma) *
                       (boost::math::cdf(z, zu - sigma) - boost::math::cdf(z, zl - sigma)) / (w.pu - w.pl);
  return {};
}

void FnProbLogNormal::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrLoc(loc_));
  attrs.push_back(FnAttrMean(mean_));
  attrs.push_back(FnAttrSD(sd_));
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrMax(max_));
}

void FnProbLogNormal::GetCalcAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrLoc(Loc()));
  AppendBoundsInForce(attrs);
}

// ---- Uniform and triangular ---------------------------------------------

FnProbUniform::FnProbUniform(const double& min, const double& max) {
  min_ = min;
  max_ = max;
}

bool FnProbUniform::IsValid() const { return Set(min_) && Set(max_) && min_ < max_; }

gtl::status FnProbUniform::Build(Table& t) const {
  const double a = min_, b = max_;
  Tabulate([a, b](double p) { return a + p * (b - a); }, t);
  t.mean = 0.5 * (a + b);
  return {};
}

void FnProbUniform::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrMax(max_));
}

FnProbTriangular::FnProbTriangular(const double& min, const double& mode, const double& max)
    : FnProbUniform(min, max), mode_(mode) {}

bool FnProbTriangular::IsValid() const {
  return FnProbUniform::IsValid() && Set(mode_) && min_ <= mode_ && mode_ <= max_;
}

bool FnProbTriangular::ReadParameter(const FnAttr& a, gtl::status& s) {
  if (a.Name != L"Mode") return FnProbUniform::ReadParameter(a, s);
  ReadBounded(a, mode_, s);
  return true;
}

gtl::status FnProbTriangular::Build(Table& t) const {
  const boost::math::triangular_distribution<double> d(min_, mode_, max_);
  Tabulate([d](double p) { return boost::math::quantile(d, p); }, t);
  t.mean = (min_ + mode_ + max_) / 3.0;
  return {};
}

void FnProbTriangular::GetDataAttributes(std::vector<FnAttr>& attrs) const {
  attrs.push_back(FnAttrMin(min_));
  attrs.push_back(FnAttrMode(mode_));
  attrs.push_back(FnAttrMax(max_));
}

}  // namespace v7
