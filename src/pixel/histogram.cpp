// CHistogram: value counts of a pixel buffer per colour channel and luminance.
#include <algorithm>
#include <cstring>

#include "pixel/image_walk.h"
#include "pixel/numeric.h"
#include "qtzqeffect/pixel.h"

namespace {

constexpr int kLevels = 256;

// The table a channel selector reads: 1 red, 2 green, 4 blue, anything
// else luminance.
const unsigned int* channel_table(_IMAGE_CHANNEL channel, const unsigned int* luminance,
                                  const unsigned int* red, const unsigned int* green,
                                  const unsigned int* blue) {
    switch (static_cast<int>(channel)) {
        case IMAGE_CHANNEL_RED:
            return red;
        case IMAGE_CHANNEL_GREEN:
            return green;
        case IMAGE_CHANNEL_BLUE:
            return blue;
        default:
            return luminance;
    }
}

// Counts are at most the pixel count; they are summed in 64 bits and
// handed out as int.
int as_count(unsigned long long value) { return static_cast<int>(value); }

// Luminance index (30 R + 59 G + 11 B) / 100, at most 255.
int luminance_of(const unsigned char* pixel) {
    return (30 * pixel[2] + 59 * pixel[1] + 11 * pixel[0]) / 100;
}

}  // namespace

CHistogram::CHistogram(unsigned char* pixels, int width, int height)
    : m_width(width), m_height(height), m_start(0), m_end(kLevels - 1), m_pixelNumber(0) {
    AnalyzeImage(pixels);
}

CHistogram::~CHistogram() {}

void CHistogram::AnalyzeImage(unsigned char* pixels) {
    std::memset(m_luminance, 0, sizeof m_luminance);
    std::memset(m_red, 0, sizeof m_red);
    std::memset(m_green, 0, sizeof m_green);
    std::memset(m_blue, 0, sizeof m_blue);
    // width * height with the wrap-around of 32-bit arithmetic, negative
    // sizes included.
    m_pixelNumber = static_cast<int>(static_cast<unsigned int>(m_width) *
                                     static_cast<unsigned int>(m_height));
    if (pixels == nullptr) return;
    qtzq::for_each_pixel(pixels, m_width, m_height, [this](unsigned char* pixel) {
        ++m_blue[pixel[0]];
        ++m_green[pixel[1]];
        ++m_red[pixel[2]];
        ++m_luminance[luminance_of(pixel)];
    });
}

int CHistogram::GetChannelHistogram(_IMAGE_CHANNEL channel, int value) {
    if (value < 0 || value >= kLevels) return 0;
    return as_count(channel_table(channel, m_luminance, m_red, m_green, m_blue)[value]);
}

int CHistogram::GetValueCount(int value, _IMAGE_CHANNEL channel) {
    const unsigned int* table = channel_table(channel, m_luminance, m_red, m_green, m_blue);
    return as_count(table[qtzq::clamp_byte(value)]);
}

int CHistogram::GetCount(_IMAGE_CHANNEL channel) {
    const unsigned int* table = channel_table(channel, m_luminance, m_red, m_green, m_blue);
    unsigned long long total = 0;
    for (int v = m_start; v <= m_end; ++v) total += table[v];
    return as_count(total);
}

int CHistogram::GetMaxCount(_IMAGE_CHANNEL channel) {
    const unsigned int* table = channel_table(channel, m_luminance, m_red, m_green, m_blue);
    unsigned int largest = 0;
    for (int v = m_start; v <= m_end; ++v) largest = std::max(largest, table[v]);
    return as_count(largest);
}

int CHistogram::GetAverage(_IMAGE_CHANNEL channel) {
    const unsigned int* table = channel_table(channel, m_luminance, m_red, m_green, m_blue);
    unsigned long long total = 0;
    double weighted = 0.0;
    for (int v = m_start; v <= m_end; ++v) {
        total += table[v];
        weighted += static_cast<double>(static_cast<unsigned long long>(table[v]) * v);
    }
    if (total == 0) return 0;
    return qtzq::truncate_int(weighted / static_cast<double>(total));
}

int CHistogram::GetPixelNumber() { return m_pixelNumber; }

int CHistogram::GetStart() { return m_start; }

int CHistogram::GetEnd() { return m_end; }

void CHistogram::SetStart(int start) { m_start = qtzq::clamp_byte(start); }

void CHistogram::SetEnd(int end) { m_end = qtzq::clamp_byte(end); }
