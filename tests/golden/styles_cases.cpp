// Golden cases of the style presets and the curve store.
#include <string>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/facade.h"
#include "qtzqeffect/styles.h"
#include "styles/curve_store.h"

namespace qtzq_golden {

void add_styles_cases(CaseList& list) {
    // The constant curve store every preset draws on, all 54 curves.
    custom_case(list, "styles.curve_store", [](Recorder& out) {
        for (int k = 0; k < qtzq::kCurveStoreSize; ++k)
            out.bytes(qtzq::store_curve(k), qtzq::kCurveLength);
    });

    // Curve presets.
    image_case(list, "styles.StyleFilm", StyleFilm);
    image_case(list, "styles.StyleJapanese", StyleJapanese);
    image_case(list, "styles.StyleXiaoQingXin", StyleXiaoQingXin);
    image_case(list, "styles.StyleGray", StyleGray);

    // Grain, grey and tint presets. The two grain presets reseed rand()
    // from the clock, which the golden program fixes.
    image_case(list, "styles.StyleLiuJin", StyleLiuJin, Needs::rand);
    image_case(list, "styles.StyleRetro", StyleRetro, Needs::rand);
    image_case(list, "styles.StyleHeiBai", StyleHeiBai);
    image_case(list, "styles.StyleCinnamon", StyleCinnamon);
    image_case(list, "styles.StyleElegant", StyleElegant);

    image_case(list, "styles.StyleImpression", StyleImpression);

    // Vivid colour.
    image_case(list, "styles.StyleBaoColor", StyleBaoColor);
    for (const int strength : {-20, 0, 25, 60, 100, 150}) {
        image_case(list, "styles.ABaoColor." + std::to_string(strength),
                   [=](unsigned char* p, int w, int h) { ABaoColor(p, w, h, strength); });
    }

    // Material presets with no effect id, and the colourful frame by kind.
    materials3_case(list, "styles.StyleMilk", StyleMilk);
    scene_case(list, "styles.StyleRouguang", Needs::nothing, [](Recorder& out, Scene& s) {
        Bytes tables = blend_tables();
        StyleRouguang(s.photo.data(), s.material1.data(), s.width, s.height, tables.data());
        record_read_only(out, tables, blend_tables());
    });
    for (const int kind : {0, 1, 2, 3, 4, 5}) {
        material_case(list, "styles.FrameXCBK." + std::to_string(kind),
                      [=](unsigned char* p, unsigned char* m, int w, int h) {
                          FrameXCBK(p, m, w, h, kind);
                      });
    }

    // Zoom-blur presets. The time tunnel's first step takes a 240 x 240
    // mask whatever the photo size and returns a new buffer; the second
    // step fades the photo toward that buffer.
    material_case(list, "styles.StyleYiZhou", StyleYiZhou);
    custom_case(list, "styles.StyleChuanYue1.StyleChuanYue3", [](Recorder& out) {
        const Bytes mask = material(240, 240, 2);
        for (const Scene& original : scenes()) {
            Scene s = original;
            Bytes mask_copy = mask;
            unsigned char* tunnel =
                StyleChuanYue1(s.photo.data(), mask_copy.data(), s.width, s.height);
            out.image(tunnel, s.width, s.height);
            out.image(s.photo, s.width, s.height);
            record_read_only(out, mask_copy, mask);
            StyleChuanYue3(s.photo.data(), tunnel, s.width, s.height);
            out.image(s.photo, s.width, s.height);
            delete[] tunnel;
        }
    });
}

}  // namespace qtzq_golden
