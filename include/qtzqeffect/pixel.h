// Pixel toolkit: tone adjustments, saturation, blend modes, colour-space conversions,
// colour balance, histogram and automatic levels.
//
// Images are BGRA pixel buffers (byte 0 blue, 1 green, 2 red, 3 alpha),
// width * 4 bytes per row. Whole-image functions take (pixels, width,
// height, parameters) and do nothing when width or height is below 1.
// Single-pixel functions (names ending in Ex / ExNew) take a pointer to one
// pixel; the caller runs them inside its own pixel loop. Unless a comment
// says otherwise, alpha is neither read nor written, and the functions test
// no pointer.
//
// All results are exact to the byte: every conversion from floating point to
// integer truncates toward zero (+ 0.5 where a rounding is documented), and
// byte results clamp to 0..255 unless a comment says the low 8 bits are kept.
#ifndef QTZQEFFECT_PIXEL_H
#define QTZQEFFECT_PIXEL_H

#include "qtzqeffect/export.h"

// ---------------------------------------------------------------------------
// Tone adjustments
// ---------------------------------------------------------------------------

// Replaces blue, green and red of every pixel by table[value] (256 entries).
QTZQ_API void Lut(unsigned char* pixels, unsigned char* table, int width, int height);

// Byte 0 through the blue table, 1 through green, 2 through red, and byte 3
// through the alpha table only when that pointer is non-null. Nothing
// happens for a null pixel pointer.
QTZQ_API void LutEx(unsigned char* pixels, int width, int height, unsigned char* red_table,
                    unsigned char* green_table, unsigned char* blue_table,
                    unsigned char* alpha_table);

// Brightness and contrast through one table: entry i is
// clamp(trunc(brightness + 128 + (i - 128) * (contrast + 100) / 100 + 0.5))
// in single precision. 0, 0 is the identity; contrast -100 flattens the
// image to brightness + 128. Nothing happens for a null pixel pointer.
QTZQ_API void Light(unsigned char* pixels, int width, int height, long brightness, long contrast);

// Fills `table` (256 bytes) with the variant table whose index term is
// (i AND 127) instead of (i - 128), so that it repeats every 128 entries.
// The pixels are not touched; only their pointer is tested (null: the table
// is left alone). Width and height are ignored.
QTZQ_API void LightNew(unsigned char* pixels, unsigned char* table, int width, int height,
                       long brightness, long contrast);

// Light(pixels, width, height, brightness, 0).
QTZQ_API void Bright(unsigned char* pixels, int width, int height, int brightness);

// Light(pixels, width, height, 0, contrast).
QTZQ_API void Contrast(unsigned char* pixels, int width, int height, int contrast);

// Light(brightness, contrast) when either is non-zero, then the HSL
// saturation shift Saturateconst(..., saturation, 1) when saturation is
// non-zero.
QTZQ_API void BrightContrastSaturation(unsigned char* pixels, int width, int height,
                                       int brightness, int contrast, int saturation);

// Saturateconst(pixels, width, height, saturation, 1): the HSL saturation shift.
QTZQ_API void Saturation(unsigned char* pixels, int width, int height, int saturation);

// Per-channel gamma: value = trunc(value^(1 / gamma) / (255^(1 / gamma) / 255))
// in double, about 255 * (value / 255)^(1 / gamma) truncated (so 255 may come
// back as 254). 1 is the identity. The whole call is ignored when the pixel
// pointer is null or any gamma is not above 0 (0, negative or NaN).
QTZQ_API void GammaRGB(unsigned char* pixels, int width, int height, float red_gamma,
                       float green_gamma, float blue_gamma);

// Adds the amounts to red, green and blue of one pixel, saturating at 255.
QTZQ_API void ShiftRGBEx(unsigned char* pixel, unsigned char red_add, unsigned char green_add,
                         unsigned char blue_add);

// Writes the luma (306 R + 601 G + 117 B) >> 10 into blue, green and red.
QTZQ_API void SetGrayScaleEx(unsigned char* pixel);

// Writes the same luma into *grey; the pixel is not changed.
QTZQ_API void SetGrayScaleExNew(unsigned char* pixel, unsigned char* grey);

// Adds uniform noise of full width `amount` (about -amount/2 .. +amount/2)
// to blue, then green, then red, one rand() call per channel, clamping to
// 0..255. Never seeds the generator: seeding is the caller's business.
// Amount 0 changes nothing but still consumes three rand() values.
QTZQ_API void NoiseEx(unsigned char* pixel, long amount);

