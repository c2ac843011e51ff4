// Bezier tone curves (SFCurve).
//
// SFCurve turns a short list of control points (input level, output level)
// into 256-entry tone curves and applies them to a BGRA pixel buffer (byte 0
// blue, 1 green, 2 red, 3 alpha; width * 4 bytes per row). The curve through
// the points is a cubic B-spline that passes through every point, drawn
// segment by segment as cubic Bezier pieces.
//
// Typical use:
//
//     SFCurve curve;
//     _POINT points[] = {{0, 0}, {83, 72}, {163, 184}, {255, 255}};
//     curve.GetCurveByPoints(points, 4, CHANNEL_RGB);
//     curve.ApplyCurve(CHANNEL_RGB, image, width, height);
#ifndef QTZQEFFECT_CURVE_H
#define QTZQEFFECT_CURVE_H

#include "qtzqeffect/export.h"

// A control point: input level x, then output level y, both 0..255.
struct _POINT {
    int x;
    int y;
};

// Selects a curve slot of SFCurve and what ApplyCurve maps through it.
enum Channel : int {
    CHANNEL_SPARE = 0,     // slot 0: may be drawn, is never applied
    CHANNEL_RED = 1,       // slot 1: red (byte 2)
    CHANNEL_GREEN = 2,     // slot 2: green (byte 1)
    CHANNEL_BLUE = 3,      // slot 3: blue (byte 0)
    CHANNEL_RGB = 4,       // slot 4: blue, green and red alike
    CHANNEL_SEPARATE = 5,  // ApplyCurve only: slots 1, 2, 3 to red, green, blue
};

// Five tone curves (slots 0..4), each the identity until drawn. Curves stay
// in the object between calls, so several channels can be drawn and then
// applied together with CHANNEL_SEPARATE.
//
// Not copyable: the object owns its curves.
class QTZQ_API SFCurve {
public:
    // Allocates the five curves and sets each to the identity.
    SFCurve();
    // Runs Release.
    virtual ~SFCurve();

    SFCurve(const SFCurve&) = delete;
    SFCurve& operator=(const SFCurve&) = delete;

    // Sets all five curves back to the identity.
    void Reset();

    // Frees the five curves. Afterwards drawing, applying and Reset do
    // nothing; calling Release again is harmless.
    void Release();

    // Draws the curve through `count` points into the slot of `channel`
    // (CHANNEL_SPARE .. CHANNEL_RGB) with getBezierPoints, replacing what
    // the slot held. Any other channel value draws nothing.
    void GetCurveByPoints(_POINT* points, int count, Channel channel);

    // Draws the curve through the points into a fresh identity table T, then
    // replaces every slot entry s by T[s], so that the new curve acts after
    // whatever the slot already did. Channels as for GetCurveByPoints.
    void GetCurveSuperpositionByPoints(_POINT* points, int count, Channel channel);

    // Maps the colour bytes of a width x height pixel buffer in place:
    // CHANNEL_RED, CHANNEL_GREEN, CHANNEL_BLUE one byte through its own
    // slot; CHANNEL_RGB all three through slot 4; CHANNEL_SEPARATE red,
    // green and blue through slots 1, 2, 3. CHANNEL_SPARE and any other
    // value change nothing, as do a null buffer and a width or height below
    // 1. Alpha is never touched.
    void ApplyCurve(Channel channel, unsigned char* buffer, int width, int height);

    // Draws the curve through `count` points (x increasing, all in 0..255)
    // into the 256-entry table `curve`:
    //  - entries below the first point's x take its y, entries from the last
    //    point's x on take the last y;
    //  - the spline between the points is then written from entry 0 on, one
    //    entry per input level, so a first point with x > 0 shifts the drawn
    //    part left by that x (entries between the shifted end and the last
    //    point's x keep what `curve` held before);
    //  - drawn values of 255 or more become 255; a spline that overshoots
    //    below 0 is stored as the low byte of its negative value.
    // Two points give a straight line between them (truncated), one point a
    // constant curve. Nothing is written for a null pointer or a count below
    // 1. Input outside the above (x outside 0..255, decreasing x, more
    // samples than fit) never writes outside the 256 entries: levels that
    // would land outside are dropped.
    void getBezierPoints(_POINT* points, int count, unsigned char* curve);

private:
    unsigned char* m_curves[5];  // slots 0..4, 256 bytes each (malloc)
};

#endif  // QTZQEFFECT_CURVE_H
