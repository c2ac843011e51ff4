#include "recorder.h"

#include <cstring>

namespace qtzq_golden {

void Recorder::bytes(const unsigned char* data, std::size_t size) {
    sha_.update(data, size);
    if (sink_) sink_->insert(sink_->end(), data, data + size);
}

void Recorder::little_endian(std::uint64_t value, int size) {
    unsigned char out[8];
    for (int i = 0; i < size; ++i) out[i] = static_cast<unsigned char>(value >> (8 * i));
    bytes(out, static_cast<std::size_t>(size));
}

void Recorder::i32(std::int32_t value) { little_endian(static_cast<std::uint32_t>(value), 4); }

void Recorder::u32(std::uint32_t value) { little_endian(value, 4); }

void Recorder::f32(float value) {
    static_assert(sizeof(float) == 4, "IEEE single precision expected");
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    little_endian(bits, 4);
}

void Recorder::f64(double value) {
    static_assert(sizeof(double) == 8, "IEEE double precision expected");
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    little_endian(bits, 8);
}

void Recorder::image(const unsigned char* pixels, int width, int height) {
    i32(width);
    i32(height);
    const std::size_t size = (width > 0 && height > 0) ? static_cast<std::size_t>(width) *
                                                             static_cast<std::size_t>(height) * 4
                                                       : 0;
    bytes(pixels, size);
}

}  // namespace qtzq_golden
