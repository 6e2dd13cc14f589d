#pragma once
// What an analysis's existing results hold: kind, method and the computed
// steps with their save markers.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/analysis/TIMEINC.h"

namespace v7::v7qvi::analysis {

// Special step numbers, shared with ResultPath.
inline constexpr std::int32_t kStepLast = 0x7FFFFFFE;  // the last step, "(last)"
inline constexpr std::int32_t kStepAll = -2;           // all steps, "(all)"
inline constexpr std::int32_t kStepNone = qvi::kNone;  // no step
inline constexpr std::int32_t kStepStart = 0;          // the initial state

class ResultInfo {
 public:
  using Step = std::pair<std::int32_t, TIMEINC>;
  using StepList = std::vector<Step>;
  using const_iterator = StepList::const_iterator;

  ResultInfo() = default;

  std::uint32_t ID() const { return nID_; }
  void SetID(std::uint32_t id) { nID_ = id; }
  AnalysisKind Kind() const { return kind_; }
  void SetKind(AnalysisKind kind) { kind_ = kind; }
  AnlsMethod Method() const { return method_; }
  void SetMethod(AnlsMethod method) { method_ = method; }
  // The analysis name and the folder of the results.
  const std::wstring& Name() const { return strName_; }
  void SetName(std::wstring name) { strName_ = std::move(name); }
  const std::wstring& Folder() const { return strFolder_; }
  void SetFolder(std::wstring folder) { strFolder_ = std::move(folder); }

  // The steps, ascending by step number, numbers unique.
  const StepList& Steps() const { return vSteps_; }
  // Replaces the steps; they are sorted and, of equal numbers, the last wins.
  void SetSteps(StepList steps);
  // Adds a step or replaces the one with the same number.
  void AddStep(std::int32_t number, const TIMEINC& step);

  const_iterator begin() const { return vSteps_.begin(); }
  const_iterator end() const { return vSteps_.end(); }

  // The step numbered `step`, or end(). Special numbers are not interpreted.
  const_iterator FindStep(int step) const;
  // As FindStep, but end() also when the step was not saved.
  const_iterator FindSavedStep(int step) const;
  // True when the kind and method step through time.
  bool IsTransient() const { return IsMethodTransient(kind_, method_); }

  friend bool operator==(const ResultInfo&, const ResultInfo&) = default;

 private:
  std::uint32_t nID_ = 0;
  AnalysisKind kind_ = AnalysisKind::None;
  std::wstring strName_;
  std::wstring strFolder_;
  AnlsMethod method_ = AnlsMethod::Undefined;
  StepList vSteps_;
};

}  // namespace v7::v7qvi::analysis
