// The HSL saturation shift on vector units against the scalar reference
// (forced): the same bytes for every 24-bit colour under a handful of
// saturation tables, on every span length that leaves a partial group, with
// alpha untouched.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "pixel/saturation_kernels.h"
#include "pixel/saturation_spans.h"
#include "simd/vector_unit.h"
#include "support/vector_units.h"

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QTZQ_TEST_SANITIZED 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define QTZQ_TEST_SANITIZED 1
#endif

// Every colour in an optimised build; without optimisation or under the
// sanitizers a prime stride through them (greys are added separately).
#if defined(QTZQ_TEST_SANITIZED) || !defined(__OPTIMIZE__)
constexpr std::uint32_t kColourStep = 61;
#else
constexpr std::uint32_t kColourStep = 1;
#endif
constexpr std::uint32_t kColours = 1u << 24;
constexpr std::size_t kChunkPixels = 1u << 20;

using Bytes = std::vector<unsigned char>;
using Table = std::vector<unsigned char>;

Table amount_table(long amount) {
    Table table(256);
    qtzq::hsl_shift_table(amount, table.data());
    return table;
}

// A fixed scramble: saturations jump anywhere, including 0 and 255.
Table random_table() {
    Table table(256);
    std::uint32_t state = 12345;
    for (unsigned char& entry : table) {
        state = state * 1664525u + 1013904223u;
        entry = static_cast<unsigned char>(state >> 24);
    }
    table[0] = 255;
    table[255] = 0;
    return table;
}

Bytes shifted(Bytes pixels, const Table& table, qtzq::VectorUnit unit) {
    qtzq::ScopedVectorUnitLimit limit(unit);
    qtzq::shift_hsl_saturation_span(pixels.data(), pixels.size() / 4, table.data());
    return pixels;
}

// BGRA pixel of colour 0xRRGGBB with an alpha that varies from pixel to pixel.
void put_colour(Bytes& pixels, std::size_t at, std::uint32_t colour) {
    pixels[4 * at + 0] = static_cast<unsigned char>(colour);
    pixels[4 * at + 1] = static_cast<unsigned char>(colour >> 8);
    pixels[4 * at + 2] = static_cast<unsigned char>(colour >> 16);
    pixels[4 * at + 3] = static_cast<unsigned char>(colour * 7 + 3);
}

// First pixel where two results differ, as "colour 0xRRGGBB", or "".
std::string first_difference(const Bytes& input, const Bytes& a, const Bytes& b) {
    for (std::size_t i = 0; i < a.size(); i += 4)
        if (!std::equal(a.begin() + i, a.begin() + i + 4, b.begin() + i)) {
            char text[32];
            std::snprintf(text, sizeof text, "colour 0x%02X%02X%02X", input[i + 2], input[i + 1],
                          input[i]);
            return text;
        }
    return "";
}

bool alphas_kept(const Bytes& input, const Bytes& output) {
    for (std::size_t i = 3; i < input.size(); i += 4)
        if (output[i] != input[i]) return false;
    return true;
}

void expect_vector_equals_scalar(const Bytes& input, const Table& table, const char* name) {
    const Bytes scalar = shifted(input, table, qtzq::VectorUnit::kScalar);
    ASSERT_TRUE(alphas_kept(input, scalar)) << name;
    for (qtzq::VectorUnit unit : qtzq_test::vector_unit_limits()) {
        const Bytes vector = shifted(input, table, unit);
        ASSERT_EQ(first_difference(input, vector, scalar), "")
            << name << ", unit " << int(unit) << ", " << input.size() / 4 << " pixels";
    }
}

struct NamedTable {
    const char* name;
    Table table;
};

std::vector<NamedTable> tables() {
    return {{"-100", amount_table(-100)}, {"-35", amount_table(-35)},
            {"-30", amount_table(-30)},   {"-25", amount_table(-25)},
            {"+15", amount_table(15)},    {"+100", amount_table(100)},
            {"random", random_table()}};
}

TEST(HslShiftVector, EveryColourUnderEveryTable) {
    for (const NamedTable& t : tables()) {
        Bytes greys(4 * 256);
        for (std::uint32_t level = 0; level < 256; ++level) put_colour(greys, level, level * 0x010101u);
        expect_vector_equals_scalar(greys, t.table, t.name);

        for (std::uint32_t first = 0; first < kColours; first += kChunkPixels * kColourStep) {
            Bytes chunk;
            chunk.reserve(4 * kChunkPixels);
            for (std::uint32_t colour = first;
                 colour < kColours && colour - first < kChunkPixels * kColourStep;
                 colour += kColourStep) {
                chunk.resize(chunk.size() + 4);
                put_colour(chunk, chunk.size() / 4 - 1, colour);
            }
            expect_vector_equals_scalar(chunk, t.table, t.name);
        }
    }
}

// Spans of 0..17 pixels (each in a buffer of exactly that size, so that a
// read or write past it shows under AddressSanitizer): every partial group
// of four and of eight after none, one and two whole groups, the whole
// groups both single and in the interleaved pairs.
TEST(HslShiftVector, SpanTails) {
    const Table table = random_table();
    for (std::size_t count = 0; count <= 17; ++count) {
        Bytes pixels(4 * count);
        for (std::size_t i = 0; i < count; ++i) put_colour(pixels, i, 0x9E3779u * (i + 1));
        expect_vector_equals_scalar(pixels, table, "tail");
    }
}

}  // namespace
