// GaussIIRBlurBrush: the recursive Gaussian with integer radii, the column
// pass first, lines gathered into a compact three-bytes-per-pixel buffer.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "blur/deriche_coefficients.h"
#include "blur/deriche_line_filter.h"
#include "blur/sigma_mapping.h"
#include "qtzqeffect/blur.h"
#include "qtzqeffect/pixel.h"

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
    const int longest = std::max(width, height);
    // The line and the filter's work arrays live on the heap, so no image is
    // too large for the stack.
    std::vector<unsigned char> line(std::size_t(longest) * kPixelBytes);
    qtzq::DericheLineFilter filter(longest);
    const std::ptrdiff_t row_bytes = std::ptrdiff_t(width) * kPixelBytes;

    const qtzq::DericheCoefficients columns = brush_coefficients(radiusY);
    for (int x = 0; x < width; ++x) {
        unsigned char* const top = buffer + std::ptrdiff_t(x) * kPixelBytes;
        for (int y = 0; y < height; ++y)
            std::copy_n(top + y * row_bytes, qtzq::kFilteredChannels,
                        line.data() + std::ptrdiff_t(y) * qtzq::kFilteredChannels);
        filter.run(line.data(), qtzq::kFilteredChannels, top, row_bytes, height, columns);
    }

    // Recomputed even when both radii are equal.
    const qtzq::DericheCoefficients rows = brush_coefficients(radiusX);
    for (int y = 0; y < height; ++y) {
        unsigned char* const left = buffer + y * row_bytes;
        tfbitCopy(left, line.data(), width);
        filter.run(line.data(), qtzq::kFilteredChannels, left, kPixelBytes, width, rows);
    }
}