// Same behaviour as NoiseEx.
QTZQ_API void NoiseExNew(unsigned char* pixel, long amount);

// Packs blue, green and red of `count` 4-byte pixels into 3-byte pixels,
// dropping alpha. `destination` must hold 3 * count bytes. Nothing is written
// when count is below 1.
QTZQ_API void tfbitCopy(unsigned char* source, unsigned char* destination, int count);

// Copies red into blue and green of rows * pixels_per_row pixels.
QTZQ_API void SpliteToR(unsigned char* pixels, int rows, int pixels_per_row);

// ---------------------------------------------------------------------------
// Saturation
// ---------------------------------------------------------------------------

// Replaces R, G, B of one pixel by the product with a 3 x 3 matrix of
// 8.8 fixed-point integers (256 = 1.0), clamped to 0..255. Rows produce red,
// green, blue; columns weigh red, green, blue. All rows read the incoming
// values.
QTZQ_API void SaturateconstMatrix(unsigned char* pixel, int* matrix);

// Matrix saturation around the luma (79 R + 156 G + 21 B) / 256. Amount 0
// changes nothing, -100 makes every pixel grey; positive amounts are three
// times as strong as negative ones.
QTZQ_API void Saturateconst(unsigned char* pixels, int width, int height, long amount);

// Mode 1: adds `amount` to the byte HSL saturation of every pixel.
// Mode 2: scales the YUV chroma by (amount + 100) / 100 (-100 leaves luma only).
// Any other mode: nothing.
QTZQ_API void Saturateconst(unsigned char* pixels, int width, int height, long amount,
                            long mode);

// ---------------------------------------------------------------------------
// Blend modes (single pixel)
//
// (base, blend, opacity): the base pixel is changed in place, the blend
// pixel is only read. Mixing modes cross-fade their effect with the base
// (effect * opacity + (1 - opacity) * base, truncated); pre-scaled modes
// first scale the blend, b' = trunc(b * opacity) AND 255, and use b' with no
// later mixing. Opacity is expected in 0..1 and is not checked: outside that
// range results follow the arithmetic (negative values give 0, values past
// 255 keep their low 8 bits).
// ---------------------------------------------------------------------------

// Mixing: effect = blend.
QTZQ_API void NormalEx(unsigned char* base, unsigned char* blend, double opacity);
QTZQ_API void ImageNormalEx(unsigned char* base, unsigned char* blend, double opacity);

// Multiply with the constant 0.00392156 (255 * 255 gives 254 at opacity 1).
QTZQ_API void MultipleEx(unsigned char* base, unsigned char* blend, double opacity);

// A multiply despite its name: a * b' / 255 below opacity 1, a * b / 255 at
// opacity 1 or more.
QTZQ_API void ImageAddEx(unsigned char* base, unsigned char* blend, double opacity);

// Screen a + b - (a * b >> 8), capped at 255, mixed below opacity 1.
QTZQ_API void ScreenEx(unsigned char* base, unsigned char* blend, double opacity);

// Pre-scaled screen: b' + a - a * b' / 255.
QTZQ_API void ImageScreenEx(unsigned char* base, unsigned char* blend, double opacity);

// Pre-scaled lighten: max(a, b').
QTZQ_API void ImageLightenEx(unsigned char* base, unsigned char* blend, double opacity);

// min(a, b) scaled toward black by the opacity (not mixed with the base).
QTZQ_API void ImageDarkenEx(unsigned char* base, unsigned char* blend, double opacity);

// Pre-scaled exclusion: b' + a - (a * b' >> 7), low 8 bits.
QTZQ_API void ImageExclusionEx(unsigned char* base, unsigned char* blend, double opacity);

// Exclusion with the blend halved; the opacity is ignored.
QTZQ_API void ImageExclusionEx2(unsigned char* base, unsigned char* blend, double opacity);

// Exclusion applied twice: the second pass uses b' below opacity 1 and the
// unscaled blend at opacity 1 or more.
QTZQ_API void ExclusionEx(unsigned char* base, unsigned char* blend, double opacity);

// Colour burn: 0 for blend 0, else 255 + (255 a - 65025) / b limited to 0..255.
QTZQ_API void ImageColorBurnEx(unsigned char* base, unsigned char* blend);

