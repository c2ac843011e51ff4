// From a blur radius in pixels to the Gaussian's standard deviation.
#ifndef QTZQ_BLUR_SIGMA_MAPPING_H
#define QTZQ_BLUR_SIGMA_MAPPING_H

#include <cmath>

namespace qtzq {

// GaussianBlurFilterUtil: sigma = sqrt((|radius| + 1.3)^2 / 11.082527090316852),
// about (radius + 1.3) / 3.329. The square root of the quotient (not the
// quotient of the root) is required as written.
inline double blur_radius_to_sigma(double radius) {
    constexpr double kOffset = 1.3;
    constexpr double kDivisor = 11.082527090316852;
    const double extent = std::fabs(radius) + kOffset;
    return std::sqrt(extent * extent / kDivisor);
}

// The blur brush: sigma = sqrt((radius + 1)^2 / 11.082531490321692). Both the
// offset and the divisor differ slightly from the blur's, deliberately.
// Computed in double so that no radius overflows.
inline double brush_radius_to_sigma(int radius) {
    constexpr double kOffset = 1.0;
    constexpr double kDivisor = 11.082531490321692;
    const double extent = radius + kOffset;
    return std::sqrt(extent * extent / kDivisor);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_SIGMA_MAPPING_H
