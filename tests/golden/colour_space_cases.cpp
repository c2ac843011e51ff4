// Golden cases of the colour-space conversions: each forward conversion on
// the 65536 colours of colour_case, the inverse ones on the same byte
// triples or on the forward results (round trips), and the scalar helpers
// on grids over and beyond their ranges.
#include <string>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/pixel.h"

namespace qtzq_golden {

namespace {

using ByteConversion = void (*)(unsigned char, unsigned char, unsigned char, unsigned char*,
                                unsigned char*, unsigned char*);

// A conversion of three bytes into three bytes, fed the colours as they are.
void byte_conversion_case(CaseList& list, const std::string& name, ByteConversion convert) {
    colour_case(list, name,
                [convert](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                    unsigned char result[3] = {0xCD, 0xCD, 0xCD};
                    convert(r, g, b, &result[0], &result[1], &result[2]);
                    out.bytes(result, 3);
                });
}

// The pairs (m1, m2) the scalar hue helpers are given, on their own scale.
template <typename T>
void for_each_pair(const T (&levels)[5], void (*visit)(T, T, Recorder&), Recorder& out) {
    for (const T m1 : levels) {
        for (const T m2 : levels) visit(m1, m2, out);
    }
}

}  // namespace

void add_colour_space_cases(CaseList& list) {
    byte_conversion_case(list, "pixel.RGBtoYUV", RGBtoYUV);
    byte_conversion_case(list, "pixel.YUVtoRGB", YUVtoRGB);
    byte_conversion_case(list, "pixel.RGBtoYIQ", RGBtoYIQ);
    byte_conversion_case(list, "pixel.YIQtoRGB", YIQtoRGB);
    byte_conversion_case(list, "pixel.RGBtoXYZ", RGBtoXYZ);
    byte_conversion_case(list, "pixel.XYZtoRGB", XYZtoRGB);
    byte_conversion_case(list, "pixel.RGBtoHSL", RGBtoHSL);
    byte_conversion_case(list, "pixel.HSLtoRGB", HSLtoRGB);
    byte_conversion_case(list, "pixel.HSLtoRGB_L", HSLtoRGB_L);
    byte_conversion_case(list, "pixel.RGBtoHSL2", RGBtoHSL2);
    byte_conversion_case(list, "pixel.HSLtoRGB2", HSLtoRGB2);

    colour_case(list, "pixel.RGBtoHSB.HSBtoRGB",
                [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                    float hue = -1, saturation = -1, brightness = -1;
                    RGBtoHSB(r, g, b, hue, saturation, brightness);
                    unsigned char rgb[3] = {0xCD, 0xCD, 0xCD};
                    HSBtoRGB(hue, saturation, brightness, rgb[0], rgb[1], rgb[2]);
                    out.f32(hue);
                    out.f32(saturation);
                    out.f32(brightness);
                    out.bytes(rgb, 3);
                });
    colour_case(list, "pixel.RGBtoHLS.HLStoRGB",
                [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                    double hue = -1, lightness = -1, saturation = -1, lightness_only = -1;
                    RGBtoHLS(r, g, b, &hue, &lightness, &saturation);
                    RGBtoHLS_L(r, g, b, &lightness_only);
                    out.f64(hue);
                    out.f64(lightness);
                    out.f64(saturation);
                    out.f64(lightness_only);
                    out.u32(HLStoRGB(hue, lightness, saturation));
                });
    colour_case(list, "pixel.RGBtoIntHLS.intHLStoRGB",
                [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                    int hls[3] = {-1, -1, -1};
                    RGBtoIntHLS(r, g, b, &hls[0], &hls[1], &hls[2]);
                    int rgb[3] = {-1, -1, -1};
                    intHLStoRGB(hls[0], hls[1], hls[2], &rgb[0], &rgb[1], &rgb[2]);
                    for (const int v : hls) out.i32(v);
                    for (const int v : rgb) out.i32(v);
                });

    custom_case(list, "pixel.HueToRGB", [](Recorder& out) {
        static const float kLevels[5] = {0.0f, 0.2f, 0.5f, 0.8f, 1.0f};
        for_each_pair<float>(
            kLevels,
            [](float m1, float m2, Recorder& o) {
                for (int step = -288; step < 576; ++step) o.f32(HueToRGB(m1, m2, step * 1.25f));
            },
            out);
    });
    custom_case(list, "pixel.HLS_Value", [](Recorder& out) {
        static const double kLevels[5] = {0.0, 0.2, 0.5, 0.8, 1.0};
        for_each_pair<double>(
            kLevels,
            [](double m1, double m2, Recorder& o) {
                for (int step = -180; step < 360; ++step) o.f64(HLS_Value(m1, m2, step / 30.0));
            },
            out);
    });
    custom_case(list, "pixel.intHueToRGB", [](Recorder& out) {
        static const int kLevels[5] = {0, 64, 128, 200, 255};
        for_each_pair<int>(
            kLevels,
            [](int m1, int m2, Recorder& o) {
                for (int hue = -255; hue < 510; ++hue) o.i32(intHueToRGB(m1, m2, hue));
            },
            out);
    });
}

}  // namespace qtzq_golden
