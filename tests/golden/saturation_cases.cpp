// Golden cases of the saturation adjustments.
#include <string>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/pixel.h"

namespace qtzq_golden {

void add_saturation_cases(CaseList& list) {
    // Identity, grey (every row the luma weights), and one that swaps and
    // overshoots (negative and above-256 entries).
    static int matrices[][9] = {{256, 0, 0, 0, 256, 0, 0, 0, 256},
                                {79, 156, 21, 79, 156, 21, 79, 156, 21},
                                {-40, 300, 12, 512, -256, 0, 30, 30, 200}};
    for (int i = 0; i < 3; ++i) {
        int* matrix = matrices[i];
        pixel_case(list, "pixel.SaturateconstMatrix." + std::to_string(i),
                   [=](unsigned char* px) { SaturateconstMatrix(px, matrix); });
    }
    for (const long amount : {-255L, -100L, -40L, 0L, 35L, 100L, 255L}) {
        const std::string value = std::to_string(amount);
        image_case(list, "pixel.Saturateconst." + value,
                   [=](unsigned char* p, int w, int h) { Saturateconst(p, w, h, amount); });
        for (const long mode : {1L, 2L, 3L}) {
            image_case(
                list, "pixel.Saturateconst.mode" + std::to_string(mode) + "." + value,
                [=](unsigned char* p, int w, int h) { Saturateconst(p, w, h, amount, mode); });
        }
    }
}

}  // namespace qtzq_golden
