// Writes the seed corpus of the photo reader targets: a small photo with an
// ICC profile, EXIF and XMP in every writable format (and HEIF when
// libheif can encode it), one folder per target.
//
//   qtzq-fuzz-photo-seeds OUTPUT_DIR
#include <libheif/heif.h>
#include <sys/stat.h>

#include <string>

#include "qtzq_app/image_file.h"

namespace {

qtzq_app::BgraImage small_photo() {
    qtzq_app::BgraImage photo(9, 6);
    for (std::size_t i = 0; i < photo.pixels.size(); ++i)
        photo.pixels[i] = static_cast<unsigned char>(i * 37 % 251);
    return photo;
}

qtzq_app::PhotoMetadata small_metadata() {
    qtzq_app::PhotoMetadata metadata;
    metadata.exif = {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0, 0, 0, 6, 0, 0, 0,
                     0, 0, 0, 0};
    metadata.xmp = {'<', 'x', '/', '>'};
    return metadata;
}

bool write_heif(const std::string& path) {
    heif_context* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_image* picture = nullptr;
    bool ok = heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder).code ==
                  heif_error_Ok &&
              heif_image_create(16, 16, heif_colorspace_RGB, heif_chroma_interleaved_RGB,
                                &picture).code == heif_error_Ok &&
              heif_image_add_plane(picture, heif_channel_interleaved, 16, 16, 8).code ==
                  heif_error_Ok;
    ok = ok && heif_context_encode_image(context, picture, encoder, nullptr, nullptr).code ==
                   heif_error_Ok &&
         heif_context_write_to_file(context, path.c_str()).code == heif_error_Ok;
    if (picture) heif_image_release(picture);
    if (encoder) heif_encoder_release(encoder);
    heif_context_free(context);
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::string root = argv[1];
    ::mkdir(root.c_str(), 0755);
    const struct {
        const char* target;
        const char* file;
        bool lossless;
    } seeds[] = {{"read_png", "a.png", false},   {"read_jpeg", "a.jpg", false},
                 {"read_webp", "a.webp", false}, {"read_webp", "b.webp", true},
                 {"read_tiff", "a.tif", false}};
    bool ok = true;
    for (const auto& seed : seeds) {
        const std::string folder = root + "/" + seed.target;
        ::mkdir(folder.c_str(), 0755);
        qtzq_app::WriteOptions options;
        options.lossless = seed.lossless;
        std::string error;
        ok &= qtzq_app::write_photo(folder + "/" + seed.file, small_photo(), small_metadata(),
                                    options, error);
    }
    ::mkdir((root + "/read_heif").c_str(), 0755);
    write_heif(root + "/read_heif/a.heic");  // optional: not every libheif can encode
    return ok ? 0 : 1;
}
