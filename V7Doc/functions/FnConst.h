#pragma once
// The constant kind and the kind that stands for no function.
#include "V7Doc/functions/FnImpl.h"

namespace v7 {

// A constant, whatever the input. Written as its number alone (16
// significant digits); its type name is empty.
class FnConst : public FnImpl {
 public:
  explicit FnConst(double value = 0.0) : value_(value) {}

  std::wstring Name() const override { return {}; }
  std::wstring as_wstring() const override;
  FnImpl* Clone() const override { return new FnConst(*this); }
  // Accepts "Value", "InputParam" and "OutputParam".
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  double Calculate(const double*, const double*) const override { return value_; }
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;

  double Value() const { return value_; }

 private:
  double value_;
};

// No function: every input gives qvi::kNoValue. Its text form is a text it
// keeps (empty in the shared instance), so that a value written where a
// function was expected survives a round trip.
class FnUndefinedType : public FnConst {
 public:
  explicit FnUndefinedType(std::wstring text = {}) : FnConst(qvi::kNoValue), text_(std::move(text)) {}

  std::wstring as_wstring() const override { return text_; }
  FnImpl* Clone() const override { return new FnUndefinedType(*this); }
  // Accepts only the parameter types; the value stays the no-value marker.
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;

 private:
  std::wstring text_;
};

}  // namespace v7
