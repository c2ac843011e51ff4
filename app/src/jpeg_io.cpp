#include "jpeg_io.h"

// jpeglib.h needs FILE and size_t declared first.
#include <cstdio>

#include <jpeglib.h>

#include <csetjmp>
#include <cerrno>
#include <cstring>
#include <memory>

#include "qtzq_app/image_limits.h"

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
    BgraImage image;
    std::string error;
};

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
    jpeg_read_header(&codec, TRUE);
    if (codec.jpeg_color_space == JCS_CMYK || codec.jpeg_color_space == JCS_YCCK) {
        job.error = "CMYK JPEG files are not supported";
        jpeg_destroy_decompress(&codec);
        return false;
    }
    if (!image_size_supported(codec.image_width, codec.image_height)) {
        job.error = "image of " + size_text(codec.image_width, codec.image_height) +
                    " pixels is too large";
        jpeg_destroy_decompress(&codec);
        return false;
    }
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
    DecodeJob job{bytes, size, {}, {}};
    if (!decode(job)) {
        error = name + ": " + job.error;
        return false;
    }
    image = std::move(job.image);
    return true;
}

bool write_jpeg(const std::string& path, const BgraImage& image, int quality,
                std::string& error) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                          std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + std::strerror(errno) + ")";
        return false;
    }
    EncodeJob job{file.get(), &image, quality, {}};
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
