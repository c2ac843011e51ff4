// A tiny built-in 5 x 8 pixel font (7 rows plus a descender row) (printable ASCII) for labelling images
// without a font library.
#ifndef QTZQ_CLI_BITMAP_FONT_H
#define QTZQ_CLI_BITMAP_FONT_H

#include <string>

#include "qtzq_app/png_io.h"

namespace qtzq_cli {

using qtzq_app::BgraImage;

constexpr int kGlyphWidth = 5;
constexpr int kGlyphHeight = 8;
constexpr int kGlyphAdvance = 6;  // glyph plus one column of spacing

struct TextColour {
    unsigned char r, g, b;
};

// True when pixel (column, row) of the glyph for `c` is set; characters
// outside printable ASCII draw as '?'.
bool glyph_pixel(char c, int column, int row);

// Width in pixels of `text` drawn at `scale` (no trailing spacing).
int text_width(const std::string& text, int scale);

// Draws `text` with its top-left corner at (x, y), each font pixel a
// `scale` x `scale` block; pixels outside the image are clipped.
void draw_text(BgraImage& image, int x, int y, const std::string& text, TextColour colour,
               int scale = 1);

// `text` shortened with "..." so that it fits `max_width` pixels at `scale`.
std::string fit_text(const std::string& text, int max_width, int scale);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_BITMAP_FONT_H
