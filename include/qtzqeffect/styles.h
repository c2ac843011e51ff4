// Style presets: fixed recipes behind the effect ids of Qtzqeffect.
//
// Every preset works in place on a BGRA pixel buffer of width x height
// pixels (width * 4 bytes per row) and never touches the alpha byte unless
// its comment says so. A width or height below 1 processes no pixel.
// Presets check no pointer: passing null or undersized buffers is the
// caller's fault. The fixed tone curves they use come from the library's
// constant curve store.
#ifndef QTZQEFFECT_STYLES_H
#define QTZQEFFECT_STYLES_H

#include "qtzqeffect/export.h"

// --- Curve presets ------------------------------------------------------------

// Film look: red, green and blue each through their own tone curve (id 1020).
QTZQ_API void StyleFilm(unsigned char* image, int width, int height);

// Japanese look: three tone curves (id 1023).
QTZQ_API void StyleJapanese(unsigned char* image, int width, int height);

// Fresh look: 80 % tone curve, 20 % original, per channel (id 1040).
QTZQ_API void StyleXiaoQingXin(unsigned char* image, int width, int height);

// Grey (11 B + 59 G + 30 R) / 100 into all three colour channels (id 1101).
QTZQ_API void StyleGray(unsigned char* image, int width, int height);

// --- Grain, grey and tint presets --------------------------------------------

// Faded colour film: HSL desaturation by 100, red +40 and green +25, then
// grain of width 20 (id 1039). Reseeds the process-wide rand() from the
// clock (srand(time(0))) on every call, even for an empty image: two calls
// within the same second give the same grain.
QTZQ_API void StyleLiuJin(unsigned char* image, int width, int height);

// Retro: three tone curves, then grain of width 20 on the curved pixel
// (id 1021). Reseeds rand() from the clock like StyleLiuJin.
QTZQ_API void StyleRetro(unsigned char* image, int width, int height);

// Warm black and white: colour mode toward a dark warm grey at 0.8, then
// three monochrome tone curves (id 1034).
QTZQ_API void StyleHeiBai(unsigned char* image, int width, int height);

// Cinnamon: the photo soft-lit with itself, then a pin-light tint toward a
// cinnamon colour at 0.8 (id 1022).
QTZQ_API void StyleCinnamon(unsigned char* image, int width, int height);

// Elegant: three soft tone curves, then each pixel soft-lit with its own
// grey value from before the curves (id 1019).
QTZQ_API void StyleElegant(unsigned char* image, int width, int height);

// --- Impression -------------------------------------------------------------

// Impression: a faint colour burn toward a light warm tint (0.2), HSL
// saturation +15, then three tone curves (id 1027).
QTZQ_API void StyleImpression(unsigned char* image, int width, int height);

// --- Old photo ----------------------------------------------------------------

// Old photo (id 1026): colour balance of shadows (-11, -20, 10), midtones
// (14, 26, 41) and highlights (15, 26, 45), a Bezier tone curve on all
// three channels and a second one on red, an exclusion toward a dark brown,
// then the material (paper texture, scratches; the photo's size) screened
// over the photo at 0.8 (single precision).
QTZQ_API void StyleOldPhoto(unsigned char* image, unsigned char* material, int width, int height);

// --- Auto-level presets ---------------------------------------------------------

// HDR look (id 1035): automatic levels in their non-analysing form (which
// keeps the colours), three contrast curves, then hard sharpening (unsharp
// mask radius 3, amount 0.5). The sharpening sets every alpha byte to 255.
QTZQ_API void StyleLomoHDR(unsigned char* image, int width, int height);

// Classic HDR look (id 1033): StyleLomoHDR followed by an exclusion toward a
// dark blue wash. Every alpha byte ends at 255.
QTZQ_API void StyleLomoHDRJinDian(unsigned char* image, int width, int height);

// Sunlit coast (id 1102): automatic levels in their non-analysing form,
// three tone curves, then the material (the photo's size) screened over
// the photo at full strength. No sharpening; alpha is left alone.
QTZQ_API void StyleRiguanghaian(unsigned char* image, unsigned char* material, int width,
                                int height);

