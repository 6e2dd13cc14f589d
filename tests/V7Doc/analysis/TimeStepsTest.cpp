#include "V7Doc/analysis/TIMEINCSTRUCT.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using v7::IncrementType;
using v7::TIMEINC;
using v7::TIMEINCSTRUCT;
using v7::TimeStepMode;

std::vector<double> Elapsed(const TIMEINCSTRUCT& t) {
  std::vector<double> out;
  for (const auto& s : t.TimeIncs()) out.push_back(s.fElapsed);
  return out;
}

// A step list with the given elapsed times and increments as differences.
TIMEINCSTRUCT WithTimes(const std::vector<double>& times) {
  TIMEINCSTRUCT t;
  double prev = 0;
  for (double x : times) {
    t.TimeIncs().push_back({x - prev, x, 0});
    prev = x;
  }
  return t;
}

// The elapsed times are as expected and each increment is its time minus the previous time.
void ExpectTimes(const TIMEINCSTRUCT& t, const std::vector<double>& expected, double before, const char* what) {
  const auto got = Elapsed(t);
  ASSERT_EQ(got.size(), expected.size()) << what;
  for (std::size_t i = 0; i < got.size(); ++i)
    EXPECT_NEAR(got[i], expected[i], 1e-12 * std::max(1.0, expected[i])) << what << ", step " << i;
  double prev = before;
  for (std::size_t i = 0; i < t.TimeIncs().size(); ++i) {
    EXPECT_NEAR(t.TimeIncs()[i].fIncSize, t.TimeIncs()[i].fElapsed - prev, 1e-12)
        << what << ", step " << i;
    prev = t.TimeIncs()[i].fElapsed;
  }
}

TEST(RoundTimeSteps, HandWorkedCases) {
  struct Case {
    const char* what;
    std::vector<double> times;
    unsigned first, last;
    std::vector<double> expected;
  } cases[] = {
      // p=0 gives 1 and 1 (collide); p=1 gives 0.4, 0.7 below 1.0.
      {"thirds", {0.3333333333, 0.6666666667, 1.0}, 0, 3, {0.4, 0.7, 1.0}},
      // 0.1+0.2 scaled by 10 is 3.0000000000000004, cleaned to 3: 0.3, not 0.4.
      {"noise", {0.1 + 0.2, 1.0}, 0, 2, {0.3, 1.0}},
      // p=1..3 give 1.0, 0.96, 0.952: none before 0.9519, so nothing changes.
      {"last too close", {0.2345, 0.9512, 0.9519}, 0, 3, {0.2345, 0.9512, 0.9519}},
      // Same, with room at three decimals: 0.235, 0.952 < 0.96.
      {"three decimals", {0.2345, 0.9512, 0.96}, 0, 3, {0.235, 0.952, 0.96}},
      // 0.00011 and 0.00012 round to the same value at every p.
      {"inseparable", {0.00011, 0.00012, 1.0}, 0, 3, {0.00011, 0.00012, 1.0}},
      // After a first step at 0.5. p=0: 1, 2 but 2 is not before 1.5; p=1: 0.9, 1.2.
      {"inner range", {0.5, 0.8333333333, 1.1666666667, 1.5}, 1, 4, {0.5, 0.9, 1.2, 1.5}},
      {"large relative", {12345.6789, 23456.7891, 30000}, 0, 3, {12346, 23457, 30000}},
      // Near 1e12 both round to 1e12 at every p (10 significant digits).
      {"large absolute", {1e12 + 0.3, 1e12 + 0.6, 1e12 + 1}, 0, 3, {1e12 + 0.3, 1e12 + 0.6, 1e12 + 1}},
      {"one step", {0.3333333333, 0.6666666667, 1.0}, 1, 2, {0.3333333333, 0.6666666667, 1.0}},
      {"no step", {0.3333333333, 0.6666666667, 1.0}, 2, 2, {0.3333333333, 0.6666666667, 1.0}},
      {"out of range", {0.3333333333, 1.0}, 0, 5, {0.3333333333, 1.0}},
  };
  for (const auto& c : cases) {
    TIMEINCSTRUCT t = WithTimes(c.times);
    t.RoundTimeSteps(c.first, c.last);
    ExpectTimes(t, c.expected, 0, c.what);
  }
}

struct GenCase {
  const char* what; TimeStepMode mode; IncrementType type; double start, duration, dt0; int count;
  std::vector<double> expected;  // absolute elapsed times
};

TIMEINCSTRUCT Make(const GenCase& c) {
  TIMEINCSTRUCT t;
  t.SetMode(c.mode);
  t.SetIncType(c.type);
  t.SetStartTime(c.start);
  t.SetDuration(c.duration);
  t.SetInitIncSize(c.dt0);
  t.SetIncCount(c.count);
  return t;
}

