// WebP files (libwebp): still and animated files read (the first frame of
// an animation), lossy and lossless written, with their ICCP, EXIF and XMP
// chunks.
#include <webp/decode.h>
#include <webp/demux.h>
#include <webp/encode.h>
#include <webp/mux.h>

#include <cstring>
#include <memory>

#include "qtzq_app/exif.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_limits.h"
#include "photo_codecs.h"

namespace qtzq_app {
namespace {

using Demuxer = std::unique_ptr<WebPDemuxer, void (*)(WebPDemuxer*)>;
using Mux = std::unique_ptr<WebPMux, void (*)(WebPMux*)>;

// Some writers keep JPEG's "Exif\0\0" before the TIFF structure.
std::vector<unsigned char> chunk(const WebPDemuxer* demux, const char* fourcc) {
    WebPChunkIterator it;
    std::vector<unsigned char> bytes;
    if (WebPDemuxGetChunk(demux, fourcc, 1, &it)) {
        bytes.assign(it.chunk.bytes, it.chunk.bytes + it.chunk.size);
        WebPDemuxReleaseChunkIterator(&it);
    }
    if (bytes.size() >= 6 && std::memcmp(bytes.data(), "Exif\0\0", 6) == 0)
        bytes.erase(bytes.begin(), bytes.begin() + 6);
    return bytes;
}

// Decodes the first frame onto a transparent canvas of the file's size.
bool decode_first_frame(const WebPDemuxer* demux, BgraImage& canvas, std::string& problem) {
    WebPIterator frame;
    if (!WebPDemuxGetFrame(demux, 1, &frame)) {
        problem = "no frame";
        return false;
    }
    const bool fits = frame.x_offset >= 0 && frame.y_offset >= 0 &&
                      frame.x_offset + frame.width <= canvas.width &&
                      frame.y_offset + frame.height <= canvas.height;
    uint8_t* const out = fits ? canvas.at(frame.x_offset, frame.y_offset) : nullptr;
    const std::size_t room = fits ? canvas.pixels.size() - std::size_t(out - canvas.data()) : 0;
    const bool ok = fits && WebPDecodeBGRAInto(frame.fragment.bytes, frame.fragment.size, out,
                                               room, canvas.width * 4) != nullptr;
    WebPDemuxReleaseIterator(&frame);
    if (!ok) problem = "damaged image data";
    return ok;
}

bool set_chunk(WebPMux* mux, const char* fourcc, const std::vector<unsigned char>& bytes) {
    if (bytes.empty()) return true;
    const WebPData data{bytes.data(), bytes.size()};
    return WebPMuxSetChunk(mux, fourcc, &data, 1) == WEBP_MUX_OK;
}

// The encoded image with the metadata chunks added.
bool with_metadata(const WebPData& image, const PhotoMetadata& metadata, WebPData& out) {
    Mux mux(WebPMuxCreate(&image, 1), WebPMuxDelete);
    return mux && set_chunk(mux.get(), "ICCP", metadata.icc) &&
           set_chunk(mux.get(), "EXIF", metadata.exif) &&
           set_chunk(mux.get(), "XMP ", metadata.xmp) &&
           WebPMuxAssemble(mux.get(), &out) == WEBP_MUX_OK;
}

constexpr int kLosslessEffort = 1;  // 0 (fastest) .. 9 (smallest)

int collect(const uint8_t* data, size_t size, const WebPPicture* picture) {
    auto* out = static_cast<std::vector<unsigned char>*>(picture->custom_ptr);
    out->insert(out->end(), data, data + size);
    return 1;
}

// Lossy or lossless; `exact` keeps the colour under fully transparent
// pixels, which the encoder would otherwise change.
bool encode_pixels(const BgraImage& image, const WriteOptions& options,
                   std::vector<unsigned char>& out) {
    WebPConfig config;
    WebPPicture picture;
    if (!WebPConfigInit(&config) || !WebPPictureInit(&picture)) return false;
    // Lossless at a low effort: several times faster than the encoder's
    // default for files a few per cent larger.
    if (options.lossless && !WebPConfigLosslessPreset(&config, kLosslessEffort)) return false;
    if (!options.lossless) config.quality = float(options.quality);
    config.exact = 1;
    picture.use_argb = 1;
    picture.width = image.width;
    picture.height = image.height;
    picture.writer = collect;
    picture.custom_ptr = &out;
    const bool ok = WebPPictureImportBGRA(&picture, image.pixels.data(), image.width * 4) &&
                    WebPEncode(&config, &picture);
    WebPPictureFree(&picture);
    return ok;
}

}  // namespace

bool looks_like_webp(const unsigned char* bytes, std::size_t size) {
    return size >= 12 && std::memcmp(bytes, "RIFF", 4) == 0 && std::memcmp(bytes + 8, "WEBP", 4) == 0;
}

bool decode_webp(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error) {
    int declared_width = 0, declared_height = 0;
    if (!WebPGetInfo(bytes, size, &declared_width, &declared_height)) {
        error = name + ": corrupt WebP (cannot parse the header)";
        return false;
    }
    if (!declared_size_ok(std::uint64_t(declared_width), std::uint64_t(declared_height), size, name,
                          error))
        return false;
    const WebPData data{bytes, size};
    Demuxer demux(WebPDemux(&data), WebPDemuxDelete);
    if (!demux) {
        error = name + ": corrupt WebP (cannot parse the file)";
        return false;
    }
    const std::uint32_t width = WebPDemuxGetI(demux.get(), WEBP_FF_CANVAS_WIDTH);
    const std::uint32_t height = WebPDemuxGetI(demux.get(), WEBP_FF_CANVAS_HEIGHT);
    if (!declared_size_ok(width, height, size, name, error)) return false;
    BgraImage canvas(static_cast<int>(width), static_cast<int>(height));
    std::string problem;
    if (!decode_first_frame(demux.get(), canvas, problem)) {
        error = name + ": corrupt WebP (" + problem + ")";
        return false;
    }
    const std::uint32_t frames = WebPDemuxGetI(demux.get(), WEBP_FF_FRAME_COUNT);
    if (frames > 1)
        photo.notes.push_back(name + ": animated WebP of " + std::to_string(frames) +
                              " frames: the first frame is used");
    photo.image = std::move(canvas);
    photo.metadata.icc = chunk(demux.get(), "ICCP");
    photo.metadata.exif = chunk(demux.get(), "EXIF");
    photo.metadata.xmp = chunk(demux.get(), "XMP ");
    photo.orientation = exif_orientation(photo.metadata.exif);
    return true;
}

bool encode_webp(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error) {
    if (image.width > WEBP_MAX_DIMENSION || image.height > WEBP_MAX_DIMENSION) {
        error = path + ": cannot write WebP (at most " + std::to_string(WEBP_MAX_DIMENSION) +
                " pixels a side)";
        return false;
    }
    std::vector<unsigned char> encoded;
    if (!encode_pixels(image, options, encoded)) {
        error = path + ": cannot write WebP (encoder failed)";
        return false;
    }
    WebPData assembled{encoded.data(), encoded.size()};
    WebPData with{nullptr, 0};
    const bool plain = metadata.icc.empty() && metadata.exif.empty() && metadata.xmp.empty();
    if (!plain && !with_metadata(assembled, metadata, with)) {
        WebPDataClear(&with);
        error = path + ": cannot write WebP (cannot add the metadata)";
        return false;
    }
    if (!plain) assembled = with;
    const std::vector<unsigned char> bytes(assembled.bytes, assembled.bytes + assembled.size);
    WebPDataClear(&with);
    return write_file_bytes(path, bytes, error);
}

}  // namespace qtzq_app