// Mixed colour burn; a blend of 0 darkens the base by the opacity instead.
QTZQ_API void ColorBurnEx(unsigned char* base, unsigned char* blend, double opacity);

// Hard light, tested on the blend byte; the dark branch applies the
// opacity before its shift.
QTZQ_API void HardlightEx(unsigned char* base, unsigned char* blend, double opacity);

// Hard light averaged with the base. The light branch ignores the opacity;
// in the dark branch green and red use it and blue does not.
QTZQ_API void HardlightEx_2(unsigned char* base, unsigned char* blend, double opacity);

// Mixing overlay, tested on the base byte.
QTZQ_API void OverlayEx(unsigned char* base, unsigned char* blend, double opacity);

// The same overlay with a constant blend colour.
QTZQ_API void OverlayEx(unsigned char* base, unsigned char red, unsigned char green,
                        unsigned char blue, double opacity);

// Mixing soft light.
QTZQ_API void SoftLightEx(unsigned char* base, unsigned char* blend, double opacity);

// Soft light averaged with the base, its screen term built from the blend
// alone; the opacity is ignored.
QTZQ_API void SoftLightEx2(unsigned char* base, unsigned char* blend, double opacity);

// Pre-scaled soft light.
QTZQ_API void ImageSoftLightEx(unsigned char* base, unsigned char* blend, double opacity);

// Pre-scaled soft light with one constant blend value for all channels.
QTZQ_API void ImageSoftLightExNew(unsigned char* base, unsigned char value, double opacity);

// Soft light of the blend over the base scaled by the opacity (the base,
// not the blend, is scaled), capped at 255.
QTZQ_API void CompositeColorEx(unsigned char* base, unsigned char* blend, double opacity);

// Pin light: with d = 2 b, values below d - 255 become d - 255 and values
// above d become d.
QTZQ_API void PinLightEx(unsigned char* base, unsigned char* blend);

// Pin light mixed in single precision; channels that pin light leaves
// unchanged are not written. The two names are the same function.
QTZQ_API void PinLightEx2(unsigned char* base, unsigned char* blend, float opacity);
QTZQ_API void PinLightEx8(unsigned char* base, unsigned char* blend, float opacity);

// Colour mode in the byte HSL space (form 2): blend hue and saturation with
// base lightness, mixed.
QTZQ_API void ColorEx(unsigned char* base, unsigned char* blend, double opacity);

// Colour mode in the HSB space: blend hue and saturation with base
// brightness, mixed.
QTZQ_API void ColorHSBEx(unsigned char* base, unsigned char* blend, double opacity);

// ---------------------------------------------------------------------------
// Colour-space conversions (one colour; RGB in the order red, green, blue,
// so callers pass bytes 2, 1, 0 of a pixel)
// ---------------------------------------------------------------------------

// YUV bytes, U and V with 128 as no chroma.
QTZQ_API void RGBtoYUV(unsigned char r, unsigned char g, unsigned char b, unsigned char* y,
                       unsigned char* u, unsigned char* v);
QTZQ_API void YUVtoRGB(unsigned char y, unsigned char u, unsigned char v, unsigned char* r,
                       unsigned char* g, unsigned char* b);

// YIQ bytes, I and Q with 128 as zero.
QTZQ_API void RGBtoYIQ(unsigned char r, unsigned char g, unsigned char b, unsigned char* y,
                       unsigned char* i, unsigned char* q);
QTZQ_API void YIQtoRGB(unsigned char y, unsigned char i, unsigned char q, unsigned char* r,
                       unsigned char* g, unsigned char* b);

// XYZ as bytes, Z pre-scaled by the white point.
QTZQ_API void RGBtoXYZ(unsigned char r, unsigned char g, unsigned char b, unsigned char* x,
                       unsigned char* y, unsigned char* z);
QTZQ_API void XYZtoRGB(unsigned char x, unsigned char y, unsigned char z, unsigned char* r,
                       unsigned char* g, unsigned char* b);

// Byte HSL, form 1: hue 0..255 for the full circle, grey has hue 170 and
// saturation 0. Fully saturated colours at lightness 128 or more come out
// with saturation 0 (256 wraps).
QTZQ_API void RGBtoHSL(unsigned char r, unsigned char g, unsigned char b, unsigned char* h,
                       unsigned char* s, unsigned char* l);
QTZQ_API void HSLtoRGB(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
                       unsigned char* g, unsigned char* b);

