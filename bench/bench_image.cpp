#include "bench_image.h"

#include <cstdio>
#include <cstdlib>

#include "qtzq_app/image_file.h"
#include "qtzq_app/resample.h"
#include "qtzq_app/test_scene.h"

namespace qtzq_bench {
namespace {

constexpr int kDefaultWidth = 4000;
constexpr int kDefaultHeight = 3000;

void requested_size(int& width, int& height) {
    width = kDefaultWidth;
    height = kDefaultHeight;
    const char* text = std::getenv("QTZQ_BENCH_SIZE");
    if (text == nullptr) return;
    int w = 0, h = 0;
    if (std::sscanf(text, "%dx%d", &w, &h) == 2 && w > 0 && h > 0) {
        width = w;
        height = h;
    } else {
        std::fprintf(stderr, "qtzq-bench: ignoring QTZQ_BENCH_SIZE=\"%s\" (want WxH)\n", text);
    }
}

std::string file_name(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

BenchImage make_bench_image() {
    int width = 0, height = 0;
    requested_size(width, height);
    const char* chosen = std::getenv("QTZQ_BENCH_PHOTO");
    const std::string path = chosen != nullptr ? chosen : QTZQ_BENCH_DEFAULT_PHOTO;

    BenchImage bench;
    BgraImage photo;
    std::string error;
    if (qtzq_app::read_image(path, photo, error)) {
        bench.image = qtzq_app::scale_bilinear(photo, width, height);
        bench.origin = file_name(path) + " scaled from " + std::to_string(photo.width) + " x " +
                       std::to_string(photo.height);
    } else {
        if (chosen != nullptr) std::fprintf(stderr, "qtzq-bench: %s\n", error.c_str());
        bench.image = qtzq_app::make_test_scene(width, height);
        bench.origin = "generated test scene";
    }
    return bench;
}

}  // namespace

const BenchImage& bench_image() {
    static const BenchImage image = make_bench_image();
    return image;
}

}  // namespace qtzq_bench
