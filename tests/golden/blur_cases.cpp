// Golden cases of blur and sharpening: Gaussian blur, unsharp mask, IIR
// brush, radial zoom blur and resampling.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/blur.h"

namespace qtzq_golden {

namespace {

// Records the six coefficient groups of five doubles.
void record_coefficients(Recorder& out, const double* groups[6]) {
    for (int g = 0; g < 6; ++g) {
        for (int i = 0; i < 5; ++i) out.f64(groups[g][i]);
    }
}

void record_block(Recorder& out, const GaussianBlurFilterUtil& util) {
    const double* groups[6] = {util.n, util.m, util.d, util.dAnti, util.bn, util.bm};
    record_coefficients(out, groups);
}

using FreeConstants = void (*)(double*, double*, double*, double*, double*, double*, double);

void record_free_constants(Recorder& out, FreeConstants fill, double sigma) {
    double n[5] = {}, m[5] = {}, d[5] = {}, d_anti[5] = {}, bn[5] = {}, bm[5] = {};
    fill(n, m, d, d_anti, bn, bm, sigma);
    const double* groups[6] = {n, m, d, d_anti, bn, bm};
    record_coefficients(out, groups);
}

constexpr double kSigmas[] = {0.5, 1.0, 2.0, 3.7, 12.0, 80.0};

// Row and column radii: none, small, one direction only, equal, clamped
// (negative, above 255), fractional, large.
constexpr double kBlurRadii[][2] = {{0, 0}, {1, 1},     {2.5, 0}, {0, 3},
                                    {5, 5}, {-5, 1000}, {30, 7},  {0.3, 120}};

std::string pair_name(double a, double b) { return label(a) + "_" + label(b); }

void add_gaussian_cases(CaseList& list) {
    for (const auto& radii : kBlurRadii) {
        const double rx = radii[0], ry = radii[1];
        image_case(list, "blur.CreateBlurEffect." + pair_name(rx, ry),
                   [=](unsigned char* p, int w, int h) {
                       return GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(p, w, h, 4, rx,
                                                                                  ry);
                   });
    }
    image_case(list, "blur.ConvoluteDimension.rows", [](unsigned char* p, int w, int h) {
        GaussianBlurFilterUtil util;
        util.FindConstants(4.0);
        util.ConvoluteDimension(p, w, h, 4, 4.0, true);
    });
    image_case(list, "blur.ConvoluteDimension.columns", [](unsigned char* p, int w, int h) {
        GaussianBlurFilterUtil util;
        util.FindConstants(9.0);
        util.ConvoluteDimension(p, w, h, 4, 9.0, false);
    });
    custom_case(list, "blur.FindConstants", [](Recorder& out) {
        for (const double radius : {0.0, 1e-9, 0.5, 1.0, 3.0, 7.25, 40.0, 255.0}) {
            GaussianBlurFilterUtil util;
            util.FindConstants(radius);
            record_block(out, util);
        }
    });
    custom_case(list, "blur.DoubleToInt_IEEE", [](Recorder& out) {
        const double inf = std::numeric_limits<double>::infinity();
        const double values[] = {
            0.0,    0.5,          1.5,          2.5,          -0.5,          -1.5,
            1e-300, 3.7,          -3.7,         1e10,         -1e10,         inf,
            -inf,   std::nan(""), 2147483647.0, 2147483647.5, -2147483648.0, -2147483648.5};
        GaussianBlurFilterUtil util;
        for (const double v : values) out.i32(util.DoubleToInt_IEEE(v));
    });
    custom_case(list, "blur.find_constants", [](Recorder& out) {
        for (const double sigma : kSigmas) record_free_constants(out, find_constants, sigma);
    });
    custom_case(list, "blur.find_constants_2",
                [](Recorder& out) { record_free_constants(out, find_constants_2, 2.0); });
    custom_case(list, "blur.find_constants_12",
                [](Recorder& out) { record_free_constants(out, find_constants_12, 12.0); });
    constexpr int kBrushRadii[][2] = {{2, 2}, {0, 5}, {7, 3}, {20, 20}};
    for (const auto& radii : kBrushRadii) {
        const int rx = radii[0], ry = radii[1];
        image_case(list, "blur.GaussIIRBlurBrush." + std::to_string(rx) + "_" + std::to_string(ry),
                   [=](unsigned char* p, int w, int h) { GaussIIRBlurBrush(p, w, h, rx, ry); });
    }
}

void add_unsharp_cases(CaseList& list) {
    constexpr int kRadii[] = {1, 2, 3, 10, 50};
    constexpr float kAmounts[] = {0.0f, 0.5f, 1.7f, -0.4f};
    for (const int radius : kRadii) {
        for (const float amount : kAmounts) {
            const std::string name = std::to_string(radius) + "_" + label(amount);
            image_case(list, "blur.StyleSharp." + name, [=](unsigned char* p, int w, int h) {
                StyleSharp(p, w, h, radius, amount);
            });
        }
        // The blur alone, into a second buffer that starts as material 3.
        custom_case(list, "blur.CSharp::GetBlur." + std::to_string(radius), [=](Recorder& out) {
            for (const Scene& original : scenes()) {
                Scene s = original;
                CSharp sharp;
                out.i32(sharp.GetBlur(s.photo.data(), s.material3.data(), s.width, s.height, radius,
                                      7, false));
                out.image(s.material3, s.width, s.height);
                record_read_only(out, s.photo, original.photo);
            }
        });
    }
    // The preview keeps its first blur: three amounts on one object, the
    // last one on a different image.
    custom_case(list, "blur.CSharp::useEffectPreview", [](Recorder& out) {
        for (const Scene& original : scenes()) {
            Scene s = original;
            CSharp sharp;
            out.i32(sharp.useEffectPreview(s.photo.data(), s.width, s.height, 2, 0.8f));
            out.image(s.photo, s.width, s.height);
            s.photo = original.photo;
            out.i32(sharp.useEffectPreview(s.photo.data(), s.width, s.height, 2, 2.5f));
            out.image(s.photo, s.width, s.height);
            out.i32(sharp.useEffectPreview(s.material1.data(), s.width, s.height, 2, 1.0f));
            out.image(s.material1, s.width, s.height);
        }
    });
}

void add_zoom_and_resample_cases(CaseList& list) {
    // Zoom toward the centre with material 1's blue bytes as weights, into a
    // buffer that starts as material 3 (kept where the weights are all 0).
    custom_case(list, "blur.RadiusZoomBlur", [](Recorder& out) {
        for (const Scene& original : scenes()) {
            Scene s = original;
            RadiusZoomBlur(s.material3.data(), s.photo.data(), s.material1.data(), s.width,
                           s.height);
            out.image(s.material3, s.width, s.height);
            record_scene(out, s, original);
        }
    });
    custom_case(list, "blur.RampleBit", [](Recorder& out) {
        for (const Scene& s : scenes()) {
            const int sizes[][2] = {
                {1, 1},        {5, 3},      {2 * s.width + 1, s.height}, {s.width, s.height},
                {0, s.height}, {s.width, 0}};
            for (const int bytes_per_pixel : {4, 3}) {
                for (const auto& size : sizes) {
                    const std::size_t old_size =
                        static_cast<std::size_t>(s.width) * s.height * bytes_per_pixel;
                    unsigned char* image = new unsigned char[old_size];
                    std::copy(s.photo.begin(), s.photo.begin() + old_size, image);
                    RampleBit(size[0], size[1], &image, s.width, s.height, bytes_per_pixel);
                    const bool resized =
                        size[0] != 0 && size[1] != 0 && (size[0] != s.width || size[1] != s.height);
                    const std::size_t new_size =
                        resized ? static_cast<std::size_t>(size[0]) * size[1] * bytes_per_pixel
                                : old_size;
                    out.bytes(image, new_size);
                    delete[] image;
                }
            }
        }
    });
    image_case(list, "blur.Resample", [](unsigned char* p, int w, int h) {
        unsigned char* image = p;
        Resample(2 * w + 3, h + 1, &image, w, h);
        return image == p;
    });
    custom_case(list, "blur.KernelBSpline", [](Recorder& out) {
        for (int step = -200; step <= 200; ++step) out.f32(KernelBSpline(step / 64.0f));
    });
    custom_case(list, "blur.WeakRoundChange", [](Recorder& out) {
        constexpr int kRings[][2] = {{4, 8}, {1, 2}, {10, 30}, {7, 8}, {3, 0}};
        for (const auto& ring : kRings) {
            const int inner = ring[0], outer = ring[1];
            const int side = 2 * outer + 1;
            Bytes patch(static_cast<std::size_t>(side) * side + 1, 0xCD);
            WeakRoundChange(patch.data(), inner, outer);
            out.bytes(patch);
        }
    });
}

}  // namespace

void add_blur_cases(CaseList& list) {
    add_gaussian_cases(list);
    add_unsharp_cases(list);
    add_zoom_and_resample_cases(list);
}

}  // namespace qtzq_golden
