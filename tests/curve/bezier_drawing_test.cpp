// Drawing tone curves through control points: the worked examples, the
// deliberate quirks and bounded writes on bad input.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <vector>

#include <qtzqeffect/curve.h>

#include "curve/spline_controls.h"

namespace {

using Curve = std::array<unsigned char, 256>;

Curve filled(int value) {
    Curve curve;
    curve.fill(static_cast<unsigned char>(value));
    return curve;
}

Curve identity() {
    Curve curve;
    for (int i = 0; i < 256; ++i) curve[i] = static_cast<unsigned char>(i);
    return curve;
}

Curve draw(std::vector<_POINT> points, Curve curve = identity()) {
    SFCurve().getBezierPoints(points.data(), static_cast<int>(points.size()), curve.data());
    return curve;
}

std::vector<int> controls(const std::vector<_POINT>& points) {
    return qtzq::spline_control_levels(points.data(), static_cast<int>(points.size()));
}

TEST(BezierDrawing, SplineControlLevels) {
    // Three points: (768 - 0 - 255) >> 2 = 128; -201 >> 2 = -51 (floor).
    EXPECT_EQ(controls({{0, 0}, {128, 128}, {255, 255}}), (std::vector<int>{0, 128, 255}));
    EXPECT_EQ(controls({{0, 100}, {10, 0}, {20, 101}}), (std::vector<int>{100, -51, 101}));
    // Four: right sides 600 and 345; D_2 = (345 - 150) / 3.75 = 52,
    // D_1 = (600 - 52) / 4 = 137. Collinear points are their own controls.
    EXPECT_EQ(controls({{0, 0}, {64, 100}, {192, 100}, {255, 255}}),
              (std::vector<int>{0, 137, 52, 255}));
    EXPECT_EQ(controls({{0, 0}, {85, 85}, {170, 170}, {255, 255}}),
              (std::vector<int>{0, 85, 170, 255}));
}

TEST(BezierDrawing, DiagonalAndStraightLinesStayWithinOneBelowTheIndex) {
    const Curve three = draw({{0, 0}, {128, 128}, {255, 255}}, filled(77));
    const Curve two = draw({{0, 0}, {255, 255}}, filled(77));
    for (int i = 0; i < 256; ++i) {
        EXPECT_TRUE(three[i] == i || three[i] == i - 1) << i << ": " << int(three[i]);
        EXPECT_TRUE(two[i] == i || two[i] == i - 1) << i << ": " << int(two[i]);
    }
    EXPECT_EQ(three[255], 255);
    EXPECT_EQ(two[255], 255);
}

TEST(BezierDrawing, PassesThroughEveryPointAndClampsAt255) {
    const std::vector<_POINT> points = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
    const Curve curve = draw(points, filled(1));
    for (const _POINT& p : points) EXPECT_EQ(curve[p.x], p.y) << p.x;
    // D_1 = 311 sends the second segment above 255 (inner levels 292 and
    // 273): everything from 136 on clamps at 255.
    const Curve high = draw({{0, 0}, {128, 250}, {255, 255}});
    EXPECT_EQ(high[128], 250);
    EXPECT_EQ(high[132], 253);
    for (int i = 136; i < 256; ++i) EXPECT_EQ(high[i], 255) << i;
}

TEST(BezierDrawing, NegativeOvershootKeepsItsLowByte) {
    // D_1 = floor(-255 / 4) = -64, inner levels trunc(-64 / 3) = -21 and
    // trunc(-128 / 3) = -42; at t = 0.5, 0.375 * (-21 - 42) = -23.625 gives
    // -23, stored as 233. At t = 1/128 -0.48 truncates to 0.
    const Curve curve = draw({{0, 0}, {128, 0}, {255, 255}});
    EXPECT_EQ(curve[1], 0);
    EXPECT_EQ(curve[64], 233);
    EXPECT_EQ(curve[128], 0);
}

TEST(BezierDrawing, FirstPointRightOfZeroShiftsTheDrawnPartLeft) {
    // The line 50 -> 150 is drawn from entry 0 over the flat start; entries
    // 100..199 keep the table's identity; the flat end gives 150 from 200.
    // At t = 0.5 with inner levels 83 and 116: 6.25 + 31.125 + 43.5 + 18.75.
    const Curve curve = draw({{100, 50}, {200, 150}});
    EXPECT_EQ(curve[0], 50);
    EXPECT_EQ(curve[50], 99);
    for (int i = 100; i < 200; ++i) EXPECT_EQ(curve[i], i);
    for (int i = 200; i < 256; ++i) EXPECT_EQ(curve[i], 150);
}

TEST(BezierDrawing, OnePointIsConstantAndNoPointsDrawNothing) {
    EXPECT_EQ(draw({{90, 33}}), filled(33));
    EXPECT_EQ(draw({{-20, 300}}), filled(300 & 255));
    EXPECT_EQ(draw({}), identity());
    Curve curve = identity();
    _POINT point = {10, 10};
    SFCurve().getBezierPoints(nullptr, 3, curve.data());
    SFCurve().getBezierPoints(&point, -4, curve.data());
    SFCurve().getBezierPoints(&point, 1, nullptr);
    EXPECT_EQ(curve, identity());
}

TEST(BezierDrawing, BadPointsStayInsideTheTable) {
    // Under the sanitizers: out-of-range x, decreasing x, extreme values and
    // more samples than fit must neither write outside nor overflow.
    const std::vector<std::vector<_POINT>> cases = {
        {{-50, 0}, {300, 255}},
        {{300, 10}, {400, 20}, {-400, 30}},
        {{200, 0}, {100, 255}, {50, 10}},
        {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {0, 0}, {INT_MIN, INT_MAX}},
        {{INT_MAX, INT_MIN}, {INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}},
    };
    for (const auto& points : cases) draw(points);
    std::vector<_POINT> many;
    for (int i = 0; i < 600; ++i) many.push_back({i, i / 3});
    EXPECT_EQ(draw(many)[255], 85);  // samples past entry 255 are dropped
}

}  // namespace