// Form 1's helper: a level 0..1 from the mixing levels m1, m2 and a hue in
// degrees (one turn outside 0..360 is folded back).
QTZQ_API float HueToRGB(float m1, float m2, float hue);

// Byte HSL back to RGB on HueToRGB, with exactly the arithmetic of HSLtoRGB.
QTZQ_API void HSLtoRGB_L(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
                         unsigned char* g, unsigned char* b);

// Byte HSL, form 2: integer hue in steps of 42 per sixth on the way in, read
// as 0..255 per circle on the way back. Grey has hue 170.
QTZQ_API void RGBtoHSL2(unsigned char r, unsigned char g, unsigned char b, unsigned char* h,
                        unsigned char* s, unsigned char* l);
QTZQ_API void HSLtoRGB2(unsigned char h, unsigned char s, unsigned char l, unsigned char* r,
                        unsigned char* g, unsigned char* b);

// HSB: hue in degrees, 0 only for grey (pure red is 360); saturation and
// brightness 0..1. Levels outside 0..255 are clamped.
QTZQ_API void RGBtoHSB(int r, int g, int b, float& hue, float& saturation, float& brightness);
// Hue 0 gives grey whatever the saturation.
QTZQ_API void HSBtoRGB(float hue, float saturation, float brightness, unsigned char& r,
                       unsigned char& g, unsigned char& b);

// HLS in double precision: hue 0..1 of a circle, lightness and saturation 0..1.
QTZQ_API void RGBtoHLS(unsigned char r, unsigned char g, unsigned char b, double* h, double* l,
                       double* s);
// The lightness of RGBtoHLS alone.
QTZQ_API void RGBtoHLS_L(unsigned char r, unsigned char g, unsigned char b, double* l);
// HLS back to one pixel value: blue in bits 0-7, green 8-15, red 16-23 and
// 255 in 24-31 (a BGRA pixel in little-endian memory).
QTZQ_API unsigned int HLStoRGB(double h, double l, double s);
// A level 0..1 from the mixing levels and a hue in sixths of a circle (0..6).
QTZQ_API double HLS_Value(double m1, double m2, double hue);

// Integer HLS: hue 0..255 per circle (85 per third, wrapping at 255),
// lightness and saturation 0..255. Levels, H, L and S outside 0..255 are
// clamped.
QTZQ_API void RGBtoIntHLS(int r, int g, int b, int* h, int* l, int* s);
// A level from the mixing levels m1, m2 (clamped to 0..255) and a hue that
// may lie one turn outside 0..255 (clamped to -255..510).
QTZQ_API int intHueToRGB(int m1, int m2, int hue);
QTZQ_API void intHLStoRGB(int h, int l, int s, int* r, int* g, int* b);

// ---------------------------------------------------------------------------
// Colour balance
// ---------------------------------------------------------------------------

// The tonal region a colour-balance shift acts on.
enum _TONE_REGION : int {
    TONE_REGION_SHADOWS = 0,
    TONE_REGION_MIDTONES = 1,
    TONE_REGION_HIGHLIGHTS = 2,
};

// Shifts the colours of one tonal region of rows x per_row pixels along the
// axes cyan-red, magenta-green and yellow-blue (positive amounts towards
// red, green, blue; about -100..100 is the useful range). Red, green and
// blue each go through one tone curve built from the region's weights: at
// the region's peak a shift of a moves a level by about 0.67 a (midtones,
// and positive shadow shifts) or 1.07 a (highlights, negative shadow
// shifts). With preserve_luminosity each pixel then gets its incoming
// lightness back through the integer HLS conversions (RGBtoIntHLS,
// intHLStoRGB). All amounts 0 leave the image unchanged unless lightness is
// preserved. A region outside 0..2 shifts nothing. Nothing happens for a
// null buffer or a count below 1.
QTZQ_API void CColorBalance(bool preserve_luminosity, _TONE_REGION region, int red_shift,
                            int green_shift, int blue_shift, unsigned char* pixels, int rows,
                            int per_row);

// Fixed settings named region_red_green_blue ("s" is a minus sign): the
// curves are those of CColorBalance with shadows 13, 0, 21; midtones 2, 0,
// 8; highlights 0, 0, -13. The region and shift arguments are ignored. With
// preserve_luminosity each pixel gets its incoming lightness back through
// the double-precision HLS conversions (RGBtoHLS, HLStoRGB), which may
// differ from CColorBalance's integer path by a level.
QTZQ_API void CColorBalance_0_13_0_21(bool preserve_luminosity, _TONE_REGION region,
                                      int red_shift, int green_shift, int blue_shift,
                                      unsigned char* pixels, int rows, int per_row);
