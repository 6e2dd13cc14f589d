#pragma once
// Base of the property estimators whose data attributes are plain numbers,
// counts and enumerations (stiffness, damping, cyclic loading, rock strength,
// thermal, air and vegetation estimates).
//
// Each kind declares its data attributes once, as a table of FnEstField in
// the order they are written; reading ("%s : %s" errors with the attribute's
// name), writing and defaults all follow that table. A kind then gives the
// inputs of its table (Abscissae) and its formula at one input (Estimate).
//
// SetAttributes is all or nothing: when any attribute is malformed (not a
// number, outside its range, an unknown enumeration member) the first error
// is returned and the function keeps every value it had, parameter types
// included.
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "V7Doc/functions/FnEstBase.h"
#include "V7Doc/functions/FnReferences.h"

namespace v7 {

// One data attribute of an estimator.
struct FnEstField {
  enum Kind { Double, Unsigned, Enum };
  Kind kind = Double;
  FnAttr (*makeDouble)(double) = nullptr;  // the vocabulary factory (names the attribute)
  FnAttr (*makeUnsigned)(std::uint32_t) = nullptr;
  FnAttr (*makeEnum)(std::int32_t) = nullptr;
  const meta::MetaEnumCommon& (*table)() = nullptr;   // the members of an enumeration
  double def = 0;                                     // value of a new function
  double lo = std::numeric_limits<double>::lowest();  // accepted range
  double hi = std::numeric_limits<double>::max();
  bool allowUnset = false;  // empty text (the no-value marker) accepted
  std::wstring name;        // the attribute's name, taken from the factory once

  const std::wstring& Name() const { return name; }
  FnAttr Write(double v) const;
  // Reads `a`'s text into v; false (and the first error kept in s) when malformed.
  bool Read(const FnAttr& a, double& v, gtl::status& s) const;
};

// Field builders: a double in [lo, hi], a count in [lo, hi], an enumeration.
FnEstField EstDouble(FnAttr (*make)(double), double def, double lo, double hi,
                     bool allowUnset = false);
FnEstField EstCount(FnAttr (*make)(std::uint32_t), std::uint32_t def, std::uint32_t lo,
                    std::uint32_t hi);
FnEstField EstEnum(FnAttr (*make)(std::int32_t), const meta::MetaEnumCommon& (*table)(),
                   std::int32_t def);

// The water-content function numbered `num` (from 1) of the current
// document's water-content list, or the "%s : %s" error naming "VolWCFnNum".
gtl::status FindWaterContentFn(std::uint32_t num, IFn& fn);

class FnEstCurve : public FnEstBase, public IFnReferences {
 public:
  gtl::status SetAttributes(const std::vector<FnAttr>& attrs) override;
  void GetDataAttributes(std::vector<FnAttr>& attrs) const override;
  // The water-content function of a kind that has "VolWCFnNum" (none when 0).
  void GetFnReferences(std::vector<FnReference>& refs) const override;

  std::wstring InputQuantity() const override { return input_; }
  std::wstring OutputQuantity() const override { return output_; }

  // The value of a data attribute by name; qvi::kNoValue when the kind has none.
  // Estimates call this for every point of a table: it compares names only.
  double Param(std::wstring_view name) const;
  // The value of an enumeration or count attribute.
  std::int32_t IntParam(std::wstring_view name) const {
    return static_cast<std::int32_t>(Param(name));
  }

 protected:
  // `fields` is the kind's static table; the values start at its defaults.
  // `input` and `output` name the quantities with their units.
  FnEstCurve(const std::vector<FnEstField>& fields, const wchar_t* input, const wchar_t* output);

  // The inputs of the table, ascending (suctions where SuctionInput()).
  // Kinds that tabulate (input, value) pairs together override Tabulate
  // instead and leave these two alone.
  virtual std::vector<double> Abscissae() const { return {}; }
  // Whether the parameters allow an estimate: success, or EstimateError.
  virtual gtl::status Check() const { return {}; }
  // The estimate at one input of the table.
  virtual double Estimate(double) const { return qvi::kNoValue; }
  // The error "%s : %s" for the attribute `name` with its current value.
  gtl::status ParamError(std::wstring_view name, const std::wstring& reason) const;

  bool SuctionInput() const override { return false; }
  bool LogInput() const override { return false; }
  gtl::status Tabulate(std::vector<double>& xs, std::vector<double>& ys) const override;
  gtl::status Generate(const std::vector<double>& xs, std::vector<double>& ys) const override;

  // n inputs spaced evenly from lo to hi (n >= 2).
  static std::vector<double> LinSpaced(double lo, double hi, std::uint32_t n);

 private:
  // Keeps the base's "Min", "Max" and "NumPoints" equal to the kind's own.
  void SyncRange();

  const std::vector<FnEstField>* fields_;
  std::vector<double> values_;
  const wchar_t* input_;
  const wchar_t* output_;
};

}  // namespace v7
