#pragma once
// A distribution drawn by the user ("Generalized Spline"): function
// "ProbFnNum" (from 1) of the document's list "ProbFns" (container 40) gives
// the relative probability density over the parameter; it is integrated
// between "Min" and "Max" (trapezoids over 2000 equal steps, negative or
// missing densities counted as 0), normalised to one, and inverted.
#include <cstdint>

#include "V7Doc/functions/FnProb.h"
#include "V7Doc/functions/FnReferences.h"

namespace v7 {

class FnProbFN : public FnProb, public IFnReferences {
 public:
  static const wchar_t* TypeName() { return L"Generalized Spline"; }
  // The number of integration steps between Min and Max.
  static constexpr int kSteps = 2000;

  FnProbFN() = default;
  FnProbFN(const std::uint32_t& fnNum, const double& min, const double& max);

  std::wstring Name() const override { return TypeName(); }
  FnImpl* Clone() const override { return new FnProbFN(*this); }
  int nType() const override { return 5; }
  // A function number (not 0, not all ones) and Min below Max.
  bool IsValid() const override;
  // "ProbFnNum", "Min", "Max".
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

  std::uint32_t ProbFnNum() const { return fnNum_; }
  // The density function.
  void GetFnReferences(std::vector<FnReference>& refs) const override;

 protected:
  gtl::status Build(Table& t) const override;
  bool ReadParameter(const FnAttr& a, gtl::status& s) override;

 private:
  std::uint32_t fnNum_ = 0;
};

}  // namespace v7
