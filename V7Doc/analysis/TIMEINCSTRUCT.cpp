#include "V7Doc/analysis/TIMEINCSTRUCT.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "QVI/math/algorithm/FloatCommon.h"
#include "V7Doc/analysis/AnalysisMessages.h"
#include "V7Doc/analysis/ResultInfo.h"
#include "V7Doc/analysis/ShakeRecord.h"

namespace v7 {
namespace {

using FC = math::algorithm::FloatCommon<double>;
namespace msg = analysis_msg;

bool Positive(double x) { return std::isfinite(x) && x > 0 && !qvi::IsNoValue(x); }

// The sum dt0 (1 + r + ... + r^(n-1)), accurate near r = 1 where the closed
// form loses its digits.
double GeometricSum(double dt0, double r, int n) {
  if (r == 1) return dt0 * n;
  const double lr = std::log(r);
  return dt0 * std::expm1(n * lr) / std::expm1(lr);
}

// The ratio r with dt0 (r^n - 1) / (r - 1) = D, by bisection: the sum grows
// monotonically with r, it is dt0 < D at r = 0 and at least D at
// r = (D/dt0)^(1/(n-1)), where the last increment alone reaches D.
double SolveRatio(double dt0, double D, int n) {
  double lo = 0;
  double hi = std::max(1.0, std::pow(D / dt0, 1.0 / (n - 1)));
  for (int i = 0; i < 2000 && lo < hi; ++i) {
    const double mid = 0.5 * (lo + hi);
    if (mid <= lo || mid >= hi) break;  // the bracket is as tight as doubles allow
    (GeometricSum(dt0, mid, n) < D ? lo : hi) = mid;
  }
  return 0.5 * (lo + hi);
}

}  // namespace

void TIMEINCSTRUCT::DataInit(double start) {
  mode_ = TimeStepMode::None;
  static_cast<TIMEINCSTRUCTBASE&>(*this) = TIMEINCSTRUCTBASE{};
  mode_ = TimeStepMode::Duration;
  fStartTime_ = start;
}

IncrementType TIMEINCSTRUCT::GetIncType_() const {
  if (mode_ == TimeStepMode::Dynamic || mode_ == TimeStepMode::Direct) return IncrementType::Linear;
  return incType_;
}

gtl::status TIMEINCSTRUCT::CheckSettings() const {
  if (!meta::EnumTable<TimeStepMode>().Contains(static_cast<std::int32_t>(mode_)) ||
      mode_ == TimeStepMode::Undefined)
    return gtl::status::error(msg::kMode, static_cast<int>(mode_));
  const IncrementType type = GetIncType_();
  if (type != IncrementType::Linear && type != IncrementType::Exponential)
    return gtl::status::error(msg::kIncType, static_cast<int>(type));
  if (!std::isfinite(fStartTime_) || qvi::IsNoValue(fStartTime_))
    return gtl::status::error(msg::kStartTime, fStartTime_);
  const bool readsCount = mode_ != TimeStepMode::UntilDuration;
  const bool readsDuration = mode_ != TimeStepMode::IncrementSize;
  const bool readsInitInc = mode_ == TimeStepMode::IncrementSize ||
                            mode_ == TimeStepMode::UntilDuration ||
                            (type == IncrementType::Exponential && nIncCount_ > 1);
  if (readsCount && (nIncCount_ < 1 || nIncCount_ > kMaxTimeSteps))
    return gtl::status::error(msg::kIncCount, nIncCount_, kMaxTimeSteps);
  if (readsDuration && !Positive(fDuration_)) return gtl::status::error(msg::kDuration, fDuration_);
  if (readsInitInc && !Positive(fInitIncSize_))
    return gtl::status::error(msg::kInitIncSize, fInitIncSize_);
  return {};
}

gtl::status TIMEINCSTRUCT::GenerateExactTimeSteps(unsigned& first, unsigned& last) {
  if (gtl::status s = CheckSettings(); !s.succeeded()) return s;
  const IncrementType type = GetIncType_();
  const double D = fDuration_;
  const double dt0 = fInitIncSize_;
  const int n = nIncCount_;
  std::vector<double> times;  // elapsed, relative to the start

  switch (mode_) {
    case TimeStepMode::Duration:
    case TimeStepMode::Adaptive:
    case TimeStepMode::Dynamic:
      times.reserve(static_cast<std::size_t>(n));
      if (type == IncrementType::Linear || n == 1) {
        // Each time from its index, so that no error accumulates.
        for (int k = 1; k <= n; ++k) times.push_back(k == n ? D : D * k / n);
      } else {
        if (dt0 >= D) return gtl::status::error(msg::kInitIncTooLarge, dt0, D);
        const double r = SolveRatio(dt0, D, n);
        for (int k = 1; k <= n; ++k) times.push_back(k == n ? D : GeometricSum(dt0, r, k));
      }
      break;
    case TimeStepMode::IncrementSize:
      times.reserve(static_cast<std::size_t>(n));
      for (int k = 1; k <= n; ++k)
        times.push_back(type == IncrementType::Linear ? dt0 * k : std::ldexp(dt0, k) - dt0);
      break;
    case TimeStepMode::UntilDuration: {
      // Count first, so that a tiny dt0 is refused before anything is
      // allocated. The count is rounded to 12 digits so that D/dt0 = 3.0000000004
      // (noise) does not add a sliver of a step.
      const double exact = type == IncrementType::Linear ? D / dt0 : std::log2(D / dt0 + 1);
      const double count = std::ceil(FC::Round(exact, 12));
      if (!(count <= kMaxTimeSteps))
        return gtl::status::error(msg::kTooManySteps, count, kMaxTimeSteps);
      const int m = std::max(1, static_cast<int>(count));
      times.reserve(static_cast<std::size_t>(m));
      for (int k = 1; k <= m; ++k) {
        const double t = type == IncrementType::Linear ? dt0 * k : std::ldexp(dt0, k) - dt0;
        times.push_back(k == m ? D : std::min(t, D));
      }
      break;
    }
    default:  // None, External, Direct: nothing to generate
      return {};
  }

  // Increments must stay representable and positive: a ratio near 0, a
  // doubling series past 1e308 or a dt0 below the spacing of doubles fail here.
  double prev = 0;
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (!std::isfinite(times[i]) || !(times[i] > prev))
      return gtl::status::error(msg::kUnrepresentable, i + 1);
    prev = times[i];
  }
  const auto begin = static_cast<unsigned>(vTimeIncs_.size());
  prev = begin == 0 ? 0 : vTimeIncs_.back().fElapsed;
  for (double t : times) {
    vTimeIncs_.push_back({t - prev, t, 0});
    prev = t;
  }
  first = begin;
  last = static_cast<unsigned>(vTimeIncs_.size());
  return {};
}

