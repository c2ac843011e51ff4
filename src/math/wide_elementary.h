// exp, log, sine and cosine on WideFloat values, good to about 2^-175
// relative: the working precision of the portable maths (portable_math.h).
#ifndef QTZQ_MATH_WIDE_ELEMENTARY_H
#define QTZQ_MATH_WIDE_ELEMENTARY_H

#include "math/wide_float.h"

namespace qtzq {

// ln 2 and pi / 2 to the full 192 bits.
WideFloat wide_ln2();
WideFloat wide_half_pi();

// -ln(1 - 2^-k) for k = 2..8, the factors log divides out.
WideFloat wide_minus_log_factor(int k);

// e^t for |t| < 2048; the result may lie outside the double range.
WideFloat wide_exp(const WideFloat& t);

// The natural logarithm of a positive finite double.
WideFloat wide_log(double x);

// sin r and cos r for |r| <= pi / 4 (Taylor series).
WideFloat wide_sin_reduced(const WideFloat& r);
WideFloat wide_cos_reduced(const WideFloat& r);

}  // namespace qtzq

#endif  // QTZQ_MATH_WIDE_ELEMENTARY_H
