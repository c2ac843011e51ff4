// One pass of CSharp's blur on the fast path: blocks of lines through
// prefix sums (CSharpLineBlocks), each blurred pixel handed to a caller's
// store, or, for the row pass, each blurred row, so that a pass can write
// the blur or use it at once without another sweep over the image.
#ifndef QTZQ_BLUR_CSHARP_PASS_H
#define QTZQ_BLUR_CSHARP_PASS_H

#include <algorithm>
#include <cstddef>
#include <cstring>
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

// Every line of the image, eight neighbouring lines at a time and the last
// few one by one; done(first, lines) after each block's stores.
template <class Store, class Done>
void blur_lines(const CSharpPass& pass, const unsigned char* image, Store& store, Done done) {
    const PassGeometry g = PassGeometry::of(pass.width, pass.height, pass.horizontal);
    const int half = std::min(g.length >> 1, pass.kernel_size >> 1);
    std::vector<unsigned char> out(std::size_t(g.length) * kBytesPerPixel * kLinesPerBlock);

    CSharpLineBlocks<kBytesPerPixel * kLinesPerBlock> wide(pass.kernel, pass.kernel_sum, half, g.length);
    int line = 0;
    for (; line + kLinesPerBlock <= g.lines; line += kLinesPerBlock) {
        blur_block<kLinesPerBlock>(wide, image, g, line, out, store);
        done(line, kLinesPerBlock);
    }
    CSharpLineBlocks<kBytesPerPixel> single(pass.kernel, pass.kernel_sum, half, g.length);
    for (; line < g.lines; ++line) {
        blur_block<1>(single, image, g, line, out, store);
        done(line, 1);
    }
}

}  // namespace csharp_detail

// The pass over every line of the image. A block of lines is read whole
// before its pixels are stored, so a store may write the image being read.
template <class Store>
void blur_csharp_pass(const CSharpPass& pass, const unsigned char* image, Store store) {
    csharp_detail::blur_lines(pass, image, store, [](int, int) {});
}

// The row pass (pass.horizontal is ignored), handing the blurred rows over
// in order: on_row(y, blurred) with the row's width * 4 bytes, the fourth of
// each pixel the blurred alpha. Rows are blurred a block at a time, and a
// block is read whole before its first row is handed over, so on_row may
// write the image's rows up to the one it is handed.
template <class OnRow>
void blur_csharp_rows(CSharpPass pass, const unsigned char* image, OnRow on_row) {
    pass.horizontal = true;
    const std::ptrdiff_t row_bytes = std::ptrdiff_t(pass.width) * kBytesPerPixel;
    std::vector<unsigned char> rows(std::size_t(row_bytes) * csharp_detail::kLinesPerBlock);
    std::ptrdiff_t block_start = 0;
    auto store = [&](std::ptrdiff_t offset, const unsigned char* blurred) {
        std::memcpy(rows.data() + (offset - block_start), blurred, kBytesPerPixel);
    };
    csharp_detail::blur_lines(pass, image, store, [&](int first, int lines) {
        for (int k = 0; k < lines; ++k) on_row(first + k, rows.data() + k * row_bytes);
        block_start += lines * row_bytes;
    });
}

}  // namespace qtzq

#endif  // QTZQ_BLUR_CSHARP_PASS_H
