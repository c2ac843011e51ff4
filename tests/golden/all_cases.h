// Every golden case, registered by subsystem. Each *_cases.cpp file lists
// the cases of one subsystem, one line per function or variant, using the
// helpers of families.h.
#ifndef QTZQ_TESTS_GOLDEN_ALL_CASES_H
#define QTZQ_TESTS_GOLDEN_ALL_CASES_H

#include "case_list.h"

namespace qtzq_golden {

void add_facade_cases(CaseList& list);
void add_tone_cases(CaseList& list);
void add_saturation_cases(CaseList& list);
void add_blend_cases(CaseList& list);
void add_colour_space_cases(CaseList& list);
void add_blur_cases(CaseList& list);
void add_styles_cases(CaseList& list);
void add_curve_cases(CaseList& list);
void add_frame_cases(CaseList& list);

inline void add_all_cases(CaseList& list) {
    add_facade_cases(list);
    add_tone_cases(list);
    add_saturation_cases(list);
    add_blend_cases(list);
    add_colour_space_cases(list);
    add_blur_cases(list);
    add_styles_cases(list);
    add_curve_cases(list);
    add_frame_cases(list);
}

}  // namespace qtzq_golden

#endif  // QTZQ_TESTS_GOLDEN_ALL_CASES_H
