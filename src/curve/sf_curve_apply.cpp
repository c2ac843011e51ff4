// SFCurve::ApplyCurve: mapping a pixel buffer through the curve slots.
#include "pixel/image_walk.h"
#include "qtzqeffect/curve.h"

namespace {

// Byte offsets of the colour channels within a BGRA pixel.
constexpr int kBlue = 0;
constexpr int kGreen = 1;
constexpr int kRed = 2;

// Maps byte `offset` of every pixel through `curve`.
void map_byte(unsigned char* buffer, int width, int height, int offset, const unsigned char* curve) {
    qtzq::for_each_pixel(buffer, width, height,
                         [&](unsigned char* pixel) { pixel[offset] = curve[pixel[offset]]; });
}

// Maps blue, green and red of every pixel through one curve each.
void map_colours(unsigned char* buffer, int width, int height, const unsigned char* red,
                 const unsigned char* green, const unsigned char* blue) {
    qtzq::for_each_pixel(buffer, width, height, [&](unsigned char* pixel) {
        pixel[kBlue] = blue[pixel[kBlue]];
        pixel[kGreen] = green[pixel[kGreen]];
        pixel[kRed] = red[pixel[kRed]];
    });
}

}  // namespace

void SFCurve::ApplyCurve(Channel channel, unsigned char* buffer, int width, int height) {
    if (buffer == nullptr) return;
    unsigned char* const red = m_curves[CHANNEL_RED];
    unsigned char* const green = m_curves[CHANNEL_GREEN];
    unsigned char* const blue = m_curves[CHANNEL_BLUE];
    unsigned char* const all = m_curves[CHANNEL_RGB];
    switch (channel) {
        case CHANNEL_RED:
            if (red != nullptr) map_byte(buffer, width, height, kRed, red);
            break;
        case CHANNEL_GREEN:
            if (green != nullptr) map_byte(buffer, width, height, kGreen, green);
            break;
        case CHANNEL_BLUE:
            if (blue != nullptr) map_byte(buffer, width, height, kBlue, blue);
            break;
        case CHANNEL_RGB:
            if (all != nullptr) map_colours(buffer, width, height, all, all, all);
            break;
        case CHANNEL_SEPARATE:
            if (red != nullptr && green != nullptr && blue != nullptr)
                map_colours(buffer, width, height, red, green, blue);
            break;
        default:  // CHANNEL_SPARE's slot is never applied; other values do nothing
            break;
    }
}
