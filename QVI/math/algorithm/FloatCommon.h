#pragma once
// Decimal helpers for doubles: powers of ten, rounding to a number of
// significant digits, and the clean-up of representation noise left by
// arithmetic (0.1 * 3 == 0.30000000000000004).
namespace math::algorithm {

template <class T>
struct FloatCommon;

template <>
struct FloatCommon<double> {
  // How Round treats the digits it drops.
  enum RoundMode : int {
    Nearest = 0,     // to nearest, halves away from zero (3.45 -> 3.5 at 2 digits)
    Up = 1,          // towards +infinity
    Down = 2,        // towards -infinity
    TowardZero = 3,  // truncation
  };

  // The largest digit count that Round and StrictPrecision honour: a double
  // carries 15 to 17 significant decimal digits, so asking for more is
  // asking for nothing; such requests return the value unchanged.
  static constexpr int kMaxDigits = 17;

  // 10^n as the double nearest to it. Exact for 0 <= n <= 22 (those powers
  // are representable); correctly rounded for -22 <= n < 0; std::pow beyond,
  // which gives 0 or +infinity where the power leaves the double range.
  static double Pow10(int n);

  // 10^x for real x. Integer x goes through Pow10 so that Exp10(2) is exactly
  // 100; NaN gives NaN.
  static double Exp10(double x);

  // `value` rounded to `digits` SIGNIFICANT decimal digits (not decimal
  // places): Round(1234.5678, 6) == 1234.57, Round(0.00123456, 3) == 0.00123.
  // Zero, infinities, NaN, digits < 1 and digits > kMaxDigits return `value`
  // unchanged; a value whose digits all survive also comes back unchanged.
  // `mode` is one of RoundMode; an unknown mode behaves as Nearest.
  static double Round(double value, int digits, int mode = Nearest);

  // Removes the noise of the last bits: rounds to 15 significant digits (the
  // digits a double always carries faithfully, DBL_DIG), so that values which
  // differ only by accumulated rounding error compare equal. 0.1 * 3 becomes
  // 0.3 and 2.9999999999999996 becomes 3. Zero, infinities, NaN and the
  // no-value marker pass through unchanged.
  static double StrictPrecision(double value);
};

}  // namespace math::algorithm
