// The IIR blur brush: radius floor, pass order, and large images.
#include <gtest/gtest.h>

#include <qtzqeffect/blur.h>

#include "blur/sigma_mapping.h"
#include "blur_test_support.h"

using namespace qtzq_test;

namespace {

Bytes brushed(Bytes image, int w, int h, int rx, int ry) {
    GaussIIRBlurBrush(image.data(), w, h, rx, ry);
    return image;
}

// The column pass then the row pass of the whole-image filter, each with the
// brush's own coefficients loaded into the block.
Bytes columns_then_rows(Bytes image, int w, int h, int rx, int ry) {
    GaussianBlurFilterUtil util;
    for (bool rows : {false, true}) {
        find_constants(util.n, util.m, util.d, util.dAnti, util.bn, util.bm,
                       qtzq::brush_radius_to_sigma(rows ? rx : ry));
        util.ConvoluteDimension(image.data(), w, h, 4, 1.0, rows);
    }
    return image;
}

TEST(IirBrush, IsAColumnPassThenARowPass) {
    const Bytes image = noise(31, 23, 4);
    EXPECT_EQ(brushed(image, 31, 23, 3, 9), columns_then_rows(image, 31, 23, 3, 9));
    EXPECT_EQ(brushed(image, 1, 40, 5, 5), columns_then_rows(image, 1, 40, 5, 5));
    EXPECT_EQ(brushed(image, 40, 1, 5, 5), columns_then_rows(image, 40, 1, 5, 5));
    EXPECT_TRUE(alpha_unchanged(image, brushed(image, 31, 23, 3, 9)));
}

TEST(IirBrush, RadiiBelowTwoBlurAsTwo) {
    const Bytes image = noise(16, 12, 5), two = brushed(image, 16, 12, 2, 2);
    EXPECT_NE(two, image);
    for (int r : {1, 0, -7}) EXPECT_EQ(brushed(image, 16, 12, r, r), two) << r;
    EXPECT_EQ(brushed(image, 0, 12, 4, 4), image);  // empty: nothing happens
}

TEST(IirBrush, VeryLongLinesNeedNoStack) {
    // 400000 positions would need about 19 MB of stack for the work arrays.
    const int h = 400000;
    Bytes column = solid(1, h, 10, 20, 30);
    column[4 * (h / 2)] = 250;
    GaussIIRBlurBrush(column.data(), 1, h, 2, 40);
    EXPECT_GT(column[4 * (h / 2)], 10);
    EXPECT_LT(column[4 * (h / 2)], 250);
    EXPECT_EQ(column[0], 10);
}

}  // namespace
