// The photo every benchmark works on: a real photo scaled up to
// 4000 x 3000 (12 megapixels), or the tool's generated test scene when no
// photo can be read. QTZQ_BENCH_PHOTO names another photo and
// QTZQ_BENCH_SIZE another size ("WxH"), e.g. a tiny one for a smoke run.
#ifndef QTZQ_BENCH_BENCH_IMAGE_H
#define QTZQ_BENCH_BENCH_IMAGE_H

#include <cstddef>
#include <string>

#include "qtzq_app/png_io.h"

namespace qtzq_bench {

using qtzq_app::BgraImage;

struct BenchImage {
    BgraImage image;
    std::string origin;  // "coffee.png scaled from 600 x 400", "generated test scene"

    int width() const { return image.width; }
    int height() const { return image.height; }
    std::size_t pixel_count() const { return std::size_t(image.width) * std::size_t(image.height); }
    std::size_t bytes() const { return image.pixels.size(); }
    const unsigned char* pixels() const { return image.pixels.data(); }
};

// Built on first use, then shared by every benchmark.
const BenchImage& bench_image();

}  // namespace qtzq_bench

#endif  // QTZQ_BENCH_BENCH_IMAGE_H
