// Image files: PNG of every colour type and JPEG into BGRA and back. (The
// exact PNG round trip with every alpha value is the end-to-end apply test.)
#include <png.h>

#include <cstring>

#include "file_bytes.h"
#include "image_file.h"
#include "jpeg_io.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using ImageIoTest = ToolTest;

// Writes `samples` (in libpng's `format`) as a PNG file.
void write_raw_png(const std::string& path, int width, int height, png_uint_32 format,
                   const std::vector<unsigned char>& samples,
                   const std::vector<unsigned char>& colormap = {}) {
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    png.width = png_uint_32(width);
    png.height = png_uint_32(height);
    png.format = format;
    png.colormap_entries = png_uint_32(colormap.size() / 4);
    ASSERT_TRUE(png_image_write_to_file(&png, path.c_str(), 0, samples.data(), 0,
                                        colormap.empty() ? nullptr : colormap.data()))
        << png.message;
}

TEST_F(ImageIoTest, EveryPngColourTypeBecomesBgra) {
    // Two pixels per file: the values as they must come out, B G R A.
    const std::vector<unsigned char> grey = {10, 200};
    write_raw_png(path("grey.png"), 2, 1, PNG_FORMAT_GRAY, grey);
    const std::vector<unsigned char> grey_alpha = {10, 0, 200, 128};
    write_raw_png(path("ga.png"), 2, 1, PNG_FORMAT_GA, grey_alpha);
    const std::vector<unsigned char> rgb = {1, 2, 3, 250, 251, 252};
    write_raw_png(path("rgb.png"), 2, 1, PNG_FORMAT_RGB, rgb);
    const std::vector<unsigned char> palette = {255, 0, 0, 255, 0, 0, 255, 64};  // RGBA entries
    write_raw_png(path("pal.png"), 2, 1, PNG_FORMAT_RGBA_COLORMAP, {1, 0}, palette);

    const std::vector<std::pair<std::string, std::vector<unsigned char>>> expected = {
        {"grey.png", {10, 10, 10, 255, 200, 200, 200, 255}},
        {"ga.png", {10, 10, 10, 0, 200, 200, 200, 128}},
        {"rgb.png", {3, 2, 1, 255, 252, 251, 250, 255}},
        {"pal.png", {255, 0, 0, 64, 0, 0, 255, 255}},
    };
    for (const auto& [name, bgra] : expected) {
        BgraImage image;
        std::string error;
        ASSERT_TRUE(qtzq_cli::read_image(path(name), image, error)) << error;
        EXPECT_EQ(image.pixels, bgra) << name;
    }
}

TEST_F(ImageIoTest, JpegRoundTripIsCloseAndOpaque) {
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
    ASSERT_TRUE(qtzq_cli::write_image(path("a.jpeg"), image, 100, error)) << error;
    BgraImage back;
    ASSERT_TRUE(qtzq_cli::read_image(path("a.jpeg"), back, error)) << error;
    ASSERT_EQ(back.pixels.size(), image.pixels.size());
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        if (i % 4 == 3)
            EXPECT_EQ(back.pixels[i], 255);
        else
            EXPECT_NEAR(back.pixels[i], image.pixels[i], 8) << i;
    }
}

TEST_F(ImageIoTest, DamagedFilesAreErrorsNamingTheFile) {
    const BgraImage image = sample_photo(40, 30);
    std::string error;
    ASSERT_TRUE(qtzq_cli::write_image(path("whole.png"), image, 92, error));
    ASSERT_TRUE(qtzq_cli::write_image(path("whole.jpg"), image, 92, error));
    for (const std::string name : {"whole.png", "whole.jpg"}) {
        std::vector<unsigned char> bytes;
        ASSERT_TRUE(qtzq_tools::read_file_bytes(path(name), bytes, error));
        bytes.resize(bytes.size() / 2);
        const std::string cut = "cut-" + name;
        ASSERT_TRUE(qtzq_tools::write_file_bytes(path(cut), bytes, error));
        BgraImage back;
        error.clear();
        EXPECT_FALSE(qtzq_cli::read_image(path(cut), back, error)) << name;
        EXPECT_EQ(error.rfind(path(cut) + ": corrupt ", 0), 0u) << error;
    }
}

TEST_F(ImageIoTest, WritingIntoAMissingFolderFailsAndLeavesNothing) {
    std::string error;
    EXPECT_FALSE(qtzq_cli::write_image(path("no/such/dir/a.png"), sample_photo(2, 2), 92, error));
    EXPECT_EQ(error.rfind(path("no/such/dir/a.png") + ": cannot create file", 0), 0u) << error;
}

}  // namespace
}  // namespace qtzq_tool_test
