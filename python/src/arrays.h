// numpy arrays at the module's boundary: checking what callers hand in,
// converting between their channel order and the library's BGRA pixel
// buffers, and copying byte strings. Every message names the argument.
#ifndef QTZQ_PY_ARRAYS_H
#define QTZQ_PY_ARRAYS_H

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <string>
#include <utility>
#include <vector>

#include "qtzq_app/png_io.h"

namespace qtzq_py {

namespace py = pybind11;
using qtzq_app::BgraImage;

// The layout of the arrays a call takes and returns: the library's own
// BGRA, shape (H, W, 4); or RGB (H, W, 3) / RGBA (H, W, 4), converted at the
// boundary (an RGB image gets alpha 255 on the way in).
enum class Order { Bgra, Rgb };

// The name of an object's type, for messages.
std::string type_name(const py::handle& object);

// "bgra" or "rgb"; ValueError for anything else.
Order parse_order(const std::string& order);

// Checks that `image` is a numpy uint8 array of a shape `order` takes, at
// least 1 x 1 and small enough for the library (width * height * 4 bytes in
// an int). TypeError for a non-array or another dtype, ValueError for the
// shape or size. `what` names the argument ("image", "material 2").
py::array checked_image(const py::handle& image, Order order, const char* what);

// Copies a checked image (any strides) into a BGRA buffer of its size.
void copy_to_bgra(const py::array& image, Order order, unsigned char* bgra);

// A checked image as a BGRA buffer of exactly width x height, else
// ValueError naming both sizes.
BgraImage bgra_of_size(const py::handle& image, Order order, const char* what, int width,
                       int height);

// A new array in `order`'s layout holding a BGRA buffer; `channels` (3 or 4)
// is the RGB result's depth.
py::array array_from_bgra(const unsigned char* bgra, int width, int height, Order order,
                          int channels = 4);

// ValueError unless width x height is an image size the library takes.
void check_size(long long width, long long height, const char* what);

// The photo a call changes. In place, the caller's own array is the pixel
// buffer (it must be a writeable C-contiguous BGRA array: anything else is
// refused, never silently copied); otherwise a BGRA copy is changed and
// handed back as a new array in the caller's layout.
class Photo {
public:
    Photo(const py::handle& image, Order order, bool inplace);

    int width() const { return width_; }
    int height() const { return height_; }
    unsigned char* pixels() { return pixels_; }

    // The caller's array when working in place, else the new array.
    py::object result() const;

private:
    py::array caller_;
    py::array work_;  // BGRA (H, W, 4): caller_ itself in place, else a copy
    Order order_;
    bool inplace_;
    int width_ = 0;
    int height_ = 0;
    unsigned char* pixels_ = nullptr;
};

// Runs `work` with the GIL released (for library calls, which touch no
// Python object) and returns what it returns.
template <typename Work>
auto without_gil(Work&& work) {
    py::gil_scoped_release unlocked;
    return work();
}

// Runs `change(pixels, width, height)` on the photo with the GIL released
// and returns the result: the shape of every whole-image call.
template <typename Change>
py::object change_photo(const py::handle& image, const std::string& order, bool inplace,
                        Change&& change) {
    Photo photo(image, parse_order(order), inplace);
    without_gil([&] { change(photo.pixels(), photo.width(), photo.height()); });
    return photo.result();
}

// The bytes of a bytes-like object (bytes, bytearray, memoryview, a uint8
// array), in C order; TypeError for anything else.
std::vector<unsigned char> bytes_of(const py::handle& data, const char* what);

}  // namespace qtzq_py

#endif  // QTZQ_PY_ARRAYS_H
