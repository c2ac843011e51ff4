// One pass of CSharp's blur on the fast path: blocks of lines through
// prefix sums (CSharpLineBlocks), each blurred pixel handed to a caller's
// store, so that a pass can write the blur or use it at once (sharpening)
// without another sweep over the image.
#ifndef QTZQ_BLUR_CSHARP_PASS_H
#define QTZQ_BLUR_CSHARP_PASS_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include "blur/csharp_line_blocks.h"
#include "pixel/image_walk.h"

namespace qtzq {

struct CSharpPass {
    const int* kernel;
    int kernel_sum;
    int kernel_size;
    int width;
    int height;
    bool horizontal;
};

// Where the lines of a pass lie in a 4-byte-per-pixel image.
struct PassGeometry {
    int length;  // samples in a line
    int lines;
    std::ptrdiff_t pixel_step;  // bytes from one sample of a line to the next
    std::ptrdiff_t line_step;   // bytes from one line to the next

    static PassGeometry of(int width, int height, bool horizontal) {
        const std::ptrdiff_t row_bytes = std::ptrdiff_t(width) * kBytesPerPixel;
        const std::ptrdiff_t pixel = kBytesPerPixel;
        return horizontal ? PassGeometry{width, height, pixel, row_bytes}
                          : PassGeometry{height, width, row_bytes, pixel};
    }
};

namespace csharp_detail {

// Neighbouring lines blurred together.
constexpr int kLinesPerBlock = 8;

// Blurs kLines neighbouring lines starting with line `first` and stores
// every pixel: store(offset, blurred) with the pixel's byte offset and its
// blurred bytes (channels 0..2; the fourth byte is the blurred alpha, which
// CSharp never writes).
template <int kLines, class Store>
void blur_block(CSharpLineBlocks<kLines * kBytesPerPixel>& blocks, const unsigned char* image,
                const PassGeometry& g, int first, std::vector<unsigned char>& out, Store& store) {
    const std::ptrdiff_t start = first * g.line_step;
    blocks.blur(image + start, g.pixel_step, g.line_step, out.data());
    const unsigned char* blurred = out.data();
    for (int t = 0; t < g.length; ++t)
        for (int k = 0; k < kLines; ++k, blurred += kBytesPerPixel)
            store(start + t * g.pixel_step + k * g.line_step, blurred);
}

}  // namespace csharp_detail

// The pass over every line of the image, eight neighbouring lines at a time
// and the last few one by one. A block of lines is read whole before its
// pixels are stored, so a store may write the image being read.
template <class Store>
void blur_csharp_pass(const CSharpPass& pass, const unsigned char* image, Store store) {
    using namespace csharp_detail;
    const PassGeometry g = PassGeometry::of(pass.width, pass.height, pass.horizontal);
    const int half = std::min(g.length >> 1, pass.kernel_size >> 1);
    std::vector<unsigned char> out(std::size_t(g.length) * kBytesPerPixel * kLinesPerBlock);

    CSharpLineBlocks<kBytesPerPixel * kLinesPerBlock> wide(pass.kernel, pass.kernel_sum, half, g.length);
    int line = 0;
    for (; line + kLinesPerBlock <= g.lines; line += kLinesPerBlock)
        blur_block<kLinesPerBlock>(wide, image, g, line, out, store);
    CSharpLineBlocks<kBytesPerPixel> single(pass.kernel, pass.kernel_sum, half, g.length);
    for (; line < g.lines; ++line) blur_block<1>(single, image, g, line, out, store);
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_CSHARP_PASS_H
