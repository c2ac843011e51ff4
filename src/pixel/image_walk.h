// Pixel loops shared by the presets and whole-image primitives.
//
// A photo and its companion buffers (materials, a grey plane walked as
// pixels) all have the photo's width and height and a row stride of exactly
// width * 4 bytes, so walking "row by row, left to right" is the same as
// walking the pixels in memory order. The loops visit no pixel when the
// width or the height is below 1.
#ifndef QTZQ_PIXEL_IMAGE_WALK_H
#define QTZQ_PIXEL_IMAGE_WALK_H

#include <cstddef>

namespace qtzq {

constexpr std::size_t kBytesPerPixel = 4;

// Number of pixels of a width x height buffer; 0 when either side is below 1.
inline std::size_t pixel_count(int width, int height) {
    if (width < 1 || height < 1) return 0;
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

namespace detail {
template <typename Fn, typename... Companions>
void walk_pixels(std::size_t count, Fn& fn, unsigned char* image, Companions*... companions) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t offset = i * kBytesPerPixel;
        fn(image + offset, (companions + offset)...);
    }
}
}  // namespace detail

// fn(pixel) for every pixel of the image.
template <typename Fn>
void for_each_pixel(unsigned char* image, int width, int height, Fn fn) {
    detail::walk_pixels(pixel_count(width, height), fn, image);
}

// fn(pixel, material pixel) for every pixel, the material advancing in step.
template <typename Fn>
void for_each_pixel(unsigned char* image, unsigned char* material, int width, int height, Fn fn) {
    detail::walk_pixels(pixel_count(width, height), fn, image, material);
}

// fn(pixel, material1 pixel, material2 pixel).
template <typename Fn>
void for_each_pixel(unsigned char* image, unsigned char* material1, unsigned char* material2,
                    int width, int height, Fn fn) {
    detail::walk_pixels(pixel_count(width, height), fn, image, material1, material2);
}

// fn(pixel, material1 pixel, material2 pixel, material3 pixel).
template <typename Fn>
void for_each_pixel(unsigned char* image, unsigned char* material1, unsigned char* material2,
                    unsigned char* material3, int width, int height, Fn fn) {
    detail::walk_pixels(pixel_count(width, height), fn, image, material1, material2, material3);
}

}  // namespace qtzq

#endif  // QTZQ_PIXEL_IMAGE_WALK_H
