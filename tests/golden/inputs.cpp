#include "inputs.h"

#include <algorithm>

namespace qtzq_golden {

namespace {

// A well-mixing 32-bit integer hash: the same bits everywhere.
std::uint32_t mix(std::uint32_t x) {
    x ^= x >> 16;
    x *= 0x7feb352du;
    x ^= x >> 15;
    x *= 0x846ca68bu;
    x ^= x >> 16;
    return x;
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

std::size_t buffer_size(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
}

Scene make_scene(int width, int height) {
    return Scene{std::to_string(width) + "x" + std::to_string(height),
                 width,
                 height,
                 photo(width, height),
                 material(width, height, 1),
                 material(width, height, 2),
                 material(width, height, 3)};
}

Scene channel_pair_scene() {
    const int side = ChannelPairs::kSide;
    Scene scene = make_scene(side, side);
    scene.photo = channel_pairs().base;
    return scene;
}

Bytes make_blend_tables() {
    Bytes tables(kBlendTableSetSize, 0xA5);
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const std::size_t entry =
                static_cast<std::size_t>(a) * 256 + static_cast<std::size_t>(b);
            tables[kBlendTableOffsets[0] + entry] = static_cast<unsigned char>(a * (b + 64) / 319);
            tables[kBlendTableOffsets[1] + entry] =
                static_cast<unsigned char>(std::min(255, a + b / 2));
            tables[kBlendTableOffsets[2] + entry] = static_cast<unsigned char>((a + 255 - b) / 2);
        }
    }
    return tables;
}

}  // namespace

Bytes photo(int width, int height) {
    Bytes image(buffer_size(width, height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            unsigned char* px = &image[(static_cast<std::size_t>(y) * width + x) * 4];
            const std::uint32_t h = hash(x, y, 1);
            const int u = ramp(x, width);
            const int v = ramp(y, height);
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

Bytes material(int width, int height, int which) {
    Bytes image(buffer_size(width, height));
    const std::int64_t far = std::int64_t(width) * width + std::int64_t(height) * height;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            unsigned char* px = &image[(static_cast<std::size_t>(y) * width + x) * 4];
            const std::uint32_t h = hash(x, y, 100u + static_cast<std::uint32_t>(which));
            const std::int64_t dx = 2 * x + 1 - width;
            const std::int64_t dy = 2 * y + 1 - height;
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
        const int side = ChannelPairs::kSide;
        ChannelPairs made{Bytes(buffer_size(side, side)), Bytes(buffer_size(side, side))};
        for (int j = 0; j < side; ++j) {
            for (int i = 0; i < side; ++i) {
                const std::size_t at = (static_cast<std::size_t>(j) * side + i) * 4;
                made.base[at + 0] = static_cast<unsigned char>(i);
                made.base[at + 1] = static_cast<unsigned char>(j);
                made.base[at + 2] = static_cast<unsigned char>(i + j);
                made.base[at + 3] = static_cast<unsigned char>(i ^ j);
                made.blend[at + 0] = static_cast<unsigned char>(j);
                made.blend[at + 1] = static_cast<unsigned char>(i);
                made.blend[at + 2] = static_cast<unsigned char>(i + 2 * j);
                made.blend[at + 3] = static_cast<unsigned char>(255 - i);
            }
        }
        return made;
    }();
    return pairs;
}

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all = {
        make_scene(1, 1), make_scene(1, 6),  make_scene(6, 1),   make_scene(2, 2),
        make_scene(3, 5), make_scene(13, 7), make_scene(97, 61), channel_pair_scene(),
    };
    return all;
}

const Bytes& blend_tables() {
    static const Bytes tables = make_blend_tables();
    return tables;
}

const std::vector<std::vector<CurvePoint>>& curve_point_lists() {
    static const std::vector<std::vector<CurvePoint>> lists = {
        {{0, 0}, {255, 255}},
        {{0, 0}, {64, 48}, {128, 128}, {192, 210}, {255, 255}},
        {{128, 160}},
        {{0, 255}, {255, 0}},
        {{0, 30}, {200, 250}, {90, 60}, {255, 240}},
        {{0, 0}, {100, 80}, {100, 120}, {255, 255}},
    };
    return lists;
}

FileBuilder& FileBuilder::u32(std::uint32_t value) {
    for (int i = 0; i < 4; ++i) data_.push_back(static_cast<unsigned char>(value >> (8 * i)));
    return *this;
}

FileBuilder& FileBuilder::ascii(const std::string& text) {
    data_.insert(data_.end(), text.begin(), text.end());
    return *this;
}

FileBuilder& FileBuilder::bytes(const Bytes& block) {
    data_.insert(data_.end(), block.begin(), block.end());
    return *this;
}

FileBuilder& FileBuilder::pad_to(std::size_t offset) {
    if (data_.size() < offset) data_.resize(offset, 0);
    return *this;
}

}  // namespace qtzq_golden
