// Reduction of an angle to the quarter turn nearest to it, exact enough for
// every finite double (Payne and Hanek's method: only the bits of 2/pi that
// matter for the given magnitude take part).
#ifndef QTZQ_MATH_ANGLE_REDUCTION_H
#define QTZQ_MATH_ANGLE_REDUCTION_H

#include "math/wide_float.h"

namespace qtzq {

// x = (4n + quadrant) * pi/2 + remainder for some integer n, |remainder| <= pi/4.
struct QuarterTurns {
    int quadrant;         // 0..3
    WideFloat remainder;  // relative error below 2^-185
};

// For a finite x >= 0.
QuarterTurns reduce_to_quarter_turn(double x);

}  // namespace qtzq

#endif  // QTZQ_MATH_ANGLE_REDUCTION_H
