#pragma once
// What an interpolation table does beyond its first or last point: nothing
// (no value there), or a straight continuation with a given slope.
#include <string>

namespace math::fn {

struct TailType {
  // True when the table continues past its end point.
  bool bTail = false;
  // Slope of the continuation, in the table's own (possibly logarithmic)
  // coordinates: dy/dx, or d(log10 y)/d(log10 x) on log axes.
  double slope = 0.0;

  // No continuation: evaluation beyond the end point gives no value.
  static TailType None() { return {}; }
  // A straight continuation with slope `s`.
  static TailType Slope(double s) { return {true, s}; }

  // Text form: empty for no tail, else the slope as a number.
  std::wstring as_wstring() const;
  // Reads the text form; an empty or blank text is no tail. False (and the
  // tail left alone) when the text is neither blank nor a finite number.
  bool parse(const std::wstring& text);

  friend bool operator==(const TailType&, const TailType&) = default;
};

}  // namespace math::fn
