// The fixed inputs of the golden cases, from integer arithmetic alone (no
// rand(), no floating point), so that every platform builds the same bytes.
#include <algorithm>

#include "golden.h"

namespace qtzq_golden {

namespace {

// A well-mixing 32-bit integer hash of a position and a seed.
std::uint32_t hash(int x, int y, std::uint32_t seed) {
    const auto mix = [](std::uint32_t v) {
        v = (v ^ (v >> 16)) * 0x7feb352du;
        v = (v ^ (v >> 15)) * 0x846ca68bu;
        return v ^ (v >> 16);
    };
    return mix(std::uint32_t(x) * 0x9e3779b1u ^ mix(std::uint32_t(y) + 0x85ebca77u * seed));
}

unsigned char clamp_byte(int value) { return std::uint8_t(std::min(255, std::max(0, value))); }

// Position 0..n-1 mapped to 0..255 by pixel centres (a lone pixel gets 127).
int ramp(int position, int n) { return (2 * position + 1) * 255 / (2 * n); }

// fn(x, y, pixel) for every pixel of a new width x height image.
template <typename Fn>
Bytes generate(int width, int height, Fn fn) {
    Bytes image(std::size_t(width) * std::size_t(height) * 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) fn(x, y, &image[(std::size_t(y) * width + x) * 4]);
    }
    return image;
}

}  // namespace

// Gradients, noise, a hard edge, some pure primaries, alpha over 0..255.
Bytes photo(int width, int height) {
    return generate(width, height, [=](int x, int y, unsigned char* px) {
        const std::uint32_t h = hash(x, y, 1);
        const int u = ramp(x, width), v = ramp(y, height);
        int blue = u + int(h & 63) - 32, green = v + int((h >> 6) & 31) - 16;
        int red = (u + 255 - v) / 2 + int((h >> 11) & 63) - 32;
        if (3 * x >= 2 * width && width > 1) red = 255 - red;  // the hard edge
        if ((h >> 17) % 13 == 0) {                             // a pure primary
            blue = (h & 1) ? 255 : 0;
            green = (h & 2) ? 255 : 0;
            red = (h & 4) ? 255 : 0;
        }
        px[0] = clamp_byte(blue);
        px[1] = clamp_byte(green);
        px[2] = clamp_byte(red);
        px[3] = std::uint8_t(h >> 24);
    });
}

// Vignette, texture and tint, different for each of which = 1, 2, 3, with
// alpha varying over 0..255 (some presets read it).
Bytes material_image(int width, int height, int which) {
    const std::int64_t far = std::int64_t(width) * width + std::int64_t(height) * height;
    return generate(width, height, [=](int x, int y, unsigned char* px) {
        const std::uint32_t h = hash(x, y, 100u + std::uint32_t(which));
        const std::int64_t dx = 2 * x + 1 - width, dy = 2 * y + 1 - height;
        const int vignette = int(255 - 255 * (dx * dx + dy * dy) / far);
        const int texture = int(h & 127) - 64, tint = 60 * which;
        px[(which + 0) % 3] = clamp_byte(vignette + texture / 4);
        px[(which + 1) % 3] = clamp_byte(vignette / 2 + texture + tint / 2);
        px[(which + 2) % 3] = clamp_byte(int((h >> 8) & 255) / 2 + tint);
        px[3] = std::uint8_t(ramp(x, width) ^ int((h >> 20) & 15));
    });
}

// Pixel (i, j): blue (i, j), green (j, i), red (i + j, i + 2j) mod 256 in
// base and blend; alpha i ^ j and 255 - i.
const std::array<Bytes, 2>& channel_pairs() {
    static const std::array<Bytes, 2> pairs = {
        generate(256, 256,
                 [](int i, int j, unsigned char* px) {
                     for (const int v : {i, j, i + j, i ^ j}) *px++ = std::uint8_t(v);
                 }),
        generate(256, 256, [](int i, int j, unsigned char* px) {
            for (const int v : {j, i, i + 2 * j, 255 - i}) *px++ = std::uint8_t(v);
        })};
    return pairs;
}

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all = [] {
        std::vector<Scene> made;
        for (const auto& [w, h] :
             {std::pair{1, 1}, {1, 6}, {6, 1}, {2, 2}, {3, 5}, {13, 7}, {97, 61}, {256, 256}}) {
            made.push_back({w, h, photo(w, h), material_image(w, h, 1), material_image(w, h, 2),
                            material_image(w, h, 3)});
        }
        made.back().photo = channel_pairs()[0];
        return made;
    }();
    return all;
}

// 196618 bytes, 0xA5 outside the maps, so a swapped operand or a wrong map
// offset shows.
const Bytes& blend_tables() {
    static const Bytes tables = [] {
        Bytes made(196618, 0xA5);
        for (int a = 0; a < 256; ++a) {
            for (int b = 0; b < 256; ++b) {
                unsigned char* entry = &made[std::size_t(a) * 256 + std::size_t(b)];
                entry[4] = std::uint8_t(a * (b + 64) / 319);
                entry[65543] = std::uint8_t(std::min(255, a + b / 2));
                entry[131082] = std::uint8_t((a + 255 - b) / 2);
            }
        }
        return made;
    }();
    return tables;
}

}  // namespace qtzq_golden
