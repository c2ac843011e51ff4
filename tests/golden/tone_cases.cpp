// Golden cases of the tone adjustments: tables, brightness and contrast,
// gamma, channel shifts, grey, noise and the pixel copies.
#include <string>

#include "all_cases.h"
#include "families.h"
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

// Brightness and contrast pairs: identity, mild, strong, the flattening
// contrast -100, the doubling +100, and far outside the usual range.
constexpr long kLightSettings[][2] = {{0, 0},    {30, -20}, {-60, 45},   {200, 0},
                                      {0, -100}, {0, 100},  {-300, 250}, {-128, -250}};

std::string suffix(long a, long b) { return "." + std::to_string(a) + "_" + std::to_string(b); }

}  // namespace

void add_tone_cases(CaseList& list) {
    image_case(list, "pixel.Lut", [](unsigned char* p, int w, int h) {
        Bytes table = folded_table(0x35);
        Lut(p, table.data(), w, h);
    });
    image_case(list, "pixel.LutEx", [](unsigned char* p, int w, int h) {
        Bytes red = folded_table(1), green = folded_table(2), blue = folded_table(3);
        LutEx(p, w, h, red.data(), green.data(), blue.data(), nullptr);
    });
    image_case(list, "pixel.LutEx.alpha", [](unsigned char* p, int w, int h) {
        Bytes red = folded_table(1), green = folded_table(2), blue = folded_table(3);
        Bytes alpha = folded_table(4);
        LutEx(p, w, h, red.data(), green.data(), blue.data(), alpha.data());
    });

    for (const auto& s : kLightSettings) {
        const long brightness = s[0], contrast = s[1];
        image_case(list, "pixel.Light" + suffix(brightness, contrast),
                   [=](unsigned char* p, int w, int h) { Light(p, w, h, brightness, contrast); });
        custom_case(list, "pixel.LightNew" + suffix(brightness, contrast), [=](Recorder& out) {
            Bytes pixels = photo(3, 5);
            Bytes table(256, 0xCD);
            LightNew(pixels.data(), table.data(), 3, 5, brightness, contrast);
            out.bytes(table);
            out.image(pixels, 3, 5);
        });
    }
    for (const int amount : {-150, -40, 0, 25, 90}) {
        const std::string value = "." + std::to_string(amount);
        image_case(list, "pixel.Bright" + value,
                   [=](unsigned char* p, int w, int h) { Bright(p, w, h, amount); });
        image_case(list, "pixel.Contrast" + value,
                   [=](unsigned char* p, int w, int h) { Contrast(p, w, h, amount); });
    }
    for (const int amount : {-100, -30, 40, 100}) {
        image_case(list, "pixel.Saturation." + std::to_string(amount),
                   [=](unsigned char* p, int w, int h) { Saturation(p, w, h, amount); });
    }
    constexpr int kMixes[][3] = {{0, 0, 0}, {0, 0, 45}, {20, 0, 0}, {-15, 30, -60}, {10, -20, 30}};
    for (const auto& mix : kMixes) {
        const int brightness = mix[0], contrast = mix[1], saturation = mix[2];
        image_case(list,
                   "pixel.BrightContrastSaturation." + std::to_string(brightness) + "_" +
                       std::to_string(contrast) + "_" + std::to_string(saturation),
                   [=](unsigned char* p, int w, int h) {
                       BrightContrastSaturation(p, w, h, brightness, contrast, saturation);
                   });
    }
    // Red, green, blue gammas: identity, mixed, and one refused (a zero).
    constexpr float kGammas[][3] = {
        {1.0f, 1.0f, 1.0f}, {2.0f, 0.5f, 1.3f}, {0.45f, 2.2f, 1.0f}, {1.0f, 0.0f, 1.0f}};
    for (int i = 0; i < 4; ++i) {
        const float red = kGammas[i][0], green = kGammas[i][1], blue = kGammas[i][2];
        image_case(list, "pixel.GammaRGB." + std::to_string(i),
                   [=](unsigned char* p, int w, int h) { GammaRGB(p, w, h, red, green, blue); });
    }

    pixel_case(list, "pixel.ShiftRGBEx.40_25_0",
               [](unsigned char* px) { ShiftRGBEx(px, 40, 25, 0); });
    pixel_case(list, "pixel.ShiftRGBEx.255_1_128",
               [](unsigned char* px) { ShiftRGBEx(px, 255, 1, 128); });
    pixel_case(list, "pixel.SetGrayScaleEx", SetGrayScaleEx);
    pixel_case(list, "pixel.SetGrayScaleExNew",
               [](unsigned char* px) { SetGrayScaleExNew(px, px + 3); });
    for (const long amount : {0L, 20L, -50L, 300L}) {
        const std::string value = "." + std::to_string(amount);
        pixel_case(
            list, "pixel.NoiseEx" + value, [=](unsigned char* px) { NoiseEx(px, amount); },
            Needs::rand);
        pixel_case(
            list, "pixel.NoiseExNew" + value, [=](unsigned char* px) { NoiseExNew(px, amount); },
            Needs::rand);
    }

    // Packing to 3-byte pixels, every scene packed whole; the byte past the
    // packed run must stay as it was.
    custom_case(list, "pixel.tfbitCopy", [](Recorder& out) {
        for (Scene s : scenes()) {
            const int count = s.width * s.height;
            Bytes packed(static_cast<std::size_t>(count) * 3 + 1, 0xCD);
            tfbitCopy(s.photo.data(), packed.data(), count);
            out.bytes(packed);
            out.image(s.photo, s.width, s.height);
        }
    });
    image_case(list, "pixel.SpliteToR", [](unsigned char* p, int w, int h) { SpliteToR(p, h, w); });

    // Colour balance: every region, with and without the kept lightness,
    // and the three fixed-setting variants.
    for (const bool keep : {false, true}) {
        for (const _TONE_REGION region : {_TONE_REGION(0), _TONE_REGION(1), _TONE_REGION(2)}) {
            image_case(list,
                       "pixel.CColorBalance." + std::to_string(keep) + "." +
                           std::to_string(int(region)),
                       [=](unsigned char* p, int w, int h) {
                           CColorBalance(keep, region, 37, -61, 100, p, h, w);
                       });
        }
        const std::string flag = "." + std::to_string(keep);
        image_case(list, "pixel.CColorBalance_0_13_0_21" + flag, [=](unsigned char* p, int w, int h) {
            CColorBalance_0_13_0_21(keep, _TONE_REGION(0), 0, 0, 0, p, h, w);
        });
        image_case(list, "pixel.CColorBalance_1_2_0_8" + flag, [=](unsigned char* p, int w, int h) {
            CColorBalance_1_2_0_8(keep, _TONE_REGION(1), 0, 0, 0, p, h, w);
        });
        image_case(list, "pixel.CColorBalance_2_0_0_s13" + flag, [=](unsigned char* p, int w, int h) {
            CColorBalance_2_0_0_s13(keep, _TONE_REGION(2), 0, 0, 0, p, h, w);
        });
        image_case(list, "pixel.AutoColorLevel" + flag,
                   [=](unsigned char* p, int w, int h) { AutoColorLevel(p, w, h, keep); });
    }
    image_case(list, "pixel.DanyaUseStone", [](unsigned char* p, int w, int h) {
        DanyaUseStone(p, w, h, 1, 20, -15, 30);
    });

    // Histogram counts and the range getters of every table.
    custom_case(list, "pixel.CHistogram", [](Recorder& out) {
        for (Scene s : scenes()) {
            CHistogram histogram(s.photo.data(), s.width, s.height);
            for (const _IMAGE_CHANNEL c : {_IMAGE_CHANNEL(0), _IMAGE_CHANNEL(1), _IMAGE_CHANNEL(2),
                                           _IMAGE_CHANNEL(4)}) {
                for (int v = 0; v < 256; ++v) out.i32(histogram.GetChannelHistogram(c, v));
                histogram.SetStart(30);
                histogram.SetEnd(200);
                out.i32(histogram.GetCount(c));
                out.i32(histogram.GetMaxCount(c));
                out.i32(histogram.GetAverage(c));
                histogram.SetStart(0);
                histogram.SetEnd(255);
            }
            out.i32(histogram.GetPixelNumber());
        }
    });
}

}  // namespace qtzq_golden
