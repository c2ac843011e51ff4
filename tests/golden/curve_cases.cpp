// Golden cases of the Bezier tone curves (SFCurve); curve_point_lists()
// of inputs.h has the control points.
#include <string>
#include <vector>

#include "all_cases.h"
#include "families.h"
#include "qtzqeffect/curve.h"

namespace qtzq_golden {
namespace {

std::vector<_POINT> to_points(const std::vector<CurvePoint>& list) {
    std::vector<_POINT> points;
    for (const CurvePoint& p : list) points.push_back({p.x, p.y});
    return points;
}

}  // namespace

void add_curve_cases(CaseList& list) {
    // Every point list drawn into every slot, each slot applied through its
    // channel, then all three colour slots at once.
    const auto& point_lists = curve_point_lists();
    for (std::size_t k = 0; k < point_lists.size(); ++k) {
        const std::string name = "curve.SFCurve." + std::to_string(k);
        image_case(list, name, [points = to_points(point_lists[k])](unsigned char* p, int w,
                                                                     int h) mutable {
            SFCurve curve;
            const int count = static_cast<int>(points.size());
            for (const Channel c : {CHANNEL_RGB, CHANNEL_RED, CHANNEL_GREEN, CHANNEL_BLUE}) {
                curve.GetCurveByPoints(points.data(), count, c);
                curve.ApplyCurve(c, p, w, h);
            }
            curve.GetCurveSuperpositionByPoints(points.data(), count, CHANNEL_GREEN);
            curve.ApplyCurve(CHANNEL_SEPARATE, p, w, h);
        });
    }
}

}  // namespace qtzq_golden
