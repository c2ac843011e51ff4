#include "qtzq_app/resample.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace qtzq_app {
namespace {

struct Tap {
    int low, high;
    double weight;  // of `high`
};

// Source positions for each target index, pixel centres aligned.
std::vector<Tap> bilinear_taps(int source, int target) {
    std::vector<Tap> taps(static_cast<std::size_t>(target));
    const double ratio = double(source) / target;
    for (int i = 0; i < target; ++i) {
        const double pos = std::clamp((i + 0.5) * ratio - 0.5, 0.0, double(source - 1));
        const int low = int(pos);
        taps[std::size_t(i)] = {low, std::min(low + 1, source - 1), pos - low};
    }
    return taps;
}

}  // namespace

BgraImage scale_bilinear(const BgraImage& source, int width, int height) {
    BgraImage out(width, height);
    const auto xs = bilinear_taps(source.width, width);
    const auto ys = bilinear_taps(source.height, height);
    for (int y = 0; y < height; ++y) {
        const Tap ty = ys[std::size_t(y)];
        for (int x = 0; x < width; ++x) {
            const Tap tx = xs[std::size_t(x)];
            const unsigned char* a = source.at(tx.low, ty.low);
            const unsigned char* b = source.at(tx.high, ty.low);
            const unsigned char* c = source.at(tx.low, ty.high);
            const unsigned char* d = source.at(tx.high, ty.high);
            unsigned char* o = out.at(x, y);
            for (int k = 0; k < 4; ++k) {
                const double top = a[k] + (b[k] - a[k]) * tx.weight;
                const double bottom = c[k] + (d[k] - c[k]) * tx.weight;
                o[k] = static_cast<unsigned char>(top + (bottom - top) * ty.weight + 0.5);
            }
        }
    }
    return out;
}

BgraImage scale_area(const BgraImage& source, int width, int height) {
    if (width >= source.width || height >= source.height)
        return scale_bilinear(source, width, height);
    BgraImage out(width, height);
    for (int y = 0; y < height; ++y) {
        const int y0 = int(std::int64_t(y) * source.height / height);
        const int y1 = std::max(y0 + 1, int(std::int64_t(y + 1) * source.height / height));
        for (int x = 0; x < width; ++x) {
            const int x0 = int(std::int64_t(x) * source.width / width);
            const int x1 = std::max(x0 + 1, int(std::int64_t(x + 1) * source.width / width));
            std::uint64_t sum[4] = {0, 0, 0, 0};
            for (int sy = y0; sy < y1; ++sy)
                for (int sx = x0; sx < x1; ++sx) {
                    const unsigned char* p = source.at(sx, sy);
                    for (int k = 0; k < 4; ++k) sum[k] += p[k];
                }
            const std::uint64_t count = std::uint64_t(y1 - y0) * std::uint64_t(x1 - x0);
            unsigned char* o = out.at(x, y);
            for (int k = 0; k < 4; ++k) o[k] = static_cast<unsigned char>((sum[k] + count / 2) / count);
        }
    }
    return out;
}

void fit_size(int width, int height, int max_width, int max_height, int& out_width,
              int& out_height) {
    const double scale = std::min({1.0, double(max_width) / width, double(max_height) / height});
    out_width = std::max(1, int(width * scale + 0.5));
    out_height = std::max(1, int(height * scale + 0.5));
}

}  // namespace qtzq_app
