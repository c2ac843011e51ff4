// SHA-256 (FIPS 180-4), small and dependency-free, for the golden digests.
#ifndef QTZQ_TESTS_GOLDEN_SHA256_H
#define QTZQ_TESTS_GOLDEN_SHA256_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qtzq_golden {

class Sha256 {
   public:
    Sha256();

    // Appends size bytes to the message; may be called any number of times.
    void update(const void* data, std::size_t size);

    // Pads the message and returns the digest as 64 lower-case hex digits.
    // The object is spent afterwards.
    std::string hex_digest();

   private:
    void compress(const unsigned char* block);

    std::array<std::uint32_t, 8> state_;
    std::array<unsigned char, 64> block_{};
    std::size_t block_used_ = 0;
    std::uint64_t message_bytes_ = 0;
};

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_SHA256_H
