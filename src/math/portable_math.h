// exp, sin, cos and pow with the same bits on every CPU and compiler.
//
// The library's filter coefficients and tone tables come from these
// functions, and a last-bit difference in a coefficient can move a
// truncated pixel. The C library's versions differ between platforms
// (and, on one machine, between the code paths it picks at run time), so
// these are computed with integer arithmetic only (wide_float.h), to about
// 175 correct bits, and rounded once to the nearest double, ties to even.
//
// Correct rounding: the result is the exactly rounded value whenever the
// true value is not within 2^-170 (relative) of a point halfway between two
// doubles. The hardest-to-round doubles known for exp, sin and cos lie far
// farther from such points; pow recognises the powers that lie exactly
// halfway (41^10, say) and rounds those to even. Beyond that the computed
// bits decide, so every result is deterministic either way. Every finite
// argument is reduced exactly (sin and cos whatever the magnitude), so this
// holds over the whole double range, gradual underflow included. Tests
// compare with a quadruple-precision reference, in the ranges the library
// uses and beyond.
//
// Special values follow the C standard's exp, sin, cos and pow; every NaN
// result is the default quiet NaN. A call costs a few microseconds: meant
// for coefficients and tables, not for per-pixel work.
#ifndef QTZQ_MATH_PORTABLE_MATH_H
#define QTZQ_MATH_PORTABLE_MATH_H

namespace qtzq {

// e^x: +inf above about 709.78, +0 below about -745.13, NaN for NaN.
double portable_exp(double x);

// sin x and cos x, x in radians; NaN for an infinite or NaN x; sin keeps
// the sign of a zero argument.
double portable_sin(double x);
double portable_cos(double x);

// x^y. pow(x, +-0) = 1 and pow(1, y) = 1 for any y (NaN too);
// pow(+-0, y > 0) = +-0 (sign kept for odd integer y), pow(+-0, y < 0) =
// +-inf; a negative x with a non-integer y gives NaN; infinities as in the
// C standard.
double portable_pow(double x, double y);

}  // namespace qtzq

#endif  // QTZQ_MATH_PORTABLE_MATH_H
