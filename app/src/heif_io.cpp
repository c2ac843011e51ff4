// HEIF files (libheif): HEIC and AVIF, read only. The primary image is
// decoded with the file's own rotation and mirroring applied (HEIF keeps
// them outside the EXIF data, which may still say otherwise), with its ICC
// profile, EXIF and XMP.
#include <libheif/heif.h>

#include <cstring>
#include <memory>

#include "big_endian.h"
#include "heif_derivations.h"
#include "qtzq_app/image_limits.h"
#include "photo_codecs.h"

namespace qtzq_app {
namespace {

constexpr int kLargestSide = 23170;  // 23170^2 * 4 bytes stay below INT_MAX

using Context = std::unique_ptr<heif_context, void (*)(heif_context*)>;
using Handle = std::unique_ptr<heif_image_handle, void (*)(const heif_image_handle*)>;
using Image = std::unique_ptr<heif_image, void (*)(const heif_image*)>;

std::vector<unsigned char> metadata_block(const heif_image_handle* handle, heif_item_id id) {
    std::vector<unsigned char> bytes(heif_image_handle_get_metadata_size(handle, id));
    if (heif_image_handle_get_metadata(handle, id, bytes.data()).code != heif_error_Ok) return {};
    return bytes;
}

// EXIF blocks start with the offset of the TIFF structure (4 bytes,
// big-endian); XMP is the "mime" block of type application/rdf+xml.
void read_metadata(const heif_image_handle* handle, PhotoMetadata& metadata) {
    const std::size_t icc = heif_image_handle_get_raw_color_profile_size(handle);
    if (icc > 0) {
        metadata.icc.resize(icc);
        if (heif_image_handle_get_raw_color_profile(handle, metadata.icc.data()).code != heif_error_Ok)
            metadata.icc.clear();
    }
    heif_item_id ids[16];
    const int count = heif_image_handle_get_list_of_metadata_block_IDs(handle, nullptr, ids, 16);
    for (int i = 0; i < count; ++i) {
        const char* type = heif_image_handle_get_metadata_type(handle, ids[i]);
        const char* content = heif_image_handle_get_metadata_content_type(handle, ids[i]);
        std::vector<unsigned char> bytes = metadata_block(handle, ids[i]);
        if (std::strcmp(type, "Exif") == 0 && bytes.size() >= 4 && metadata.exif.empty()) {
            const std::uint64_t skip = 4 + big_endian(bytes.data(), 4);
            if (skip < bytes.size()) metadata.exif.assign(bytes.begin() + long(skip), bytes.end());
        } else if (std::strcmp(type, "mime") == 0 && content &&
                   std::strcmp(content, "application/rdf+xml") == 0 && metadata.xmp.empty()) {
            metadata.xmp = std::move(bytes);
        }
    }
}

bool copy_pixels(const heif_image* decoded, BgraImage& image) {
    int stride = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(decoded, heif_channel_interleaved);
    const int height = heif_image_get_height(decoded, heif_channel_interleaved);
    if (!rows || !image_size_supported(std::uint64_t(width), std::uint64_t(height))) return false;
    image = BgraImage(width, height);
    for (int y = 0; y < height; ++y) {
        const uint8_t* in = rows + std::size_t(y) * std::size_t(stride);
        unsigned char* out = image.at(0, y);
        for (int x = 0; x < width; ++x, in += 4, out += 4) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
            out[3] = in[3];
        }
    }
    return true;
}

}  // namespace

bool looks_like_heif(const unsigned char* bytes, std::size_t size) {
    if (size < 12 || std::memcmp(bytes + 4, "ftyp", 4) != 0) return false;
    const heif_filetype_result type = heif_check_filetype(bytes, int(std::min<std::size_t>(size, 64)));
    return type == heif_filetype_yes_supported || type == heif_filetype_yes_unsupported;
}

bool decode_heif(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error) {
    const auto fail = [&](const char* problem) {
        error = name + ": corrupt HEIF (" + problem + ")";
        return false;
    };
    if (!heif_derivations_bounded(bytes, size))
        return fail("images derived from each other in a loop, or too many levels deep");
    Context context(heif_context_alloc(), heif_context_free);
    // libheif's own limit on a side (grids and tiles included), set to the
    // largest square the applications take.
    heif_context_set_maximum_image_size_limit(context.get(), kLargestSide);
    // Tiles decoded in this thread: callers already run one photo per core,
    // and a grid of many tiles must not start a thread for each (a small
    // crafted file made libheif start threads until the system refused).
    heif_context_set_max_decoding_threads(context.get(), 0);
    if (heif_context_read_from_memory_without_copy(context.get(), bytes, size, nullptr).code !=
        heif_error_Ok)
        return fail("cannot parse the file");
    heif_image_handle* primary = nullptr;
    const heif_error found = heif_context_get_primary_image_handle(context.get(), &primary);
    Handle handle(primary, heif_image_handle_release);
    if (found.code != heif_error_Ok) return fail(found.message);
    const int width = heif_image_handle_get_width(handle.get());
    const int height = heif_image_handle_get_height(handle.get());
    if (width < 1 || height < 1) return fail("no image size");
    if (!declared_size_ok(std::uint64_t(width), std::uint64_t(height), size, name, error))
        return false;
    heif_image* decoded = nullptr;
    const heif_error status = heif_decode_image(handle.get(), &decoded, heif_colorspace_RGB,
                                                heif_chroma_interleaved_RGBA, nullptr);
    Image image(decoded, heif_image_release);
    if (status.code != heif_error_Ok) return fail(status.message);
    if (!copy_pixels(image.get(), photo.image)) return fail("unexpected decoded layout");
    read_metadata(handle.get(), photo.metadata);
    const int images = heif_context_get_number_of_top_level_images(context.get());
    if (images > 1)
        photo.notes.push_back(name + ": HEIF of " + std::to_string(images) +
                              " images: the primary image is used");
    return true;
}

}  // namespace qtzq_app
