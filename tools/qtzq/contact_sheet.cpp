#include "contact_sheet.h"

#include <algorithm>

#include "qtzq_app/resample.h"

#include "bitmap_font.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 12;
constexpr int kTitleScale = 2;
constexpr int kLineHeight = 10;
constexpr int kLabelHeight = 2 * kLineHeight + 4;
constexpr unsigned char kBackground[3] = {36, 32, 32};  // B, G, R
constexpr TextColour kTitleColour{240, 240, 240};
constexpr TextColour kLabelColour{230, 230, 230};
constexpr TextColour kDimColour{150, 150, 150};
constexpr TextColour kFlagColour{255, 170, 60};

void fill_background(BgraImage& sheet) {
    for (std::size_t i = 0; i < sheet.pixels.size(); i += 4) {
        std::copy(kBackground, kBackground + 3, sheet.pixels.begin() + std::ptrdiff_t(i));
        sheet.pixels[i + 3] = 255;
    }
}

// Copies `thumb` to (x, y), blending by its alpha over what is there.
void paste(BgraImage& sheet, const BgraImage& thumb, int x, int y) {
    for (int ty = 0; ty < thumb.height; ++ty)
        for (int tx = 0; tx < thumb.width; ++tx) {
            const unsigned char* s = thumb.at(tx, ty);
            unsigned char* d = sheet.at(x + tx, y + ty);
            const int a = s[3];
            for (int k = 0; k < 3; ++k)
                d[k] = static_cast<unsigned char>((s[k] * a + d[k] * (255 - a) + 127) / 255);
        }
}

}  // namespace

BgraImage make_contact_sheet(const std::string& title, const std::vector<SheetEntry>& entries,
                             const SheetLayout& layout) {
    const int count = int(entries.size());
    const int columns = std::max(1, std::min(layout.columns, std::max(1, count)));
    const int rows = (count + columns - 1) / columns;
    const int tw = layout.thumb_width;
    int th = tw;
    if (count > 0) {
        const BgraImage& first = *entries.front().image;
        th = std::max(1, int(double(first.height) * tw / first.width + 0.5));
    }
    const int title_height = kGlyphHeight * kTitleScale + kMargin;
    const int cell_height = th + kLabelHeight;
    BgraImage sheet(2 * kMargin + columns * tw + (columns - 1) * kGap,
                    kMargin + title_height + rows * cell_height + (rows - 1) * kGap + kMargin);
    fill_background(sheet);
    draw_text(sheet, kMargin, kMargin, fit_text(title, sheet.width - 2 * kMargin, kTitleScale),
              kTitleColour, kTitleScale);
    for (int i = 0; i < count; ++i) {
        const SheetEntry& entry = entries[std::size_t(i)];
        const int x = kMargin + (i % columns) * (tw + kGap);
        const int y = kMargin + title_height + (i / columns) * (cell_height + kGap);
        paste(sheet, scale_area(*entry.image, tw, th), x, y);
        draw_text(sheet, x, y + th + 4, fit_text(entry.title, tw, 1), kLabelColour);
        draw_text(sheet, x, y + th + 4 + kLineHeight, fit_text(entry.subtitle, tw, 1),
                  entry.flagged ? kFlagColour : kDimColour);
    }
    return sheet;
}

}  // namespace qtzq_cli
