// PNG reading and writing for the applications, converting to and from the
// library's BGRA pixel buffers.
#ifndef QTZQ_APP_PNG_IO_H
#define QTZQ_APP_PNG_IO_H

#include <cstddef>
#include <string>
#include <vector>

namespace qtzq_app {

// A BGRA pixel buffer with its size: byte 0 blue, 1 green, 2 red, 3 alpha.
struct BgraImage {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;  // width * height * 4 bytes

    BgraImage() = default;
    BgraImage(int w, int h) : width(w), height(h), pixels(std::size_t(w) * h * 4, 0) {}
    unsigned char* data() { return pixels.data(); }
    unsigned char* at(int x, int y) { return pixels.data() + (std::size_t(y) * width + x) * 4; }
    const unsigned char* at(int x, int y) const {
        return pixels.data() + (std::size_t(y) * width + x) * 4;
    }
};

// True when `bytes` start with the PNG signature.
bool looks_like_png(const unsigned char* bytes, std::size_t size);

// Reads a PNG of any colour type (grey, grey + alpha, palette, RGB, RGBA;
// 16-bit samples are reduced to 8 bits) into a BGRA image. Images without
// alpha come back opaque. On failure returns false and sets `error` to a
// message naming `name` and the problem.
bool read_png_memory(const unsigned char* bytes, std::size_t size, const std::string& name,
                     BgraImage& image, std::string& error);

// Reads a PNG file as read_png_memory does.
bool read_png(const std::string& path, BgraImage& image, std::string& error);

// Writes the image as an 8-bit RGBA PNG. On failure returns false and sets
// `error` to a message naming the file and the problem.
bool write_png(const std::string& path, const BgraImage& image, std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_PNG_IO_H
