// Helpers of the application library's tests (and of the tool's, which
// build on them): sample images and a fresh folder per test for files.
#ifndef QTZQ_TESTS_APP_APP_TEST_H
#define QTZQ_TESTS_APP_APP_TEST_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "qtzq_app/png_io.h"
#include "support/images.h"

namespace qtzq_app_test {

using qtzq_app::BgraImage;
namespace fs = std::filesystem;

// A deterministic photo-like image with every alpha value present, or
// with every alpha byte 255.
inline BgraImage sample_photo(int width, int height, unsigned seed = 1, bool opaque = false) {
    BgraImage image(width, height);
    image.pixels = qtzq_test::noise(width, height, seed);
    for (std::size_t i = 3; opaque && i < image.pixels.size(); i += 4) image.pixels[i] = 255;
    return image;
}

inline std::string slurp(const fs::path& path) {
    std::stringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// A fixture with an empty folder of its own, named after the test, below
// `root` (the suite's work folder).
class FolderTest : public ::testing::Test {
protected:
    explicit FolderTest(const char* root) {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::path(root) / (std::string(info->test_suite_name()) + "." + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    void save_png(const std::string& name, const BgraImage& image) const {
        std::string error;
        ASSERT_TRUE(qtzq_app::write_png(path(name), image, error)) << error;
    }

    BgraImage load_png(const std::string& name) const {
        BgraImage image;
        std::string error;
        EXPECT_TRUE(qtzq_app::read_png(path(name), image, error)) << error;
        return image;
    }

    fs::path dir_;
};

}  // namespace qtzq_app_test

#endif  // QTZQ_TESTS_APP_APP_TEST_H
