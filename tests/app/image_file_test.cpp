// Image files: PNG of every colour type into BGRA, JPEG round trips under
// every extension spelling, and failures of PNG and JPEG files that name the
// file. (The exact PNG round trip with every alpha value is part of every
// tool test that compares pixels.)
#include <png.h>

#include <cstring>
#include <vector>

#include "app/app_test.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_file.h"

namespace qtzq_app_test {
namespace {

struct ImageFileTest : FolderTest {
    ImageFileTest() : FolderTest(QTZQ_APP_TEST_WORK_DIR) {}
};

using Bytes = std::vector<unsigned char>;

TEST_F(ImageFileTest, EveryPngColourTypeBecomesBgra) {
    // Two pixels per file in libpng's format, and the BGRA they must become.
    const std::vector<std::tuple<png_uint_32, Bytes, Bytes>> cases = {
        {PNG_FORMAT_GRAY, {10, 200}, {10, 10, 10, 255, 200, 200, 200, 255}},
        {PNG_FORMAT_GA, {10, 0, 200, 128}, {10, 10, 10, 0, 200, 200, 200, 128}},
        {PNG_FORMAT_RGB, {1, 2, 3, 250, 251, 252}, {3, 2, 1, 255, 252, 251, 250, 255}},
        {PNG_FORMAT_RGBA_COLORMAP, {1, 0}, {255, 0, 0, 64, 0, 0, 255, 255}},
    };
    const Bytes colormap = {255, 0, 0, 255, 0, 0, 255, 64};  // RGBA entries
    for (const auto& [format, samples, bgra] : cases) {
        png_image png;
        std::memset(&png, 0, sizeof png);
        png.version = PNG_IMAGE_VERSION;
        png.width = 2;
        png.height = 1;
        png.format = format;
        png.colormap_entries = 2;
        ASSERT_TRUE(png_image_write_to_file(&png, path("a.png").c_str(), 0, samples.data(), 0,
                                            colormap.data())) << png.message;
        BgraImage image;
        std::string error;
        ASSERT_TRUE(qtzq_app::read_image(path("a.png"), image, error)) << error;
        EXPECT_EQ(image.pixels, bgra) << format;
    }
}

// JPEG holds no alpha: colours come back close, alpha opaque.
TEST_F(ImageFileTest, JpegRoundTripIsCloseAndOpaque) {
    BgraImage image(16, 16);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            unsigned char* p = image.at(x, y);
            p[0] = static_cast<unsigned char>(60 + x * 4);
            p[1] = static_cast<unsigned char>(60 + y * 4);
            p[2] = 128;
            p[3] = 7;
        }
    for (const std::string name : {"a.jpg", "b.jpeg", "c.JPEG"}) {
        std::string error;
        ASSERT_TRUE(qtzq_app::write_image(path(name), image, 100, error)) << error;
        BgraImage back;
        ASSERT_TRUE(qtzq_app::read_image(path(name), back, error)) << error;
        ASSERT_EQ(back.pixels.size(), image.pixels.size()) << name;
        for (std::size_t i = 0; i < image.pixels.size(); ++i)
            ASSERT_NEAR(back.pixels[i], i % 4 == 3 ? 255 : image.pixels[i], 8) << name << " " << i;
    }
}

TEST_F(ImageFileTest, FailuresNameTheFileAndLeaveNothingBehind) {
    std::string error;
    for (const std::string name : {"whole.png", "whole.jpg", "whole.webp", "whole.tif"}) {
        ASSERT_TRUE(qtzq_app::write_image(path(name), sample_photo(40, 30), 92, error));
        Bytes bytes;
        ASSERT_TRUE(qtzq_app::read_file_bytes(path(name), bytes, error));
        bytes.resize(bytes.size() / 2);
        ASSERT_TRUE(qtzq_app::write_file_bytes(path("cut-" + name), bytes, error));
        BgraImage back;
        EXPECT_FALSE(qtzq_app::read_image(path("cut-" + name), back, error)) << name;
        EXPECT_EQ(error.rfind(path("cut-" + name) + ": corrupt ", 0), 0u) << error;
    }
    EXPECT_FALSE(qtzq_app::write_image(path("no/dir/a.png"), sample_photo(2, 2), 92, error));
    EXPECT_EQ(error.rfind(path("no/dir/a.png") + ": cannot create file", 0), 0u) << error;
    EXPECT_FALSE(fs::exists(path("no")));
}

}  // namespace
}  // namespace qtzq_app_test
