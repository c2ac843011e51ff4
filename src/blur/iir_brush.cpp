// GaussIIRBlurBrush: the recursive Gaussian with integer radii, the column
// pass first.
#include <algorithm>

#include "blur/deriche_coefficients.h"
#include "blur/deriche_lines.h"
#include "blur/sigma_mapping.h"
#include "qtzqeffect/blur.h"

namespace {

constexpr int kPixelBytes = 4;
constexpr int kSmallestRadius = 2;  // smaller radii blur as 2: the brush always blurs

qtzq::DericheCoefficients brush_coefficients(int radius) {
    return qtzq::deriche_coefficients(
        qtzq::brush_radius_to_sigma(std::max(radius, kSmallestRadius)));
}

}  // namespace

void GaussIIRBlurBrush(unsigned char* buffer, int width, int height, int radiusX, int radiusY) {
    if (width < 1 || height < 1) return;
    // Each line is read whole before it is written, so the columns and then
    // the rows are filtered in place; only blue, green and red are touched.
    qtzq::filter_deriche_pass(buffer, width, height, kPixelBytes, false,
                              brush_coefficients(radiusY));
    // Recomputed even when both radii are equal.
    qtzq::filter_deriche_pass(buffer, width, height, kPixelBytes, true,
                              brush_coefficients(radiusX));
}
