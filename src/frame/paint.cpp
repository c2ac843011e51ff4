// Clipped source-over painting, and the public draw and drawRect.
#include "frame/paint.h"

#include <algorithm>
#include <cstddef>

#include "qtzqeffect/frame.h"

namespace qtzq {

namespace {

// A half-open range of source coordinates along one axis.
struct Span {
    std::int64_t begin;
    std::int64_t end;
};

// The source coordinates in [first, last) that lie inside the source
// (0 .. source_extent - 1) and whose target coordinate position +
// (s - first) lies inside the target (0 .. target_extent - 1).
Span clip_axis(std::int64_t first, std::int64_t last, std::int64_t source_extent,
               std::int64_t position, std::int64_t target_extent) {
    const std::int64_t shift = first - position;  // source coordinate of target 0
    return {std::max({first, std::int64_t{0}, shift}),
            std::min({last, source_extent, shift + target_extent})};
}

std::size_t pixel_offset(std::int64_t x, std::int64_t y, int width) {
    constexpr std::size_t kBytesPerPixel = 4;
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
            static_cast<std::size_t>(x)) *
           kBytesPerPixel;
}

bool paintable(const unsigned char* pixels, int width, int height) {
    return pixels != nullptr && width >= 1 && height >= 1;
}

}  // namespace

void paint_region(const PaintTarget& target, const PaintSource& source, std::int64_t x,
                  std::int64_t y, const PaintRegion& region) {
    if (!paintable(target.pixels, target.width, target.height) ||
        !paintable(source.pixels, source.width, source.height))
        return;
    const Span rows = clip_axis(region.top, region.bottom, source.height, y, target.height);
    const Span columns = clip_axis(region.left, region.right, source.width, x, target.width);
    for (std::int64_t row = rows.begin; row < rows.end; ++row) {
        const std::int64_t target_row = y + (row - region.top);
        for (std::int64_t column = columns.begin; column < columns.end; ++column) {
            const std::int64_t target_column = x + (column - region.left);
            paint_pixel(target.pixels + pixel_offset(target_column, target_row, target.width),
                        source.pixels + pixel_offset(column, row, source.width));
        }
    }
}

void paint_image(const PaintTarget& target, const PaintSource& source, std::int64_t x,
                 std::int64_t y) {
    paint_region(target, source, x, y, PaintRegion{0, 0, source.width, source.height});
}

}  // namespace qtzq

void draw(unsigned char* target, int target_width, int target_height, int x, int y,
          unsigned char* piece, int piece_width, int piece_height) {
    qtzq::paint_image({target, target_width, target_height}, {piece, piece_width, piece_height}, x,
                      y);
}

void drawRect(unsigned char* target, int target_width, int target_height, unsigned char* source,
              int source_width, int source_height, int x, int y, ZQ2DRect region) {
    qtzq::paint_region({target, target_width, target_height}, {source, source_width, source_height},
                       x, y, {region.left, region.top, region.right, region.bottom});
}