void TIMEINCSTRUCT::RoundTimeSteps(unsigned first, unsigned last) {
  if (last > vTimeIncs_.size() || first > last) return;  // not a range of this list
  if (last == first || last == first + 1) return;
  std::vector<double> increments(last - first);
  bool found = false;
  for (int p = 0; p <= 3 && !found; ++p) {
    const int digits = 10 + p;
    const double scale = FC::Pow10(p);
    const double invScale = 1.0 / scale;
    std::uint64_t prevC = std::numeric_limits<std::uint64_t>::max();
    double prevTime = first == 0 ? 0.0 : vTimeIncs_[first - 1].fElapsed;
    bool ok = true;
    for (unsigned i = first; i + 1 < last; ++i) {
      const double scaled = FC::Round(FC::StrictPrecision(vTimeIncs_[i].fElapsed * scale), 10, 0);
      const double up = std::ceil(scaled);
      // Negative or beyond 2^64 has no unsigned ceiling: this p cannot work.
      if (!(up >= 0 && up < 18446744073709551616.0)) {
        ok = false;
        break;
      }
      const auto c = static_cast<std::uint64_t>(up);
      const double newTime =
          FC::Round(FC::StrictPrecision(static_cast<double>(c) * invScale), digits, 0);
      if (c == prevC || newTime == prevTime) {
        ok = false;
        break;
      }
      increments[i - first] = newTime - prevTime;
      prevC = c;
      prevTime = newTime;
    }
    found = ok && vTimeIncs_[last - 1].fElapsed > prevTime;
  }
  if (!found) return;
  for (unsigned i = first; i + 1 < last; ++i) {
    vTimeIncs_[i].fIncSize = increments[i - first];
    vTimeIncs_[i].fElapsed = (i == 0 ? 0.0 : vTimeIncs_[i - 1].fElapsed) + increments[i - first];
  }
  vTimeIncs_[last - 1].fIncSize = vTimeIncs_[last - 1].fElapsed - vTimeIncs_[last - 2].fElapsed;
}

