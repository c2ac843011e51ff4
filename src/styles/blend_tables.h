// Read access to a blend table set: three ready-made 256 x 256 byte maps
// that the application supplies, each giving the blended value for any pair
// (first value, second value).
//
// Map 0 starts at byte 4 of the block, map 1 at byte 65543 and map 2 at
// byte 131082, so consecutive maps are 65539 bytes apart; the first 4 bytes
// and the 3 bytes between maps are never read. The block is therefore at
// least 196618 bytes long. Entry (a, b) of a map is the byte at
// map start + a * 256 + b.
#ifndef QTZQ_STYLES_BLEND_TABLES_H
#define QTZQ_STYLES_BLEND_TABLES_H

#include <cstddef>

namespace qtzq {

constexpr int kBlendMapCount = 3;
constexpr std::size_t kBlendMapSide = 256;
constexpr std::size_t kBlendMapOffsets[kBlendMapCount] = {4, 65543, 131082};
constexpr std::size_t kBlendTableSetSize = kBlendMapOffsets[2] + kBlendMapSide * kBlendMapSide;

class BlendTables {
public:
    explicit BlendTables(const unsigned char* block) : block_(block) {}

    // Entry (first, second) of map `map` (0, 1 or 2).
    unsigned char lookup(int map, unsigned char first, unsigned char second) const {
        return block_[kBlendMapOffsets[map] + first * kBlendMapSide + second];
    }

    // Blue, green and red of the pixel through one map, each channel's
    // current value as the first index and the same channel of `second`
    // (a material pixel, a constant colour or the pixel itself) as the
    // second. Alpha is neither read nor written.
    void apply(int map, unsigned char* pixel, const unsigned char* second) const {
        for (int c = 0; c < 3; ++c) pixel[c] = lookup(map, pixel[c], second[c]);
    }

private:
    const unsigned char* block_;
};

}  // namespace qtzq

#endif  // QTZQ_STYLES_BLEND_TABLES_H
