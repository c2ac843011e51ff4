// qtzq frame: a frame file drawn around a photo by the library's cframe.
#include <climits>
#include <cstring>
#include <iostream>

#include <qtzqeffect/frame.h>

#include "qtzq_app/file_bytes.h"
#include "qtzq_app/frame_file.h"
#include "qtzq_app/image_file.h"

#include "args.h"
#include "commands.h"

namespace qtzq_cli {

using namespace qtzq_app;

namespace {

const char* const kHelp =
    "usage: qtzq frame FRAMEFILE PHOTO -o OUTPUT [--scale S] [--quality N] [--strip]\n\n"
    "Draws the frame of FRAMEFILE around PHOTO with the library's frame\n"
    "compositing (cframe): the corner pieces in the corners, the edge pieces\n"
    "repeated along the sides, the photo cropped by the part of each side that\n"
    "is not a whole number of edge pieces. The pieces in the file are PNG (or\n"
    "JPEG) images; 'qtzq make-frame' builds such files. PHOTO is turned upright\n"
    "by its EXIF orientation, and its metadata is kept as 'qtzq apply' keeps it.\n\n"
    "  -o, --output FILE  the framed photo (.png, .jpg, .jpeg, .webp, .tif, .tiff)\n"
    "      --scale S      multiplies the corner insets (default 1)\n"
    "      --quality N    JPEG and WebP quality 1..100 (default 92)\n"
    "      --strip        write no metadata (profile, EXIF, XMP)\n";

std::vector<unsigned char> load_frame_file(const std::string& path) {
    std::vector<unsigned char> bytes;
    std::string error;
    if (!qtzq_app::read_file_bytes(path, bytes, error)) throw RunError(error);
    if (bytes.size() > std::size_t(INT_MAX)) throw RunError(path + ": file too large");
    FrameFile checked;
    if (!parse_frame_file(bytes, checked, error)) throw RunError(path + ": " + error);
    return bytes;
}

// Reads the file into the frame object and hands every piece back decoded,
// in the order the object expects.
void load_pieces(cframe& frame, std::vector<unsigned char>& bytes, const std::string& path) {
    frame.ReadFrameFile(bytes.data(), int(bytes.size()));
    for (int slot = 0; slot < kFrameSlots; ++slot) {
        int length = 0;
        const unsigned char* block = frame.GetFrameImage(slot, length);
        if (!block) continue;
        const std::vector<unsigned char> encoded(block, block + length);
        BgraImage piece;
        std::string error;
        if (!decode_image(encoded, path + ": " + frame_slot_name(slot) + " piece", piece, error))
            throw RunError(error);
        frame.SetFrameImageData(slot, piece.data(), piece.width, piece.height);
    }
}

}  // namespace

int run_frame(const Words& words) {
    const ParsedArgs args = parse_args(words, {{"output", 'o', true, false},
                                               {"scale", 0, true, false},
                                               {"quality", 0, true, false},
                                               {"strip", 0, false, false}});
    if (args.has("help")) {
        std::cout << kHelp;
        return kExitOk;
    }
    if (args.positionals.size() != 2) throw UsageError("needs FRAMEFILE and PHOTO");
    if (!args.has("output")) throw UsageError("needs -o OUTPUT");
    const float scale = float(args.double_value("scale", 1.0, 0.0, 1000.0));
    WriteOptions options;
    options.quality = args.int_value("quality", 92, 1, 100);
    ImageFormat unused;
    if (!format_for_path(args.value("output"), unused))
        throw UsageError(args.value("output") + ": unknown image type (use " +
                         writable_extensions() + ")");

    std::vector<unsigned char> bytes = load_frame_file(args.positionals[0]);
    Photo file;
    std::string error;
    if (!read_photo(args.positionals[1], file, error)) throw RunError(error);
    for (const auto& note : file.notes) std::cerr << "qtzq frame: note: " << note << '\n';
    BgraImage& photo = file.image;

    cframe frame;
    load_pieces(frame, bytes, args.positionals[0]);
    int width = 0, height = 0;
    const unsigned char* framed =
        frame.GetCompositeImage(photo.data(), photo.width, photo.height, scale, &width, &height);
    if (!framed) throw RunError(args.positionals[1] + ": the framed photo would be too large");
    BgraImage result(width, height);
    std::memcpy(result.data(), framed, result.pixels.size());
    if (!write_photo(args.value("output"), result, args.has("strip") ? PhotoMetadata() : file.metadata,
                     options, error))
        throw RunError(error);
    return kExitOk;
}

}  // namespace qtzq_cli