void TIMEINCSTRUCT::SortIncrements() {
  if (vTimeIncs_.empty()) return;
  const double before = vTimeIncs_.front().fElapsed - vTimeIncs_.front().fIncSize;
  if (std::is_sorted(vTimeIncs_.begin(), vTimeIncs_.end(),
                     [](const TIMEINC& a, const TIMEINC& b) { return a.fElapsed < b.fElapsed; }))
    return;  // increments already match their times
  std::stable_sort(vTimeIncs_.begin(), vTimeIncs_.end(),
                   [](const TIMEINC& a, const TIMEINC& b) { return a.fElapsed < b.fElapsed; });
  double prev = before;
  for (auto& step : vTimeIncs_) {
    step.fIncSize = step.fElapsed - prev;
    prev = step.fElapsed;
  }
}

void TIMEINCSTRUCT::AddStartingValue() {
  for (auto& step : vTimeIncs_) step.fElapsed += fStartTime_;
}

void TIMEINCSTRUCT::GenerateSaveFlags() {
  const std::size_t mult = nSaveMult_ < 1 ? 1 : static_cast<std::size_t>(nSaveMult_);
  for (std::size_t i = 0; i < vTimeIncs_.size(); ++i)
    vTimeIncs_[i].nSave = ((i + 1) % mult == 0 || i + 1 == vTimeIncs_.size()) ? 1 : 0;
}

void TIMEINCSTRUCT::InsertCustomSteps(const std::vector<double>& times) {
  // Each entry remembers where it came from, so that the increments of
  // untouched stretches are kept bit for bit.
  struct Item {
    TIMEINC step;
    std::ptrdiff_t origin;  // index in the old list, -1 for an inserted time
  };
  std::vector<double> extra;
  for (double t : times)
    if (std::isfinite(t) && !qvi::IsNoValue(t) && t > fStartTime_) extra.push_back(t);
  if (extra.empty()) return;
  std::sort(extra.begin(), extra.end());

  const auto same = [](double a, double b) {
    return a == b || FC::StrictPrecision(a) == FC::StrictPrecision(b);
  };
  std::vector<Item> merged;
  merged.reserve(vTimeIncs_.size() + extra.size());
  std::size_t i = 0, j = 0;
  while (i < vTimeIncs_.size() || j < extra.size()) {
    const bool takeOld =
        j == extra.size() || (i < vTimeIncs_.size() && vTimeIncs_[i].fElapsed <= extra[j]);
    Item item = takeOld ? Item{vTimeIncs_[i], static_cast<std::ptrdiff_t>(i)}
                        : Item{TIMEINC{0, extra[j], 1}, -1};
    takeOld ? ++i : ++j;
    if (!merged.empty() && same(merged.back().step.fElapsed, item.step.fElapsed)) {
      // The time is already a step: keep the generated step, and save it.
      if (merged.back().origin < 0 && item.origin >= 0) merged.back() = item;
      merged.back().step.nSave = 1;
      continue;
    }
    merged.push_back(item);
  }
  vTimeIncs_.clear();
  for (std::size_t k = 0; k < merged.size(); ++k) {
    TIMEINC step = merged[k].step;
    const std::ptrdiff_t origin = merged[k].origin;
    const bool keep = origin >= 0 && (k == 0 ? origin == 0
                                             : merged[k - 1].origin >= 0 &&
                                                   merged[k - 1].origin == origin - 1);
    if (!keep) step.fIncSize = step.fElapsed - (k == 0 ? fStartTime_ : merged[k - 1].step.fElapsed);
    vTimeIncs_.push_back(step);
  }
}

gtl::status TIMEINCSTRUCT::GenerateTimeSteps() {
  if (mode_ == TimeStepMode::None || mode_ == TimeStepMode::External) return {};
  if (mode_ == TimeStepMode::Direct) {
    GenerateSaveFlags();
    InsertCustomSteps(vFixedTimes_);
  } else {
    vTimeIncs_.clear();
    unsigned first = static_cast<unsigned>(qvi::kNone);
    unsigned last = static_cast<unsigned>(qvi::kNone);
    if (gtl::status s = GenerateExactTimeSteps(first, last); !s.succeeded()) {
      vTimeIncs_.clear();
      return s;
    }
    if (GetIncType_() == IncrementType::Exponential && first != static_cast<unsigned>(qvi::kNone)) {
      RoundTimeSteps(first, last);
      SortIncrements();
    }
    AddStartingValue();
    // A start far larger than the increments can merge steps once added.
    for (std::size_t i = 1; i < vTimeIncs_.size(); ++i)
      if (!(vTimeIncs_[i].fElapsed > vTimeIncs_[i - 1].fElapsed) ||
          !std::isfinite(vTimeIncs_[i].fElapsed)) {
        vTimeIncs_.clear();
        return gtl::status::error(msg::kUnrepresentable, i + 1);
      }
    GenerateSaveFlags();
  }
  InsertCustomSteps(vCustomElapsed);
  return {};
}

