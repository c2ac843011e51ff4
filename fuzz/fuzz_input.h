// Helpers shared by the fuzz targets and their seed generator.
#ifndef QTZQ_FUZZ_FUZZ_INPUT_H
#define QTZQ_FUZZ_FUZZ_INPUT_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace qtzq_fuzz {

using Bytes = std::vector<unsigned char>;

// The input in a heap block of exactly its size, writable as the readers
// want it.
inline Bytes copy_input(const std::uint8_t* data, std::size_t size) {
    return Bytes(data, data + size);
}

// Little-endian fields of the input; 0 where the input is too short.
inline std::int32_t int_at(const Bytes& input, std::size_t offset) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 4 && offset + i < input.size(); ++i)
        bits |= std::uint32_t(input[offset + i]) << (8 * i);
    std::int32_t value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}
inline float float_at(const Bytes& input, std::size_t offset) {
    const std::int32_t bits = int_at(input, offset);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// Frame compositing input: a header of parameters, then a frame file.
//   0      photo width - 1 (mod 32)      1     photo height - 1 (mod 32)
//   2..5   inset scale (float)           6     mask of slots given pixels
//   7..22  piece width, height per slot (mod 16)
constexpr std::size_t kCompositeHeaderBytes = 24;

struct CompositeParameters {
    int photo_width = 1;
    int photo_height = 1;
    float scale = 1.0f;
    unsigned decoded_slots = 0xFF;
    int piece_width[8] = {};
    int piece_height[8] = {};
};

inline CompositeParameters parse_composite(const Bytes& input) {
    CompositeParameters p;
    if (input.size() < kCompositeHeaderBytes) return p;
    p.photo_width = input[0] % 32 + 1;
    p.photo_height = input[1] % 32 + 1;
    p.scale = float_at(input, 2);
    p.decoded_slots = input[6];
    for (int slot = 0; slot < 8; ++slot) {
        p.piece_width[slot] = input[7 + 2 * slot] % 16;
        p.piece_height[slot] = input[8 + 2 * slot] % 16;
    }
    return p;
}

inline Bytes encode_composite(const CompositeParameters& p, const Bytes& frame_file) {
    Bytes input(kCompositeHeaderBytes, 0);
    input[0] = static_cast<unsigned char>(p.photo_width - 1);
    input[1] = static_cast<unsigned char>(p.photo_height - 1);
    std::memcpy(input.data() + 2, &p.scale, 4);  // little-endian hosts only
    input[6] = static_cast<unsigned char>(p.decoded_slots);
    for (int slot = 0; slot < 8; ++slot) {
        input[7 + 2 * slot] = static_cast<unsigned char>(p.piece_width[slot]);
        input[8 + 2 * slot] = static_cast<unsigned char>(p.piece_height[slot]);
    }
    input.insert(input.end(), frame_file.begin(), frame_file.end());
    return input;
}

// Keeps the fuzzer's memory use small: the library accepts composites up to
// 2 GiB, which large insets or scales would ask for. Extreme values are
// covered by the unit tests; here insets stay within +-4096 and finite
// scales within +-4 (infinite and NaN scales saturate or zero the insets
// and stay cheap).
inline bool composite_stays_small(const Bytes& frame_file, float scale) {
    constexpr std::int32_t kMaxInset = 4096;
    constexpr float kMaxScale = 4.0f;
    for (std::size_t offset = 44; offset < 76; offset += 4) {
        const std::int32_t inset = int_at(frame_file, offset);
        if (inset > kMaxInset || inset < -kMaxInset) return false;
    }
    return !std::isfinite(scale) || std::fabs(scale) <= kMaxScale;
}

}  // namespace qtzq_fuzz

#endif  // QTZQ_FUZZ_FUZZ_INPUT_H
