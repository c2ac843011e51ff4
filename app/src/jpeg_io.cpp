#include "jpeg_io.h"

// jpeglib.h needs FILE and size_t declared first.
#include <cstdio>

#include <jpeglib.h>

#include <csetjmp>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <memory>

#include "qtzq_app/exif.h"
#include "qtzq_app/image_limits.h"
#include "photo_codecs.h"

namespace qtzq_app {
namespace {

// libjpeg reports errors through a callback that must not return; it jumps
// back to the setjmp of the function that drives the codec. Warnings about
// damaged data are treated as errors too.
struct ErrorManager {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void on_error(j_common_ptr codec) {
    auto* errors = reinterpret_cast<ErrorManager*>(codec->err);
    errors->manager.format_message(codec, errors->message);
    std::longjmp(errors->jump, 1);
}

void on_message(j_common_ptr codec, int level) {
    if (level < 0) on_error(codec);  // corrupt-data warning
}

void install(ErrorManager& errors) {
    jpeg_std_error(&errors.manager);
    errors.manager.error_exit = on_error;
    errors.manager.emit_message = on_message;
    errors.message[0] = '\0';
}

// Everything that changes while libjpeg runs lives outside the frame that
// calls setjmp, so nothing there becomes indeterminate after a jump.
struct DecodeJob {
    const unsigned char* bytes;
    std::size_t size;
    std::string name;
    BgraImage image;
    PhotoMetadata metadata;
    std::string error;
};

constexpr unsigned char kExifHeader[] = {'E', 'x', 'i', 'f', 0, 0};
constexpr char kXmpHeader[] = "http://ns.adobe.com/xap/1.0/";  // and its NUL
constexpr unsigned kMaxMarkerData = 65533;

bool starts_with(const jpeg_saved_marker_ptr marker, const void* header, std::size_t size) {
    return marker->data_length >= size && std::memcmp(marker->data, header, size) == 0;
}

// EXIF and XMP from the APP1 markers, the ICC profile from the APP2 ones.
void collect_metadata(jpeg_decompress_struct& codec, PhotoMetadata& metadata) {
    for (jpeg_saved_marker_ptr m = codec.marker_list; m; m = m->next) {
        if (m->marker != JPEG_APP0 + 1) continue;
        if (starts_with(m, kExifHeader, sizeof kExifHeader) && metadata.exif.empty())
            metadata.exif.assign(m->data + sizeof kExifHeader, m->data + m->data_length);
        else if (starts_with(m, kXmpHeader, sizeof kXmpHeader) && metadata.xmp.empty())
            metadata.xmp.assign(m->data + sizeof kXmpHeader, m->data + m->data_length);
    }
    JOCTET* icc = nullptr;
    unsigned int icc_size = 0;
    if (jpeg_read_icc_profile(&codec, &icc, &icc_size)) {
        metadata.icc.assign(icc, icc + icc_size);
        std::free(icc);
    }
}

void write_metadata(jpeg_compress_struct& codec, const PhotoMetadata& metadata) {
    if (!metadata.exif.empty() && metadata.exif.size() + sizeof kExifHeader <= kMaxMarkerData) {
        std::vector<unsigned char> data(kExifHeader, kExifHeader + sizeof kExifHeader);
        data.insert(data.end(), metadata.exif.begin(), metadata.exif.end());
        jpeg_write_marker(&codec, JPEG_APP0 + 1, data.data(), unsigned(data.size()));
    }
    if (!metadata.xmp.empty() && metadata.xmp.size() + sizeof kXmpHeader <= kMaxMarkerData) {
        std::vector<unsigned char> data(kXmpHeader, kXmpHeader + sizeof kXmpHeader);
        data.insert(data.end(), metadata.xmp.begin(), metadata.xmp.end());
        jpeg_write_marker(&codec, JPEG_APP0 + 1, data.data(), unsigned(data.size()));
    }
    if (!metadata.icc.empty())
        jpeg_write_icc_profile(&codec, metadata.icc.data(), unsigned(metadata.icc.size()));
}

bool decode(DecodeJob& job) {
    jpeg_decompress_struct codec;
    ErrorManager errors;
    install(errors);
    codec.err = &errors.manager;
    if (setjmp(errors.jump)) {
        job.error = std::string("corrupt JPEG (") + errors.message + ")";
        jpeg_destroy_decompress(&codec);
        return false;
    }
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, job.bytes, static_cast<unsigned long>(job.size));
    jpeg_save_markers(&codec, JPEG_APP0 + 1, 0xFFFF);
    jpeg_save_markers(&codec, JPEG_APP0 + 2, 0xFFFF);
    jpeg_read_header(&codec, TRUE);
    if (codec.jpeg_color_space == JCS_CMYK || codec.jpeg_color_space == JCS_YCCK) {
        job.error = "CMYK JPEG files are not supported";
        jpeg_destroy_decompress(&codec);
        return false;
    }
    if (!declared_size_ok(codec.image_width, codec.image_height, job.size, job.name, job.error)) {
        jpeg_destroy_decompress(&codec);
        return false;
    }
    collect_metadata(codec, job.metadata);
    codec.out_color_space = JCS_EXT_BGRA;  // alpha bytes come out as 255
    jpeg_start_decompress(&codec);
    job.image = BgraImage(int(codec.output_width), int(codec.output_height));
    while (codec.output_scanline < codec.output_height) {
        JSAMPROW row = job.image.at(0, int(codec.output_scanline));
        jpeg_read_scanlines(&codec, &row, 1);
    }
    jpeg_finish_decompress(&codec);
    jpeg_destroy_decompress(&codec);
    return true;
}

struct EncodeJob {
    std::FILE* file;
    const BgraImage* image;
    const PhotoMetadata* metadata;
    int quality;
    std::string error;
};

bool encode(EncodeJob& job) {
    jpeg_compress_struct codec;
    ErrorManager errors;
    install(errors);
    codec.err = &errors.manager;
    if (setjmp(errors.jump)) {
        job.error = std::string("cannot write JPEG (") + errors.message + ")";
        jpeg_destroy_compress(&codec);
        return false;
    }
    jpeg_create_compress(&codec);
    jpeg_stdio_dest(&codec, job.file);
    codec.image_width = JDIMENSION(job.image->width);
    codec.image_height = JDIMENSION(job.image->height);
    codec.input_components = 4;
    codec.in_color_space = JCS_EXT_BGRA;  // alpha is ignored
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, job.quality, TRUE);
    codec.optimize_coding = TRUE;
    jpeg_start_compress(&codec, TRUE);
    write_metadata(codec, *job.metadata);
    while (codec.next_scanline < codec.image_height) {
        // libjpeg takes non-const rows but only reads them.
        JSAMPROW row = const_cast<unsigned char*>(job.image->at(0, int(codec.next_scanline)));
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    return true;
}

}  // namespace

bool looks_like_jpeg(const unsigned char* bytes, std::size_t size) {
    return size >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

bool read_jpeg_memory(const unsigned char* bytes, std::size_t size, const std::string& name,
                      BgraImage& image, std::string& error) {
    if (!looks_like_jpeg(bytes, size)) {
        error = name + ": not a JPEG file";
        return false;
    }
    DecodedPhoto photo;
    if (!decode_jpeg(bytes, size, name, photo, error)) return false;
    image = std::move(photo.image);
    return true;
}

bool decode_jpeg(const unsigned char* bytes, std::size_t size, const std::string& name,
                 DecodedPhoto& photo, std::string& error) {
    DecodeJob job{bytes, size, name, {}, {}, {}};
    if (!decode(job)) {
        // The size check names the file itself.
        error = job.error.compare(0, name.size() + 1, name + ":") == 0 ? job.error
                                                                       : name + ": " + job.error;
        return false;
    }
    photo.image = std::move(job.image);
    photo.metadata = std::move(job.metadata);
    photo.orientation = exif_orientation(photo.metadata.exif);
    return true;
}

bool write_jpeg(const std::string& path, const BgraImage& image, int quality,
                std::string& error) {
    WriteOptions options;
    options.quality = quality;
    return encode_jpeg(path, image, {}, options, error);
}

bool encode_jpeg(const std::string& path, const BgraImage& image, const PhotoMetadata& metadata,
                 const WriteOptions& options, std::string& error) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                          std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + std::strerror(errno) + ")";
        return false;
    }
    EncodeJob job{file.get(), &image, &metadata, options.quality, {}};
    if (!encode(job)) {
        error = path + ": " + job.error;
        return false;
    }
    if (std::fflush(file.get()) != 0) {
        error = path + ": cannot write JPEG (" + std::strerror(errno) + ")";
        return false;
    }
    return true;
}

}  // namespace qtzq_app
