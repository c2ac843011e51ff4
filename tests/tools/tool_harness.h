// Running the built qtzq tool from tests, in a fresh folder per test.
#ifndef QTZQ_TESTS_TOOLS_TOOL_HARNESS_H
#define QTZQ_TESTS_TOOLS_TOOL_HARNESS_H

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "png_io.h"

namespace qtzq_tool_test {

using qtzq_tools::BgraImage;
namespace fs = std::filesystem;

struct RunResult {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string slurp(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

inline std::string shell_quote(const std::string& word) {
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// A test fixture with an empty folder of its own (named after the test) as
// the place for inputs and outputs.
class ToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::path(QTZQ_TOOL_WORK_DIR) / (std::string(info->test_suite_name()) + "." + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    // Runs `qtzq ARGS...` with stdin from /dev/null; stdout and stderr are
    // captured.
    RunResult run(const std::vector<std::string>& args) const {
        std::string command = shell_quote(QTZQ_TOOL_PATH);
        for (const auto& arg : args) command += " " + shell_quote(arg);
        const fs::path out = dir_ / "stdout.txt", err = dir_ / "stderr.txt";
        command += " </dev/null >" + shell_quote(out.string()) + " 2>" + shell_quote(err.string());
        const int raw = std::system(command.c_str());
        RunResult result;
        result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        result.out = slurp(out);
        result.err = slurp(err);
        return result;
    }

    void save_png(const std::string& name, const BgraImage& image) const {
        std::string error;
        ASSERT_TRUE(qtzq_tools::write_png(path(name), image, error)) << error;
    }

    BgraImage load_png(const std::string& name) const {
        BgraImage image;
        std::string error;
        EXPECT_TRUE(qtzq_tools::read_png(path(name), image, error)) << error;
        return image;
    }

    void save_text(const std::string& name, const std::string& text) const {
        std::ofstream(dir_ / name, std::ios::binary) << text;
    }

    fs::path dir_;
};

// A deterministic photo-like image with every alpha value present.
inline BgraImage sample_photo(int width, int height, unsigned seed = 1) {
    BgraImage image(width, height);
    unsigned state = seed;
    for (auto& byte : image.pixels) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<unsigned char>(state >> 24);
    }
    return image;
}

// The same image with every alpha byte 255.
inline BgraImage opaque(BgraImage image) {
    for (std::size_t i = 3; i < image.pixels.size(); i += 4) image.pixels[i] = 255;
    return image;
}

}  // namespace qtzq_tool_test

#endif  // QTZQ_TESTS_TOOLS_TOOL_HARNESS_H
