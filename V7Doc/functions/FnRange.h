#pragma once
// A range of trial values: mean +- steps x delta ("Range").
#include <cstdint>

#include "V7Doc/functions/FnImpl.h"

namespace v7 {

class FnRange : public FnImpl {
 public:
  // The steps used when none are set.
  static constexpr std::uint32_t kDefaultSteps = 5;
  // The marker of unset steps.
  static constexpr std::uint32_t kUnsetSteps = static_cast<std::uint32_t>(qvi::kNone);

  static const wchar_t* TypeName() { return L"Range"; }

  FnRange() = default;
  FnRange(double mean, double delta, std::uint32_t steps = kUnsetSteps)
      : mean_(mean), delta_(delta), steps_(steps) {}

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnRange(*this); }
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // The mean, the central trial value, whatever the input.
  double Calculate(const double*, const double*) const override { return IsValid() ? mean_ : qvi::kNoValue; }
  // The trial values Min, Min + delta, ..., Max (2 x steps + 1 of them).
  double InputRangeAt(int index) const override;
  int InputRangeNumPoints() const override;
  // "Mean", "Delta", "Steps" (unset values as empty text).
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // "Min", "Max", "Steps" (the steps in force).
  void GetCalcAttributes(std::vector<FnAttr>& attrs) const override;

  // Valid when mean and delta are set.
  bool IsValid() const { return !qvi::IsNoValue(mean_) && !qvi::IsNoValue(delta_); }
  double Mean() const { return mean_; }
  double Delta() const { return delta_; }
  // The steps in force (kDefaultSteps when unset).
  std::uint32_t Steps() const { return steps_ == kUnsetSteps ? kDefaultSteps : steps_; }
  // mean - steps x delta, unset when the range is not valid.
  double Min() const;
  double Max() const;

 private:
  double mean_ = qvi::kNoValue;
  double delta_ = qvi::kNoValue;
  std::uint32_t steps_ = kUnsetSteps;
};

}  // namespace v7
