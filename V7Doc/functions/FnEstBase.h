#pragma once
// Base of the estimators: functions that generate a point table from a few
// soil parameters and then interpolate in it.
//
// Conventions of the soil-water estimators (the defaults of this base):
//  - the input is the pore-water pressure (negative is suction), as for the
//    closed-form soil-water functions; the generated points (DataPoints) are
//    in that same input, so that a function list can take them as they are;
//  - the points lie at "NumPoints" suctions spaced evenly in log10 between
//    "Min" and "Max", and interpolation runs in log10 suction (and in log10
//    of the output where a kind asks for it: conductivities);
//  - outside the generated suctions the end values continue flat (pressures
//    of zero and above take the value at "Min"), as drawn tables do with
//    slope-0 tails;
// Kinds whose input is another quantity (strain, stress, temperature, water
// content, time) say so with SuctionInput() false: their points are then
// stored and evaluated at the input as it stands, ascending, on a linear or
// (LogInput) log10 axis, flat beyond the ends; they tabulate their own
// inputs (Tabulate).
//  - until points have been generated, or after an update that failed, the
//    value is qvi::kNoValue: a stale table would describe old parameters.
#include <cstdint>
#include <span>
#include <vector>

#include "QVI/math/fn/interpolate/Linear.h"
#include "V7Doc/functions/FnDataPoints.h"

namespace v7 {

class FnEstBase : public FnDataPoints, public math::fn::interpolate::Linear {
 public:
  // The largest "NumPoints" accepted (bounds the work of one update).
  static constexpr std::uint32_t kMaxPoints = 10000;

  using FnImpl::operator();
  using FnDataPoints::Assign;

  // Interpolates in the generated points; qvi::kNoValue while there are none.
  double Calculate(const double* x, const double* y) const override;
  // Calculate at in[i] into out[i], bit for bit, with one virtual call per
  // array: inputs taken as they stand on a linear axis go through the
  // table's own array loop.
  void Evaluate(std::span<const double> in, std::span<double> out) const override;
  // Regenerates the points from the attributes. On failure the points are
  // dropped and the status (also kept for LastError) says why.
  gtl::status UpdateCalculatedValues() override;
  gtl::status LastError() const override { return lastError_; }

  // What the input and the output are, with their units, for axis labels
  // and reviews ("Suction" and "" by default).
  virtual std::wstring InputQuantity() const { return L"Suction"; }
  virtual std::wstring OutputQuantity() const { return {}; }

  // Smallest and largest suction of the generated points, and their number.
  double Min() const { return min_; }
  double Max() const { return max_; }
  std::uint32_t NumPoints() const { return numPoints_; }

 protected:
  // Fills `values` with the estimate at each suction of `suctions`.
  virtual gtl::status Generate(const std::vector<double>& suctions, std::vector<double>& values) const = 0;
  // True when the output is interpolated in log10 (all values above zero).
  virtual bool LogOutput() const { return false; }
  // True when the input is the pore-water pressure and the tabulated inputs
  // are suctions; false when the input is taken as it stands.
  virtual bool SuctionInput() const { return true; }
  // True when the input axis of the table is log10.
  virtual bool LogInput() const { return true; }
  // The table: ascending inputs (suctions for SuctionInput kinds) and their
  // values. The default checks "Min", "Max" and "NumPoints" and asks
  // Generate for the values at LogSpaced suctions.
  virtual gtl::status Tabulate(std::vector<double>& xs, std::vector<double>& ys) const;
  // Rebuilds the interpolation table from the points.
  void OnPointsChanged() override;

  // Reads "Min", "Max" or "NumPoints"; false when `a` is none of them.
  bool ReadRangeAttribute(const FnAttr& a, gtl::status& s);
  // Appends "Max", "Min" and "NumPoints", in the order they are written.
  void GetRangeAttributes(std::vector<FnAttr>& attrs) const;
  // The error of this estimate with a reason (message 33510).
  gtl::status EstimateError(const std::wstring& reason) const;
  // "NumPoints" suctions spaced evenly in log10 from `lo` to `hi`.
  static std::vector<double> LogSpaced(double lo, double hi, std::uint32_t n);

  bool suction_ = true;  // SuctionInput() of the table built, kept for Calculate
  double max_ = 1000.0;
  double min_ = 0.01;
  std::uint32_t numPoints_ = 20;
  gtl::status lastError_;
};

}  // namespace v7
