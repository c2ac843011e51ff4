// The benchmark families; main() registers them in this order, which is
// also the order of the report.
#ifndef QTZQ_BENCH_SUITES_H
#define QTZQ_BENCH_SUITES_H

namespace qtzq_bench {

// The radii the Gaussian blurs are timed at, in pixels.
inline constexpr int kBlurRadii[] = {1, 5, 20, 80, 255};

void register_baselines();     // memcpy and a plain three-table pass
void register_effects();       // every effect id through the facade
void register_blend_modes();   // each blend mode once per pixel
void register_colour_spaces(); // colour-space round trips per pixel
void register_tone();          // tone, saturation, levels, colour balance, curves
void register_blurs();         // Gaussian, blur brush, unsharp mask, zoom blur
void register_files();         // decoding and writing photo files, per format
void register_opencv_anchors();  // does nothing when built without OpenCV

}  // namespace qtzq_bench

#endif  // QTZQ_BENCH_SUITES_H