QTZQ_API void CColorBalance_1_2_0_8(bool preserve_luminosity, _TONE_REGION region, int red_shift,
                                    int green_shift, int blue_shift, unsigned char* pixels,
                                    int rows, int per_row);
QTZQ_API void CColorBalance_2_0_0_s13(bool preserve_luminosity, _TONE_REGION region,
                                      int red_shift, int green_shift, int blue_shift,
                                      unsigned char* pixels, int rows, int per_row);

// ---------------------------------------------------------------------------
// Histogram and automatic levels
// ---------------------------------------------------------------------------

// Selects a table of CHistogram. The values are compared one by one, not as
// bits: any value other than 1, 2 and 4 (a combination such as 3 included)
// selects the luminance table.
enum _IMAGE_CHANNEL : int {
    IMAGE_CHANNEL_LUMINANCE = 0,
    IMAGE_CHANNEL_RED = 1,
    IMAGE_CHANNEL_GREEN = 2,
    IMAGE_CHANNEL_BLUE = 4,
};

// Counts of the values 0..255 of red (byte 2), green (byte 1), blue (byte 0)
// and luminance (30 R + 59 G + 11 B) / 100 over one pixel buffer, taken once
// at construction; the object keeps no pointer to the pixels. The summary
// getters (GetCount, GetMaxCount, GetAverage) cover the values start..end,
// 0..255 after construction, and return 0 when start > end.
class QTZQ_API CHistogram {
public:
    // Stores the size, sets the range to 0..255 and runs AnalyzeImage. A
    // width or height below 1 gives empty tables.
    CHistogram(unsigned char* pixels, int width, int height);
    ~CHistogram();

    // Recounts all four tables from a buffer of the stored size (a null
    // buffer leaves them empty).
    void AnalyzeImage(unsigned char* pixels);

    // The count for `value` in the channel's table; 0 for a value outside
    // 0..255.
    int GetChannelHistogram(_IMAGE_CHANNEL channel, int value);
    // The count for `value` clamped to 0..255 (note the argument order).
    int GetValueCount(int value, _IMAGE_CHANNEL channel);
    // Sum of the counts for start..end.
    int GetCount(_IMAGE_CHANNEL channel);
    // Largest count among start..end.
    int GetMaxCount(_IMAGE_CHANNEL channel);
    // Mean value over start..end, truncated; 0 when no pixel falls there.
    int GetAverage(_IMAGE_CHANNEL channel);
    // width * height of the analysed buffer (negative sizes included).
    int GetPixelNumber();

    int GetStart();
    int GetEnd();
    // Store the bound clamped to 0..255; nothing keeps start <= end.
    void SetStart(int start);
    void SetEnd(int end);

private:
    int m_width;
    int m_height;
    unsigned int m_luminance[256];
    unsigned int m_red[256];
    unsigned int m_green[256];
    unsigned int m_blue[256];
    int m_start;
    int m_end;
    int m_pixelNumber;
};

// Automatic levels. With `analyse` set, each colour channel is stretched so
// that its darkest and brightest 0.6 % tails land on 0 and 255: from the
// channel's histogram a low bound L and a high bound H are found one step
// inward of the values whose tail fractions are nearest 0.006, and every
// value v becomes (v - L) * 255 / (H - L), rounded half away from zero and
// clamped to 0..255 (for L = H: 0 up to L, 255 above; L > H turns the
// channel around). A channel holding a single value therefore becomes all 0.
// With `analyse` false the bounds stay 0 and 255 and the colours come back
// unchanged. Alpha is never touched. Nothing happens for a null buffer.
QTZQ_API void AutoColorLevel(unsigned char* pixels, int width, int height, bool analyse);

// CColorBalance(true, region, a, b, c, pixels, width, height) followed by
// AutoColorLevel(pixels, width, height, true). A region other than 1
// (midtones) or 2 (highlights) means shadows.
QTZQ_API void DanyaUseStone(unsigned char* pixels, int width, int height, int region, int a,
                            int b, int c);

#endif  // QTZQEFFECT_PIXEL_H
