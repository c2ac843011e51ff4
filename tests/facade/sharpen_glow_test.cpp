// The facade's two-step sharpening and soft glow, and the round weight patch.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;
using qtzq_test::solid;

namespace {

Bytes taken(unsigned char* owned, std::size_t size) {  // copies and frees a returned buffer
    std::unique_ptr<unsigned char[]> hold(owned);
    return Bytes(owned, owned + size);
}

TEST(FacadeSharpenAndGlow, NullBuffersAndEmptyImages) {
    Qtzqeffect effects;
    Bytes a = noise(3, 3), b = noise(3, 3, 2), weight = solid(3, 3, 255, 255, 0, 255);
    EXPECT_EQ(effects.SharpInit(nullptr, 3, 3), nullptr);
    EXPECT_EQ(effects.WeakInit(nullptr, 3, 3, 5), nullptr);
    EXPECT_EQ(effects.SharpProcess(nullptr, a.data(), 3, 3, 1.0f), 0);
    EXPECT_EQ(effects.SharpProcess(a.data(), nullptr, 3, 3, 1.0f), 0);
    EXPECT_EQ(effects.WeakProcess(nullptr, b.data(), weight.data(), 3, 3), 0);
    EXPECT_EQ(effects.WeakProcess(a.data(), nullptr, weight.data(), 3, 3), 0);
    EXPECT_EQ(effects.WeakProcess(a.data(), b.data(), nullptr, 3, 3), 0);
    EXPECT_EQ(effects.WeakProcess(a.data(), b.data(), weight.data(), 3, 0), 1);
    // Only the red byte of a weight pixel is read; 0 keeps the photo.
    EXPECT_EQ(effects.WeakProcess(a.data(), b.data(), weight.data(), 3, 3), 1);
    EXPECT_EQ(a, noise(3, 3));
}

// Both first steps return a new blurred copy with the photo's alpha and leave
// the photo alone; a flat image is its own blur and is not sharpened.
TEST(FacadeSharpenAndGlow, InitReturnsABlurredCopy) {
    const int w = 19, h = 13;
    const Bytes photo = noise(w, h, 3), flat = solid(w, h, 10, 20, 30, 40);
    Qtzqeffect effects;
    for (int glow = 0; glow < 2; ++glow) {
        SCOPED_TRACE(glow ? "WeakInit" : "SharpInit");
        const auto init = [&](Bytes& image) {
            return taken(glow ? effects.WeakInit(image.data(), w, h, 5)
                              : effects.SharpInit(image.data(), w, h),
                         image.size());
        };
        Bytes image = photo, flat_image = flat;
        const Bytes blurred = init(image);
        EXPECT_EQ(image, photo);
        EXPECT_NE(blurred, photo);
        for (std::size_t i = 3; i < photo.size(); i += 4) ASSERT_EQ(blurred[i], photo[i]);
        EXPECT_EQ(init(flat_image), flat);
    }
    Bytes image = flat, blur = flat;
    EXPECT_EQ(effects.SharpProcess(image.data(), blur.data(), w, h, 0.7f), 1);
    EXPECT_EQ(image, flat);
}

TEST(FacadeSoftGlow, FullWeightKeepsATraceOfThePhoto) {
    // w = 255 * 0.003921 = 0.999855: 200 * w + 0 = 199.97, truncated to 199.
    Bytes image = solid(1, 1, 0, 0, 0, 31), blurred = solid(1, 1, 200, 200, 200, 0);
    Bytes weight = solid(1, 1, 0, 0, 255, 0);
    Qtzqeffect().WeakProcess(image.data(), blurred.data(), weight.data(), 1, 1);
    EXPECT_EQ(image, (Bytes{199, 199, 199, 31}));
}

struct Patch {
    int outer;
    std::vector<unsigned char> cells;
    Patch(int inner, int outer_radius)
        : outer(outer_radius), cells(std::size_t(2 * outer_radius + 1) * (2 * outer_radius + 1)) {
        WeakRoundChange(cells.data(), inner, outer_radius);
    }
    int at(int x, int y) const { return cells[std::size_t(y + outer) * (2 * outer + 1) + (x + outer)]; }
};

TEST(WeakRoundChange, CellsOfInnerFourOuterEight) {
    const Patch p(4, 8);  // A = 16, B = 64
    EXPECT_EQ(p.at(0, 0), 255);  // d = 0
    EXPECT_EQ(p.at(2, 2), 255);  // d = 8: t = 128
    EXPECT_EQ(p.at(2, 3), 176);  // d = 13: t = 48
    EXPECT_EQ(p.at(0, 4), 128);  // d = 16: t = 0, still the inner formula
    EXPECT_EQ(p.at(1, 4), 125);  // d = 17: 47 * 128 / 48
    EXPECT_EQ(p.at(0, 8), 0);    // d = 64
    EXPECT_EQ(p.at(8, 8), 0);    // beyond
    EXPECT_EQ(p.at(-4, -1), p.at(1, 4));
    const Patch q(6, 15);
    for (int y = 0; y <= 15; ++y)
        for (int x = 1; x <= 15; ++x) ASSERT_LE(q.at(x, y), q.at(x - 1, y)) << x << "," << y;
}

TEST(WeakRoundChange, DegenerateRadii) {
    unsigned char cell = 7;
    WeakRoundChange(&cell, 3, -1);  // nothing to draw
    EXPECT_EQ(cell, 7);
    WeakRoundChange(&cell, 0, 0);  // only the centre
    EXPECT_EQ(cell, 255);
    EXPECT_EQ(Patch(0, 3).at(0, 1), (9 - 1) * 128 / 9);  // the ring starts at the centre
    EXPECT_EQ(Patch(3, 3).at(3, 3), 0);                   // no ring at all
}

}  // namespace
