// One photo file reader of the applications (QTZQ_FUZZ_DECODER, e.g.
// decode_webp): any bytes, from a heap block of exactly their size; what
// it accepts is turned upright and its EXIF prepared for writing, as
// reading a photo does.
#include <cstdint>

#include "fuzz_input.h"
#include "photo_codecs.h"
#include "qtzq_app/exif.h"
#include "qtzq_app/orientation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const qtzq_fuzz::Bytes file = qtzq_fuzz::copy_input(data, size);
    qtzq_app::DecodedPhoto photo;
    std::string error;
    if (!qtzq_app::QTZQ_FUZZ_DECODER(file.data(), file.size(), "fuzz", photo, error)) return 0;
    const qtzq_app::BgraImage upright = qtzq_app::upright(photo.image, photo.orientation);
    const std::vector<unsigned char> exif = qtzq_app::exif_for_output(photo.metadata.exif);
    // Turning never changes the pixel count; the EXIF prepared never grows.
    if (upright.pixels.size() != photo.image.pixels.size() || exif.size() > photo.metadata.exif.size())
        __builtin_trap();
    return 0;
}