// --- Vivid colour -------------------------------------------------------------

// Vivid colour at `strength` 0..100 (values outside are clamped; 0 changes
// nothing): the matrix saturation Saturateconst(image, width, height,
// strength), then every pixel overlaid on itself at opacity
// strength / 100, which adds contrast while black and white stay.
QTZQ_API void ABaoColor(unsigned char* image, int width, int height, int strength);

// Vivid colour look: ABaoColor at strength 20 (id 1028).
QTZQ_API void StyleBaoColor(unsigned char* image, int width, int height);

// --- Zoom-blur presets -------------------------------------------------------

// YiZhou (id 1104): the photo through one steep S-shaped tone curve on all
// three channels, then faded toward a zoom blur of itself toward the image
// centre. Byte 0 (blue) of each material pixel weighs that pixel as a blur
// sample, so a material dark in the middle and light at the edges keeps the
// centre sharp and streaks the edges. The fade takes the blurred layer's
// alpha, the mean sample weight, as its opacity. The material has the
// photo's size; the photo's alpha is left alone.
QTZQ_API void StyleYiZhou(unsigned char* image, unsigned char* material, int width, int height);

// Time tunnel, first step. `material` is a 240 x 240 pixel buffer (230400
// bytes) whatever the photo size: it is scaled to the photo by nearest
// neighbour. The photo is overlaid in place with the scaled mask at opacity
// 0.6 (single precision); then a zoom blur of the overlaid photo toward its
// centre, weighted by byte 0 of the scaled mask, is written into a new
// buffer of width * 4 * height bytes, which is returned: the caller frees it
// with delete[]. Its alpha is the mean sample weight (0 where every sample
// weighs 0; those pixels keep the overlaid photo's colours through the zoom
// contrast curve). For an empty image the buffer has 0 bytes.
QTZQ_API unsigned char* StyleChuanYue1(unsigned char* image, unsigned char* material, int width,
                                       int height);

// Time tunnel, second step, in place: fades every photo pixel toward the
// pixel of `material` by that pixel's alpha (0 keeps the photo, 255 takes
// the material). `material` is a photo-sized pixel buffer, normally the one
// StyleChuanYue1 returned for this photo. The photo's alpha is left alone.
QTZQ_API void StyleChuanYue3(unsigned char* image, unsigned char* material, int width,
                             int height);

// --- Material-overlay presets ---------------------------------------------------
// One material image of the photo's size, read only, blended into the photo
// pixel by pixel. "Screened" is ScreenEx, "soft-lit" SoftLightEx.

// Lomo night: one brightening tone curve, then the material (e.g. stars)
// screened at full opacity (id 1044).
QTZQ_API void StyleLomoNight(unsigned char* image, unsigned char* material, int width, int height);

// Lomo snow: three tone curves, then the material (e.g. snow) screened at
// full opacity (id 1043).
QTZQ_API void StyleLomoSnow(unsigned char* image, unsigned char* material, int width, int height);

// Lomo Christmas: three tone curves, then the material screened at full
// opacity (id 1042).
QTZQ_API void StyleLomoChristmas(unsigned char* image, unsigned char* material, int width,
                                 int height);

// Bright red: the material (e.g. a light leak) screened at full opacity
// first, then three red-lifting tone curves on the screened pixel (id 1030).
QTZQ_API void StyleBrightRed(unsigned char* image, unsigned char* material, int width, int height);

// Lomo star: the material soft-lit over the photo at full opacity, no
// curves (id 1046).
QTZQ_API void StyleLomoStar(unsigned char* image, unsigned char* material, int width, int height);

// Reversal film: three contrasty tone curves, then the material soft-lit at
// an opacity taken from each material pixel's alpha, (alpha * 0.7f) / 255 in
// single precision: a transparent material pixel leaves the curved pixel,
// an opaque one blends at about 0.7 (id 1047).
QTZQ_API void StyleReverse(unsigned char* image, unsigned char* material, int width, int height);

