#include "curve/bezier_drawing.h"

#include <vector>

#include "curve/spline_controls.h"
#include "pixel/numeric.h"

namespace qtzq {
namespace {

// Entries 0 .. first.x - 1 take the first point's level.
void fill_flat_start(const _POINT& first, unsigned char* curve) {
    const int end = first.x < kToneCurveEntries ? first.x : kToneCurveEntries;
    for (int i = 0; i < end; ++i) curve[i] = low_byte(first.y);
}

// Entries last.x .. 255 take the last point's level.
void fill_flat_end(const _POINT& last, unsigned char* curve) {
    if (last.x > kToneCurveEntries - 1) return;
    for (int i = last.x < 0 ? 0 : last.x; i < kToneCurveEntries; ++i) curve[i] = low_byte(last.y);
}

// Inner Bezier control level one third of the way from `near` to `far`:
// (2 near + far) / 3, divided in single precision and truncated.
int third_level(int near, int far) {
    const float sum = static_cast<float>(2LL * near + far);
    const float kThree = 3.0f;
    return truncate_int(sum / kThree);
}

// Cube of a single-precision value in double precision. s * s is exact in a
// double, so the product is rounded once: the correctly rounded cube, which
// is what pow(s, 3.0) returns, on every CPU alike.
double cube(float value) {
    const double v = value;
    return v * v * v;
}

// Curve level at parameter t of the segment with end levels y0, y3 and inner
// control levels b1, b2. The two inner terms are single-precision products in
// the order ((3 s) s) t b1 and ((3 s) t) t b2; the outer terms and the sum
// are double precision. Required as written: it fixes the truncated levels.
double bezier_level(float t, int y0, int b1, int b2, int y3) {
    const float s = 1.0f - t;
    const float inner1 = 3.0f * s * s * t * static_cast<float>(b1);
    const float inner2 = 3.0f * s * t * t * static_cast<float>(b2);
    return cube(s) * y0 + static_cast<double>(inner1) + static_cast<double>(inner2) +
           cube(t) * y3;
}

// A drawn level as stored: truncated, 255 and more become 255, a negative
// level keeps its low byte (there is no lower clamp).
unsigned char stored_level(double level) {
    int value = truncate_int(level);
    if (value >= 255) value = 255;
    return low_byte(value);
}

// Draws the segment from `from` to `to` with one sample per input level,
// t = k / steps for k = 0 .. steps - 1, into curve[cursor], curve[cursor + 1],
// ... and returns the cursor after it. The segment's end point is not drawn
// (it is the next segment's first sample). Samples past entry 255 are dropped.
int draw_segment(const _POINT& from, const _POINT& to, int from_control, int to_control,
                 int cursor, unsigned char* curve) {
    const int b1 = third_level(from_control, to_control);
    const int b2 = third_level(to_control, from_control);
    const long long span = static_cast<long long>(to.x) - from.x;
    const long long distance = span < 0 ? -span : span;
    const long long steps = distance == 0 ? 1 : distance;
    const float step_count = static_cast<float>(steps);
    for (long long k = 0; k < steps && cursor < kToneCurveEntries; ++k, ++cursor) {
        const float t = static_cast<float>(k) / step_count;
        curve[cursor] = stored_level(bezier_level(t, from.y, b1, b2, to.y));
    }
    return cursor;
}

}  // namespace

void draw_bezier_curve(const _POINT* points, int count, unsigned char* curve) {
    if (points == nullptr || curve == nullptr || count < 1) return;
    fill_flat_start(points[0], curve);
    fill_flat_end(points[count - 1], curve);
    if (count < 2) return;
    const std::vector<int> controls = spline_control_levels(points, count);
    // One write cursor across all segments, starting at entry 0 even when
    // the first point lies further right (the drawn part is then shifted
    // left, over the flat start).
    int cursor = 0;
    for (int i = 0; i + 1 < count && cursor < kToneCurveEntries; ++i)
        cursor = draw_segment(points[i], points[i + 1], controls[i], controls[i + 1], cursor, curve);
}

}  // namespace qtzq
