// CHistogram: counts per table, channel selection, getter clamping and the
// summary getters over their range.
#include <gtest/gtest.h>

#include <qtzqeffect/pixel.h>

#include "pixel/colour_rows.h"

using qtzq_test::Bytes;
using qtzq_test::colour_row;

namespace {

const _IMAGE_CHANNEL kTables[] = {IMAGE_CHANNEL_LUMINANCE, IMAGE_CHANNEL_RED, IMAGE_CHANNEL_GREEN,
                                  IMAGE_CHANNEL_BLUE};

TEST(Histogram, CountsSumToThePixelNumberInEveryTable) {
    Bytes image = qtzq_test::noise(37, 23, 11);
    CHistogram histogram(image.data(), 37, 23);
    EXPECT_EQ(histogram.GetPixelNumber(), 37 * 23);
    for (_IMAGE_CHANNEL table : kTables) {
        int sum = 0;
        for (int v = 0; v < 256; ++v) sum += histogram.GetChannelHistogram(table, v);
        EXPECT_EQ(sum, 37 * 23) << table;
    }
    // Empty sizes and a null buffer give empty tables.
    for (CHistogram empty : {CHistogram(image.data(), 0, 4), CHistogram(image.data(), -2, 3),
                             CHistogram(nullptr, 4, 4)})
        for (_IMAGE_CHANNEL table : kTables) EXPECT_EQ(empty.GetCount(table), 0);
}

TEST(Histogram, EachTableCountsItsOwnByte) {
    // (b, g, r) = (10, 20, 30): luminance (900 + 1180 + 110) / 100 = 21;
    // white reaches index 255. Alpha is ignored; selectors other than 1, 2
    // and 4 read luminance.
    Bytes image = colour_row({{10, 20, 30}, {10, 20, 30}, {255, 255, 255}}, 30);
    CHistogram histogram(image.data(), 3, 1);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_BLUE, 10), 2);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_GREEN, 20), 2);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_RED, 30), 2);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_LUMINANCE, 255), 1);
    for (int selector : {0, 3, 5, 7, 8, -1})
        EXPECT_EQ(histogram.GetChannelHistogram(_IMAGE_CHANNEL(selector), 21), 2) << selector;
    // Recounting starts from empty tables.
    Bytes other = colour_row({{9, 9, 9}, {9, 9, 9}, {9, 9, 9}}, 0);
    histogram.AnalyzeImage(other.data());
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_BLUE, 10), 0);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_BLUE, 9), 3);
}

TEST(Histogram, GettersClampTheirArgumentsAndSummariseTheRange) {
    Bytes image = colour_row({{0, 0, 0}, {0, 0, 0}, {0, 0, 20}, {0, 0, 255}}, 0);
    CHistogram histogram(image.data(), 2, 2);
    EXPECT_EQ(histogram.GetValueCount(300, IMAGE_CHANNEL_RED), 1);  // read at 255
    EXPECT_EQ(histogram.GetValueCount(-5, IMAGE_CHANNEL_RED), 2);   // read at 0
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_RED, 256), 0);
    EXPECT_EQ(histogram.GetChannelHistogram(IMAGE_CHANNEL_RED, -1), 0);
    EXPECT_EQ(histogram.GetAverage(IMAGE_CHANNEL_RED), 68);  // 275 / 4, truncated
    EXPECT_EQ(histogram.GetMaxCount(IMAGE_CHANNEL_RED), 2);
    histogram.SetStart(15);
    EXPECT_EQ(histogram.GetCount(IMAGE_CHANNEL_RED), 2);
    EXPECT_EQ(histogram.GetAverage(IMAGE_CHANNEL_RED), 137);  // 275 / 2
    histogram.SetStart(400);
    EXPECT_EQ(histogram.GetStart(), 255);
    histogram.SetStart(21);
    histogram.SetEnd(-1);
    EXPECT_EQ(histogram.GetEnd(), 0);
    for (_IMAGE_CHANNEL table : kTables)  // an empty range
        EXPECT_TRUE(histogram.GetCount(table) == 0 && histogram.GetMaxCount(table) == 0 &&
                    histogram.GetAverage(table) == 0);
}

}  // namespace
