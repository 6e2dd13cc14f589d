#pragma once
// Real roots of a quadratic equation a·x² + b·x + c = 0.
//
// The roots are formed without cancellation (Press, Teukolsky, Vetterling and
// Flannery 2007, Numerical Recipes, 3rd ed., §5.6): q = -½(b + sgn(b)·√(b²-4ac)),
// x1 = q/a, x2 = c/q. A nearly vanishing leading coefficient therefore still
// gives the small root accurately, and the equation is treated as linear only
// when |a| is within the caller's tolerance.

namespace math::fn {

class QuadraticEqn {
 public:
  // Solves a·x² + b·x + c = 0 and returns how many roots it reports (0, 1 or
  // 2), in x1 and x2 (ascending when two). `tolerance` is the absolute size
  // below which a and b count as zero. Only roots with |x| <= bound are
  // reported: callers pass the range their unknown can take (a natural
  // coordinate of an element), and a root outside it is no answer for them.
  // Pass the no-value marker (or infinity) to report every real root. A
  // discriminant that is negative only by
  // rounding (within 64 ulps of its terms) counts as zero: one double root.
  // A degenerate equation (a and b both within the tolerance) has no root.
  static int Solve(double a, double b, double c, double tolerance, double bound, double& x1,
                   double& x2);
};

}  // namespace math::fn
