// Golden cases of blur.h: Gaussian blur, unsharp mask, IIR brush, radial
// zoom blur and resampling.
#include <algorithm>
#include <cmath>
#include <limits>

#include "golden.h"
#include "qtzqeffect/blur.h"

namespace qtzq_golden {

namespace {

// Row and column radii: none, small, one direction only, equal, clamped
// (negative, above 255), fractional, large.
constexpr std::array<double, 2> kBlurRadii[] = {{0, 0}, {1, 1},     {2.5, 0}, {0, 3},
                                                {5, 5}, {-5, 1000}, {30, 7},  {0.3, 120}};
constexpr std::array<int, 2> kBrushRadii[] = {{2, 2}, {0, 5}, {7, 3}, {20, 20}};

// The coefficient groups of five doubles: n, m, d, dAnti, bn, bm.
void record_groups(Recorder& out, std::initializer_list<const double*> groups) {
    for (const double* group : groups) {
        for (int i = 0; i < 5; ++i) out.f64(group[i]);
    }
}

// The free functions' coefficients for each sigma.
using FreeConstants = void (*)(double*, double*, double*, double*, double*, double*, double);
Case free_constants(const std::string& name, FreeConstants fill, std::vector<double> sigmas) {
    return custom(name, [=](Recorder& out) {
        for (const double sigma : sigmas) {
            double c[6][5] = {};
            fill(c[0], c[1], c[2], c[3], c[4], c[5], sigma);
            record_groups(out, {c[0], c[1], c[2], c[3], c[4], c[5]});
        }
    });
}

// Resizes a copy of each scene's photo (4 and 3 bytes per pixel) to a few
// sizes; a zero or unchanged size leaves the image as it is.
void record_resampled(Recorder& out) {
    for (const Scene& s : scenes()) {
        const int w = s.width, h = s.height;
        for (const int depth : {4, 3}) {
            for (const auto& [to_w, to_h] :
                 {std::pair{1, 1}, {5, 3}, {2 * w + 1, h}, {w, h}, {0, h}, {w, 0}}) {
                const std::size_t size = std::size_t(w) * h * depth;
                auto* image = new unsigned char[size];
                std::copy(s.photo.begin(), s.photo.begin() + size, image);
                RampleBit(to_w, to_h, &image, w, h, depth);
                const bool resized = to_w != 0 && to_h != 0 && (to_w != w || to_h != h);
                out.bytes(image, resized ? std::size_t(to_w) * to_h * depth : size);
                delete[] image;
            }
        }
    }
}

// The preview keeps its first blur: three amounts on one object, the last
// one on a different image.
void record_preview(Recorder& out) {
    for (const Scene& original : scenes()) {
        Scene s = original;
        CSharp sharp;
        out.i32(sharp.useEffectPreview(s.p(), s.width, s.height, 2, 0.8f));
        out.image(s.photo, s.width, s.height);
        s.photo = original.photo;
        out.i32(sharp.useEffectPreview(s.p(), s.width, s.height, 2, 2.5f));
        out.image(s.photo, s.width, s.height);
        out.i32(sharp.useEffectPreview(s.m1(), s.width, s.height, 2, 1.0f));
        out.image(s.material1, s.width, s.height);
    }
}

void convolute(Px p, int w, int h, double sigma, bool rows) {
    GaussianBlurFilterUtil util;
    util.FindConstants(sigma);
    util.ConvoluteDimension(p, w, h, 4, sigma, rows);
}

}  // namespace

Cases blur_cases() {
    const double inf = std::numeric_limits<double>::infinity();
    return {
        image_sweep(
            "blur.CreateBlurEffect",
            [](Px p, int w, int h, double rx, double ry) {
                return GaussianBlurFilterUtil::GetInst()->CreateBlurEffect(p, w, h, 4, rx, ry);
            },
            kBlurRadii),
        image("blur.ConvoluteDimension.rows",
              [](Px p, int w, int h) { convolute(p, w, h, 4, true); }),
        image("blur.ConvoluteDimension.columns",
              [](Px p, int w, int h) { convolute(p, w, h, 9, false); }),
        custom("blur.FindConstants",
               [](Recorder& out) {
                   for (const double radius : {0.0, 1e-9, 0.5, 1.0, 3.0, 7.25, 40.0, 255.0}) {
                       GaussianBlurFilterUtil util;
                       util.FindConstants(radius);
                       record_groups(out, {util.n, util.m, util.d, util.dAnti, util.bn, util.bm});
                   }
               }),
        custom("blur.DoubleToInt_IEEE",
               [inf](Recorder& out) {
                   GaussianBlurFilterUtil util;
                   for (const double v :
                        {0.0, 0.5, 1.5, 2.5, -0.5, -1.5, 1e-300, 3.7, -3.7, 1e10, -1e10, inf, -inf,
                         std::nan(""), 2147483647.0, 2147483647.5, -2147483648.0, -2147483648.5})
                       out.i32(util.DoubleToInt_IEEE(v));
               }),
        free_constants("blur.find_constants", find_constants, {0.5, 1.0, 2.0, 3.7, 12.0, 80.0}),
        free_constants("blur.find_constants_2", find_constants_2, {2.0}),
        free_constants("blur.find_constants_12", find_constants_12, {12.0}),
        image_sweep("blur.GaussIIRBlurBrush", GaussIIRBlurBrush, kBrushRadii),
        sweep("blur.StyleSharp", {1, 2, 3, 10, 50},
              [](std::string, int radius) {
                  return sweep("", {0.0f, 0.5f, 1.7f, -0.4f}, [=](std::string, float amount) {
                      return image(
                          named("blur.StyleSharp", radius, amount),
                          [=](Px p, int w, int h) { StyleSharp(p, w, h, radius, amount); });
                  });
              }),
        // The blur alone, into a second buffer that starts as material 3.
        sweep("blur.CSharp::GetBlur", {1, 2, 3, 10, 50},
              [](std::string name, int radius) {
                  return custom(name, [=](Recorder& out) {
                      for (const Scene& original : scenes()) {
                          Scene s = original;
                          out.i32(
                              CSharp().GetBlur(s.p(), s.m3(), s.width, s.height, radius, 7, false));
                          out.image(s.material3, s.width, s.height);
                          record_read_only(out, s.photo, original.photo);
                      }
                  });
              }),
        custom("blur.CSharp::useEffectPreview", record_preview),
        // Zoom toward the centre with material 1's blue bytes as weights, into
        // a buffer that starts as material 3 (kept where the weights are 0).
        scene("blur.RadiusZoomBlur",
              [](Recorder& out, Scene& s) {
                  RadiusZoomBlur(s.m3(), s.p(), s.m1(), s.width, s.height);
                  out.image(s.material3, s.width, s.height);
              }),
        custom("blur.RampleBit", record_resampled),
        image("blur.Resample",
              [](Px p, int w, int h) {
                  unsigned char* image = p;
                  Resample(2 * w + 3, h + 1, &image, w, h);
                  return image == p;
              }),
        custom("blur.KernelBSpline",
               [](Recorder& out) {
                   for (int step = -200; step <= 200; ++step) out.f32(KernelBSpline(step / 64.0f));
               }),
        custom("blur.WeakRoundChange",
               [](Recorder& out) {
                   for (const auto& [inner, outer] :
                        {std::pair{4, 8}, {1, 2}, {10, 30}, {7, 8}, {3, 0}}) {
                       Bytes patch(std::size_t(2 * outer + 1) * (2 * outer + 1) + 1, 0xCD);
                       WeakRoundChange(patch.data(), inner, outer);
                       out.bytes(patch);
                   }
               }),
    };
}

}  // namespace qtzq_golden
