// Reduces everything a golden case produces to one SHA-256 digest.
//
// Values are fed in a fixed serialisation, independent of the host: integers
// as little-endian two's complement of their stated width, floating-point
// values as the little-endian bytes of their IEEE-754 representation,
// images as width, height and then their bytes. Two platforms that compute
// the same results therefore produce the same digest, and one differing bit
// anywhere changes it.
#ifndef QTZQ_TESTS_GOLDEN_RECORDER_H
#define QTZQ_TESTS_GOLDEN_RECORDER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sha256.h"

namespace qtzq_golden {

class Recorder {
   public:
    // sink, when given, receives a copy of every serialised byte (for
    // comparing two platforms' raw outputs when their digests differ).
    explicit Recorder(std::vector<unsigned char>* sink = nullptr) : sink_(sink) {}

    void bytes(const unsigned char* data, std::size_t size);
    void bytes(const std::vector<unsigned char>& data) { bytes(data.data(), data.size()); }
    void i32(std::int32_t value);
    void u32(std::uint32_t value);
    void f32(float value);
    void f64(double value);
    // A width x height pixel buffer: both sides, then width * height * 4 bytes.
    void image(const unsigned char* pixels, int width, int height);
    void image(const std::vector<unsigned char>& pixels, int width, int height) {
        image(pixels.data(), width, height);
    }

    std::string hex_digest() { return sha_.hex_digest(); }

   private:
    void little_endian(std::uint64_t value, int size);

    Sha256 sha_;
    std::vector<unsigned char>* sink_;
};

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_RECORDER_H
