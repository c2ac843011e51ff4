// The library's file readers, taking bytes: frames (cframe), free collage
// layouts (cfreepuzzle), puzzle formats (cpuzzleformat) and speech bubbles
// (csbubble). Rectangles come back as (x, y, width, height) tuples.
#include <qtzqeffect/frame.h>

#include <climits>
#include <cmath>
#include <optional>

#include "qtzq_app/frame_file.h"
#include "qtzq_app/image_file.h"

#include "arrays.h"
#include "bindings.h"

namespace qtzq_py {
namespace {

std::vector<unsigned char> file_bytes(const py::object& data) {
    std::vector<unsigned char> bytes = bytes_of(data, "data");
    if (bytes.size() > std::size_t(INT_MAX))
        throw py::value_error("the file is too large (" + std::to_string(bytes.size()) + " bytes)");
    return bytes;
}

// Hands a file to a library reader that returns 1 on success; ValueError
// with `refusal` otherwise.
template <typename Read>
void read_or_refuse(const py::object& data, Read&& read, const char* refusal) {
    std::vector<unsigned char> bytes = file_bytes(data);
    if (without_gil([&] { return read(bytes.data(), int(bytes.size())); }) != 1)
        throw py::value_error(refusal);
}

py::tuple rect_tuple(const _tagCGRect& rect) {
    return py::make_tuple(rect.x, rect.y, rect.width, rect.height);
}

py::tuple size_tuple(const _tagCGSize& size) { return py::make_tuple(size.width, size.height); }

void check_index(int index, int count, const char* what) {
    if (index < 0 || index >= count)
        throw py::index_error(std::string(what) + " " + std::to_string(index) +
                              " out of range 0.." + std::to_string(count - 1));
}

// A frame file's eight pieces around a photo.
class Frame {
public:
    Frame(const py::object& data, bool decode) {
        std::vector<unsigned char> bytes = file_bytes(data);
        if (bytes.empty()) throw py::value_error("the frame file is empty");
        without_gil([&] { frame_.ReadFrameFile(bytes.data(), int(bytes.size())); });
        for (int slot = 0; slot < qtzq_app::kFrameSlots; ++slot) {
            int length = 0;
            const unsigned char* block = frame_.GetFrameImage(slot, length);
            if (block && length > 0) encoded_[std::size_t(slot)].emplace(block, block + length);
        }
        if (decode) decode_pieces();
    }

    py::object encoded_piece(int slot) const {
        check_index(slot, qtzq_app::kFrameSlots, "slot");
        const auto& block = encoded_[std::size_t(slot)];
        if (!block) return py::none();
        return py::bytes(reinterpret_cast<const char*>(block->data()), block->size());
    }

    void decode_pieces() {
        for (int slot = 0; slot < qtzq_app::kFrameSlots; ++slot) {
            const auto& block = encoded_[std::size_t(slot)];
            if (!block) continue;
            BgraImage piece;
            std::string error;
            const std::string name = std::string(qtzq_app::frame_slot_name(slot)) + " piece";
            if (!qtzq_app::decode_image(*block, name, piece, error)) throw py::value_error(error);
            store_piece(slot, piece);
        }
    }

    void set_piece(int slot, const py::object& pixels, const std::string& order) {
        check_index(slot, qtzq_app::kFrameSlots, "slot");
        const Order layout = parse_order(order);
        const py::array array = checked_image(pixels, layout, "piece");
        BgraImage piece(int(array.shape(1)), int(array.shape(0)));
        copy_to_bgra(array, layout, piece.data());
        store_piece(slot, piece);
    }

    py::object composite(const py::object& photo, float scale, const std::string& order) {
        if (!(std::isfinite(scale) && scale > 0.0f))
            throw py::value_error("scale must be a number above 0");
        const Order layout = parse_order(order);
        const py::array array = checked_image(photo, layout, "photo");
        BgraImage pixels(int(array.shape(1)), int(array.shape(0)));
        copy_to_bgra(array, layout, pixels.data());
        int width = 0, height = 0;
        const unsigned char* framed = without_gil([&] {
            return frame_.GetCompositeImage(pixels.data(), pixels.width, pixels.height, scale,
                                            &width, &height);
        });
        if (!framed) throw py::value_error("the framed photo would be too large");
        return array_from_bgra(framed, width, height, layout, int(array.shape(2)));
    }

private:
    void store_piece(int slot, BgraImage& piece) {
        without_gil(
            [&] { frame_.SetFrameImageData(slot, piece.data(), piece.width, piece.height); });
    }

    cframe frame_;
    std::optional<std::vector<unsigned char>> encoded_[qtzq_app::kFrameSlots];
};

// A "MZYPT" free collage layout.
class FreeCollage {
public:
    explicit FreeCollage(const py::object& data) {
        read_or_refuse(
            data,
            [&](unsigned char* bytes, int length) { return puzzle_.ReadFrameFile(bytes, length); },
            "not a free collage layout: wrong magic, more than 9 cells or too short for its cells");
    }

    int count() { return std::max(puzzle_.GetCount(), 0); }
    py::tuple size() { return size_tuple(puzzle_.GetResultSize()); }

    py::tuple rect(int index) {
        check_index(index, count(), "cell");
        return rect_tuple(puzzle_.GetMaxRectWithIndex(index));
    }

    float rotation(int index) {
        check_index(index, count(), "cell");
        return puzzle_.GetRotationWithIndex(index);
    }

