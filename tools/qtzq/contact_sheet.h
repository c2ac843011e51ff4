// A contact sheet: thumbnails in a grid on a dark background, each with two
// lines of label drawn in the built-in bitmap font, under a title.
#ifndef QTZQ_CLI_CONTACT_SHEET_H
#define QTZQ_CLI_CONTACT_SHEET_H

#include <string>
#include <vector>

#include "qtzq_app/png_io.h"

namespace qtzq_cli {

using qtzq_app::BgraImage;

struct SheetEntry {
    const BgraImage* image;
    std::string title;     // first label line, bright
    std::string subtitle;  // second label line, dim
    bool flagged = false;  // subtitle drawn in the warning colour
};

struct SheetLayout {
    int thumb_width = 200;
    int columns = 6;
};

// Every entry's image is shrunk to the thumbnail width (keeping its aspect
// ratio, the height taken from the first entry) and composited over the
// background by its alpha.
BgraImage make_contact_sheet(const std::string& title, const std::vector<SheetEntry>& entries,
                             const SheetLayout& layout);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_CONTACT_SHEET_H
