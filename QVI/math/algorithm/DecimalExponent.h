#pragma once
// Decimal exponents of doubles: the power of ten of a value's leading digit.
//
// The geometry code sizes its tolerances by the magnitude of the coordinates
// it compares (coordinate precision, the inversion of element maps); these
// two helpers give that magnitude without the off-by-one errors of a bare
// floor(log10(v)) near exact powers of ten.

namespace math::algorithm {

// The exponent e with 10^e <= |v| < 10^(e+1). Zero, NaN and infinities give 0,
// so that a tolerance scaled by DecimalMagnitude(0) stays the unscaled one.
int DecimalExponent(double v);

// 10^DecimalExponent(v), as a double (1 for zero, NaN and infinities).
double DecimalMagnitude(double v);

}  // namespace math::algorithm
