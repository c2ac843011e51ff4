// Qtzqeffect::ColorMixing: brightness/contrast, then matrix saturation.
#include <gtest/gtest.h>

#include <qtzqeffect/qtzqeffect.h>

#include "support/images.h"

using qtzq_test::Bytes;

namespace {

TEST(ColorMixing, NeutralSettingsKeepThePhotoAndNullIsRefused) {
    const Bytes photo = qtzq_test::noise(5, 3, 22);
    Bytes image = photo;
    Qtzqeffect facade;
    EXPECT_EQ(facade.ColorMixing(image.data(), 5, 3, 0, 0, 0), 1);
    EXPECT_EQ(image, photo);
    EXPECT_EQ(facade.ColorMixing(nullptr, 5, 3, 10, 10, 10), 0);
}

// Saturation -100 after contrast -100: every pixel is grey 128 + brightness,
// alpha untouched.
TEST(ColorMixing, FlatGreyExample) {
    Bytes image = qtzq_test::noise(4, 4, 23);
    const Bytes photo = image;
    Qtzqeffect().ColorMixing(image.data(), 4, 4, 10, -100, -100);
    for (std::size_t i = 0; i < image.size(); i += 4) {
        EXPECT_EQ(Bytes(&image[i], &image[i] + 3), (Bytes{138, 138, 138}));
        EXPECT_EQ(image[i + 3], photo[i + 3]);
    }
}

}  // namespace
