// Exported saturation adjustments: matrix, HSL shift and YUV chroma scale.
#include "qtzqeffect/pixel.h"

#include "pixel/image_walk.h"
#include "pixel/saturation_kernels.h"
#include "pixel/saturation_spans.h"

using namespace qtzq;

namespace {

constexpr long kHslSaturationShift = 1;
constexpr long kYuvChromaScale = 2;

}  // namespace

void SaturateconstMatrix(unsigned char* pixel, int* matrix) {
    apply_saturation_matrix(pixel, matrix);
}

void Saturateconst(unsigned char* pixels, int width, int height, long amount) {
    const SaturationMatrix matrix = saturation_matrix(amount);
    saturation_matrix_span(pixels, pixel_count(width, height), matrix.m);
}

void Saturateconst(unsigned char* pixels, int width, int height, long amount, long mode) {
    unsigned char table[256];
    if (mode == kHslSaturationShift) {
        hsl_shift_table(amount, table);
        shift_hsl_saturation_span(pixels, pixel_count(width, height), table);
    } else if (mode == kYuvChromaScale) {
        chroma_scale_table(amount, table);
        yuv_chroma_span(pixels, pixel_count(width, height), table);
    }
}

void Saturation(unsigned char* pixels, int width, int height, int saturation) {
    Saturateconst(pixels, width, height, saturation, kHslSaturationShift);
}
