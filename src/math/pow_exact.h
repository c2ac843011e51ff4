// The exact cases of a power: x^y can be a midpoint between two doubles
// (41^10, or 208065^3 * 2^-54, lie exactly halfway), and there the rounding
// must not depend on which side of the midpoint an approximation fell.
#ifndef QTZQ_MATH_POW_EXACT_H
#define QTZQ_MATH_POW_EXACT_H

namespace qtzq {

// True when x^y is exactly the midpoint between `below` (a finite double
// >= 0) and the next double above it. For a finite x > 0 and a finite y.
bool power_is_midpoint_above(double x, double y, double below);

}  // namespace qtzq

#endif  // QTZQ_MATH_POW_EXACT_H