// Lomo halo: the night curve, the material screened at full opacity, then a
// 15 % cross-fade toward the warm white blue 241, green 242, red 255 (id 1045).
QTZQ_API void StyleLomoHalo(unsigned char* image, unsigned char* material, int width, int height);

// --- Blend-table presets ----------------------------------------------------------
// `tables` is the application's blend table set: three 256 x 256 byte maps
// at byte offsets 4, 65543 and 131082 (at least 196618 bytes), entry (a, b)
// at map start + a * 256 + b. The library only reads it. Each map step sends
// blue, green and red through one map, the channel's current value as a;
// alpha is never read or written by a map step. Materials have the photo's
// size.

// Dazzling colour (id 1032): per channel, map 0 with the pixel itself, map 1
// with material1, map 2 with material2, then one tone curve. The materials
// are only read.
QTZQ_API void StyleXuanCai(unsigned char* image, unsigned char* material1,
                           unsigned char* material2, int width, int height,
                           unsigned char* tables);

// Yellowed (id 1038): HSL saturation -30 over the whole photo, then per
// channel a tone curve, map 0 with material1, map 1 with material2 and map 2
// with the warm colour blue 8, green 8, red 48. The materials are only read.
QTZQ_API void StyleFanHuang(unsigned char* image, unsigned char* material1,
                            unsigned char* material2, int width, int height,
                            unsigned char* tables);

// Kraft paper (id 1031): HSL saturation -35 over the whole photo, then per
// channel map 0 with the colour blue 100, green 10, red 14, map 1 with
// material1 and map 2 with material2. The materials are only read.
QTZQ_API void StyleNiuPiZhi(unsigned char* image, unsigned char* material1,
                            unsigned char* material2, int width, int height,
                            unsigned char* tables);

// Soft light by tables (no effect id). Side effect: the material's blue,
// green and red are sent through a dark tone curve and WRITTEN BACK into
// `material`; pass a copy if the material is reused. Then photo red =
// map 0 (material red, photo red), green = map 1 (material green, photo
// green), blue = map 2 (material blue, photo blue): here the material
// value is the first index. Alpha of both buffers is left alone.
QTZQ_API void StyleRouguang(unsigned char* image, unsigned char* material, int width, int height,
                            unsigned char* tables);

// --- Multi-material presets ---------------------------------------------------------
// Materials have the photo's size and are only read. "Composite" is
// CompositeColorEx, which scales the photo pixel by the opacity and soft-lights
// the material over it.

// Classic (id 1018): the pixel composited with itself at 1.0, with material1
// at float 0.8, with material2 at float 0.6, then one tone curve.
QTZQ_API void StyleJinDian(unsigned char* image, unsigned char* material1,
                           unsigned char* material2, int width, int height);

// Warm (id 1041): three warm tone curves over the whole photo, contrast -10
// (Light), then per pixel material1 multiplied (MultipleEx) and material2
// soft-lit, both at full opacity.
QTZQ_API void StyleWarm(unsigned char* image, unsigned char* material1, unsigned char* material2,
                        int width, int height);

// Pink beauty (id 1048): material1, material2 and material3 composited over
// the photo in that order, all at full opacity.
QTZQ_API void StyleFenHongJiaRen(unsigned char* image, unsigned char* material1,
                                 unsigned char* material2, unsigned char* material3, int width,
                                 int height);

// Milk (no effect id): a soft, milky pastel look. Brightness +12 and
// contrast -12 (Light), HSL saturation -25, then per pixel material1
// screened at 0.5 (haze), material2 soft-lit at 1.0 (texture or vignette)
// and material3 cross-faded in at 0.2 (colour wash). Deterministic; the
// materials are only read.
QTZQ_API void StyleMilk(unsigned char* image, unsigned char* material1, unsigned char* material2,
                        unsigned char* material3, int width, int height);

#endif  // QTZQEFFECT_STYLES_H
