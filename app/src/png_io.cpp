#include "qtzq_app/png_io.h"

#include <png.h>
#include <zlib.h>

#include <csetjmp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "qtzq_app/exif.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_limits.h"
#include "big_endian.h"
#include "photo_codecs.h"

namespace qtzq_app {
namespace {

using Bytes = std::vector<unsigned char>;

constexpr char kXmpKeyword[] = "XML:com.adobe.xmp";
constexpr std::size_t kMaxProfileSize = std::size_t(64) << 20;

// Frees the reader's state on every path.
struct PngImage {
    png_image image;
    PngImage() {
        std::memset(&image, 0, sizeof image);
        image.version = PNG_IMAGE_VERSION;
    }
    ~PngImage() { png_image_free(&image); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

// Inflates a zlib stream of at most kMaxProfileSize bytes; empty on failure.
Bytes inflate_bytes(const unsigned char* data, std::size_t size) {
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK) return {};
    Bytes out;
    stream.next_in = const_cast<unsigned char*>(data);
    stream.avail_in = uInt(size);
    int status = Z_OK;
    while (status == Z_OK && out.size() < kMaxProfileSize) {
        out.resize(out.size() + 65536);
        stream.next_out = out.data() + out.size() - 65536;
        stream.avail_out = 65536;
        status = inflate(&stream, Z_NO_FLUSH);
        out.resize(out.size() - stream.avail_out);
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? out : Bytes();
}

// The keyword-prefixed text chunks hold a NUL after the keyword.
void read_metadata_chunk(const unsigned char* type, const unsigned char* data, std::size_t size,
                         PhotoMetadata& metadata) {
    const auto* nul = static_cast<const unsigned char*>(std::memchr(data, 0, size));
    if (std::memcmp(type, "eXIf", 4) == 0) {
        metadata.exif.assign(data, data + size);
    } else if (std::memcmp(type, "iCCP", 4) == 0 && nul && nul + 2 <= data + size) {
        metadata.icc = inflate_bytes(nul + 2, std::size_t(data + size - nul - 2));
    } else if (std::memcmp(type, "iTXt", 4) == 0 && nul &&
               std::size_t(nul - data) == sizeof kXmpKeyword - 1 &&
               std::memcmp(data, kXmpKeyword, sizeof kXmpKeyword - 1) == 0) {
        // keyword NUL, compression flag, method, language NUL, translated keyword NUL, text
        const unsigned char* p = nul + 1;
        const unsigned char* end = data + size;
        if (end - p < 2) return;
        const bool compressed = p[0] != 0;
        p += 2;
        for (int field = 0; field < 2 && p; ++field) {
            p = static_cast<const unsigned char*>(std::memchr(p, 0, std::size_t(end - p)));
            if (p) ++p;
        }
        if (!p) return;
        metadata.xmp = compressed ? inflate_bytes(p, std::size_t(end - p)) : Bytes(p, end);
    }
}

// Calls visit(type, data, length) for each chunk of a PNG, in order, up to
// IEND; false when a chunk's declared length runs past the end of the bytes.
template <typename Visit>
bool walk_chunks(const unsigned char* bytes, std::size_t size, Visit visit) {
    for (std::size_t at = 8; size - at >= 8;) {  // a length and a type to read
        const std::size_t length = big_endian(bytes + at, 4);
        if (size - at < 12 || length > size - at - 12) return false;
        const unsigned char* type = bytes + at + 4;
        visit(type, bytes + at + 8, length);
        if (std::memcmp(type, "IEND", 4) == 0) break;
        at += 12 + length;
    }
    return true;
}

// The ICC profile, EXIF and XMP of a PNG, from its chunks.
PhotoMetadata png_metadata(const unsigned char* bytes, std::size_t size) {
    PhotoMetadata metadata;
    walk_chunks(bytes, size, [&](const unsigned char* type, const unsigned char* data,
                                 std::size_t length) {
        read_metadata_chunk(type, data, length, metadata);
    });
    return metadata;
}

// libpng reports errors through a callback that must not return.
struct WriteErrors {
    std::jmp_buf jump;
    std::string message;
};

[[noreturn]] void on_write_error(png_structp png, png_const_charp message) {
    auto* errors = static_cast<WriteErrors*>(png_get_error_ptr(png));
    errors->message = message;
    std::longjmp(errors->jump, 1);
}

void on_write_warning(png_structp, png_const_charp) {}

// Everything that changes while libpng runs lives outside the frame that
// calls setjmp.
struct PngWrite {
    std::FILE* file;
    const BgraImage* image;
    const PhotoMetadata* metadata;
    int level;
    png_structp png = nullptr;
    png_infop info = nullptr;
    png_text xmp{};
    std::string xmp_text;  // libpng takes the text's length from its NUL
};

void write_rows(PngWrite& job) {
    const BgraImage& image = *job.image;
    const bool opaque = !has_transparency(image);
    png_init_io(job.png, job.file);
    png_set_IHDR(job.png, job.info, png_uint_32(image.width), png_uint_32(image.height), 8,
                 opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    // Level 1 (the default): one cheap filter that suits photos and zlib's
    // run-length strategy, several times faster than libpng's adaptive
    // filters at zlib's default level, for files about 10 % larger. Level 0
    // stores; higher levels use the adaptive filters.
    png_set_compression_level(job.png, job.level);
    if (job.level <= 1) {
        png_set_filter(job.png, PNG_FILTER_TYPE_BASE, job.level == 0 ? PNG_FILTER_NONE : PNG_FILTER_UP);
        png_set_compression_strategy(job.png, Z_RLE);
    }
    const PhotoMetadata& metadata = *job.metadata;
    // The input's profile travels as it is: libpng's check against its list
    // of known sRGB profiles would refuse some that cameras and editors
    // write (a "known incorrect sRGB profile" is still the file's own), and
    // a profile libpng cannot store at all is left out with a warning
    // rather than failing the whole photo.
#ifdef PNG_SKIP_sRGB_CHECK_PROFILE
    png_set_option(job.png, PNG_SKIP_sRGB_CHECK_PROFILE, PNG_OPTION_ON);
#endif
    png_set_benign_errors(job.png, 1);
    if (!metadata.icc.empty())
        png_set_iCCP(job.png, job.info, "ICC profile", PNG_COMPRESSION_TYPE_BASE,
                     metadata.icc.data(), png_uint_32(metadata.icc.size()));
    if (!metadata.exif.empty())
        png_set_eXIf_1(job.png, job.info, png_uint_32(metadata.exif.size()),
                       const_cast<unsigned char*>(metadata.exif.data()));
    if (!metadata.xmp.empty()) {
        job.xmp.compression = PNG_ITXT_COMPRESSION_NONE;
        job.xmp.key = const_cast<char*>(kXmpKeyword);
        job.xmp_text.assign(metadata.xmp.begin(), metadata.xmp.end());
        job.xmp.text = &job.xmp_text[0];
        png_set_text(job.png, job.info, &job.xmp, 1);
    }
    png_write_info(job.png, job.info);
    png_set_bgr(job.png);
    if (opaque) png_set_filler(job.png, 0, PNG_FILLER_AFTER);
    for (int y = 0; y < image.height; ++y)
        png_write_row(job.png, image.at(0, y));
    png_write_end(job.png, job.info);
}

bool write_png_stream(PngWrite& job, std::string& message) {
    WriteErrors errors;
    job.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &errors, on_write_error,
                                      on_write_warning);
    if (!job.png) {
        message = "out of memory";
        return false;
    }
    job.info = png_create_info_struct(job.png);
    if (setjmp(errors.jump)) {
        png_destroy_write_struct(&job.png, &job.info);
        message = errors.message;
        return false;
    }
    if (!job.info) png_error(job.png, "out of memory");
    write_rows(job);
    png_destroy_write_struct(&job.png, &job.info);
    return true;
}

}  // namespace

bool looks_like_png(const unsigned char* bytes, std::size_t size) {
    return size >= 8 && png_sig_cmp(bytes, 0, 8) == 0;
}

bool read_png_memory(const unsigned char* bytes, std::size_t size, const std::string& name,
                     BgraImage& image, std::string& error) {
    if (!looks_like_png(bytes, size)) {
        error = name + ": not a PNG file";
        return false;
    }
    // libpng allocates a chunk's declared length before reading it: a file
    // that declares more than it holds is refused first.
    if (!walk_chunks(bytes, size, [](const unsigned char*, const unsigned char*, std::size_t) {})) {
        error = name + ": corrupt PNG (a chunk runs past the end of the file)";
        return false;
    }
    PngImage png;
    if (!png_image_begin_read_from_memory(&png.image, bytes, size)) {
        error = name + ": corrupt PNG (" + png.image.message + ")";
        return false;
    }
    if (!declared_size_ok(png.image.width, png.image.height, size, name, error)) return false;
    // 8-bit BGRA, alpha kept (opaque when the file has none).
    png.image.format = PNG_FORMAT_BGRA;
    BgraImage decoded(int(png.image.width), int(png.image.height));
    if (!png_image_finish_read(&png.image, nullptr, decoded.data(), 0, nullptr)) {
        error = name + ": corrupt PNG (" + png.image.message + ")";
        return false;
    }
    image = std::move(decoded);
    return true;
}

bool read_png(const std::string& path, BgraImage& image, std::string& error) {
    std::vector<unsigned char> bytes;
    if (!read_file_bytes(path, bytes, error)) return false;
    return read_png_memory(bytes.data(), bytes.size(), path, image, error);
}

bool decode_png(const unsigned char* bytes, std::size_t size, const std::string& name,
                DecodedPhoto& photo, std::string& error) {
    if (!read_png_memory(bytes, size, name, photo.image, error)) return false;
    photo.metadata = png_metadata(bytes, size);
    photo.orientation = exif_orientation(photo.metadata.exif);
    return true;
}

bool encode_png(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                const WriteOptions& options, std::string& error) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                          std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + std::strerror(errno) + ")";
        return false;
    }
    PngWrite job{file.get(), &image, &metadata, options.compression, nullptr, nullptr, {}, {}};
    std::string message;
    if (!write_png_stream(job, message)) {
        error = path + ": cannot write PNG (" + message + ")";
        return false;
    }
    if (std::fflush(file.get()) != 0) {
        error = path + ": cannot write PNG (" + std::strerror(errno) + ")";
        return false;
    }
    return true;
}

bool write_png(const std::string& path, const BgraImage& image, std::string& error) {
    return encode_png(path, image, {}, {}, error);
}

}  // namespace qtzq_app
