// The fixed inputs of the golden cases (see golden.h).
#include <algorithm>

#include "golden.h"

namespace qtzq_golden {

namespace {

// A well-mixing 32-bit integer hash: the same bits everywhere.
std::uint32_t mix(std::uint32_t x) {
    x = (x ^ (x >> 16)) * 0x7feb352du;
    x = (x ^ (x >> 15)) * 0x846ca68bu;
    return x ^ (x >> 16);
}

std::uint32_t hash(int x, int y, std::uint32_t seed) {
    return mix(static_cast<std::uint32_t>(x) * 0x9e3779b1u ^
               mix(static_cast<std::uint32_t>(y) + 0x85ebca77u * seed));
}

unsigned char clamp_byte(int value) {
    return static_cast<unsigned char>(std::min(255, std::max(0, value)));
}

// Position 0..n-1 mapped to 0..255 by pixel centres (a lone pixel gets 127).
int ramp(int position, int n) { return (2 * position + 1) * 255 / (2 * n); }

Scene make_scene(int width, int height) {
    return {width,
            height,
            photo(width, height),
            material_image(width, height, 1),
            material_image(width, height, 2),
            material_image(width, height, 3)};
}

}  // namespace

Bytes photo(int width, int height) {
    Bytes image(std::size_t(width) * std::size_t(height) * 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            unsigned char* px = &image[(std::size_t(y) * width + x) * 4];
            const std::uint32_t h = hash(x, y, 1);
            const int u = ramp(x, width), v = ramp(y, height);
            int blue = u + static_cast<int>(h & 63) - 32;
            int green = v + static_cast<int>((h >> 6) & 31) - 16;
            int red = (u + 255 - v) / 2 + static_cast<int>((h >> 11) & 63) - 32;
            if (3 * x >= 2 * width && width > 1) red = 255 - red;  // a hard edge
            if ((h >> 17) % 13 == 0) {                             // a pure primary
                blue = (h & 1) ? 255 : 0;
                green = (h & 2) ? 255 : 0;
                red = (h & 4) ? 255 : 0;
            }
            px[0] = clamp_byte(blue);
            px[1] = clamp_byte(green);
            px[2] = clamp_byte(red);
            px[3] = static_cast<unsigned char>(h >> 24);
        }
    }
    return image;
}

Bytes material_image(int width, int height, int which) {
    Bytes image(std::size_t(width) * std::size_t(height) * 4);
    const std::int64_t far = std::int64_t(width) * width + std::int64_t(height) * height;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            unsigned char* px = &image[(std::size_t(y) * width + x) * 4];
            const std::uint32_t h = hash(x, y, 100u + static_cast<std::uint32_t>(which));
            const std::int64_t dx = 2 * x + 1 - width, dy = 2 * y + 1 - height;
            const int vignette = static_cast<int>(255 - 255 * (dx * dx + dy * dy) / far);
            const int texture = static_cast<int>(h & 127) - 64;
            const int tint = 60 * which;
            px[(which + 0) % 3] = clamp_byte(vignette + texture / 4);
            px[(which + 1) % 3] = clamp_byte(vignette / 2 + texture + tint / 2);
            px[(which + 2) % 3] = clamp_byte(static_cast<int>((h >> 8) & 255) / 2 + tint);
            px[3] = static_cast<unsigned char>(ramp(x, width) ^ static_cast<int>((h >> 20) & 15));
        }
    }
    return image;
}

const ChannelPairs& channel_pairs() {
    static const ChannelPairs pairs = [] {
        ChannelPairs made{Bytes(256 * 256 * 4), Bytes(256 * 256 * 4)};
        for (int j = 0; j < 256; ++j) {
            for (int i = 0; i < 256; ++i) {
                const unsigned char base[4] = {
                    static_cast<unsigned char>(i), static_cast<unsigned char>(j),
                    static_cast<unsigned char>(i + j), static_cast<unsigned char>(i ^ j)};
                const unsigned char blend[4] = {
                    static_cast<unsigned char>(j), static_cast<unsigned char>(i),
                    static_cast<unsigned char>(i + 2 * j), static_cast<unsigned char>(255 - i)};
                std::copy(base, base + 4, &made.base[(std::size_t(j) * 256 + i) * 4]);
                std::copy(blend, blend + 4, &made.blend[(std::size_t(j) * 256 + i) * 4]);
            }
        }
        return made;
    }();
    return pairs;
}

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all = [] {
        std::vector<Scene> made;
        for (const auto& size : {std::array<int, 2>{1, 1},
                                 {1, 6},
                                 {6, 1},
                                 {2, 2},
                                 {3, 5},
                                 {13, 7},
                                 {97, 61},
                                 {256, 256}})
            made.push_back(make_scene(size[0], size[1]));
        made.back().photo = channel_pairs().base;
        return made;
    }();
    return all;
}

const Bytes& blend_tables() {
    static const Bytes tables = [] {
        Bytes made(196618, 0xA5);
        for (std::size_t a = 0; a < 256; ++a) {
            for (std::size_t b = 0; b < 256; ++b) {
                made[4 + a * 256 + b] = static_cast<unsigned char>(a * (b + 64) / 319);
                made[65543 + a * 256 + b] =
                    static_cast<unsigned char>(std::min<std::size_t>(255, a + b / 2));
                made[131082 + a * 256 + b] = static_cast<unsigned char>((a + 255 - b) / 2);
            }
        }
        return made;
    }();
    return tables;
}

}  // namespace qtzq_golden
