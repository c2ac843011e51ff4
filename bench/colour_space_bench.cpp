// Colour-space round trips: every pixel converted to the space and straight
// back, through the library's single-colour conversions.
#include <qtzqeffect/pixel.h>

#include <string>
#include <vector>

#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

// Converts one pixel (bytes blue, green, red) there and back.
using RoundTrip = void (*)(unsigned char* pixel);

// The byte spaces share one shape: three bytes out, three bytes back.
template <void (*To)(unsigned char, unsigned char, unsigned char, unsigned char*, unsigned char*,
                     unsigned char*),
          void (*Back)(unsigned char, unsigned char, unsigned char, unsigned char*, unsigned char*,
                       unsigned char*)>
void byte_round_trip(unsigned char* p) {
    unsigned char a = 0, b = 0, c = 0;
    To(p[2], p[1], p[0], &a, &b, &c);
    Back(a, b, c, &p[2], &p[1], &p[0]);
}

void hsb_round_trip(unsigned char* p) {
    float hue = 0, saturation = 0, brightness = 0;
    RGBtoHSB(p[2], p[1], p[0], hue, saturation, brightness);
    HSBtoRGB(hue, saturation, brightness, p[2], p[1], p[0]);
}

void hls_round_trip(unsigned char* p) {
    double h = 0, l = 0, s = 0;
    RGBtoHLS(p[2], p[1], p[0], &h, &l, &s);
    const unsigned int packed = HLStoRGB(h, l, s);  // blue in the low byte
    p[0] = static_cast<unsigned char>(packed & 255);
    p[1] = static_cast<unsigned char>((packed >> 8) & 255);
    p[2] = static_cast<unsigned char>((packed >> 16) & 255);
}

void int_hls_round_trip(unsigned char* p) {
    int h = 0, l = 0, s = 0, r = 0, g = 0, b = 0;
    RGBtoIntHLS(p[2], p[1], p[0], &h, &l, &s);
    intHLStoRGB(h, l, s, &r, &g, &b);
    p[0] = static_cast<unsigned char>(b);
    p[1] = static_cast<unsigned char>(g);
    p[2] = static_cast<unsigned char>(r);
}

struct SpaceCase {
    const char* name;
    RoundTrip round_trip;
    const char* anchor;  // the OpenCV conversion of the nearest space
};

const std::vector<SpaceCase>& space_cases() {
    static const std::vector<SpaceCase> cases = {
        {"YUV", byte_round_trip<RGBtoYUV, YUVtoRGB>, "opencv/cvtColor/YUV"},
        {"YIQ", byte_round_trip<RGBtoYIQ, YIQtoRGB>, "opencv/cvtColor/YUV"},
        {"XYZ", byte_round_trip<RGBtoXYZ, XYZtoRGB>, "opencv/cvtColor/XYZ"},
        {"HSL", byte_round_trip<RGBtoHSL, HSLtoRGB>, "opencv/cvtColor/HLS"},
        {"HSL_L", byte_round_trip<RGBtoHSL, HSLtoRGB_L>, "opencv/cvtColor/HLS"},
        {"HSL2", byte_round_trip<RGBtoHSL2, HSLtoRGB2>, "opencv/cvtColor/HLS"},
        {"HSB", hsb_round_trip, "opencv/cvtColor/HSV"},
        {"HLS", hls_round_trip, "opencv/cvtColor/HLS"},
        {"IntHLS", int_hls_round_trip, "opencv/cvtColor/HLS"},
    };
    return cases;
}

void convert_photo(RoundTrip round_trip, BgraImage& photo) {
    unsigned char* const end = photo.data() + photo.pixels.size();
    for (unsigned char* p = photo.data(); p != end; p += 4) round_trip(p);
}

}  // namespace

void register_colour_spaces() {
    for (const SpaceCase& space : space_cases()) {
        add_pass(std::string("colour/") + space.name,
                 [round_trip = space.round_trip](BgraImage& photo) { convert_photo(round_trip, photo); },
                 space.anchor);
    }
}

}  // namespace qtzq_bench
