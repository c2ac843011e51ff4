// SFCurve: the five curve slots, their lifecycle and drawing into them.
#include <cstdlib>

#include "curve/bezier_drawing.h"
#include "qtzqeffect/curve.h"

namespace {

constexpr int kSlotCount = 5;

// Slots are allocated and freed in this order.
constexpr int kSlotOrder[kSlotCount] = {0, 3, 2, 1, 4};

// Slot `channel` (CHANNEL_SPARE .. CHANNEL_RGB), or null for any other
// channel value and for a released slot.
unsigned char* curve_slot(unsigned char* const* slots, Channel channel) {
    const int index = static_cast<int>(channel);
    if (index < 0 || index >= kSlotCount) return nullptr;
    return slots[index];
}

void fill_identity(unsigned char* curve) {
    for (int i = 0; i < qtzq::kToneCurveEntries; ++i) curve[i] = static_cast<unsigned char>(i);
}

}  // namespace

SFCurve::SFCurve() {
    for (int index : kSlotOrder) {
        m_curves[index] = static_cast<unsigned char*>(std::malloc(qtzq::kToneCurveEntries));
        fill_identity(m_curves[index]);
    }
}

SFCurve::~SFCurve() { Release(); }

void SFCurve::Reset() {
    for (unsigned char* curve : m_curves) {
        if (curve != nullptr) fill_identity(curve);
    }
}

void SFCurve::Release() {
    for (int index : kSlotOrder) {
        std::free(m_curves[index]);
        m_curves[index] = nullptr;
    }
}

void SFCurve::GetCurveByPoints(_POINT* points, int count, Channel channel) {
    unsigned char* curve = curve_slot(m_curves, channel);
    if (curve != nullptr) getBezierPoints(points, count, curve);
}

void SFCurve::GetCurveSuperpositionByPoints(_POINT* points, int count, Channel channel) {
    unsigned char* curve = curve_slot(m_curves, channel);
    if (curve == nullptr) return;
    // Entries the drawing leaves alone keep the identity.
    unsigned char drawn[qtzq::kToneCurveEntries];
    fill_identity(drawn);
    getBezierPoints(points, count, drawn);
    for (int i = 0; i < qtzq::kToneCurveEntries; ++i) curve[i] = drawn[curve[i]];
}

void SFCurve::getBezierPoints(_POINT* points, int count, unsigned char* curve) {
    qtzq::draw_bezier_curve(points, count, curve);
}
