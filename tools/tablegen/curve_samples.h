// The sampled definition of the curve store: for each of the 54 curves, its
// user and its values at indices 0, 16, 32, ..., 240, 255.
//
// The generator fills the values in between; the tests check the generated
// store against these samples. A curve with `same_as` >= 0 is a separate
// slot whose bytes equal those of curve `same_as`.
#ifndef QTZQ_TABLEGEN_CURVE_SAMPLES_H
#define QTZQ_TABLEGEN_CURVE_SAMPLES_H

namespace tablegen {

constexpr int kSampleCount = 17;

// Index of sample s: 0, 16, ..., 240, then 255.
constexpr int sample_index(int s) { return s == kSampleCount - 1 ? 255 : 16 * s; }

struct CurveSamples {
    const char* user;
    int same_as;  // -1, or the curve whose bytes this slot repeats
    unsigned char values[kSampleCount];
};

inline constexpr CurveSamples kCurveSamples[] = {
    /*  0 */ {"StyleXuanCai (all)", -1, {0, 22, 44, 66, 87, 107, 126, 144, 160, 175, 189, 202, 213, 225, 235, 245, 255}},
    /*  1 */ {"StyleFilm (red)", -1, {19, 22, 30, 42, 59, 78, 99, 121, 144, 165, 186, 204, 221, 235, 245, 252, 255}},
    /*  2 */ {"StyleFilm (green)", -1, {37, 40, 47, 59, 73, 91, 111, 131, 151, 171, 190, 208, 222, 236, 245, 252, 255}},
    /*  3 */ {"StyleFilm (blue)", -1, {51, 52, 60, 68, 81, 95, 112, 130, 149, 169, 188, 204, 220, 235, 245, 251, 255}},
    /*  4 */ {"StyleXiaoQingXin (red)", -1, {40, 40, 49, 82, 109, 136, 157, 170, 181, 191, 197, 199, 204, 205, 204, 204, 204}},
    /*  5 */ {"StyleXiaoQingXin (green)", -1, {61, 61, 69, 105, 136, 158, 174, 187, 196, 204, 209, 212, 215, 216, 216, 216, 216}},
    /*  6 */ {"StyleXiaoQingXin (blue)", -1, {1, 1, 2, 19, 46, 78, 109, 138, 162, 181, 192, 199, 204, 207, 209, 209, 209}},
    /*  7 */ {"StyleJapanese (red)", -1, {22, 30, 39, 53, 71, 91, 105, 122, 131, 139, 150, 159, 165, 173, 181, 188, 196}},
    /*  8 */ {"StyleJapanese (green)", -1, {10, 18, 36, 62, 85, 105, 118, 130, 140, 149, 159, 168, 181, 191, 203, 215, 224}},
    /*  9 */ {"StyleJapanese (blue)", -1, {0, 1, 6, 21, 54, 85, 108, 126, 141, 155, 168, 185, 201, 219, 236, 244, 246}},
    /* 10 */ {"StyleRouguang (all)", -1, {0, 1, 4, 7, 12, 18, 25, 32, 40, 49, 58, 68, 79, 90, 102, 115, 128}},
    /* 11 */ {"StyleLomoNight (all)", -1, {0, 23, 46, 67, 88, 107, 126, 143, 160, 175, 190, 203, 216, 227, 238, 247, 255}},
    /* 12 */ {"StyleLomoSnow (red)", -1, {0, 18, 37, 56, 74, 91, 109, 125, 142, 158, 173, 188, 202, 216, 230, 243, 255}},
    /* 13 */ {"StyleLomoSnow (green)", -1, {0, 25, 49, 72, 94, 114, 133, 151, 168, 183, 197, 210, 222, 232, 241, 249, 255}},
    /* 14 */ {"StyleLomoSnow (blue)", -1, {0, 29, 56, 82, 106, 128, 148, 167, 184, 199, 212, 224, 234, 242, 248, 253, 255}},
    /* 15 */ {"StyleLomoChristmas (red)", -1, {0, 18, 37, 56, 73, 91, 108, 125, 141, 157, 172, 188, 202, 216, 229, 243, 255}},
    /* 16 */ {"StyleLomoChristmas (green)", -1, {0, 24, 48, 71, 93, 113, 133, 151, 167, 183, 197, 210, 222, 232, 241, 249, 255}},
    /* 17 */ {"StyleLomoChristmas (blue)", -1, {0, 28, 56, 82, 106, 128, 148, 167, 184, 199, 212, 224, 234, 242, 248, 253, 255}},
    /* 18 */ {"StyleBrightRed (red)", -1, {0, 6, 36, 64, 90, 116, 137, 158, 176, 192, 205, 218, 230, 242, 252, 255, 255}},
    /* 19 */ {"StyleBrightRed (green)", -1, {0, 2, 26, 50, 73, 96, 117, 137, 156, 174, 190, 205, 219, 233, 247, 255, 255}},
    /* 20 */ {"StyleBrightRed (blue)", 19, {}},
    /* 21 */ {"StyleReverse (red)", -1, {0, 0, 0, 4, 20, 47, 85, 124, 164, 196, 222, 241, 250, 254, 255, 255, 255}},
    /* 22 */ {"StyleReverse (green)", -1, {0, 0, 0, 5, 20, 48, 85, 124, 163, 197, 222, 241, 250, 255, 255, 255, 255}},
    /* 23 */ {"StyleReverse (blue)", -1, {24, 24, 28, 54, 74, 92, 109, 126, 142, 157, 170, 187, 200, 215, 229, 229, 229}},
    /* 24 */ {"StyleFanHuang (red)", -1, {2, 2, 22, 42, 63, 84, 105, 125, 146, 165, 183, 199, 213, 227, 239, 251, 255}},
    /* 25 */ {"StyleFanHuang (green)", 24, {}},
    /* 26 */ {"StyleFanHuang (blue)", 24, {}},
    /* 27 */ {"StyleRiguanghaian (red)", -1, {0, 17, 36, 56, 76, 95, 114, 133, 152, 165, 178, 192, 205, 217, 230, 243, 255}},
    /* 28 */ {"StyleRiguanghaian (green)", -1, {0, 15, 31, 46, 61, 77, 96, 114, 134, 149, 164, 179, 195, 211, 226, 241, 255}},
    /* 29 */ {"StyleRiguanghaian (blue)", -1, {0, 11, 22, 32, 43, 54, 66, 77, 88, 104, 120, 136, 152, 169, 197, 227, 255}},
    /* 30 */ {"StyleLomoHDR (red)", -1, {0, 0, 7, 31, 56, 80, 102, 124, 144, 162, 179, 195, 209, 221, 233, 244, 255}},
    /* 31 */ {"StyleLomoHDR (green)", -1, {0, 0, 6, 30, 54, 76, 99, 119, 140, 158, 175, 191, 205, 219, 232, 243, 255}},
    /* 32 */ {"StyleLomoHDR (blue)", -1, {0, 16, 35, 53, 70, 88, 106, 123, 139, 155, 171, 186, 200, 214, 228, 242, 255}},
    /* 33 */ {"StyleYiZhou (all)", -1, {0, 0, 4, 13, 30, 59, 102, 156, 194, 219, 235, 244, 250, 252, 254, 254, 255}},
    /* 34 */ {"StyleLomoHalo (all)", 11, {}},
    /* 35 */ {"StyleJinDian (all)", 0, {}},
    /* 36 */ {"StyleWarm (red)", -1, {35, 49, 65, 77, 91, 105, 118, 133, 146, 161, 172, 187, 199, 214, 228, 240, 252}},
    /* 37 */ {"StyleWarm (green)", -1, {0, 15, 32, 44, 59, 75, 90, 106, 120, 135, 150, 165, 179, 195, 210, 225, 238}},
    /* 38 */ {"StyleWarm (blue)", -1, {20, 31, 43, 53, 64, 75, 86, 97, 107, 120, 129, 141, 152, 162, 172, 184, 191}},
    /* 39 */ {"StyleHeiBai (red)", -1, {0, 0, 0, 35, 65, 96, 129, 156, 180, 200, 216, 229, 237, 244, 249, 253, 255}},
    /* 40 */ {"StyleHeiBai (green)", 39, {}},
    /* 41 */ {"StyleHeiBai (blue)", -1, {0, 0, 0, 6, 36, 66, 100, 132, 160, 185, 206, 223, 234, 242, 248, 253, 255}},
    /* 42 */ {"StyleElegant (red)", -1, {7, 23, 38, 53, 68, 83, 98, 113, 128, 144, 159, 174, 189, 204, 219, 234, 249}},
    /* 43 */ {"StyleElegant (green)", -1, {20, 34, 47, 59, 73, 86, 99, 112, 124, 138, 151, 164, 177, 190, 198, 198, 198}},
    /* 44 */ {"StyleElegant (blue)", -1, {42, 53, 62, 72, 81, 92, 101, 111, 121, 131, 141, 150, 160, 170, 180, 190, 199}},
    /* 45 */ {"StyleLomoHDRJinDian (red)", 30, {}},
    /* 46 */ {"StyleLomoHDRJinDian (green)", 31, {}},
    /* 47 */ {"StyleLomoHDRJinDian (blue)", 32, {}},
    /* 48 */ {"StyleImpression (red)", -1, {24, 36, 52, 67, 85, 98, 117, 140, 158, 173, 183, 189, 195, 202, 209, 215, 224}},
    /* 49 */ {"StyleImpression (green)", -1, {43, 55, 73, 88, 104, 121, 140, 159, 176, 188, 197, 204, 209, 215, 220, 226, 236}},
    /* 50 */ {"StyleImpression (blue)", -1, {66, 75, 86, 96, 106, 118, 133, 150, 164, 180, 194, 202, 210, 218, 225, 232, 236}},
    /* 51 */ {"StyleRetro (red)", -1, {0, 5, 18, 35, 55, 79, 101, 126, 149, 170, 191, 209, 225, 236, 246, 251, 254}},
    /* 52 */ {"StyleRetro (green)", -1, {20, 33, 46, 61, 75, 92, 107, 123, 138, 153, 167, 180, 193, 205, 216, 226, 235}},
    /* 53 */ {"StyleRetro (blue)", -1, {63, 72, 80, 88, 96, 104, 112, 121, 129, 137, 145, 153, 161, 169, 177, 185, 192}},
};

constexpr int kCurveCount = static_cast<int>(sizeof(kCurveSamples) / sizeof(kCurveSamples[0]));
static_assert(kCurveCount == 54, "the store holds 54 curves");

// The samples that define curve k, following a `same_as` link.
constexpr const unsigned char* defining_samples(int k) {
    return kCurveSamples[k].same_as >= 0 ? kCurveSamples[kCurveSamples[k].same_as].values
                                         : kCurveSamples[k].values;
}

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_CURVE_SAMPLES_H
