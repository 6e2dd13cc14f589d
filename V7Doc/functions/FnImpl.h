#pragma once
// The function framework: the base of every function kind (FnImpl), the
// handle that records hold (IFn), and the text form of functions.
//
// A function maps one or two inputs to one output and is written as one line
// of text, Name(attr=value,...). Evaluation never fails: where a function has
// no value it returns qvi::kNoValue.
#include <span>
#include <string>
#include <vector>

#include "QVI/gtl/handle.h"
#include "QVI/gtl/sequence_iterator.h"
#include "QVI/gtl/status.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/functions/FnAttr.h"
#include "V7Doc/results/DataParamType.h"

namespace v7 {

class FnImpl;
class IFnReview;  // an optional review of a function's data, given by some kinds

// The step of a function's input-range sequence: the index-th natural input.
struct IFn_iterator_sequence_step {
  static double at(const FnImpl& fn, int index);
};
using FnInputIterator = gtl::sequence_iterator<FnImpl, IFn_iterator_sequence_step>;

class FnImpl : public gtl::handle_ref_counter {
 public:
  explicit FnImpl(DataParamType input = DataParamType::Undefined,
                  DataParamType output = DataParamType::Undefined)
      : InputParam_(input), OutputParam_(output) {}
  FnImpl(const FnImpl&) = default;
  FnImpl& operator=(const FnImpl&) = default;

  // 1. Destroys the function.
  ~FnImpl() override;
  // 2. The type name, the first word of the text form.
  virtual std::wstring Name() const = 0;
  // 3. The full text form: Name(attr=value,...), empty values left out.
  virtual std::wstring as_wstring() const;
  // 4. Rebuilds derived tables (spline coefficients, estimated points).
  virtual gtl::status UpdateCalculatedValues();
  // 5. The last failure of this function's own evaluation or update.
  virtual gtl::status LastError() const;
  // 6. A new function of the same kind and data, owned by the caller.
  virtual FnImpl* Clone() const = 0;
  // 7. Applies attributes; the base applies "InputParam" and "OutputParam".
  virtual gtl::status SetAttributes(const std::vector<FnAttr>& attrs);
  // 8. The value at (x, y); y may be null for a function of one variable.
  virtual double Calculate(const double* x, const double* y) const = 0;
  // 9. The index-th input of the function's natural input range.
  virtual double InputRangeAt(int index) const;
  // 10. The number of natural input points.
  virtual int InputRangeNumPoints() const;
  // 11. Appends the attributes that define the function.
  virtual void GetDataAttributes(std::vector<FnAttr>& attrs) const;
  // 12. Appends derived (calculated) attributes.
  virtual void GetCalcAttributes(std::vector<FnAttr>& attrs) const;
  // 13. The function's review object, if it has one.
  virtual IFnReview* GetReview() const;
  // 14. The values of a function of one variable at in[i], into out[i], for
  // i below the shorter of the two: one virtual call per array. Each value
  // is the one Calculate gives; the base calls it point by point, kinds
  // with a cheaper loop (checks and constants hoisted) override it.
  virtual void Evaluate(std::span<const double> in, std::span<double> out) const;

  DataParamType InputParam() const { return InputParam_; }
  DataParamType OutputParam() const { return OutputParam_; }
  void SetInputParam(DataParamType p) { InputParam_ = p; }
  void SetOutputParam(DataParamType p) { OutputParam_ = p; }

  // The value of a function of one variable.
  double operator()(const double& x) const { return Calculate(&x, nullptr); }

  // Every attribute: data attributes, then "Type" and the calculated ones
  // merged in by name, then "Description".
  void GetAttributes(std::vector<FnAttr>& attrs) const;
  // Fills attr.Value from the attribute of the same name; false when none.
  bool LookupAttribute(FnAttr& attr) const;
  // Fills attr (name and value) from the index-th attribute named `name`
  // (dotted names included); false when there are fewer.
  bool LookupAttributeAt(FnAttr& attr, unsigned index, const std::wstring& name) const;
  // True when the function has an attribute of that name.
  bool HasAttribute(const std::wstring& name) const;

  // The natural input points, InputRangeAt(0 .. InputRangeNumPoints()-1).
  FnInputIterator begin() const { return FnInputIterator(this, 0); }
  FnInputIterator end() const { return FnInputIterator(this, InputRangeNumPoints()); }

 protected:
  // "InputParam" and "OutputParam" when set, then GetDataAttributes.
  void GetAllDataAttributes(std::vector<FnAttr>& attrs) const;
  // The text form with only the attributes whose value is non-empty.
  std::wstring as_wstring_nonempty() const;

 private:
  DataParamType InputParam_;
  DataParamType OutputParam_;
};

// Implemented by table-backed kinds (FnFunc2DTable): IFn::InitializeInstance
// hands them the function number and the modifier-function number they refer
// to (0 for none).
class ITableContext {
 public:
  virtual ~ITableContext() = default;
  virtual gtl::status InitializeInstance(GID fnNum, GID mfnNum) = 0;
};

// The handle records hold: never null, shared by copy, edited copy-on-write.
class IFn {
 public:
  // The shared undefined function.
  IFn();
  // Takes a reference to `fn`; a null pointer gives the undefined function.
  explicit IFn(FnImpl* fn);
  IFn(const IFn&) = default;
  IFn(IFn&&) noexcept;
  IFn& operator=(const IFn&) = default;
  IFn& operator=(IFn&&) noexcept;

  // The shared constant 0, constant 1 and undefined functions, made once.
  static const IFn& FnZero();
  static const IFn& FnOne();
  static const IFn& FnUndefined();
  // The constant factory: a new FnConst for any value but the no-value
  // marker, which gives a new FnUndefinedType.
  static IFn Constant(double value);
  // The status that evaluation paths report for an input outside the domain.
  static gtl::status InvalidInputError();

  // True when this handle holds the shared undefined function.
  bool IsUndefined() const;
  // Back to the shared undefined function.
  void reset();

  const FnImpl* get() const { return p_.get(); }
  const FnImpl* operator->() const { return p_.get(); }
  const FnImpl& operator*() const { return *p_; }
  // The object, made unshared first (cloned when another handle shares it),
  // for edits through a kind's own interface.
  FnImpl* Unshared();
  // Number of handles sharing the object.
  std::size_t use_count() const { return p_->ref_count(); }

  // Copy-on-write edits.
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs);
  gtl::status SetAttribute(const FnAttr& attr);
  // For ITableContext kinds: unshare, then hand over the two numbers.
  gtl::status InitializeInstance(GID fnNum, GID mfnNum);

  // The value of a function of one variable.
  double operator()(double x) const { return p_->Calculate(&x, nullptr); }
  // The values at every in[i] into out[i] (FnImpl::Evaluate).
  void Evaluate(std::span<const double> in, std::span<double> out) const { p_->Evaluate(in, out); }
  std::wstring as_wstring() const { return p_->as_wstring(); }

  // Same object, or the same kind with the same text.
  friend bool operator==(const IFn& a, const IFn& b);

 private:
  gtl::handle<FnImpl> p_;
};

// Splits Name(attr=value,...) into the name and its attributes.
gtl::status FnParse(const std::wstring& text, std::wstring& name, std::vector<FnAttr>& attrs);
// Builds a function from its text; on failure `fn` holds the undefined
// function (or, for attribute errors, the kind with the readable attributes).
gtl::status FnCreate(const std::wstring& text, IFn& fn);
// A new default function of the kind registered under `name`.
gtl::status GetFnImplFromName(const std::wstring& name, IFn& fn);

}  // namespace v7
