// qtzq make-frame: packs piece images into a frame file.
#include <iostream>
#include <sstream>

#include "qtzq_app/file_bytes.h"
#include "qtzq_app/frame_file.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/number_text.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

const char* const kHelp =
    "usage: qtzq make-frame TOP-LEFT BOTTOM-LEFT TOP-RIGHT BOTTOM-RIGHT TOP BOTTOM\n"
    "                       LEFT RIGHT [--insets LIST] -o FRAMEFILE\n\n"
    "Writes a frame file for 'qtzq frame' (and any application using the\n"
    "library's cframe) from eight PNG pieces, in this order: the four corners,\n"
    "then the edge pieces that are repeated along the top, bottom, left and\n"
    "right side. '-' leaves a piece out. The PNG files are stored as they are;\n"
    "transparent pixels let the photo show through.\n\n"
    "  --insets LIST  how far each corner piece reaches over the photo, in\n"
    "                 pixels: 'X,Y' for every corner or eight numbers\n"
    "                 'X0,Y0,X1,Y1,X2,Y2,X3,Y3' for top-left, bottom-left,\n"
    "                 top-right, bottom-right (default 0,0)\n"
    "  -o FRAMEFILE   the frame file\n";

std::vector<int> parse_insets(const std::string& text) {
    std::vector<int> values;
    std::stringstream stream(text);
    std::string item;
    while (std::getline(stream, item, ',')) {
        long long value = 0;
        if (!parse_int(item, -1000000, 1000000, value))
            throw UsageError("--insets wants whole numbers separated by commas, not '" + text + "'");
        values.push_back(int(value));
    }
    if (values.size() != 2 && values.size() != 8)
        throw UsageError("--insets wants 2 or 8 numbers, " + std::to_string(values.size()) +
                         " given");
    return values;
}

std::vector<unsigned char> load_piece(const std::string& path) {
    std::vector<unsigned char> bytes;
    std::string error;
    BgraImage check;
    if (!qtzq_app::read_file_bytes(path, bytes, error)) throw RunError(error);
    if (!qtzq_app::looks_like_png(bytes.data(), bytes.size()))
        throw RunError(path + ": not a PNG file (frame pieces are PNG)");
    if (!decode_image(bytes, path, check, error)) throw RunError(error);
    return bytes;
}

}  // namespace

int run_make_frame(const Words& words) {
    const ParsedArgs args =
        parse_args(words, {{"output", 'o', true, false}, {"insets", 0, true, false}});
    if (args.has("help")) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (args.positionals.size() != std::size_t(kFrameSlots))
        throw UsageError("needs eight pieces (use '-' for none), " +
                         std::to_string(args.positionals.size()) + " given");
    if (!args.has("output")) throw UsageError("needs -o FRAMEFILE");
    std::vector<int> insets = parse_insets(args.value("insets", "0,0"));
    FrameFile frame;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const std::size_t at = insets.size() == 2 ? 0 : corner * 2;
        frame.inset_x[corner] = insets[at];
        frame.inset_y[corner] = insets[at + 1];
    }
    for (std::size_t slot = 0; slot < std::size_t(kFrameSlots); ++slot)
        if (args.positionals[slot] != "-") frame.pieces[slot] = load_piece(args.positionals[slot]);
    std::string error;
    if (!write_bytes(args.value("output"), encode_frame_file(frame), error)) throw RunError(error);
    return kExitOk;
}

}  // namespace qtzq_cli
