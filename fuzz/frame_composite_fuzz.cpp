// Frame compositing: a frame file from the input, pieces of fuzzed sizes
// for some slots, a composite at a fuzzed scale and one at 1.0; every byte
// of each result is read back.
#include <cstdint>
#include <cstdlib>

#include "fuzz_input.h"
#include "qtzqeffect/frame.h"

namespace {

unsigned checksum(const unsigned char* image, int width, int height) {
    if (image == nullptr) {
        if (width != 0 || height != 0) std::abort();
        return 0;
    }
    if (width < 1 || height < 1) std::abort();
    unsigned sum = 0;
    for (long long i = 0; i < 4LL * width * height; ++i) sum += image[i];
    return sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qtzq_fuzz;
    if (size < kCompositeHeaderBytes) return 0;
    const Bytes input = copy_input(data, size);
    const CompositeParameters p = parse_composite(input);
    Bytes file(input.begin() + kCompositeHeaderBytes, input.end());
    if (!composite_stays_small(file, p.scale)) return 0;

    cframe frame;
    frame.ReadFrameFile(file.data(), static_cast<int>(file.size()));
    for (int slot = 0; slot < 8; ++slot) {
        if (!(p.decoded_slots & (1u << slot))) continue;
        Bytes piece(std::size_t(p.piece_width[slot]) * p.piece_height[slot] * 4, 0);
        for (std::size_t i = 0; i < piece.size(); ++i)
            piece[i] = static_cast<unsigned char>(i * 37 + slot);
        frame.SetFrameImageData(slot, piece.data(), p.piece_width[slot], p.piece_height[slot]);
    }
    Bytes photo(std::size_t(p.photo_width) * p.photo_height * 4);
    for (std::size_t i = 0; i < photo.size(); ++i) photo[i] = static_cast<unsigned char>(i * 11);

    int width = -1, height = -1;
    unsigned char* image = frame.GetCompositeImage(photo.data(), p.photo_width, p.photo_height,
                                                   p.scale, &width, &height);
    checksum(image, width, height);
    image =
        frame.GetCompositeImage(photo.data(), p.photo_width, p.photo_height, 1.0f, &width, &height);
    checksum(image, width, height);
    if (image != nullptr) {
        // The photo painted back onto the result at a fuzzed place and region.
        drawRect(image, width, height, photo.data(), p.photo_width, p.photo_height, int_at(file, 0),
                 int_at(file, 4),
                 ZQ2DRect{int_at(file, 8), int_at(file, 12), int_at(file, 16), int_at(file, 20)});
        draw(image, width, height, int_at(file, 24), int_at(file, 28), photo.data(), p.photo_width,
             p.photo_height);
    }
    return 0;
}
