// Bounds-checked little-endian reads from a file held in memory.
//
// Every read is tested against the length the application gave: a field
// that does not lie wholly inside it reads as 0 (and `contains` says so
// beforehand), so no reader can touch a byte outside the file whatever the
// file claims. Offsets are 64-bit so that offset arithmetic on values read
// from a file cannot overflow.
#ifndef QTZQ_FRAME_BYTE_READER_H
#define QTZQ_FRAME_BYTE_READER_H

#include <cstdint>
#include <cstring>

#include "frame/int_arith.h"

namespace qtzq {

class ByteReader {
public:
    // A null pointer or a length below 1 is an empty file.
    ByteReader(const unsigned char* data, int length)
        : data_(data), size_(data != nullptr && length > 0 ? length : 0) {}

    std::int64_t size() const { return size_; }

    // True when bytes offset .. offset + count - 1 all lie inside the file.
    bool contains(std::int64_t offset, std::int64_t count) const {
        return offset >= 0 && count >= 0 && count <= size_ && offset <= size_ - count;
    }

    // The byte at offset, or 0 outside the file.
    unsigned char u8(std::int64_t offset) const { return contains(offset, 1) ? data_[offset] : 0; }

    // The 32-bit little-endian two's complement integer at offset, or 0.
    int i32(std::int64_t offset) const { return int_from_bits(u32(offset)); }

    // The little-endian IEEE single at offset, or 0.0.
    float f32(std::int64_t offset) const {
        const std::uint32_t bits = u32(offset);
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // The bytes from offset on; only valid after contains() said yes.
    const unsigned char* at(std::int64_t offset) const { return data_ + offset; }

    // True when the file holds the five ASCII bytes of `magic` at offset.
    bool has_magic(std::int64_t offset, const char (&magic)[6]) const {
        constexpr std::int64_t kMagicLength = 5;
        return contains(offset, kMagicLength) &&
               std::memcmp(data_ + offset, magic, kMagicLength) == 0;
    }

private:
    std::uint32_t u32(std::int64_t offset) const {
        if (!contains(offset, 4)) return 0;
        const unsigned char* p = data_ + offset;
        return std::uint32_t(p[0]) | std::uint32_t(p[1]) << 8 | std::uint32_t(p[2]) << 16 |
               std::uint32_t(p[3]) << 24;
    }

    const unsigned char* data_;
    std::int64_t size_;
};

}  // namespace qtzq

#endif  // QTZQ_FRAME_BYTE_READER_H
