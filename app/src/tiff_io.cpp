// TIFF files (libtiff): any layout libtiff's RGBA reader takes (the first
// page of a multi-page file), written as 8-bit RGBA with deflate, with the
// ICC profile and XMP packet. libtiff's messages become the error text
// instead of going to stderr.
#include <tiffio.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

#include "qtzq_app/image_limits.h"
#include "photo_codecs.h"

namespace qtzq_app {
namespace {

constexpr tmsize_t kMaxSingleAllocation = tmsize_t(256) << 20;

// The file's bytes as libtiff's client I/O reads them.
struct MemoryFile {
    const unsigned char* bytes;
    std::size_t size;
    toff_t at = 0;
};

tmsize_t read_memory(thandle_t handle, void* out, tmsize_t count) {
    auto* file = static_cast<MemoryFile*>(handle);
    if (count < 0 || file->at >= file->size) return 0;
    const std::size_t n = std::min<std::size_t>(std::size_t(count), file->size - file->at);
    std::memcpy(out, file->bytes + file->at, n);
    file->at += n;
    return tmsize_t(n);
}
tmsize_t write_nothing(thandle_t, void*, tmsize_t) { return 0; }
toff_t seek_memory(thandle_t handle, toff_t offset, int whence) {
    auto* file = static_cast<MemoryFile*>(handle);
    const toff_t base = whence == SEEK_CUR ? file->at : whence == SEEK_END ? file->size : 0;
    file->at = base + offset;
    return file->at;
}
int close_nothing(thandle_t) { return 0; }
toff_t memory_size(thandle_t handle) { return static_cast<MemoryFile*>(handle)->size; }
int map_nothing(thandle_t, void**, toff_t*) { return 0; }
void unmap_nothing(thandle_t, void*, toff_t) {}

// Keeps libtiff's first error message.
int keep_error(TIFF*, void* user, const char*, const char* format, va_list args) {
    auto* message = static_cast<std::string*>(user);
    if (message->empty()) {
        char text[512];
        std::vsnprintf(text, sizeof text, format, args);
        *message = text;
    }
    return 1;
}
int ignore_warning(TIFF*, void*, const char*, const char*, va_list) { return 1; }

using Options = std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions*)>;
using Tiff = std::unique_ptr<TIFF, void (*)(TIFF*)>;

Options open_options(std::string& message) {
    Options options(TIFFOpenOptionsAlloc(), TIFFOpenOptionsFree);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), kMaxSingleAllocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keep_error, &message);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), ignore_warning, nullptr);
    return options;
}

std::vector<unsigned char> field_bytes(TIFF* tiff, ttag_t tag) {
    uint32_t count = 0;
    void* data = nullptr;
    if (!TIFFGetField(tiff, tag, &count, &data) || !data) return {};
    const auto* bytes = static_cast<const unsigned char*>(data);
    return std::vector<unsigned char>(bytes, bytes + count);
}

// 8-bit RGB or RGBA in strips, the layout photo programs write: read row
// by row as stored, alpha untouched.
bool plain_rgb(TIFF* tiff, uint16_t& samples) {
    uint16_t bits = 0, photometric = 0, planar = PLANARCONFIG_CONTIG;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planar);
    return TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &photometric) && photometric == PHOTOMETRIC_RGB &&
           bits == 8 && planar == PLANARCONFIG_CONTIG && (samples == 3 || samples == 4) &&
           !TIFFIsTiled(tiff);
}

bool read_scanlines(TIFF* tiff, BgraImage& image, uint16_t samples) {
    std::vector<unsigned char> row(std::size_t(TIFFScanlineSize(tiff)));
    if (row.size() < std::size_t(image.width) * samples) return false;
    for (int y = 0; y < image.height; ++y) {
        if (TIFFReadScanline(tiff, row.data(), uint32_t(y), 0) < 0) return false;
        unsigned char* out = image.at(0, y);
        for (int x = 0; x < image.width; ++x, out += 4) {
            const unsigned char* in = row.data() + std::size_t(x) * samples;
            out[0] = in[2], out[1] = in[1], out[2] = in[0];
            out[3] = samples == 4 ? in[3] : 255;
        }
    }
    return true;
}