    py::tuple view_rect(int index, int photo_width, int photo_height) {
        check_index(index, count(), "cell");
        check_size(photo_width, photo_height, "the photo");
        return rect_tuple(puzzle_.GetViewRectWithIndex(index, {photo_width, photo_height}));
    }

private:
    cfreepuzzle puzzle_;
};

// A "ZQPTM" puzzle format, read into an object of its own (not the
// library's shared m_format).
class PuzzleFormat {
public:
    explicit PuzzleFormat(const py::object& data) {
        read_or_refuse(
            data,
            [&](unsigned char* bytes, int length) {
                return format_.ReadPuzzleFormatFile(bytes, length);
            },
            "not a puzzle format: wrong magic, more than 9 cells or too short for its cells");
    }

    int count() { return std::max(format_.GetPuzzleFormatCount(), 0); }
    py::tuple size() { return size_tuple(format_.GetPuzzleResultSize()); }

    py::tuple rect(int index) {
        check_index(index, count(), "cell");
        return rect_tuple(format_.GetPuzzleRectWithIndex(index));
    }

private:
    cpuzzleformat format_;
};

// A speech bubble's text box and colour.
class Bubble {
public:
    static constexpr std::size_t kMinimumSize = 224;

    explicit Bubble(const py::object& data) {
        std::vector<unsigned char> bytes = file_bytes(data);
        if (bytes.size() < kMinimumSize)
            throw py::value_error("a speech bubble file has at least 224 bytes, not " +
                                  std::to_string(bytes.size()));
        without_gil([&] { bubble_.ReadFrameFile(bytes.data(), int(bytes.size())); });
    }

    py::tuple text_rect() { return rect_tuple(bubble_.GetTextDrawRect()); }

    py::tuple text_color() {
        return py::make_tuple(bubble_.GetTextColorWithIndex(0), bubble_.GetTextColorWithIndex(1),
                              bubble_.GetTextColorWithIndex(2), bubble_.GetTextColorWithIndex(3));
    }

private:
    csbubble bubble_;
};

}  // namespace

void bind_readers(py::module_& module) {
    py::class_<Frame>(module, "Frame",
                      "A decorative frame file: four corner and four edge pieces drawn around a\n"
                      "photo. Slots: 0 top-left, 1 bottom-left, 2 top-right, 3 bottom-right\n"
                      "corner, 4 top, 5 bottom, 6 left, 7 right edge.")
        .def(py::init<const py::object&, bool>(),
             "Reads a frame file. With decode, every piece the file carries is decoded as\n"
             "PNG or JPEG (ValueError naming the piece when one is not); otherwise hand the\n"
             "decoded pieces over with set_piece().",
             py::arg("data"), py::arg("decode") = true)
        .def("encoded_piece", &Frame::encoded_piece,
             "The data block the file carries for slot 0..7, or None.", py::arg("slot"))
        .def("decode_pieces", &Frame::decode_pieces,
             "Decodes every piece the file carries as PNG or JPEG.")
        .def("set_piece", &Frame::set_piece, "Gives slot 0..7 its decoded pixels.", py::arg("slot"),
             py::arg("pixels"), py::kw_only(), py::arg("order") = "bgra")
        .def("composite", &Frame::composite,
             "The framed photo, as a new opaque array: the photo (cropped by what the\n"
             "edges do not tile) with the corners and the repeated edges around it. A\n"
             "scale other than 1 multiplies the corner insets and keeps them scaled, so\n"
             "pass it on one call only.",
             py::arg("photo"), py::arg("scale") = 1.0f, py::kw_only(), py::arg("order") = "bgra");

    py::class_<FreeCollage>(
        module, "FreeCollage",
        "A free collage layout (\"MZYPT\" file): up to nine cells scattered\n"
        "over a 640 x 896 canvas, placed, sized and tilted at reading time.\n"
        "Reading reseeds the process-wide rand() (with a constant, so a file\n"
        "always gives the same cells), which disturbs the clock-seeded effects\n"
        "if they run at the same moment on another thread.")
        .def(py::init<const py::object&>(), "Reads a layout; ValueError when it is refused.",
             py::arg("data"))
        .def_property_readonly("count", &FreeCollage::count, "The number of cells.")
        .def_property_readonly("size", &FreeCollage::size, "The canvas (width, height).")
        .def("rect", &FreeCollage::rect, "Cell index's (x, y, width, height).", py::arg("index"))
        .def("rotation", &FreeCollage::rotation, "Cell index's tilt in degrees.", py::arg("index"))
        .def("view_rect", &FreeCollage::view_rect,
             "Where a photo of the given size is drawn in cell index: scaled down (never\n"
             "up) to fit and centred.",
             py::arg("index"), py::arg("photo_width"), py::arg("photo_height"));

    py::class_<PuzzleFormat>(
        module, "PuzzleFormat",
        "A template collage's puzzle format (\"ZQPTM\" file): the collage size\n"
        "and up to nine photo cells.")
        .def(py::init<const py::object&>(), "Reads a puzzle format; ValueError when refused.",
             py::arg("data"))
        .def_property_readonly("count", &PuzzleFormat::count, "The number of cells.")
        .def_property_readonly("size", &PuzzleFormat::size, "The collage (width, height).")
        .def("rect", &PuzzleFormat::rect, "Cell index's (x, y, width, height).", py::arg("index"));

    py::class_<Bubble>(module, "Bubble", "A speech bubble file's text box and text colour.")
        .def(py::init<const py::object&>(),
             "Reads a bubble file (at least 224 bytes, else ValueError).", py::arg("data"))
        .def_property_readonly("text_rect", &Bubble::text_rect,
                               "The text box (x, y, width, height); sizes may be negative.")
        .def_property_readonly("text_color", &Bubble::text_color,
                               "The text colour: the file's three colour bytes in its own order,\n"
                               "then 255.");
}

}  // namespace qtzq_py
