// The command-line tool's image codecs: photo files to and from
// arrays, so that Python reads and writes photos exactly as `qtzq` does.
#include <pybind11/stl/filesystem.h>

#include <filesystem>

#include "qtzq_app/image_file.h"

#include "arrays.h"
#include "bindings.h"

namespace qtzq_py {
namespace {

namespace fs = std::filesystem;

// Reading and writing files fail with OSError, like Python's own file calls.
[[noreturn]] void raise_os_error(const std::string& message) {
    PyErr_SetString(PyExc_OSError, message.c_str());
    throw py::error_already_set();
}

py::array read_image(const fs::path& path, const std::string& order) {
    const Order layout = parse_order(order);
    BgraImage image;
    std::string error;
    if (!without_gil([&] { return qtzq_app::read_image(path.string(), image, error); }))
        raise_os_error(error);
    return array_from_bgra(image.data(), image.width, image.height, layout);
}

py::array decode_image(const py::object& data, const std::string& order) {
    const Order layout = parse_order(order);
    const std::vector<unsigned char> bytes = bytes_of(data, "data");
    BgraImage image;
    std::string error;
    if (!without_gil([&] { return qtzq_app::decode_image(bytes, "data", image, error); }))
        throw py::value_error(error);
    return array_from_bgra(image.data(), image.width, image.height, layout);
}

void write_image(const fs::path& path, const py::object& image, const std::string& order,
                 int quality, bool lossless, int compression) {
    const Order layout = parse_order(order);
    qtzq_app::ImageFormat format;
    if (!qtzq_app::format_for_path(path.string(), format))
        throw py::value_error(path.string() + ": unknown image type (use " +
                              qtzq_app::writable_extensions() + ")");
    if (quality < 1 || quality > 100) throw py::value_error("quality must lie in 1..100");
    if (compression < 0 || compression > 9) throw py::value_error("compression must lie in 0..9");
    qtzq_app::WriteOptions options;
    options.quality = quality;
    options.lossless = lossless;
    options.compression = compression;
    const py::array array = checked_image(image, layout, "image");
    BgraImage pixels(int(array.shape(1)), int(array.shape(0)));
    copy_to_bgra(array, layout, pixels.data());
    std::string error;
    if (!without_gil([&] {
            return qtzq_app::write_photo(path.string(), pixels, {}, options, error);
        }))
        raise_os_error(error);
}

}  // namespace

void bind_codecs(py::module_& module) {
    module.def("read_image", &read_image,
               "Reads a PNG, JPEG, WebP, TIFF, HEIF or AVIF file (recognised by its\n"
               "content; grey, palette, RGB or RGBA; the first frame or page of an animated\n"
               "or multi-page file) into a (height, width, 4) array: BGRA, or RGBA with\n"
               "order='rgb', turned upright by its EXIF orientation. Images without alpha\n"
               "come back opaque. OSError naming the file when it cannot be read or decoded.",
               py::arg("path"), py::kw_only(), py::arg("order") = "bgra");
    module.def("decode_image", &decode_image,
               "Decodes the bytes of an image file as read_image() does (ValueError\n"
               "when they are not one).",
               py::arg("data"), py::kw_only(), py::arg("order") = "bgra");
    module.def("write_image", &write_image,
               "Writes an image as PNG, JPEG, WebP or TIFF, chosen by the extension (.png,\n"
               ".jpg, .jpeg, .webp, .tif, .tiff): JPEG and lossy WebP at the given quality\n"
               "(1..100; JPEG drops alpha), WebP lossless with lossless=True, PNG and TIFF\n"
               "at the deflate level compression (0..9; 1 is fast, 9 smallest). The file is\n"
               "written under a temporary name and renamed into place, so a failure leaves\n"
               "no partial file. OSError naming the file on failure.",
               py::arg("path"), py::arg("image"), py::kw_only(), py::arg("order") = "bgra",
               py::arg("quality") = 92, py::arg("lossless") = false,
               py::arg("compression") = qtzq_app::WriteOptions::kDefaultCompression);
}

}  // namespace qtzq_py
