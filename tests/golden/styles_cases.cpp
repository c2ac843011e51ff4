// Golden cases of the style presets, the curve store and the Bezier tone
// curves.
#include <vector>

#include "golden.h"
#include "qtzqeffect/curve.h"
#include "qtzqeffect/facade.h"
#include "qtzqeffect/styles.h"
#include "styles/curve_store.h"

namespace qtzq_golden {

namespace {

// Control points of tone curves: identity, S-curve, single point, extremes,
// out of order, duplicate x.
const std::vector<std::vector<_POINT>> kCurvePoints = {
    {{0, 0}, {255, 255}},
    {{0, 0}, {64, 48}, {128, 128}, {192, 210}, {255, 255}},
    {{128, 160}},
    {{0, 255}, {255, 0}},
    {{0, 30}, {200, 250}, {90, 60}, {255, 240}},
    {{0, 0}, {100, 80}, {100, 120}, {255, 255}},
};

// Every point list drawn into every slot, each slot applied through its
// channel, then all three colour slots at once. One list serves every
// scene of a case.
void apply_curves(std::vector<_POINT>& points, Px p, int w, int h) {
    SFCurve curve;
    const int count = static_cast<int>(points.size());
    for (const Channel c : {CHANNEL_RGB, CHANNEL_RED, CHANNEL_GREEN, CHANNEL_BLUE}) {
        curve.GetCurveByPoints(points.data(), count, c);
        curve.ApplyCurve(c, p, w, h);
    }
    curve.GetCurveSuperpositionByPoints(points.data(), count, CHANNEL_GREEN);
    curve.ApplyCurve(CHANNEL_SEPARATE, p, w, h);
}

// The time tunnel's first step takes a 240 x 240 mask whatever the photo
// size and returns a new buffer; the second step fades the photo toward it.
void record_time_tunnel(Recorder& out) {
    const Bytes mask = material_image(240, 240, 2);
    for (const Scene& original : scenes()) {
        Scene s = original;
        Bytes mask_copy = mask;
        unsigned char* tunnel = StyleChuanYue1(s.p(), mask_copy.data(), s.width, s.height);
        out.image(tunnel, s.width, s.height);
        out.image(s.photo, s.width, s.height);
        record_read_only(out, mask_copy, mask);
        StyleChuanYue3(s.p(), tunnel, s.width, s.height);
        out.image(s.photo, s.width, s.height);
        delete[] tunnel;
    }
}

}  // namespace

Cases styles_cases() {
    return {
        // The constant curve store every preset draws on, all 54 curves.
        custom("styles.curve_store",
               [](Recorder& out) {
                   for (int k = 0; k < qtzq::kCurveStoreSize; ++k)
                       out.bytes(qtzq::store_curve(k), qtzq::kCurveLength);
               }),
        // Curve presets; grain, grey and tint presets (the two grain presets
        // reseed rand() from the clock, which the golden program fixes).
        image("styles.StyleFilm", StyleFilm),
        image("styles.StyleJapanese", StyleJapanese),
        image("styles.StyleXiaoQingXin", StyleXiaoQingXin),
        image("styles.StyleGray", StyleGray),
        image("styles.StyleLiuJin", StyleLiuJin, Needs::rand),
        image("styles.StyleRetro", StyleRetro, Needs::rand),
        image("styles.StyleHeiBai", StyleHeiBai),
        image("styles.StyleCinnamon", StyleCinnamon),
        image("styles.StyleElegant", StyleElegant),
        image("styles.StyleImpression", StyleImpression),
        // Vivid colour.
        image("styles.StyleBaoColor", StyleBaoColor),
        image_sweep("styles.ABaoColor", ABaoColor, {-20, 0, 25, 60, 100, 150}),
        // Material presets with no effect id, and the colourful frame by kind.
        scene("styles.StyleMilk",
              [](Recorder&, Scene& s) {
                  StyleMilk(s.p(), s.m1(), s.m2(), s.m3(), s.width, s.height);
              }),
        scene("styles.StyleRouguang",
              [](Recorder& out, Scene& s) {
                  Bytes tables = blend_tables();
                  StyleRouguang(s.p(), s.m1(), s.width, s.height, tables.data());
                  record_read_only(out, tables, blend_tables());
              }),
        sweep("styles.FrameXCBK", {0, 1, 2, 3, 4, 5},
              [](std::string name, int kind) {
                  return material(name,
                                  [=](Px p, Px m, int w, int h) { FrameXCBK(p, m, w, h, kind); });
              }),
        // Zoom-blur presets.
        material("styles.StyleYiZhou", StyleYiZhou),
        custom("styles.StyleChuanYue1.StyleChuanYue3", record_time_tunnel),
        // Tone curves: each point list through every slot.
        sweep("curve.SFCurve", {0, 1, 2, 3, 4, 5},
              [](std::string name, int k) {
                  return image(name, [points = kCurvePoints[k]](Px p, int w, int h) mutable {
                      apply_curves(points, p, w, h);
                  });
              }),
    };
}

}  // namespace qtzq_golden
