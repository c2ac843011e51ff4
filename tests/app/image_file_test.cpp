// Image files: PNG of every colour type and JPEG into BGRA and back, and
// failures that name the file. (The exact PNG round trip with every alpha
// value is part of every tool test that compares pixels.)
#include <png.h>

#include <cstring>
#include <vector>

#include "app/app_test.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_file.h"

namespace qtzq_app_test {
namespace {

class ImageFileTest : public FolderTest {
protected:
    ImageFileTest() : FolderTest(QTZQ_APP_TEST_WORK_DIR) {}

    // Writes two pixels of `samples` (in libpng's `format`) as a PNG file.
    void write_raw_png(const std::string& name, png_uint_32 format,
                       const std::vector<unsigned char>& samples,
                       const std::vector<unsigned char>& colormap = {}) const {
        png_image png;
        std::memset(&png, 0, sizeof png);
        png.version = PNG_IMAGE_VERSION;
        png.width = 2;
        png.height = 1;
        png.format = format;
        png.colormap_entries = png_uint_32(colormap.size() / 4);
        ASSERT_TRUE(png_image_write_to_file(&png, path(name).c_str(), 0, samples.data(), 0,
                                            colormap.empty() ? nullptr : colormap.data()))
            << png.message;
    }
};

TEST_F(ImageFileTest, EveryPngColourTypeBecomesBgra) {
    write_raw_png("grey.png", PNG_FORMAT_GRAY, {10, 200});
    write_raw_png("ga.png", PNG_FORMAT_GA, {10, 0, 200, 128});
    write_raw_png("rgb.png", PNG_FORMAT_RGB, {1, 2, 3, 250, 251, 252});
    write_raw_png("pal.png", PNG_FORMAT_RGBA_COLORMAP, {1, 0}, {255, 0, 0, 255, 0, 0, 255, 64});
    const std::vector<std::pair<std::string, std::vector<unsigned char>>> expected = {
        {"grey.png", {10, 10, 10, 255, 200, 200, 200, 255}},
        {"ga.png", {10, 10, 10, 0, 200, 200, 200, 128}},
        {"rgb.png", {3, 2, 1, 255, 252, 251, 250, 255}},
        {"pal.png", {255, 0, 0, 64, 0, 0, 255, 255}},
    };
    for (const auto& [name, bgra] : expected) {
        BgraImage image;
        std::string error;
        ASSERT_TRUE(qtzq_app::read_image(path(name), image, error)) << error;
        EXPECT_EQ(image.pixels, bgra) << name;
    }
}

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
    std::string error;
    ASSERT_TRUE(qtzq_app::write_image(path("a.jpeg"), image, 100, error)) << error;
    BgraImage back;
    ASSERT_TRUE(qtzq_app::read_image(path("a.jpeg"), back, error)) << error;
    ASSERT_EQ(back.pixels.size(), image.pixels.size());
    for (std::size_t i = 0; i < image.pixels.size(); ++i)
        EXPECT_NEAR(back.pixels[i], i % 4 == 3 ? 255 : image.pixels[i], 8) << i;
}

TEST_F(ImageFileTest, FailuresNameTheFileAndLeaveNothingBehind) {
    std::string error;
    for (const std::string name : {"whole.png", "whole.jpg"}) {
        ASSERT_TRUE(qtzq_app::write_image(path(name), sample_photo(40, 30), 92, error));
        std::vector<unsigned char> bytes;
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