gtl::status TIMEINCSTRUCT::SetFromTimes(const std::vector<double>& times) {
  // `times` are relative to the record's first sample.
  if (times.size() > static_cast<std::size_t>(kMaxTimeSteps))
    return gtl::status::error(msg::kTooManySteps, times.size(), kMaxTimeSteps);
  vTimeIncs_.clear();
  vTimeIncs_.reserve(times.size());
  double prev = 0;
  for (double t : times) {
    vTimeIncs_.push_back({t - prev, fStartTime_ + t, 0});
    prev = t;
  }
  nIncCount_ = static_cast<std::int32_t>(times.size());
  if (!times.empty()) fDuration_ = times.back();
  mode_ = TimeStepMode::External;
  GenerateSaveFlags();
  return {};
}

gtl::status TIMEINCSTRUCT::SetTimeSteps(const ShakeDirection& record) {
  const auto& pts = record.vTimeHistory_;
  std::vector<double> times;
  for (std::size_t i = 1; i < pts.size(); ++i) {
    if (!std::isfinite(pts[i].fTime) || !(pts[i].fTime > pts[i - 1].fTime))
      return gtl::status::error(msg::kRecordTimes, i + 1);
    times.push_back(pts[i].fTime - pts.front().fTime);
  }
  return SetFromTimes(times);
}

gtl::status TIMEINCSTRUCT::SetTimeSteps(const ShakeEarthquake& record) {
  // The union of the samples of both directions, each relative to its own
  // first sample (records start at their own zero).
  std::vector<double> times;
  for (const ShakeDirection* d : {&record.horizontal_, &record.vertical_}) {
    const auto& pts = d->vTimeHistory_;
    for (std::size_t i = 1; i < pts.size(); ++i) {
      if (!std::isfinite(pts[i].fTime) || !(pts[i].fTime > pts[i - 1].fTime))
        return gtl::status::error(msg::kRecordTimes, i + 1);
      times.push_back(pts[i].fTime - pts.front().fTime);
    }
  }
  std::sort(times.begin(), times.end());
  times.erase(std::unique(times.begin(), times.end()), times.end());
  return SetFromTimes(times);
}

gtl::status TIMEINCSTRUCT::SetTimeSteps(const v7qvi::analysis::ResultInfo& info, int count,
                                        ResultStepType type) {
  std::vector<TIMEINC> steps;
  double start = fStartTime_;
  for (const auto& [number, step] : info.Steps()) {
    if (number == 0) {
      if (std::isfinite(step.fElapsed) && !qvi::IsNoValue(step.fElapsed)) start = step.fElapsed;
      continue;
    }
    if (number < 0) continue;
    if (type == ResultStepType::SavedSteps && step.nSave == 0) continue;
    steps.push_back(step);
    if (count > 0 && steps.size() == static_cast<std::size_t>(count)) break;
  }
  if (steps.empty()) return gtl::status::error(msg::kNoResultSteps);
  fStartTime_ = start;
  return SetTimeSteps(steps, 0, true);
}

gtl::status TIMEINCSTRUCT::SetTimeSteps(const std::vector<TIMEINC>& steps, int count,
                                        bool keepSaveFlags) {
  std::size_t n = steps.size();
  if (count > 0) n = std::min(n, static_cast<std::size_t>(count));
  if (n > static_cast<std::size_t>(kMaxTimeSteps))
    return gtl::status::error(msg::kTooManySteps, n, kMaxTimeSteps);
  vTimeIncs_.assign(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(n));
  nIncCount_ = static_cast<std::int32_t>(n);
  if (n > 0) fDuration_ = vTimeIncs_.back().fElapsed - fStartTime_;
  mode_ = TimeStepMode::External;
  if (!keepSaveFlags) GenerateSaveFlags();
  return {};
}

}  // namespace v7
