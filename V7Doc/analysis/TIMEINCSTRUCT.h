#pragma once
// The time-stepping block of an analysis: a few settings, and the list of
// steps generated from them.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/analysis/TIMEINC.h"
#include "V7Doc/analysis/TimeStepEnums.h"

namespace v7 {

struct ShakeDirection;
struct ShakeEarthquake;
namespace v7qvi::analysis {
class ResultInfo;
}

// The settings and the generated steps, as plain data.
struct TIMEINCSTRUCTBASE {
  double fStartTime_ = 0;      // time at which the analysis starts
  double fDuration_ = 1;       // length of the generated series
  std::int32_t nIncCount_ = 10;  // number of generated increments
  IncrementType incType_ = IncrementType::Linear;
  double fInitIncSize_ = 0.1;   // first increment of series that start from it
  std::int32_t nSaveMult_ = 1;  // every n-th step is saved (and always the last)
  TimeStepMode mode_ = TimeStepMode::None;
  std::vector<double> vCustomElapsed;  // extra saved times merged into every series
  std::vector<double> vFixedTimes_;    // the steps of mode Direct, as elapsed times
  std::vector<TIMEINC> vTimeIncs_;     // the generated steps

  friend bool operator==(const TIMEINCSTRUCTBASE&, const TIMEINCSTRUCTBASE&) = default;
};

class TIMEINCSTRUCT : public TIMEINCSTRUCTBASE {
 public:
  // The most steps a series may have (24 MB of steps). A dynamic analysis of
  // a 60 s record at 0.001 s needs 60 000; nothing practical needs a million.
  static constexpr std::int32_t kMaxTimeSteps = 1'000'000;

  TIMEINCSTRUCT() { DataInit(0.0); }

  // Resets every setting to its default, empties the lists, sets the mode to
  // Duration and the start time to `start`.
  void DataInit(double start);

  void SetStartTime(double t) { fStartTime_ = t; }
  void SetDuration(double d) { fDuration_ = d; }
  void SetIncCount(int n) { nIncCount_ = n; }
  void SetIncType(IncrementType type) { incType_ = type; }
  void SetInitIncSize(double dt) { fInitIncSize_ = dt; }
  void SetSaveMult(int n) { nSaveMult_ = n; }
  void SetMode(TimeStepMode mode) { mode_ = mode; }

  double StartTime() const { return fStartTime_; }
  double Duration() const { return fDuration_; }
  int IncCount() const { return nIncCount_; }
  // The stored increment type.
  IncrementType IncType() const { return incType_; }
  double InitIncSize() const { return fInitIncSize_; }
  int SaveMult() const { return nSaveMult_; }
  TimeStepMode Mode() const { return mode_; }
  std::vector<double>& CustomElapsed() { return vCustomElapsed; }
  const std::vector<double>& CustomElapsed() const { return vCustomElapsed; }
  std::vector<double>& FixedTimes() { return vFixedTimes_; }
  const std::vector<double>& FixedTimes() const { return vFixedTimes_; }
  std::vector<TIMEINC>& TimeIncs() { return vTimeIncs_; }
  const std::vector<TIMEINC>& TimeIncs() const { return vTimeIncs_; }

  // The increment type generation uses: the stored one, but Linear in the
  // modes Dynamic and Direct, whose steps must not move.
  IncrementType GetIncType_() const;

  // Builds the step list from the settings (see TimeStepMode). On bad
  // settings the list is left empty and the status says which setting.
  gtl::status GenerateTimeSteps();

  // Empties nothing: appends the exact (unrounded) steps of the mode, with
  // times relative to the start, and sets [first, last) to their index range.
  // On bad settings appends nothing and leaves first and last alone.
  gtl::status GenerateExactTimeSteps(unsigned& first, unsigned& last);

  // Rounds the elapsed times of steps first .. last-2 upwards to the fewest
  // decimals (0 to 3) that keep them distinct and before step last-1, whose
  // time is kept. Times must still be relative to the start.
  void RoundTimeSteps(unsigned first, unsigned last);

  // Orders the steps by elapsed time and recomputes the increments from it;
  // the time before the first step (its elapsed minus its increment) is kept.
  void SortIncrements();

  // Adds the start time to every step's elapsed time.
  void AddStartingValue();

  // Marks every SaveMult()-th step and the last one as saved, the others not.
  // A save multiple below 1 saves every step.
  void GenerateSaveFlags();

  // Merges `times` (absolute elapsed times) into the step list as saved steps,
  // keeping it ordered. A time equal to a step's time to 15 significant
  // digits marks that step saved instead; times not after the start time,
  // and NaN or infinite ones, are skipped. Increments are recomputed only
  // where a step's predecessor changed.
  void InsertCustomSteps(const std::vector<double>& times);

  // Steps at the samples of a motion record (after its first), starting at
  // the start time; mode becomes External.
  gtl::status SetTimeSteps(const ShakeDirection& record);
  // Steps at the samples of either direction of an earthquake record.
  gtl::status SetTimeSteps(const ShakeEarthquake& record);
  // Steps of existing results: all or only the saved ones (`type`), at most
  // `count` of them (count < 1: all). Step 0 gives the start time.
  gtl::status SetTimeSteps(const v7qvi::analysis::ResultInfo& info, int count,
                           ResultStepType type);
  // The first `count` of `steps` (count < 1 or beyond their size: all).
  // With `keepSaveFlags` their save markers stay, else they are generated
  // from the save multiple. The steps' times are taken as absolute.
  gtl::status SetTimeSteps(const std::vector<TIMEINC>& steps, int count, bool keepSaveFlags);

 private:
  gtl::status CheckSettings() const;
  gtl::status SetFromTimes(const std::vector<double>& times);
};

}  // namespace v7