TEST(GenerateTimeSteps, EveryModeAndIncrementType) {
  using M = TimeStepMode;
  using I = IncrementType;
  // Exponential over 10, dt0 1, 3 steps: 1 + r + r^2 = 10, r = (sqrt(37) - 1) / 2 = 2.5414,
  // times 1, 3.5414, 10, rounded at p=0 to 1, 4, 10. Over 7 the ratio is 2: 1, 3, 7.
  const GenCase cases[] = {
      {"duration linear", M::Duration, I::Linear, 0, 10, 0, 4, {2.5, 5, 7.5, 10}},
      {"duration linear thirds stay exact", M::Duration, I::Linear, 0, 1, 0, 3,
       {1.0 / 3, 2.0 / 3, 1}},
      {"duration exponential", M::Duration, I::Exponential, 0, 10, 1, 3, {1, 4, 10}},
      {"duration exponential ratio 2", M::Duration, I::Exponential, 0, 7, 1, 3, {1, 3, 7}},
      {"duration exponential one step", M::Duration, I::Exponential, 0, 5, 9, 1, {5}},
      {"duration with start", M::Duration, I::Linear, 100, 10, 0, 2, {105, 110}},
      {"rounded before the start is added", M::Duration, I::Exponential, 1e9, 7, 1, 3,
       {1e9 + 1, 1e9 + 3, 1e9 + 7}},
      {"increment size linear", M::IncrementSize, I::Linear, 0, 0, 0.5, 3, {0.5, 1, 1.5}},
      {"increment size doubling", M::IncrementSize, I::Exponential, 0, 0, 1, 4, {1, 3, 7, 15}},
      {"until duration linear", M::UntilDuration, I::Linear, 0, 10, 3, 0, {3, 6, 9, 10}},
      {"until duration exact fit", M::UntilDuration, I::Linear, 0, 0.3, 0.1, 0, {0.1, 0.2, 0.3}},
      {"until duration doubling", M::UntilDuration, I::Exponential, 0, 10, 1, 0, {1, 3, 7, 10}},
      {"dynamic is never rounded", M::Dynamic, I::Exponential, 0, 1, 0.1, 3,
       {1.0 / 3, 2.0 / 3, 1}},
      {"adaptive as duration", M::Adaptive, I::Exponential, 0, 7, 1, 3, {1, 3, 7}},
      {"none", M::None, I::Linear, 0, 10, 1, 3, {}},
      {"external", M::External, I::Linear, 0, 10, 1, 3, {}},
  };
  for (const auto& c : cases) {
    TIMEINCSTRUCT t = Make(c);
    const auto s = t.GenerateTimeSteps();
    ASSERT_TRUE(s.succeeded()) << c.what << ": " << s.message_utf8();
    ExpectTimes(t, c.expected, c.start, c.what);
    if (!t.TimeIncs().empty()) { EXPECT_EQ(t.TimeIncs().back().nSave, 1) << c.what << ": last step saved"; }
  }
}

TEST(GenerateTimeSteps, ExponentialSeriesSumsToTheDurationBeforeRounding) {
  // The solved ratio, checked independently: the geometric series fills the duration.
  TIMEINCSTRUCT t = Make({"", TimeStepMode::Duration, IncrementType::Exponential, 0, 1000, 0.01, 40, {}});
  unsigned first = 0x7FFFFFFF, last = 0x7FFFFFFF;
  ASSERT_TRUE(t.GenerateExactTimeSteps(first, last).succeeded());
  ASSERT_EQ(first, 0u);
  ASSERT_EQ(last, 40u);
  const auto& s = t.TimeIncs();
  EXPECT_NEAR(s[0].fIncSize, 0.01, 1e-12);
  const double r = s[1].fIncSize / s[0].fIncSize;
  for (std::size_t k = 2; k + 1 < s.size(); ++k)
    EXPECT_NEAR(s[k].fIncSize / s[k - 1].fIncSize, r, 1e-9) << k;
  EXPECT_NEAR(0.01 * (std::pow(r, 40) - 1) / (r - 1), 1000, 1e-6);
  EXPECT_EQ(s.back().fElapsed, 1000.0);
}

TEST(GenerateTimeSteps, SaveFlagsFollowTheSaveMultiple) {
  struct { int mult; std::vector<int> saved; } cases[] = {
               {1, {1, 1, 1, 1, 1}}, {2, {0, 1, 0, 1, 1}}, {3, {0, 0, 1, 0, 1}},
               {0, {1, 1, 1, 1, 1}}, {-4, {1, 1, 1, 1, 1}}, {9, {0, 0, 0, 0, 1}}};
  for (const auto& c : cases) {
    TIMEINCSTRUCT t;
    t.SetDuration(5);
    t.SetIncCount(5);
    t.SetSaveMult(c.mult);
    ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
    std::vector<int> got;
    for (const auto& s : t.TimeIncs()) got.push_back(s.nSave);
    EXPECT_EQ(got, c.saved) << "save multiple " << c.mult;
  }
}

