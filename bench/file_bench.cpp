// Photo files: decoding the bytes of a file of the bench photo and writing
// one, per format, so that the cost of files shows beside the cost of the
// looks. Decoding starts from bytes in memory; writing includes the file
// system. HEIF and AVIF are read only: their files are made once, on first
// use, with libheif's fastest encoder settings.
#include <libheif/heif.h>

#include <cstdio>
#include <map>
#include <memory>
#include <unistd.h>

#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_file.h"

#include "bench_image.h"
#include "suites.h"
#include "timed_pass.h"

namespace qtzq_bench {
namespace {

using Bytes = std::vector<unsigned char>;

struct Format {
    const char* name;       // benchmark name part
    const char* extension;  // of the file written
    qtzq_app::WriteOptions options;
};

qtzq_app::WriteOptions with(int quality, bool lossless, int compression) {
    qtzq_app::WriteOptions options;
    options.quality = quality;
    options.lossless = lossless;
    options.compression = compression;
    return options;
}

const std::vector<Format>& writable_formats() {
    static const std::vector<Format> formats = {
        {"png", ".png", with(92, false, qtzq_app::WriteOptions::kDefaultCompression)},
        {"png-compression6", ".png", with(92, false, 6)},
        {"jpeg-q92", ".jpg", with(92, false, 1)},
        {"webp-q92", ".webp", with(92, false, 1)},
        {"webp-lossless", ".webp", with(92, true, 1)},
        {"tiff", ".tif", with(92, false, qtzq_app::WriteOptions::kDefaultCompression)},
    };
    return formats;
}

std::string scratch_path(const std::string& name, const char* extension) {
    return "/tmp/qtzq-bench-" + std::to_string(::getpid()) + "-" + name + extension;
}

// The bench photo written in a writable format, read back as bytes.
Bytes written(const Format& format) {
    const std::string path = scratch_path(format.name, format.extension);
    Bytes bytes;
    std::string error;
    if (!qtzq_app::write_photo(path, bench_image().image, {}, format.options, error) ||
        !qtzq_app::read_file_bytes(path, bytes, error))
        bytes.clear();
    std::remove(path.c_str());
    return bytes;
}

// The bench photo encoded by libheif (RGB, alpha dropped); empty when this
// libheif has no encoder for the format.
Bytes heif_encoded(heif_compression_format format, const char* speed_name, const char* speed) {
    const BgraImage& photo = bench_image().image;
    std::unique_ptr<heif_context, void (*)(heif_context*)> context(heif_context_alloc(),
                                                                   heif_context_free);
    heif_encoder* encoder = nullptr;
    if (heif_context_get_encoder_for_format(context.get(), format, &encoder).code != heif_error_Ok)
        return {};
    heif_encoder_set_parameter(encoder, speed_name, speed);
    heif_encoder_set_lossy_quality(encoder, 85);
    heif_image* picture = nullptr;
    heif_image_create(photo.width, photo.height, heif_colorspace_RGB,
                      heif_chroma_interleaved_RGB, &picture);
    heif_image_add_plane(picture, heif_channel_interleaved, photo.width, photo.height, 8);
    int stride = 0;
    uint8_t* rows = heif_image_get_plane(picture, heif_channel_interleaved, &stride);
    for (int y = 0; y < photo.height; ++y)
        for (int x = 0; x < photo.width; ++x)
            for (int c = 0; c < 3; ++c)
                rows[std::size_t(y) * std::size_t(stride) + std::size_t(x) * 3 + std::size_t(c)] =
                    photo.at(x, y)[2 - c];
    const bool ok =
        heif_context_encode_image(context.get(), picture, encoder, nullptr, nullptr).code ==
        heif_error_Ok;
    heif_encoder_release(encoder);
    heif_image_release(picture);
    const std::string path = scratch_path("heif", ".heif");
    Bytes bytes;
    std::string error;
    if (ok && heif_context_write_to_file(context.get(), path.c_str()).code == heif_error_Ok)
        qtzq_app::read_file_bytes(path, bytes, error);
    std::remove(path.c_str());
    return bytes;
}

// Files to decode, made on first use and kept.
const Bytes& file_of(const std::string& name) {
    static std::map<std::string, Bytes> files;
    auto found = files.find(name);
    if (found != files.end()) return found->second;
    Bytes bytes;
    if (name == "heic")
        bytes = heif_encoded(heif_compression_HEVC, "preset", "ultrafast");
    else if (name == "avif")
        bytes = heif_encoded(heif_compression_AV1, "speed", "9");
    else
        for (const Format& format : writable_formats())
            if (name == format.name) bytes = written(format);
    return files.emplace(name, std::move(bytes)).first->second;
}

void decode(benchmark::State& state, const std::string& name) {
    const Bytes& bytes = file_of(name);
    if (bytes.empty()) {
        state.SkipWithError("no file of this format could be made here");
        return;
    }
    for (auto _ : state) {
        qtzq_app::Photo photo;
        std::string error;
        if (!qtzq_app::decode_photo(bytes, name, photo, error)) state.SkipWithError(error.c_str());
        benchmark::DoNotOptimize(photo.image.pixels.data());
    }
    count_photo_passes(state);
}

void encode(benchmark::State& state, const Format& format) {
    const std::string path = scratch_path(format.name, format.extension);
    for (auto _ : state) {
        std::string error;
        if (!qtzq_app::write_photo(path, bench_image().image, {}, format.options, error))
            state.SkipWithError(error.c_str());
    }
    std::remove(path.c_str());
    count_photo_passes(state);
}

}  // namespace

void register_files() {
    std::vector<std::string> decoded;
    for (const Format& format : writable_formats()) {
        add_benchmark(std::string("file/encode/") + format.name,
                      [&format](benchmark::State& state) { encode(state, format); });
        decoded.push_back(format.name);
    }
    decoded.push_back("heic");
    decoded.push_back("avif");
    for (const std::string& name : decoded)
        add_benchmark("file/decode/" + name,
                      [name](benchmark::State& state) { decode(state, name); });
}

}  // namespace qtzq_bench
