// Soft light at full opacity over a span of BGRA pixels against the same
// span of another image.
#ifndef QTZQ_PIXEL_SOFT_LIGHT_SPAN_H
#define QTZQ_PIXEL_SOFT_LIGHT_SPAN_H

#include <cstddef>

namespace qtzq {

// soft_light_levels(pixel, blend) on blue, green and red of `count` pixels,
// alpha kept: the bytes of soft_light_ex and of composite_color_ex at
// opacity 1, whose mixing and pre-scaling keep the levels as they are
// there. On the vector kernels while the integer fast paths are on.
void soft_light_span(unsigned char* pixels, const unsigned char* blend, std::size_t count);

}  // namespace qtzq

#endif  // QTZQ_PIXEL_SOFT_LIGHT_SPAN_H
