// draw and drawRect: source-over painting with clipping.
#include <gtest/gtest.h>

#include "qtzqeffect/frame.h"
#include "support/images.h"

namespace {

using qtzq_test::Bytes;
using qtzq_test::solid;

constexpr int kMax = 2147483647;
constexpr int kMin = -kMax - 1;

Bytes pixel_at(const Bytes& image, int width, int x, int y) {
    const auto at = image.begin() + (std::size_t(y) * width + x) * 4;
    return Bytes(at, at + 4);
}

Bytes paint_one(Bytes target, Bytes source) {
    draw(target.data(), 1, 1, 0, 0, source.data(), 1, 1);
    return target;
}

TEST(Paint, AlphaDecidesBetweenCopyKeepAndShiftedBlend) {
    EXPECT_EQ(paint_one({9, 9, 9, 7}, {1, 2, 3, 255}), Bytes({1, 2, 3, 255}));
    EXPECT_EQ(paint_one({9, 9, 9, 7}, {1, 2, 3, 0}), Bytes({9, 9, 9, 7}));
    // (0 * 128 + 255 * 127) >> 8 = 126: the shift loses a little brightness.
    EXPECT_EQ(paint_one({255, 255, 255, 255}, {0, 0, 0, 128}), Bytes({126, 126, 126, 255}));
    // (200 * 64 + 100 * 191) >> 8 = 124, and equal values come out darker.
    EXPECT_EQ(paint_one({100, 50, 80, 0}, {200, 50, 80, 64}), Bytes({124, 49, 79, 255}));
}

TEST(Paint, DrawClipsAtEveryTargetEdge) {
    Bytes piece = solid(3, 3, 1, 2, 3);
    for (int x = -3; x <= 4; ++x) {
        for (int y = -3; y <= 4; ++y) {
            Bytes target = solid(4, 4, 0, 0, 0, 0);
            draw(target.data(), 4, 4, x, y, piece.data(), 3, 3);
            for (int ty = 0; ty < 4; ++ty) {
                for (int tx = 0; tx < 4; ++tx) {
                    const bool covered = tx >= x && tx < x + 3 && ty >= y && ty < y + 3;
                    EXPECT_EQ(pixel_at(target, 4, tx, ty)[3], covered ? 255 : 0)
                        << "piece at " << x << "," << y << " pixel " << tx << "," << ty;
                }
            }
        }
    }
}

TEST(Paint, DrawRectMapsRegionToPositionAndSkipsOutsideSource) {
    Bytes source(3 * 2 * 4);
    for (std::size_t i = 0; i < source.size(); ++i) source[i] = static_cast<unsigned char>(i);
    for (std::size_t i = 3; i < source.size(); i += 4) source[i] = 255;
    Bytes target = solid(4, 3, 0, 0, 0, 0);
    // Columns 1..3 and rows -1..1 of a 3 x 2 source: column 3 and row -1 do
    // not exist.
    drawRect(target.data(), 4, 3, source.data(), 3, 2, 0, 0, ZQ2DRect{1, -1, 4, 2});
    EXPECT_EQ(pixel_at(target, 4, 0, 0)[3], 0);  // row -1
    EXPECT_EQ(pixel_at(target, 4, 0, 1), pixel_at(source, 3, 1, 0));
    EXPECT_EQ(pixel_at(target, 4, 1, 2), pixel_at(source, 3, 2, 1));
    EXPECT_EQ(pixel_at(target, 4, 2, 1)[3], 0);  // column 3
}

TEST(Paint, NothingIsPaintedForEmptyRegionsOrNullBuffers) {
    Bytes source = solid(2, 2, 1, 1, 1);
    const Bytes untouched = solid(2, 2, 0, 0, 0, 0);
    Bytes target = untouched;
    drawRect(target.data(), 2, 2, source.data(), 2, 2, 0, 0, ZQ2DRect{0, 1, 2, 1});
    drawRect(target.data(), 2, 2, source.data(), 2, 2, 0, 0, ZQ2DRect{0, 2, 2, 0});
    drawRect(target.data(), 2, 2, nullptr, 2, 2, 0, 0, ZQ2DRect{0, 0, 2, 2});
    draw(target.data(), 2, 2, 0, 0, source.data(), 0, 2);
    draw(nullptr, 2, 2, 0, 0, source.data(), 2, 2);
    draw(target.data(), 2, 2, kMax, kMin, source.data(), 2, 2);
    drawRect(target.data(), 2, 2, source.data(), 2, 2, kMin, 0, ZQ2DRect{0, 0, kMax, 2});
    EXPECT_EQ(target, untouched);
}

TEST(Paint, ExtremeCoordinatesDoNotOverflow) {
    Bytes source = solid(2, 2, 1, 1, 1);
    Bytes target = solid(2, 2, 0, 0, 0, 0);
    // Source column c lands at kMin + (c - kMin) = c.
    drawRect(target.data(), 2, 2, source.data(), 2, 2, kMin, kMin,
             ZQ2DRect{kMin, kMin, kMax, kMax});
    EXPECT_EQ(target, source);
}

}  // namespace
