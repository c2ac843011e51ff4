// Qtzqeffect: the one class through which an application reaches the style
// presets by effect id, plus the sharpening, soft-glow, colour-mixing,
// colourful-frame and time-tunnel entry points.
//
// All images are BGRA pixel buffers (byte 0 blue, 1 green, 2 red, 3 alpha),
// width * 4 bytes per row, rows top to bottom. Presets change the photo in
// place. The class holds no data: one object may serve any number of calls,
// from any thread, as far as the presets reached allow (the clock-seeded
// noise presets share the process-wide rand() generator, and soft glow
// shares the Gaussian blur singleton).
#ifndef QTZQEFFECT_FACADE_H
#define QTZQEFFECT_FACADE_H

#include "qtzqeffect/export.h"

class QTZQ_API Qtzqeffect {
public:
    Qtzqeffect();

    // Kept for the interface: ignores both bounds and always returns 1.
    // It is not a random-number source.
    int randInt(int low, int high);

    // Sets green and red of every pixel to 0, keeps blue and alpha.
    // Always returns 0.
    int sample(unsigned char* image, int width, int height);

    // --- Dispatch by effect id -------------------------------------------
    // Each overload looks the id up in its own table only and calls that
    // preset once. An id the overload does not know (including an id that
    // belongs to another overload) leaves every buffer untouched. None of
    // the overloads checks buffers or sizes: that is the caller's job.

    // Single-image presets (1019-1023, 1027, 1028, 1033-1035, 1039, 1040,
    // 1101). Returns 1.
    int effect(int id, unsigned char* image, int width, int height);

    // One material image of the photo's size (1026, 1030, 1042-1047, 1102,
    // 1104). Returns 1.
    int effect(int id, unsigned char* image, unsigned char* material, int width, int height);

    // Two material images (1018, 1041). Returns 1.
    int effect(int id, unsigned char* image, unsigned char* material1, unsigned char* material2,
               int width, int height);

    // Three material images (1048 only). Returns 1048 for every other id and
    // leaves the buffers alone; for 1048 the result carries no meaning.
    // Callers must not test the result of this overload.
    int effect(int id, unsigned char* image, unsigned char* material1, unsigned char* material2,
               unsigned char* material3, int width, int height);

    // Two material images and a blend table set (1031, 1032, 1038). The
    // table set holds three 256 x 256 maps at byte offsets 4, 65543 and
    // 131082 (at least 196618 bytes). `reserved` is ignored. Returns 1.
    int effect(int id, unsigned char* image, unsigned char* material1, unsigned char* material2,
               int width, int height, unsigned char* tables, int reserved);

    // Empty entries kept for the interface: do nothing and return 1.
    int effect(int id, unsigned char* image, int width, int height, unsigned char* material,
               int reserved);
    int effect(int id, unsigned char* image, unsigned char* material1, int width, int height,
               unsigned char* material2, int reserved);

    // --- Soft glow ---------------------------------------------------------
    // Returns a blurred copy of the photo (free it with delete[]), or null
    // for a null photo.
    unsigned char* WeakInit(unsigned char* image, int width, int height, int radius);
    // Fades `blurred` into `image` by the red byte of each `weight` pixel.
    // Returns 0 if any buffer is null, else 1.
    int WeakProcess(unsigned char* image, unsigned char* blurred, unsigned char* weight,
                    int width, int height);

    // Lays `material` over the photo: kind 1 or 2 screen, 3 or 4 soft light,
    // any other kind nothing. Returns 0 for a null buffer, else 1.
    int ColorfulFrame(unsigned char* image, unsigned char* material, int width, int height,
                      int kind);

    // --- Sharpening in two steps -------------------------------------------
    // Returns the blurred photo to pass to SharpProcess (free it with
    // delete[]; its alpha bytes are the photo's), or null for a null photo.
    unsigned char* SharpInit(unsigned char* image, int width, int height);
    // Pushes every colour byte away from its blurred value by `amount`.
    // Returns 0 if either buffer is null, else 1.
    int SharpProcess(unsigned char* image, unsigned char* blurred, int width, int height,
                     float amount);

    // Brightness/contrast (a, b) then matrix saturation. Returns 0 for a
    // null photo, else 1.
    int ColorMixing(unsigned char* image, int width, int height, int a, int b, int saturation);

    // --- Two-step time tunnel ------------------------------------------------
    // First step: returns a new buffer of the photo's size that the caller
    // frees with delete[]. `material` is a 240 x 240 pixel buffer.
    unsigned char* effectShiGuangSuiDao(unsigned char* image, unsigned char* material, int width,
                                        int height);
    // Second step, in place: `material` is the buffer the first step
    // returned. Returns 1.
    int effectShiGuangSuiDaoResult(unsigned char* image, unsigned char* material, int width,
                                   int height);
};

// The colourful frame without the facade: lays `material` (a pixel buffer
// of the photo's size, only read; its alpha is ignored) over the photo in
// place, kind 1 or 2 by screen, kind 3 or 4 by soft light, both at full
// opacity; any other kind leaves the photo as it is. The photo's alpha is
// left alone. Unlike Qtzqeffect::ColorfulFrame it checks no pointer.
QTZQ_API void FrameXCBK(unsigned char* image, unsigned char* material, int width, int height,
                        int kind);

#endif  // QTZQEFFECT_FACADE_H
