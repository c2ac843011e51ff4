// Many lines through the recursive Gaussian's line filter, with the same
// coefficients: on the vector unit when there is one, else line by line on
// the scalar reference (DericheLineFilter). Both give the same bytes.
#ifndef QTZQ_BLUR_DERICHE_LINES_H
#define QTZQ_BLUR_DERICHE_LINES_H

#include <cstddef>

#include "blur/deriche_coefficients.h"

namespace qtzq {

// `count` lines of `length` pixels. Line l's pixel p has its blue, green and
// red at in + l * in_line_step + p * in_step (+ 0, 1, 2), and its results go
// to the same places from `out`; no other byte is read or written. The lines
// must not share bytes; `in` may be `out`.
struct DericheLines {
    const unsigned char* in;
    std::ptrdiff_t in_step;
    std::ptrdiff_t in_line_step;
    unsigned char* out;
    std::ptrdiff_t out_step;
    std::ptrdiff_t out_line_step;
    int length;
    int count;
};

void filter_deriche_lines(const DericheLines& lines, const DericheCoefficients& k);

// Filters every row (`horizontal`) or every column of a width x height image
// of `channels` bytes a pixel (at least 3) in place.
void filter_deriche_pass(unsigned char* image, int width, int height, int channels,
                         bool horizontal, const DericheCoefficients& k);

}  // namespace qtzq

#endif  // QTZQ_BLUR_DERICHE_LINES_H
