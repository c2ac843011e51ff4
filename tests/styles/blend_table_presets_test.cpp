// Blend-table presets: where the maps lie in the table set and what
// StyleRouguang does to its material. (The golden digests pin every preset's
// output on a table set of exactly the minimum size.)
#include <gtest/gtest.h>

#include <qtzqeffect/qtzqeffect.h>

#include "styles/curve_store.h"
#include "support/images.h"

using qtzq_test::Bytes;
using qtzq_test::noise;

namespace {

constexpr int kW = 8, kH = 5;
constexpr std::size_t kMapStart[3] = {4, 65543, 131082};

int entry(int map, int a, int b) { return ((map + 1) * a + (b ^ 0x5A)) & 255; }

// A set of exactly the minimum size, 196618 bytes (reading past it is a
// fault under the sanitizers); the bytes outside the maps hold 0xEE.
Bytes table_set() {
    Bytes tables(196618, 0xEE);
    for (int map = 0; map < 3; ++map)
        for (int a = 0; a < 256; ++a)
            for (int b = 0; b < 256; ++b)
                tables[kMapStart[map] + a * 256 + b] = static_cast<unsigned char>(entry(map, a, b));
    return tables;
}

TEST(BlendTablePresets, RouguangCurvesItsMaterialInPlaceAndIndexesByIt) {
    const Bytes photo = noise(kW, kH, 21), m1 = noise(kW, kH, 22);
    Bytes image = photo, material = m1, tables = table_set();
    StyleRouguang(image.data(), material.data(), kW, kH, tables.data());
    Bytes curved = m1, expected = photo;  // alpha kept in both
    for (std::size_t i = 0; i < photo.size(); i += 4) {
        for (int c = 0; c < 3; ++c) {
            curved[i + c] = qtzq::store_curve(10)[m1[i + c]];
            expected[i + c] = entry(2 - c, curved[i + c], photo[i + c]);
        }
    }
    EXPECT_EQ(material, curved);
    EXPECT_EQ(image, expected);
    EXPECT_EQ(tables, table_set());
}

}  // namespace
