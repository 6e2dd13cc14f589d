#pragma once
// The trial container of one parameter ("Trials"): its single value, its
// range of trial values and its probability distribution.
//
// Text form: Trials(attr=value,...) where each attribute of a part carries
// its part's prefix: "Single.Value", "Range.Mean", "Range.Delta",
// "Range.Steps", "Probabilistic.Type" (the distribution's type name, e.g.
// "Normal" or "Log Normal"; written first of the distribution's attributes)
// and "Probabilistic.<attribute>" of that distribution. For example
//   Trials(Single.Value=30,Range.Mean=30,Range.Delta=2,Probabilistic.Type=Normal,Probabilistic.Mean=30,Probabilistic.SD=3)
// The container's own "InputParam" and "OutputParam" carry no prefix.
// Evaluation gives the single value (what a deterministic analysis uses).
#include "V7Doc/functions/FnConst.h"
#include "V7Doc/functions/FnProb.h"
#include "V7Doc/functions/FnRange.h"

namespace v7 {

class FnMultiTrial : public FnImpl {
 public:
  static const wchar_t* TypeName() { return L"Trials"; }

  // Single value unset, range unset, a normal distribution with no parameters.
  FnMultiTrial();

  // Recognises the text of a trial container and builds it into `fn`. An
  // error when the text is not "Trials(...)" or an attribute cannot be read.
  static gtl::status Create(const std::wstring& text, IFn& fn);

  // "Single." + a's name, with a's value.
  static FnAttr AttrSingle(const FnAttr& a);
  // "Range." + a's name, with a's value.
  static FnAttr AttrRange(const FnAttr& a);
  // "Probabilistic." + a's name, with a's value.
  static FnAttr AttrProb(const FnAttr& a);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnMultiTrial(*this); }
  // Dispatches each prefixed attribute to its part, prefix removed; a new
  // "Probabilistic.Type" replaces the distribution by a new one of that type
  // before its other attributes are applied.
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  // Updates the distribution when its parameters are set (an empty one is
  // not an error: the probabilistic part is optional).
  gtl::status UpdateCalculatedValues() override;
  // The single value, whatever the input.
  double Calculate(const double* x, const double* y) const override;
  // The parts' data attributes, prefixed.
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // The parts' calculated attributes, prefixed.
  void GetCalcAttributes(std::vector<FnAttr>& attrs) const override;

  FnConst& fnSingle() { return single_; }
  const FnConst& fnSingle() const { return single_; }
  FnRange& fnRange() { return range_; }
  const FnRange& fnRange() const { return range_; }
  // The distribution (unshared first when edited).
  FnProb& fnProb();
  const FnProb& fnProb() const;

 private:
  FnConst single_;
  FnRange range_;
  IFn prob_;  // always an FnProb kind
};

}  // namespace v7
