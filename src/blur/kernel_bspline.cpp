// The cubic B-spline weight, in single precision.
#include "qtzqeffect/blur.h"

namespace {

float positive_cube(float v) { return v > 0.0f ? v * v * v : 0.0f; }

}  // namespace

float KernelBSpline(float x) {
    if (x > 2.0f) return 0.0f;
    const float kOneSixth = 0.16666667f;  // required as written (float 1/6)
    return (positive_cube(x + 2.0f) - 4.0f * positive_cube(x + 1.0f) + 6.0f * positive_cube(x) -
            4.0f * positive_cube(x - 1.0f)) *
           kOneSixth;
}
