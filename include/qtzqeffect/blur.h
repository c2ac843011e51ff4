// Blur and sharpen: recursive Gaussian blur, unsharp mask, IIR blur brush,
// radial zoom blur and resampling, soft glow.
//
// Images are BGRA pixel buffers (byte 0 blue, 1 green, 2 red, 3 alpha),
// width * 4 bytes per row, rows top to bottom. Unless a comment says
// otherwise, functions work in place, filter blue, green and red only and
// leave alpha alone, and check no pointer.
#ifndef QTZQEFFECT_BLUR_H
#define QTZQEFFECT_BLUR_H

#include "qtzqeffect/export.h"

// --- Recursive Gaussian blur ---------------------------------------------------

// Separable fourth-order recursive (IIR) Gaussian blur: a causal and an
// anticausal filter per line, with the edge pixels taken as repeated forever.
// The work per pixel does not depend on the radius.
//
// The radius is a pixel radius, not the Gaussian's sigma: sigma is
// (radius + 1.3) / 3.329 (so radius 10 gives sigma 3.4).
//
// Threads: GetInst() is safe to call from any thread. CreateBlurEffect is
// safe to call from several threads at once on different buffers: each call
// computes its coefficients for itself, and only publishes the last radius's
// coefficients into the shared block when it is done. FindConstants and
// ConvoluteDimension each run atomically with respect to the block, but a
// FindConstants / ConvoluteDimension sequence is not: another thread may
// replace the block in between. Reading the block's fields directly is not
// synchronised at all.
class QTZQ_API GaussianBlurFilterUtil {
public:
    // All 30 coefficients 0.
    GaussianBlurFilterUtil();
    ~GaussianBlurFilterUtil();

    // The process-wide instance, created on first use and destroyed at exit.
    // Never delete it.
    static GaussianBlurFilterUtil* GetInst();

    // Blurs a width x height pixel buffer in place: a row pass of radius
    // radiusX, then a column pass of radius radiusY (pixels). A radius that
    // is not above 0 (or not a number) means no blur in that direction;
    // radii above 255 are treated as 255. `channels` is ignored: pixels are
    // always 4 bytes. Returns 0 for a null buffer (nothing done), else 1.
    // The block is left holding the coefficients of the last radius used.
    int CreateBlurEffect(unsigned char* buffer, int width, int height, int channels,
                         double radiusX, double radiusY);

    // Computes the coefficient block for a pixel radius. A radius below 1e-8
    // (or not a number) leaves the block unchanged.
    void FindConstants(double radius);

    // One in-place pass with the current block over all rows (horizontal) or
    // all columns, blue, green and red only. `channels` is the byte distance
    // between neighbouring pixels (4 for a pixel buffer); below 3 nothing is
    // done. A radius below 1e-8 (or not a number) does nothing; otherwise
    // the radius is not used beyond that test.
    void ConvoluteDimension(unsigned char* buffer, int width, int height, int channels,
                            double radius, bool horizontal);

    // Nearest integer to value, halves rounded to even; 0 for a value that is
    // not a number, INT_MIN / INT_MAX beyond the int range. Nothing in the
    // library uses it.
    int DoubleToInt_IEEE(double value);

    // The coefficient block, six groups of five (the edge coefficients are
    // the denominator scaled by the filters' response to a constant 1).
    double n[5];      // causal numerator (n[4] is always 0)
    double m[5];      // anticausal numerator (m[0] is always 0)
    double d[5];      // denominator (d[0] is always 0)
    double dAnti[5];  // the denominator again, for the anticausal filter
    double bn[5];     // causal edge coefficients
    double bm[5];     // anticausal edge coefficients
};

// Computes the same coefficient set as GaussianBlurFilterUtil::FindConstants,
// but from sigma itself (no radius mapping), into six arrays of five doubles
// in the block's order. sigma must be positive.
QTZQ_API void find_constants(double* n, double* m, double* d, double* dAnti, double* bn,
                             double* bm, double sigma);

// Fixed coefficient tables (single-precision values widened to double) for
// the blur brush's radii 2 and 12; sigma is ignored. The radius-2 table's
// causal edge row is kept exactly as it has always been listed, although it
// does not follow the rule the other rows follow.
QTZQ_API void find_constants_2(double* n, double* m, double* d, double* dAnti, double* bn,
                               double* bm, double sigma);
QTZQ_API void find_constants_12(double* n, double* m, double* d, double* dAnti, double* bn,
                                double* bm, double sigma);

// --- IIR blur brush ------------------------------------------------------------

// Recursive Gaussian blur with integer radii: a column pass of radius
// radiusY first, then a row pass of radius radiusX. Radii below 2 count as
// 2, so the brush always blurs. sigma is (radius + 1) / 3.329. Safe for any
// image size (the work memory is on the heap) and on several threads at
// once on different buffers.
QTZQ_API void GaussIIRBlurBrush(unsigned char* buffer, int width, int height, int radiusX,
                                int radiusY);

// --- Unsharp mask ------------------------------------------------------------

// Sharpening by unsharp masking: result = original + amount * (original -
// blurred), per colour channel, clamped to 0..255, amount in steps of
// 1/10000, no threshold. The blur is a separable integer kernel of
// (5 * radius + 1) | 1 taps with deliberately quantised (staircase) weights.
//
// Radii must be 1..50 (the kernel holds at most 255 taps); other radii are
// rejected: SetRadius returns 0 and keeps the kernel it had, GetBlur returns
// -1 and useEffect / useEffectPreview return 0, all without touching any
// buffer. Until a radius has been set the kernel is empty and blurring
// writes nothing.
//
// Amounts whose fixed-point products leave 32 bits (about 840 and more)
// wrap as 32-bit integers do; there is no reason to pass them.
//
// An object is a plain value; it must not be used by two threads at once.
class QTZQ_API CSharp {
public:
    CSharp();
    ~CSharp();

