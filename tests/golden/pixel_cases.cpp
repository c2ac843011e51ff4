// Golden cases of pixel.h: tone adjustments, saturation, the single-pixel
// blend modes and the colour-space conversions.
#include "golden.h"
#include "qtzqeffect/pixel.h"

namespace qtzq_golden {

namespace {

// A table that is neither monotone nor symmetric: a fold with an offset.
Bytes folded_table(int offset) {
    Bytes table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = static_cast<unsigned char>((i < 128 ? 2 * i : 511 - 2 * i) ^ offset);
    return table;
}

// Brightness and contrast: identity, mild, strong, the flattening contrast
// -100, the doubling +100, and far outside the usual range.
constexpr long kLightSettings[][2] = {{0, 0},    {30, -20}, {-60, 45},   {200, 0},
                                      {0, -100}, {0, 100},  {-300, 250}, {-128, -250}};
constexpr int kBrightContrastSaturation[][3] = {
    {0, 0, 0}, {0, 0, 45}, {20, 0, 0}, {-15, 30, -60}, {10, -20, 30}};
// Red, green, blue gammas: identity, mixed, and one refused (a zero).
constexpr float kGammas[][3] = {{1, 1, 1}, {2, 0.5f, 1.3f}, {0.45f, 2.2f, 1}, {1, 0, 1}};
// Saturation matrices: identity, grey (every row the luma weights), and one
// that swaps and overshoots (negative and above-256 entries).
int kMatrices[][9] = {{256, 0, 0, 0, 256, 0, 0, 0, 256},
                      {79, 156, 21, 79, 156, 21, 79, 156, 21},
                      {-40, 300, 12, 512, -256, 0, 30, 30, 200}};

using ByteConversion = void (*)(unsigned char, unsigned char, unsigned char, unsigned char*,
                                unsigned char*, unsigned char*);

// A conversion of three bytes into three bytes, on every colour.
Case bytes3(const std::string& name, ByteConversion convert) {
    return colour(name,
                  [convert](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                      unsigned char result[3] = {0xCD, 0xCD, 0xCD};
                      convert(r, g, b, &result[0], &result[1], &result[2]);
                      out.bytes(result, 3);
                  });
}

Cases tone_cases() {
    return {
        image("pixel.Lut", [](auto* p, int w, int h) { Lut(p, folded_table(0x35).data(), w, h); }),
        image("pixel.LutEx",
              [](auto* p, int w, int h) {
                  LutEx(p, w, h, folded_table(1).data(), folded_table(2).data(),
                        folded_table(3).data(), nullptr);
              }),
        image("pixel.LutEx.alpha",
              [](auto* p, int w, int h) {
                  LutEx(p, w, h, folded_table(1).data(), folded_table(2).data(),
                        folded_table(3).data(), folded_table(4).data());
              }),
        sweep(kLightSettings,
              [](auto& s) {
                  const long brightness = s[0], contrast = s[1];
                  return Cases{
                      image(named("pixel.Light", brightness, contrast),
                            [=](auto* p, int w, int h) { Light(p, w, h, brightness, contrast); }),
                      custom(named("pixel.LightNew", brightness, contrast), [=](Recorder& out) {
                          Bytes pixels = photo(3, 5), table(256, 0xCD);
                          LightNew(pixels.data(), table.data(), 3, 5, brightness, contrast);
                          out.bytes(table);
                          out.image(pixels, 3, 5);
                      })};
              }),
        sweep({-150, -40, 0, 25, 90},
              [](int a) {
                  return Cases{image(named("pixel.Bright", a),
                                     [=](auto* p, int w, int h) { Bright(p, w, h, a); }),
                               image(named("pixel.Contrast", a),
                                     [=](auto* p, int w, int h) { Contrast(p, w, h, a); })};
              }),
        sweep({-100, -30, 40, 100},
              [](int a) {
                  return image(named("pixel.Saturation", a),
                               [=](auto* p, int w, int h) { Saturation(p, w, h, a); });
              }),
        sweep(kBrightContrastSaturation,
              [](auto& m) {
                  return image(named("pixel.BrightContrastSaturation", m[0], m[1], m[2]),
                               [=](auto* p, int w, int h) {
                                   BrightContrastSaturation(p, w, h, m[0], m[1], m[2]);
                               });
              }),
        sweep({0, 1, 2, 3},
              [](int i) {
                  const float* g = kGammas[i];
                  return image(named("pixel.GammaRGB", i),
                               [=](auto* p, int w, int h) { GammaRGB(p, w, h, g[0], g[1], g[2]); });
              }),
        pixel("pixel.ShiftRGBEx.40_25_0", [](auto* px) { ShiftRGBEx(px, 40, 25, 0); }),
        pixel("pixel.ShiftRGBEx.255_1_128", [](auto* px) { ShiftRGBEx(px, 255, 1, 128); }),
        pixel("pixel.SetGrayScaleEx", SetGrayScaleEx),
        pixel("pixel.SetGrayScaleExNew", [](auto* px) { SetGrayScaleExNew(px, px + 3); }),
        sweep({0L, 20L, -50L, 300L},
              [](long a) {
                  return Cases{pixel(
                                   named("pixel.NoiseEx", a), [=](auto* px) { NoiseEx(px, a); },
                                   Needs::rand),
                               pixel(
                                   named("pixel.NoiseExNew", a),
                                   [=](auto* px) { NoiseExNew(px, a); }, Needs::rand)};
              }),
        // Packing to 3-byte pixels, every scene whole; the byte past the
        // packed run must stay as it was.
        custom("pixel.tfbitCopy",
               [](Recorder& out) {
                   for (Scene s : scenes()) {
                       Bytes packed(std::size_t(s.width) * s.height * 3 + 1, 0xCD);
                       tfbitCopy(s.photo.data(), packed.data(), s.width * s.height);
                       out.bytes(packed);
                       out.image(s.photo, s.width, s.height);
                   }
               }),
        image("pixel.SpliteToR", [](auto* p, int w, int h) { SpliteToR(p, h, w); }),
        // Colour balance: every region, with and without the kept lightness,
        // and the three fixed-setting variants.
        sweep({false, true},
              [](bool keep) {
                  const std::string k = "." + label(keep);
                  return Cases{
                      sweep({0, 1, 2},
                            [=](int r) {
                                return image("pixel.CColorBalance" + k + "." + label(r),
                                             [=](auto* p, int w, int h) {
                                                 CColorBalance(keep, _TONE_REGION(r), 37, -61, 100,
                                                               p, h, w);
                                             });
                            }),
                      image("pixel.CColorBalance_0_13_0_21" + k,
                            [=](auto* p, int w, int h) {
                                CColorBalance_0_13_0_21(keep, _TONE_REGION(0), 0, 0, 0, p, h, w);
                            }),
                      image("pixel.CColorBalance_1_2_0_8" + k,
                            [=](auto* p, int w, int h) {
                                CColorBalance_1_2_0_8(keep, _TONE_REGION(1), 0, 0, 0, p, h, w);
                            }),
                      image("pixel.CColorBalance_2_0_0_s13" + k,
                            [=](auto* p, int w, int h) {
                                CColorBalance_2_0_0_s13(keep, _TONE_REGION(2), 0, 0, 0, p, h, w);
                            }),
                      image("pixel.AutoColorLevel" + k,
                            [=](auto* p, int w, int h) { AutoColorLevel(p, w, h, keep); })};
              }),
        image("pixel.DanyaUseStone",
              [](auto* p, int w, int h) { DanyaUseStone(p, w, h, 1, 20, -15, 30); }),
        // Histogram counts and the range getters of every table.
        custom("pixel.CHistogram",
               [](Recorder& out) {
                   for (Scene s : scenes()) {
                       CHistogram histogram(s.photo.data(), s.width, s.height);
                       for (const int c : {0, 1, 2, 4}) {
                           const auto channel = _IMAGE_CHANNEL(c);
                           for (int v = 0; v < 256; ++v)
                               out.i32(histogram.GetChannelHistogram(channel, v));
                           histogram.SetStart(30);
                           histogram.SetEnd(200);
                           out.i32(histogram.GetCount(channel));
                           out.i32(histogram.GetMaxCount(channel));
                           out.i32(histogram.GetAverage(channel));
                           histogram.SetStart(0);
                           histogram.SetEnd(255);
                       }
                       out.i32(histogram.GetPixelNumber());
                   }
               }),
    };
}

Cases saturation_cases() {
    return {
        sweep({0, 1, 2},
              [](int i) {
                  return pixel(named("pixel.SaturateconstMatrix", i),
                               [=](auto* px) { SaturateconstMatrix(px, kMatrices[i]); });
              }),
        sweep({-255L, -100L, -40L, 0L, 35L, 100L, 255L},
              [](long a) {
                  return Cases{
                      image(named("pixel.Saturateconst", a),
                            [=](auto* p, int w, int h) { Saturateconst(p, w, h, a); }),
                      sweep({1L, 2L, 3L}, [=](long mode) {
                          return image(
                              "pixel.Saturateconst.mode" + label(mode) + "." + label(a),
                              [=](auto* p, int w, int h) { Saturateconst(p, w, h, a, mode); });
                      })};
              }),
    };
}

// Each blend over every pair of byte values in every channel, at every
// opacity of kBlendOpacities.
Cases blend_cases() {
    using Px = unsigned char*;
    return {
        blend("pixel.NormalEx", NormalEx),
        blend("pixel.ImageNormalEx", ImageNormalEx),
        blend("pixel.MultipleEx", MultipleEx),
        blend("pixel.ImageAddEx", ImageAddEx),
        blend("pixel.ScreenEx", ScreenEx),
        blend("pixel.ImageScreenEx", ImageScreenEx),
        blend("pixel.ImageLightenEx", ImageLightenEx),
        blend("pixel.ImageDarkenEx", ImageDarkenEx),
        blend("pixel.ImageExclusionEx", ImageExclusionEx),
        blend("pixel.ImageExclusionEx2", ImageExclusionEx2),
        blend("pixel.ExclusionEx", ExclusionEx),
        blend("pixel.ColorBurnEx", ColorBurnEx),
        blend("pixel.HardlightEx", HardlightEx),
        blend("pixel.HardlightEx_2", HardlightEx_2),
        blend("pixel.SoftLightEx", SoftLightEx),
        blend("pixel.SoftLightEx2", SoftLightEx2),
        blend("pixel.ImageSoftLightEx", ImageSoftLightEx),
        blend("pixel.CompositeColorEx", CompositeColorEx),
        blend("pixel.ColorEx", ColorEx),
        blend("pixel.ColorHSBEx", ColorHSBEx),
        blend("pixel.OverlayEx", [](Px a, Px b, double op) { OverlayEx(a, b, op); }),
        // The blend colour as three bytes: red, green, blue = blend bytes 2, 1, 0.
        blend("pixel.OverlayEx.rgb",
              [](Px a, Px b, double op) { OverlayEx(a, b[2], b[1], b[0], op); }),
        // One blend value for all three channels: the blend's blue byte.
        blend("pixel.ImageSoftLightExNew",
              [](Px a, Px b, double op) { ImageSoftLightExNew(a, b[0], op); }),
        // Single-precision opacity.
        blend("pixel.PinLightEx2", [](Px a, Px b, double op) { PinLightEx2(a, b, float(op)); }),
        blend("pixel.PinLightEx8", [](Px a, Px b, double op) { PinLightEx8(a, b, float(op)); }),
        // No opacity at all: the same pass at every opacity.
        blend("pixel.ImageColorBurnEx", [](Px a, Px b, double) { ImageColorBurnEx(a, b); }),
        blend("pixel.PinLightEx", [](Px a, Px b, double) { PinLightEx(a, b); }),
    };
}

// Each forward conversion on every colour, the inverse ones on the same byte
// triples or on the forward results (round trips), and the scalar hue
// helpers on grids over and beyond their ranges.
Cases colour_space_cases() {
    return {
        bytes3("pixel.RGBtoYUV", RGBtoYUV),
        bytes3("pixel.YUVtoRGB", YUVtoRGB),
        bytes3("pixel.RGBtoYIQ", RGBtoYIQ),
        bytes3("pixel.YIQtoRGB", YIQtoRGB),
        bytes3("pixel.RGBtoXYZ", RGBtoXYZ),
        bytes3("pixel.XYZtoRGB", XYZtoRGB),
        bytes3("pixel.RGBtoHSL", RGBtoHSL),
        bytes3("pixel.HSLtoRGB", HSLtoRGB),
        bytes3("pixel.HSLtoRGB_L", HSLtoRGB_L),
        bytes3("pixel.RGBtoHSL2", RGBtoHSL2),
        bytes3("pixel.HSLtoRGB2", HSLtoRGB2),
        colour("pixel.RGBtoHSB.HSBtoRGB",
               [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                   float hue = -1, saturation = -1, brightness = -1;
                   RGBtoHSB(r, g, b, hue, saturation, brightness);
                   unsigned char rgb[3] = {0xCD, 0xCD, 0xCD};
                   HSBtoRGB(hue, saturation, brightness, rgb[0], rgb[1], rgb[2]);
                   for (const float v : {hue, saturation, brightness}) out.f32(v);
                   out.bytes(rgb, 3);
               }),
        colour("pixel.RGBtoHLS.HLStoRGB",
               [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                   double hue = -1, lightness = -1, saturation = -1, lightness_only = -1;
                   RGBtoHLS(r, g, b, &hue, &lightness, &saturation);
                   RGBtoHLS_L(r, g, b, &lightness_only);
                   for (const double v : {hue, lightness, saturation, lightness_only}) out.f64(v);
                   out.u32(HLStoRGB(hue, lightness, saturation));
               }),
        colour("pixel.RGBtoIntHLS.intHLStoRGB",
               [](unsigned char r, unsigned char g, unsigned char b, Recorder& out) {
                   int hls[3] = {-1, -1, -1}, rgb[3] = {-1, -1, -1};
                   RGBtoIntHLS(r, g, b, &hls[0], &hls[1], &hls[2]);
                   intHLStoRGB(hls[0], hls[1], hls[2], &rgb[0], &rgb[1], &rgb[2]);
                   for (const int v : hls) out.i32(v);
                   for (const int v : rgb) out.i32(v);
               }),
        custom("pixel.HueToRGB",
               [](Recorder& out) {
                   for (const float m1 : {0.0f, 0.2f, 0.5f, 0.8f, 1.0f})
                       for (const float m2 : {0.0f, 0.2f, 0.5f, 0.8f, 1.0f})
                           for (int step = -288; step < 576; ++step)
                               out.f32(HueToRGB(m1, m2, step * 1.25f));
               }),
        custom("pixel.HLS_Value",
               [](Recorder& out) {
                   for (const double m1 : {0.0, 0.2, 0.5, 0.8, 1.0})
                       for (const double m2 : {0.0, 0.2, 0.5, 0.8, 1.0})
                           for (int step = -180; step < 360; ++step)
                               out.f64(HLS_Value(m1, m2, step / 30.0));
               }),
        custom("pixel.intHueToRGB",
               [](Recorder& out) {
                   for (const int m1 : {0, 64, 128, 200, 255})
                       for (const int m2 : {0, 64, 128, 200, 255})
                           for (int hue = -255; hue < 510; ++hue) out.i32(intHueToRGB(m1, m2, hue));
               }),
    };
}

}  // namespace

Cases pixel_cases() {
    return {tone_cases(), saturation_cases(), blend_cases(), colour_space_cases()};
}

}  // namespace qtzq_golden