TEST(GenerateTimeSteps, CustomStepsAreMergedAndSaved) {
  TIMEINCSTRUCT t;
  t.SetStartTime(1);
  t.SetDuration(10);
  t.SetIncCount(2);
  t.SetSaveMult(5);
  // 6 is already a step (start 1 + 5); 0.5 and 1 are not after the start;
  // NaN is skipped; 13 extends the series.
  t.CustomElapsed() = {3.5, 6.0, 13, 0.5, 1, std::nan(""), 3.5};
  ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
  EXPECT_EQ(Elapsed(t), (std::vector<double>{3.5, 6, 11, 13}));
  EXPECT_EQ(t.TimeIncs(), (std::vector<TIMEINC>{{2.5, 3.5, 1}, {2.5, 6, 1}, {5, 11, 1}, {2, 13, 1}}));
  // Generating again gives the same list: merging is idempotent.
  const auto before = t.TimeIncs();
  ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
  EXPECT_EQ(t.TimeIncs(), before);
}

TEST(GenerateTimeSteps, DirectModeTakesItsTimesUnrounded) {
  TIMEINCSTRUCT t;
  t.SetMode(TimeStepMode::Direct);
  t.SetIncType(IncrementType::Exponential);  // ignored in this mode
  t.FixedTimes() = {0.6666666667, 0.3333333333, 2};
  ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
  ExpectTimes(t, {0.3333333333, 0.6666666667, 2}, 0, "direct");
  ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
  EXPECT_EQ(t.TimeIncs().size(), 3u) << "a second generation adds nothing";
}

TEST(GenerateTimeSteps, BadSettingsGiveAStatusAndNoSteps) {
  using M = TimeStepMode;
  using I = IncrementType;
  const double nan = std::nan("");
  const double inf = std::numeric_limits<double>::infinity();
  const GenCase cases[] = {
      {"zero count", M::Duration, I::Linear, 0, 10, 1, 0, {}},
      {"count beyond the limit", M::Duration, I::Linear, 0, 10, 1, TIMEINCSTRUCT::kMaxTimeSteps + 1, {}},
      {"huge count", M::IncrementSize, I::Linear, 0, 10, 1, 0x7FFFFFFF, {}},
      {"zero duration", M::Duration, I::Linear, 0, 0, 1, 3, {}},
      {"NaN duration", M::Duration, I::Linear, 0, nan, 1, 3, {}},
      {"infinite duration", M::Dynamic, I::Linear, 0, inf, 1, 3, {}},
      {"NaN start", M::Duration, I::Linear, nan, 10, 1, 3, {}},
      {"zero initial increment", M::IncrementSize, I::Linear, 0, 10, 0, 3, {}},
      {"NaN initial increment", M::UntilDuration, I::Linear, 0, 10, nan, 3, {}},
      {"initial increment fills the duration", M::Duration, I::Exponential, 0, 10, 10, 3, {}},
      {"too many steps until the duration", M::UntilDuration, I::Linear, 0, 1, 1e-300, 0, {}},
      {"doubling past the largest double", M::IncrementSize, I::Exponential, 0, 0, 1, 2000, {}},
      {"increments below the spacing of doubles", M::IncrementSize, I::Linear, 1e300, 0, 1e-300, 3, {}},
      {"unknown mode", static_cast<M>(42), I::Linear, 0, 10, 1, 3, {}},
      {"unknown type", M::Duration, static_cast<I>(7), 0, 10, 1, 3, {}},
  };
  for (const auto& c : cases) {
    TIMEINCSTRUCT t = Make(c);
    t.TimeIncs().push_back({1, 1, 1});  // a stale step must not survive
    const auto s = t.GenerateTimeSteps();
    EXPECT_TRUE(s.failed()) << c.what;
    EXPECT_FALSE(s.message().empty()) << c.what;
    EXPECT_TRUE(t.TimeIncs().empty()) << c.what;
  }
}

TEST(TimeIncrements, SortIncrementsKeepsTheTimeBeforeTheFirstStep) {
  TIMEINCSTRUCT t;
  t.TimeIncs() = {{2, 5, 0}, {1, 4, 1}, {3, 8, 0}};  // starts at 3
  t.SortIncrements();
  ExpectTimes(t, {4, 5, 8}, 3, "sorted");
  EXPECT_EQ(t.TimeIncs()[0].nSave, 1) << "markers travel with their steps";
}

}  // namespace