    // Builds the kernel for a radius of 1..50 and returns 1; any other
    // radius returns 0 and changes nothing.
    int SetRadius(int radius);

    // One pass of the kernel from src into dst, over the rows (horizontal)
    // or the columns of the image size last stored, blue, green and red
    // only. Edge pixels are averaged over the taps inside the image; the
    // left (top) edge leaves out the outermost right-hand tap. dst's alpha is
    // never written; nothing is written at all before a kernel is set. dst
    // may be src (the pass works on a copy of each line). The int and the
    // last bool are not used. Returns 1.
    int ConvoluteDimension(unsigned char* src, unsigned char* dst, int, bool horizontal, bool);

    // Blurs src into dst (rows, then columns) with the current kernel and
    // the stored image size, needing no image-sized scratch; dst may be src.
    // The ints and the bool are not used. Returns 1.
    int GetBlur(unsigned char* src, unsigned char* dst, int, int, bool);

    // Stores the image size and radius, builds the kernel, then blurs src
    // into dst as above. The unnamed int and the bool are not used. Returns
    // 1, or -1 for a radius outside 1..50.
    int GetBlur(unsigned char* src, unsigned char* dst, int width, int height, int radius, int,
                bool);

    // Blurs src into dst, then replaces dst's colours by the sharpened
    // colours of src. dst's alpha is not written. The ints are not used.
    // Returns 1.
    int GetUnsharpMask(unsigned char* src, unsigned char* dst, int, float amount, int);

    // As GetUnsharpMask, but the blur is made only on the first call and kept
    // (in `size` bytes) for every later call on this object, whatever the
    // image; only the amount is meant to change between calls. Returns 1.
    int GetUnsharpMaskPreview(unsigned char* src, unsigned char* dst, int, float amount, int,
                              int size);

    // Sharpens buffer in place and sets every alpha byte to 255. Returns 1,
    // or 0 for a radius outside 1..50 (buffer untouched).
    int useEffect(unsigned char* buffer, long width, long height, int radius, float amount);

    // As useEffect, through the preview cache of GetUnsharpMaskPreview.
    int useEffectPreview(unsigned char* buffer, long width, long height, int radius, float amount);

    // Sharpens image in place against a blurred copy of it made by the
    // seven-argument GetBlur (as Qtzqeffect::SharpInit does). Alpha is left
    // alone. Returns 1.
    int SharpProcess(unsigned char* image, unsigned char* blurred, int width, int height,
                     float amount);

private:
    int m_stride;
    int m_height;
    int m_width;
    int m_kernel[255];
    int m_kernelSum;
    int m_kernelSize;
    float m_radius;
    float m_amount;
    unsigned char* m_previewCache;  // malloc'd blurred image of the preview, or null
};

// Sharpens in place with a CSharp (radius 1..50, else nothing happens) and
// sets every alpha byte to 255.
QTZQ_API void StyleSharp(unsigned char* buffer, int width, int height, int radius, float amount);

// --- Radial zoom blur and resampling ------------------------------------------

// Zoom blur toward the image centre: each pixel of dst is the weighted mean
// of 97 samples of src on the line from the pixel toward the centre, each
// sample weighted by byte 0 (blue) of the weights pixel at the sample. dst
// alpha becomes the mean weight; where every weight is 0, dst's colours
// stay as they were and its alpha becomes 0. Finally dst's colours go
// through a fixed S-shaped contrast curve. dst, src and weights have the
// same size; dst must not be src.
QTZQ_API void RadiusZoomBlur(unsigned char* dst, unsigned char* src, unsigned char* weights,
                             int width, int height);

// Kept for the interface: has no effect at all. The caller's pointer and
// pixels stay as they were (the nearest-neighbour copy it would make is
// never handed back, so it is not made).
QTZQ_API void Resample(int newWidth, int newHeight, unsigned char** image, int oldWidth,
                       long oldHeight);

// Replaces *image (made with new[]) by a nearest-neighbour resized copy of
// newWidth x newHeight pixels of bytesPerPixel bytes, made with new[]; the
// old buffer is released with delete[]. Does nothing if image or *image is
// null, if the new size equals the old one, or if any size is below 1.
QTZQ_API void RampleBit(int newWidth, int newHeight, unsigned char** image, int oldWidth,
                        long oldHeight, int bytesPerPixel);

// Cubic B-spline weight at distance x: 2/3 at 0, 1/6 at 1, 0 from 2 on.
QTZQ_API float KernelBSpline(float x);

// --- Soft glow -------------------------------------------------------------

// Draws a round weight patch for Qtzqeffect::WeakProcess: a square grid of
// (2 * outer + 1)^2 bytes, row by row, centred on the middle cell. 255 out
// to about inner / sqrt(2), falling to 128 at radius inner, then to 0 at
// radius outer; 0 beyond. Meant for 0 < inner < outer. Does nothing for a
// negative outer or an outer above 46340 (the patch could not exist).
QTZQ_API void WeakRoundChange(unsigned char* patch, int inner, int outer);

#endif  // QTZQEFFECT_BLUR_H
