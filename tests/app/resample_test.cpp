// Scaling: bilinear keeps constants and sizes, box averaging averages
// blocks, and fitting keeps the aspect ratio.
#include "app/app_test.h"
#include "qtzq_app/resample.h"

namespace qtzq_app_test {
namespace {

using namespace qtzq_app;

TEST(Resample, BilinearKeepsConstantsAndTheSameSize) {
    const BgraImage image = sample_photo(5, 4);
    EXPECT_EQ(scale_bilinear(image, 5, 4).pixels, image.pixels);
    BgraImage flat(3, 3);
    for (auto& byte : flat.pixels) byte = 77;
    for (const auto byte : scale_bilinear(flat, 11, 2).pixels) EXPECT_EQ(byte, 77);
}

TEST(Resample, AreaShrinkAveragesEachBlockAndFitKeepsTheAspect) {
    BgraImage image(4, 2);
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y) image.at(x, y)[0] = static_cast<unsigned char>(x < 2 ? 10 * (x + y) : 200);
    const BgraImage small = scale_area(image, 2, 1);
    EXPECT_EQ(small.at(0, 0)[0], 10);  // (0 + 10 + 10 + 20) / 4
    EXPECT_EQ(small.at(1, 0)[0], 200);
    int w = 0, h = 0;
    fit_size(400, 100, 80, 80, w, h);
    EXPECT_EQ(w, 80);
    EXPECT_EQ(h, 20);
}

}  // namespace
}  // namespace qtzq_app_test
