// The fixed inputs of the golden cases, generated from integer arithmetic
// alone (no rand(), no floating point), so that every platform builds the
// very same bytes.
#ifndef QTZQ_TESTS_GOLDEN_INPUTS_H
#define QTZQ_TESTS_GOLDEN_INPUTS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qtzq_golden {

using Bytes = std::vector<unsigned char>;

// A photo with three same-size materials. Cases work on copies.
struct Scene {
    std::string name;  // "WxH"
    int width;
    int height;
    Bytes photo;
    Bytes material1;
    Bytes material2;
    Bytes material3;
};

// Every image case runs on each of these, in this order: 1x1, a column
// (1xN), a row (Nx1), small even and odd sizes, a medium photo (97x61) and
// a 256x256 photo whose blue and green bytes take every pair of values
// (the base image of channel_pairs()).
const std::vector<Scene>& scenes();

// A synthetic photo: gradients, noise, hard edges, some pure primaries,
// alpha varying over 0..255.
Bytes photo(int width, int height);

// A synthetic material (which = 1, 2, 3): vignette, texture and tint, each
// one different, alpha varying over 0..255 (some presets read it).
Bytes material(int width, int height, int which);

// Two 256x256 images, base and blend, such that each colour channel of a
// pixel pair holds one (base, blend) pair of byte values and each channel
// sees every one of the 65536 pairs exactly once: blue (i, j), green (j, i),
// red (i + j, i + 2j) mod 256 for pixel (i, j).
struct ChannelPairs {
    static constexpr int kSide = 256;
    Bytes base;
    Bytes blend;
};
const ChannelPairs& channel_pairs();

// A blend table set: three 256x256 maps at byte offsets 4, 65543 and
// 131082, each with its own asymmetric content (so a swapped operand or a
// wrong map offset shows); the bytes no map covers hold 0xA5. Cases
// work on copies.
constexpr std::size_t kBlendTableSetSize = 196618;
constexpr std::size_t kBlendTableOffsets[3] = {4, 65543, 131082};
const Bytes& blend_tables();

// Control points of tone curves, x and y in 0..255: identity, S-curve,
// single point, extremes, out of order, duplicate x.
struct CurvePoint {
    int x;
    int y;
};
const std::vector<std::vector<CurvePoint>>& curve_point_lists();

// Builds binary files in the library's file layouts: 32-bit little-endian
// integers, ASCII magics, raw blocks, at any offset.
class FileBuilder {
   public:
    FileBuilder& u32(std::uint32_t value);
    FileBuilder& i32(std::int32_t value) { return u32(static_cast<std::uint32_t>(value)); }
    FileBuilder& ascii(const std::string& text);
    FileBuilder& bytes(const Bytes& block);
    // Pads with zero bytes up to offset (no-op when already past it).
    FileBuilder& pad_to(std::size_t offset);
    const Bytes& data() const { return data_; }

   private:
    Bytes data_;
};

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_INPUTS_H
