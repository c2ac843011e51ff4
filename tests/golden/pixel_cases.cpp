// Golden cases of pixel.h: tone adjustments, saturation, the single-pixel
// blend modes and the colour-space conversions.
#include "golden.h"
#include "qtzqeffect/pixel.h"

namespace qtzq_golden {

namespace {

// A table that is neither monotone nor symmetric: a fold with an offset.
Px folded(int offset) {
    static std::map<int, Bytes> tables;
    Bytes& table = tables[offset];
    for (int i = int(table.size()); i < 256; ++i)
        table.push_back(std::uint8_t((i < 128 ? 2 * i : 511 - 2 * i) ^ offset));
    return table.data();
}

// Brightness and contrast: identity, mild, strong, the flattening contrast
// -100, the doubling +100, and far outside the usual range.
constexpr std::array<long, 2> kLight[] = {{0, 0},    {30, -20}, {-60, 45},   {200, 0},
                                          {0, -100}, {0, 100},  {-300, 250}, {-128, -250}};
constexpr std::array<int, 3> kBrightContrastSaturation[] = {
    {0, 0, 0}, {0, 0, 45}, {20, 0, 0}, {-15, 30, -60}, {10, -20, 30}};
// Red, green, blue gammas: identity, mixed, and one refused (a zero).
constexpr float kGammas[][3] = {{1, 1, 1}, {2, 0.5f, 1.3f}, {0.45f, 2.2f, 1}, {1, 0, 1}};
constexpr std::array<int, 3> kShifts[] = {{40, 25, 0}, {255, 1, 128}};
// Saturation matrices: identity, grey (every row the luma weights), and one
// that swaps and overshoots (negative and above-256 entries).
int kMatrices[][9] = {{256, 0, 0, 0, 256, 0, 0, 0, 256},
                      {79, 156, 21, 79, 156, 21, 79, 156, 21},
                      {-40, 300, 12, 512, -256, 0, 30, 30, 200}};
constexpr long kSaturateAmounts[] = {-255, -100, -40, 0, 35, 100, 255};

using Balance = void (*)(bool, _TONE_REGION, int, int, int, Px, int, int);
using Conversion = void (*)(std::uint8_t, std::uint8_t, std::uint8_t, Px, Px, Px);

// The table of the 3x5 photo's brightness and contrast adjustment.
void record_light_table(Recorder& out, long brightness, long contrast) {
    Bytes pixels = photo(3, 5), table(256, 0xCD);
    LightNew(pixels.data(), table.data(), 3, 5, brightness, contrast);
    out.bytes(table);
    out.image(pixels, 3, 5);
}

// Packing every scene whole to 3-byte pixels; the byte past the packed run
// must stay as it was.
void record_packed(Recorder& out) {
    for (Scene s : scenes()) {
        Bytes packed(std::size_t(s.width) * s.height * 3 + 1, 0xCD);
        tfbitCopy(s.p(), packed.data(), s.width * s.height);
        out.bytes(packed);
        out.image(s.photo, s.width, s.height);
    }
}

// Histogram counts and the range getters of every table.
void record_histograms(Recorder& out) {
    for (Scene s : scenes()) {
        CHistogram histogram(s.p(), s.width, s.height);
        for (const int c : {0, 1, 2, 4}) {
            const auto channel = _IMAGE_CHANNEL(c);
            for (int v = 0; v < 256; ++v) out.i32(histogram.GetChannelHistogram(channel, v));
            histogram.SetStart(30);
            histogram.SetEnd(200);
            for (const int v : {histogram.GetCount(channel), histogram.GetMaxCount(channel),
                                histogram.GetAverage(channel)})
                out.i32(v);
            histogram.SetStart(0);
            histogram.SetEnd(255);
        }
        out.i32(histogram.GetPixelNumber());
    }
}

// A fixed-setting colour balance at its region, with and without the kept
// lightness.
Cases balance_variant(const std::string& name, Balance fn, int region) {
    return image_sweep(
        name,
        [=](Px p, int w, int h, bool keep) { fn(keep, _TONE_REGION(region), 0, 0, 0, p, h, w); },
        {false, true});
}

Cases tone_cases() {
    return {
        image("pixel.Lut", [](Px p, int w, int h) { Lut(p, folded(0x35), w, h); }),
        image("pixel.LutEx",
              [](Px p, int w, int h) { LutEx(p, w, h, folded(1), folded(2), folded(3), nullptr); }),
        image(
            "pixel.LutEx.alpha",
            [](Px p, int w, int h) { LutEx(p, w, h, folded(1), folded(2), folded(3), folded(4)); }),
        image_sweep("pixel.Light", Light, kLight),
        sweep("pixel.LightNew", kLight,
              [](std::string name, long brightness, long contrast) {
                  return custom(
                      name, [=](Recorder& out) { record_light_table(out, brightness, contrast); });
              }),
        image_sweep("pixel.Bright", Bright, {-150, -40, 0, 25, 90}),
        image_sweep("pixel.Contrast", Contrast, {-150, -40, 0, 25, 90}),
        image_sweep("pixel.Saturation", Saturation, {-100, -30, 40, 100}),
        image_sweep("pixel.BrightContrastSaturation", BrightContrastSaturation,
                    kBrightContrastSaturation),
        image_sweep("pixel.GammaRGB",
                    [](Px p, int w, int h, int i) {
                        GammaRGB(p, w, h, kGammas[i][0], kGammas[i][1], kGammas[i][2]);
                    },
                    {0, 1, 2, 3}),
        sweep("pixel.ShiftRGBEx", kShifts,
              [](std::string name, int r, int g, int b) {
                  return pixel(name, [=](Px px) { ShiftRGBEx(px, r, g, b); });
              }),
        pixel("pixel.SetGrayScaleEx", SetGrayScaleEx),
        pixel("pixel.SetGrayScaleExNew", [](Px px) { SetGrayScaleExNew(px, px + 3); }),
        sweep("pixel.NoiseEx", {0L, 20L, -50L, 300L},
              [](std::string name, long a) {
                  return pixel(
                      name, [=](Px px) { NoiseEx(px, a); }, Needs::rand);
              }),
        sweep("pixel.NoiseExNew", {0L, 20L, -50L, 300L},
              [](std::string name, long a) {
                  return pixel(
                      name, [=](Px px) { NoiseExNew(px, a); }, Needs::rand);
              }),
        custom("pixel.tfbitCopy", record_packed),
        image("pixel.SpliteToR", [](Px p, int w, int h) { SpliteToR(p, h, w); }),
        // Colour balance: every region, with and without the kept lightness,
        // and the three fixed-setting variants (each at its own region).
        sweep("pixel.CColorBalance", {false, true},
              [](std::string name, bool keep) {
                  return image_sweep(name,
                                     [=](Px p, int w, int h, int region) {
                                         CColorBalance(keep, _TONE_REGION(region), 37, -61, 100, p,
                                                       h, w);
                                     },
                                     {0, 1, 2});
              }),
        balance_variant("pixel.CColorBalance_0_13_0_21", CColorBalance_0_13_0_21, 0),
        balance_variant("pixel.CColorBalance_1_2_0_8", CColorBalance_1_2_0_8, 1),
        balance_variant("pixel.CColorBalance_2_0_0_s13", CColorBalance_2_0_0_s13, 2),
        image_sweep("pixel.AutoColorLevel", AutoColorLevel, {false, true}),
        image("pixel.DanyaUseStone",
              [](Px p, int w, int h) { DanyaUseStone(p, w, h, 1, 20, -15, 30); }),
        custom("pixel.CHistogram", record_histograms),
        sweep("pixel.SaturateconstMatrix", {0, 1, 2},
              [](std::string name, int i) {
                  return pixel(name, [=](Px px) { SaturateconstMatrix(px, kMatrices[i]); });
              }),
        image_sweep(
            "pixel.Saturateconst", [](Px p, int w, int h, long a) { Saturateconst(p, w, h, a); },
            kSaturateAmounts),
        sweep("pixel.Saturateconst", {1L, 2L, 3L},
              [](std::string, long mode) {
                  return image_sweep(
                      "pixel.Saturateconst.mode" + label(mode),
                      [=](Px p, int w, int h, long a) { Saturateconst(p, w, h, a, mode); },
                      kSaturateAmounts);
              }),
    };
}

// Each blend over every pair of byte values in every channel, at every
// opacity of the blend shape.
Cases blend_cases() {
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

// A conversion of three bytes into three bytes, on every colour.
Case bytes3(const std::string& name, Conversion convert) {
    return colour(name, [convert](std::uint8_t r, std::uint8_t g, std::uint8_t b, Recorder& out) {
        unsigned char result[3] = {0xCD, 0xCD, 0xCD};
        convert(r, g, b, &result[0], &result[1], &result[2]);
        out.bytes(result, 3);
    });
}

// fn(m1, m2, step) for every pair of levels (the hue helpers' m1, m2) and
// every step from `from` to `to`.
template <typename T, typename Fn>
void grid(const T (&levels)[5], int from, int to, Fn fn) {
    for (const T m1 : levels) {
        for (const T m2 : levels) {
            for (int step = from; step < to; ++step) fn(m1, m2, step);
        }
    }
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
               [](std::uint8_t r, std::uint8_t g, std::uint8_t b, Recorder& out) {
                   float hue = -1, saturation = -1, brightness = -1;
                   RGBtoHSB(r, g, b, hue, saturation, brightness);
                   unsigned char rgb[3] = {0xCD, 0xCD, 0xCD};
                   HSBtoRGB(hue, saturation, brightness, rgb[0], rgb[1], rgb[2]);
                   for (const float v : {hue, saturation, brightness}) out.f32(v);
                   out.bytes(rgb, 3);
               }),
        colour("pixel.RGBtoHLS.HLStoRGB",
               [](std::uint8_t r, std::uint8_t g, std::uint8_t b, Recorder& out) {
                   double hue = -1, lightness = -1, saturation = -1, lightness_only = -1;
                   RGBtoHLS(r, g, b, &hue, &lightness, &saturation);
                   RGBtoHLS_L(r, g, b, &lightness_only);
                   for (const double v : {hue, lightness, saturation, lightness_only}) out.f64(v);
                   out.u32(HLStoRGB(hue, lightness, saturation));
               }),
        colour("pixel.RGBtoIntHLS.intHLStoRGB",
               [](std::uint8_t r, std::uint8_t g, std::uint8_t b, Recorder& out) {
                   int hls[3] = {-1, -1, -1}, rgb[3] = {-1, -1, -1};
                   RGBtoIntHLS(r, g, b, &hls[0], &hls[1], &hls[2]);
                   intHLStoRGB(hls[0], hls[1], hls[2], &rgb[0], &rgb[1], &rgb[2]);
                   for (const int v : {hls[0], hls[1], hls[2], rgb[0], rgb[1], rgb[2]}) out.i32(v);
               }),
        custom("pixel.HueToRGB",
               [](Recorder& out) {
                   const float levels[5] = {0.0f, 0.2f, 0.5f, 0.8f, 1.0f};
                   grid(levels, -288, 576, [&](float m1, float m2, int step) {
                       out.f32(HueToRGB(m1, m2, step * 1.25f));
                   });
               }),
        custom("pixel.HLS_Value",
               [](Recorder& out) {
                   const double levels[5] = {0.0, 0.2, 0.5, 0.8, 1.0};
                   grid(levels, -180, 360, [&](double m1, double m2, int step) {
                       out.f64(HLS_Value(m1, m2, step / 30.0));
                   });
               }),
        custom("pixel.intHueToRGB",
               [](Recorder& out) {
                   const int levels[5] = {0, 64, 128, 200, 255};
                   grid(levels, -255, 510,
                        [&](int m1, int m2, int hue) { out.i32(intHueToRGB(m1, m2, hue)); });
               }),
    };
}

}  // namespace

Cases pixel_cases() { return {tone_cases(), blend_cases(), colour_space_cases()}; }

}  // namespace qtzq_golden
