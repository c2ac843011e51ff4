#include "arrays.h"

#include <cstdint>
#include <cstring>

#include "qtzq_app/image_limits.h"

namespace qtzq_py {
namespace {

using Bytes = py::array_t<std::uint8_t, py::array::c_style>;

std::string shape_text(const py::array& array) {
    std::string text = "(";
    for (py::ssize_t axis = 0; axis < array.ndim(); ++axis)
        text += (axis ? ", " : "") + std::to_string(array.shape(axis));
    return text + (array.ndim() == 1 ? ",)" : ")");
}

std::string size_text(long long width, long long height) {
    return qtzq_app::size_text(std::uint64_t(width), std::uint64_t(height));
}

bool shape_fits(const py::array& array, Order order) {
    if (array.ndim() != 3) return false;
    const py::ssize_t channels = array.shape(2);
    return channels == 4 || (order == Order::Rgb && channels == 3);
}

py::array new_array(int width, int height, int channels) {
    return Bytes({py::ssize_t(height), py::ssize_t(width), py::ssize_t(channels)});
}

}  // namespace

std::string type_name(const py::handle& object) { return Py_TYPE(object.ptr())->tp_name; }

Order parse_order(const std::string& order) {
    if (order == "bgra") return Order::Bgra;
    if (order == "rgb") return Order::Rgb;
    throw py::value_error("order must be 'bgra' or 'rgb', not '" + order + "'");
}

void check_size(long long width, long long height, const char* what) {
    if (width < 1 || height < 1)
        throw py::value_error(std::string(what) + " is empty (" + std::to_string(width) + "x" +
                              std::to_string(height) + ")");
    if (!qtzq_app::image_size_supported(std::uint64_t(width), std::uint64_t(height)))
        throw py::value_error(std::string(what) + " is too large (" + size_text(width, height) +
                              "): the library takes images of at most 2147483647 bytes");
}

py::array checked_image(const py::handle& image, Order order, const char* what) {
    if (!py::isinstance<py::array>(image))
        throw py::type_error(std::string(what) + " must be a numpy array, not " + type_name(image));
    const auto array = py::reinterpret_borrow<py::array>(image);
    if (array.dtype().kind() != 'u' || array.itemsize() != 1)
        throw py::type_error(std::string(what) + " must have dtype uint8, not " +
                             std::string(py::str(array.dtype())));
    if (!shape_fits(array, order))
        throw py::value_error(std::string(what) + " must have shape " +
                              (order == Order::Bgra ? "(height, width, 4) for order 'bgra'"
                                                    : "(height, width, 3 or 4) for order 'rgb'") +
                              ", not " + shape_text(array));
    check_size(array.shape(1), array.shape(0), what);
    return array;
}

void copy_to_bgra(const py::array& image, Order order, unsigned char* bgra) {
    const Bytes contiguous = Bytes::ensure(image);  // a copy only for strided views
    const std::size_t count = std::size_t(image.shape(0)) * std::size_t(image.shape(1));
    const std::uint8_t* source = contiguous.data();
    if (order == Order::Bgra) {
        std::memcpy(bgra, source, count * 4);
        return;
    }
    const std::size_t channels = std::size_t(image.shape(2));
    for (std::size_t i = 0; i < count; ++i, source += channels, bgra += 4) {
        bgra[0] = source[2];
        bgra[1] = source[1];
        bgra[2] = source[0];
        bgra[3] = channels == 4 ? source[3] : 255;
    }
}

BgraImage bgra_of_size(const py::handle& image, Order order, const char* what, int width,
                       int height) {
    const py::array array = checked_image(image, order, what);
    if (array.shape(1) != width || array.shape(0) != height)
        throw py::value_error(std::string(what) + " is " +
                              size_text(array.shape(1), array.shape(0)) + " but the image is " +
                              size_text(width, height));
    BgraImage bgra(width, height);
    copy_to_bgra(array, order, bgra.data());
    return bgra;
}

py::array array_from_bgra(const unsigned char* bgra, int width, int height, Order order,
                          int channels) {
    const std::size_t count = std::size_t(width) * std::size_t(height);
    if (order == Order::Bgra) {
        py::array out = new_array(width, height, 4);
        std::memcpy(out.mutable_data(), bgra, count * 4);
        return out;
    }
    py::array out = new_array(width, height, channels);
    auto* target = static_cast<unsigned char*>(out.mutable_data());
    for (std::size_t i = 0; i < count; ++i, bgra += 4, target += channels) {
        target[0] = bgra[2];
        target[1] = bgra[1];
        target[2] = bgra[0];
        if (channels == 4) target[3] = bgra[3];
    }
    return out;
}

Photo::Photo(const py::handle& image, Order order, bool inplace)
    : order_(order), inplace_(inplace) {
    if (inplace && order != Order::Bgra)
        throw py::value_error(
            "inplace=True works on the library's own layout only: pass a BGRA array with "
            "order='bgra', or leave inplace=False");
    caller_ = checked_image(image, order, "image");
    height_ = int(caller_.shape(0));
    width_ = int(caller_.shape(1));
    if (inplace) {
        if (!caller_.writeable())
            throw py::value_error("inplace=True needs a writeable array; this image is read-only");
        if (!(caller_.flags() & py::array::c_style))
            throw py::value_error(
                "inplace=True needs a C-contiguous array; this image is a strided view "
                "(np.ascontiguousarray(image) gives a copy to work on)");
        work_ = caller_;
    } else {
        work_ = new_array(width_, height_, 4);
        copy_to_bgra(caller_, order, static_cast<unsigned char*>(work_.mutable_data()));
    }
    pixels_ = static_cast<unsigned char*>(work_.mutable_data());
}

py::object Photo::result() const {
    if (inplace_ || order_ == Order::Bgra) return work_;
    return array_from_bgra(pixels_, width_, height_, order_, int(caller_.shape(2)));
}

std::vector<unsigned char> bytes_of(const py::handle& data, const char* what) {
    if (!PyObject_CheckBuffer(data.ptr()))
        throw py::type_error(std::string(what) +
                             " must be bytes-like (bytes, bytearray, memoryview or a uint8 "
                             "array), not " +
                             type_name(data));
    const py::memoryview view(py::reinterpret_borrow<py::object>(data));
    const int item_size = view.attr("itemsize").cast<int>();
    if (item_size != 1)
        throw py::type_error(std::string(what) + " must hold single bytes, not items of " +
                             std::to_string(item_size) + " bytes");
    const std::string bytes = view.attr("tobytes")().cast<std::string>();
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

}  // namespace qtzq_py