// The first page's pixels as stored (rows in file order, no flips): plain
// RGB(A) directly, anything else through libtiff's RGBA reader (which
// premultiplies unassociated alpha).
bool read_pixels(TIFF* tiff, BgraImage& image, int& orientation, std::string& problem) {
    uint16_t samples = 0, stored = ORIENTATION_TOPLEFT;
    if (plain_rgb(tiff, samples)) {
        TIFFGetFieldDefaulted(tiff, TIFFTAG_ORIENTATION, &stored);
        orientation = stored;
        return read_scanlines(tiff, image, samples);
    }
    TIFFRGBAImage reader;
    char message[1024] = "";
    if (!TIFFRGBAImageOK(tiff, message) || !TIFFRGBAImageBegin(&reader, tiff, 0, message)) {
        problem = message;
        return false;
    }
    orientation = reader.orientation;
    reader.req_orientation = reader.orientation;
    std::vector<uint32_t> raster(std::size_t(image.width) * image.height);
    const bool ok = TIFFRGBAImageGet(&reader, raster.data(), uint32_t(image.width),
                                     uint32_t(image.height));
    TIFFRGBAImageEnd(&reader);
    if (!ok) return false;
    for (std::size_t i = 0; i < raster.size(); ++i) {
        unsigned char* p = image.pixels.data() + i * 4;
        p[0] = static_cast<unsigned char>(TIFFGetB(raster[i]));
        p[1] = static_cast<unsigned char>(TIFFGetG(raster[i]));
        p[2] = static_cast<unsigned char>(TIFFGetR(raster[i]));
        p[3] = static_cast<unsigned char>(TIFFGetA(raster[i]));
    }
    return true;
}

bool write_fields(TIFF* tiff, const BgraImage& image, const PhotoMetadata& metadata, int level) {
    const uint16_t extra[1] = {EXTRASAMPLE_UNASSALPHA};
    bool ok = TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, uint32_t(image.width)) &&
              TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, uint32_t(image.height)) &&
              TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 4) &&
              TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8) &&
              TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, extra) &&
              TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB) &&
              TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
              TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) &&
              TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
    ok = ok && (level == 0 ? TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE)
                           : TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE) &&
                                 TIFFSetField(tiff, TIFFTAG_ZIPQUALITY, level));
    if (ok && !metadata.icc.empty())
        ok = TIFFSetField(tiff, TIFFTAG_ICCPROFILE, uint32_t(metadata.icc.size()), metadata.icc.data());
    if (ok && !metadata.xmp.empty())
        ok = TIFFSetField(tiff, TIFFTAG_XMLPACKET, uint32_t(metadata.xmp.size()), metadata.xmp.data());
    return ok;
}

bool write_rows(TIFF* tiff, const BgraImage& image) {
    std::vector<unsigned char> row(std::size_t(image.width) * 4);
    for (int y = 0; y < image.height; ++y) {
        const unsigned char* p = image.at(0, y);
        for (std::size_t i = 0; i < row.size(); i += 4) {
            row[i] = p[i + 2];
            row[i + 1] = p[i + 1];
            row[i + 2] = p[i];
            row[i + 3] = p[i + 3];
        }
        if (TIFFWriteScanline(tiff, row.data(), uint32_t(y), 0) < 0) return false;
    }
    return TIFFWriteDirectory(tiff) != 0;
}

}  // namespace

bool looks_like_tiff(const unsigned char* bytes, std::size_t size) {
    return size >= 4 && ((std::memcmp(bytes, "II", 2) == 0 && (bytes[2] == 42 || bytes[2] == 43) &&
                          bytes[3] == 0) ||
                         (std::memcmp(bytes, "MM", 2) == 0 && bytes[2] == 0 &&
                          (bytes[3] == 42 || bytes[3] == 43)));
}

bool decode_tiff(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error) {
    std::string message;
    const Options options = open_options(message);
    MemoryFile file{bytes, size};
    Tiff tiff(TIFFClientOpenExt(name.c_str(), "rm", &file, read_memory, write_nothing, seek_memory,
                                close_nothing, memory_size, map_nothing, unmap_nothing,
                                options.get()),
              TIFFClose);
    const auto fail = [&](const std::string& problem) {
        error = name + ": corrupt TIFF (" + (message.empty() ? problem : message) + ")";
        return false;
    };
    if (!tiff) return fail("cannot parse the file");
    uint32_t width = 0, height = 0;
    if (!TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width) ||
        !TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height))
        return fail("no image size");
    if (!declared_size_ok(width, height, size, name, error)) return false;
    photo.metadata.icc = field_bytes(tiff.get(), TIFFTAG_ICCPROFILE);
    photo.metadata.xmp = field_bytes(tiff.get(), TIFFTAG_XMLPACKET);
    photo.image = BgraImage(int(width), int(height));
    std::string problem = "damaged image data";
    if (!read_pixels(tiff.get(), photo.image, photo.orientation, problem)) return fail(problem);
    if (TIFFReadDirectory(tiff.get()))
        photo.notes.push_back(name + ": TIFF of several pages: the first page is used");
    return true;
}

bool encode_tiff(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error) {
    std::string message;
    const Options open = open_options(message);
    Tiff tiff(TIFFOpenExt(path.c_str(), "w", open.get()), TIFFClose);
    const bool ok = tiff && write_fields(tiff.get(), image, metadata, options.compression) &&
                    write_rows(tiff.get(), image);
    if (!ok) error = path + ": cannot write TIFF (" + (message.empty() ? "libtiff failed" : message) + ")";
    return ok;
}

}  // namespace qtzq_app
