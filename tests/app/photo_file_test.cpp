// Photo files beyond the pixels: every writable format round trips its
// pixels and the metadata it holds, EXIF orientations come out upright with
// the orientation reset and the thumbnail dropped, HEIF and AVIF made by
// libheif's own encoders read back, and files declaring enormous images
// are refused before their pixels are allocated.
#include <libheif/heif.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <tuple>

#include "app/app_test.h"
#include "qtzq_app/exif.h"
#include "qtzq_app/file_bytes.h"
#include "qtzq_app/image_file.h"
#include "qtzq_app/orientation.h"

namespace qtzq_app_test {
namespace {

using namespace qtzq_app;
using Bytes = std::vector<unsigned char>;

struct PhotoFileTest : FolderTest {
    PhotoFileTest() : FolderTest(QTZQ_APP_TEST_WORK_DIR) {}
};

void put(Bytes& bytes, std::size_t at, int width, std::uint32_t value, bool little) {
    for (int i = 0; i < width; ++i)
        bytes[at + (little ? i : width - 1 - i)] = static_cast<unsigned char>(value >> (8 * i));
}

// EXIF as cameras write it: directory 0 holding the orientation, linked to
// directory 1 holding a thumbnail of `thumbnail` bytes at the end.
Bytes camera_exif(int orientation, bool little, std::size_t thumbnail = 100) {
    Bytes exif(8 + 18 + 30 + thumbnail, 0xAB);
    exif[0] = exif[1] = little ? 'I' : 'M';
    put(exif, 2, 2, 42, little);
    put(exif, 4, 4, 8, little);
    put(exif, 8, 2, 1, little);  // one entry: orientation, SHORT, 1
    put(exif, 10, 2, 0x0112, little), put(exif, 12, 2, 3, little), put(exif, 14, 4, 1, little);
    put(exif, 18, 2, std::uint32_t(orientation), little);  // a SHORT, left in its field
    put(exif, 22, 4, 26, little);  // directory 1
    put(exif, 26, 2, 2, little);
    put(exif, 28, 2, 0x0201, little), put(exif, 30, 2, 4, little), put(exif, 32, 4, 1, little);
    put(exif, 36, 4, 56, little);
    put(exif, 40, 2, 0x0202, little), put(exif, 42, 2, 4, little), put(exif, 44, 4, 1, little);
    put(exif, 48, 4, std::uint32_t(thumbnail), little);
    put(exif, 52, 4, 0, little);
    return exif;
}

TEST(Exif, OrientationIsReadResetAndTheThumbnailDropped) {
    for (const bool little : {true, false})
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const Bytes exif = camera_exif(orientation, little);
            EXPECT_EQ(exif_orientation(exif), orientation);
            const Bytes out = exif_for_output(exif);
            EXPECT_EQ(out.size(), 56u) << "thumbnail cut off";
            EXPECT_EQ(exif_orientation(out), 1);
            EXPECT_EQ(Bytes(out.begin() + 22, out.begin() + 26), Bytes(4, 0)) << "unlinked";
        }
    // Malformed: wrong magic, directory out of range, orientation 9, cut short.
    Bytes bad_magic = camera_exif(6, true), far = camera_exif(6, true), nine = camera_exif(9, true);
    bad_magic[2] = 41;
    put(far, 4, 4, 5000, true);
    const Bytes whole = camera_exif(6, true), cut(whole.begin(), whole.begin() + 20);
    for (const Bytes& exif : {bad_magic, far, nine, cut})
        EXPECT_EQ(exif_orientation(exif), 1);
    EXPECT_TRUE(exif_for_output(bad_magic).empty());
    EXPECT_TRUE(exif_for_output(far).empty());
}

// A 3 x 2 image of pixels named a..f (in their blue byte) in each EXIF
// orientation, and how it must be seen.
TEST(Orientation, EveryExifOrientationComesOutUpright) {
    BgraImage stored(3, 2);
    for (int i = 0; i < 6; ++i) stored.pixels[std::size_t(i) * 4] = static_cast<unsigned char>('a' + i);
    const std::vector<std::tuple<int, int, std::string>> cases = {
        {1, 3, "abcdef"}, {2, 3, "cbafed"}, {3, 3, "fedcba"}, {4, 3, "defabc"},
        {5, 2, "adbecf"}, {6, 2, "daebfc"}, {7, 2, "fcebda"}, {8, 2, "cfbead"},
    };
    for (const auto& [orientation, width, seen] : cases) {
        const BgraImage out = upright(stored, orientation);
        std::string names;
        for (std::size_t i = 0; i < out.pixels.size(); i += 4) names += char(out.pixels[i]);
        EXPECT_EQ(out.width, width) << orientation;
        EXPECT_EQ(names, seen) << orientation;
    }
}

// An ICC header with no tags: what libpng checks before storing a profile.
Bytes minimal_profile() {
    Bytes icc(132, 0);
    put(icc, 0, 4, 132, false);
    std::memcpy(&icc[12], "mntrRGB XYZ ", 12);
    std::memcpy(&icc[36], "acsp", 4);
    put(icc, 8, 4, 0x02100000, false);  // version 2.1
    put(icc, 68, 4, 0xF6D6, false), put(icc, 72, 4, 0x10000, false), put(icc, 76, 4, 0xD32D, false);
    return icc;
}

PhotoMetadata sample_metadata(int orientation) {
    PhotoMetadata metadata;
    metadata.icc = minimal_profile();
    metadata.exif = camera_exif(orientation, true);
    const std::string xmp = "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"/>";
    metadata.xmp.assign(xmp.begin(), xmp.end());
    return metadata;
}

// Each writable format: pixels back (exact for the lossless ones, alpha
// too where kept), the metadata it holds, EXIF orientation applied, and
// nothing but the pixels with empty metadata.
TEST_F(PhotoFileTest, FormatsRoundTripPixelsAndTheMetadataTheyHold) {
    BgraImage image = sample_photo(37, 21, 9);  // every alpha value, smooth colours
    for (int y = 0; y < 21; ++y)
        for (int x = 0; x < 37; ++x) {
            unsigned char* p = image.at(x, y);
            p[0] = static_cast<unsigned char>(x * 6), p[1] = static_cast<unsigned char>(y * 11);
            p[2] = static_cast<unsigned char>(200 - x - y);
        }
    struct Case {
        const char* name;
        bool lossless, exact_alpha, exif, xmp;
        int tolerance;
    };
    const std::vector<Case> cases = {
        {"a.png", false, true, true, true, 0},   {"a.tif", false, true, false, true, 0},
        {"a.webp", true, true, true, true, 0},   {"b.webp", false, true, true, true, 12},
        {"a.jpg", false, false, true, true, 12},
    };
    for (const Case& c : cases) {
        WriteOptions options;
        options.lossless = c.lossless;
        options.quality = 100;
        std::string error;
        // Stored turned a quarter anticlockwise (orientation 6 turns it back).
        const BgraImage stored = upright(image, 8);
        ASSERT_TRUE(write_photo(path(c.name), stored, sample_metadata(6), options, error)) << error;
        Photo back;
        ASSERT_TRUE(read_photo(path(c.name), back, error)) << error;
        const bool turned = c.exif;  // TIFF carries no EXIF, so no orientation
        const BgraImage& want = turned ? image : stored;
        ASSERT_EQ(back.image.width, want.width) << c.name;
        int worst = 0;
        for (std::size_t i = 0; i < want.pixels.size(); ++i) {
            const int expected = i % 4 == 3 && !c.exact_alpha ? 255 : want.pixels[i];
            worst = std::max(worst, std::abs(int(back.image.pixels[i]) - expected));
        }
        EXPECT_LE(worst, c.tolerance) << c.name;
        EXPECT_EQ(back.metadata.icc, sample_metadata(6).icc) << c.name;
        EXPECT_EQ(back.metadata.xmp, c.xmp ? sample_metadata(6).xmp : Bytes()) << c.name;
        EXPECT_EQ(back.metadata.exif, c.exif ? exif_for_output(camera_exif(6, true)) : Bytes())
            << c.name;
        ASSERT_TRUE(write_photo(path(c.name), stored, {}, options, error)) << error;
        ASSERT_TRUE(read_photo(path(c.name), back, error)) << error;
        EXPECT_TRUE(back.metadata.icc.empty() && back.metadata.exif.empty() &&
                    back.metadata.xmp.empty())
            << c.name;
    }
}

// A profile libpng will not store (a grey space on a colour image) is left
// out of a PNG rather than failing it; a real photo's profile that libpng
// lists as a known incorrect sRGB profile (chelsea.png, when ../shared is
// there) travels unchanged.
TEST_F(PhotoFileTest, PngKeepsProfilesLibpngDislikesOrLeavesOutOnesItCannotStore) {
    PhotoMetadata grey;
    grey.icc = minimal_profile();
    std::memcpy(&grey.icc[16], "GRAY", 4);
    std::string error;
    ASSERT_TRUE(write_photo(path("grey.png"), sample_photo(5, 4, 1), grey, {}, error)) << error;
    Photo back;
    ASSERT_TRUE(read_photo(path("grey.png"), back, error)) << error;
    EXPECT_TRUE(back.metadata.icc.empty());

    const std::string chelsea = QTZQ_APP_TEST_SHARED_PHOTOS "/chelsea.png";
    Photo photo;
    if (!read_photo(chelsea, photo, error)) GTEST_SKIP() << "no " << chelsea;
    ASSERT_FALSE(photo.metadata.icc.empty());
    ASSERT_TRUE(write_photo(path("chelsea.png"), photo.image, photo.metadata, {}, error)) << error;
    ASSERT_TRUE(read_photo(path("chelsea.png"), back, error)) << error;
    EXPECT_EQ(back.metadata.icc, photo.metadata.icc);
    EXPECT_TRUE(back.image.pixels == photo.image.pixels);
}

// A 508-byte HEIC found by fuzzing: a grid derived from itself, which
// libheif followed without end (a thread per level until the system
// refused, or a stack overflow without threads). Refused before decoding.
constexpr char kGridHeic[] =
    "0000001c6674797068656963000000006d696631686569636d696166000001ad6d6574610000000000000021"
    "68646c72000000000000000070696374000000000000000000000000000000000e7069746d00000000000200"
    "00001069646174000000000010000300000038696c6f630100000044400002000100000000000001d1000100"
    "0000000000002b00020001000000000000000100000000000000080000003869696e66000000000002000000"
    "15696e66650200000100010000687663310000000015696e666502000000000200006772696400000000d869"
    "707270000000b66970636f00000076687663430103700000000000000000001ef000fcfdf8f800000f032000"
    "01001840010c01ffff03700000030090000003000003001eba0240210001002a420101037000000300900000"
    "03000003001ea020810596eaae9ae6e04040c0800000030080000003008422000100064401c173c189000000"
    "1469737065000000000000004000000040000000146973706500000000000000100000001000000010706978"
    "6900000000030808080000001a69706d610000000000000002000102810200020203840000001a6972656600"
    "0000000000000e64696d67000200010002000100000000000001d1000100000000003196f84e50a796faa5fb"
    "3432553168b94fa573dd0a5093727eb8fef28793c56282e0";

TEST_F(PhotoFileTest, HeifGridDerivedFromItselfIsRefused) {
    Bytes bytes;
    for (std::size_t i = 0; kGridHeic[i] != 0; i += 2)
        bytes.push_back(static_cast<unsigned char>(std::stoi(std::string(kGridHeic + i, 2), nullptr, 16)));
    Photo photo;
    std::string error;
    EXPECT_FALSE(decode_photo(bytes, "grid.heic", photo, error));
    EXPECT_NE(error.find("grid.heic: corrupt HEIF (images derived from each other in a loop"),
              std::string::npos)
        << error;
}

// HEIC (HEVC) and AVIF (AV1) written by libheif's encoders, where this
// build of libheif has them, read back close to the original; declaring an
// enormous size, or cut in half, they are refused.
constexpr unsigned char kIspe[] = {'i', 's', 'p', 'e'};
TEST_F(PhotoFileTest, HeifAndAvifFromLibheifReadBack) {
    BgraImage image(64, 48);  // smooth, as 4:2:0 chroma keeps it
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x) {
            unsigned char* p = image.at(x, y);
            p[0] = static_cast<unsigned char>(x * 4), p[1] = static_cast<unsigned char>(y * 5);
            p[2] = static_cast<unsigned char>(x + y * 2), p[3] = 255;
        }
    int formats = 0;
    for (const auto& [format, name] : {std::pair{heif_compression_HEVC, "a.heic"},
                                       std::pair{heif_compression_AV1, "a.avif"}}) {
        heif_context* context = heif_context_alloc();
        heif_encoder* encoder = nullptr;
        if (heif_context_get_encoder_for_format(context, format, &encoder).code != heif_error_Ok) {
            heif_context_free(context);
            continue;
        }
        ++formats;
        heif_image* picture = nullptr;
        heif_image_create(64, 48, heif_colorspace_RGB, heif_chroma_interleaved_RGB, &picture);
        heif_image_add_plane(picture, heif_channel_interleaved, 64, 48, 8);
        int stride = 0;
        uint8_t* rows = heif_image_get_plane(picture, heif_channel_interleaved, &stride);
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x)
                for (int c = 0; c < 3; ++c) rows[y * stride + x * 3 + c] = image.at(x, y)[2 - c];
        heif_encoder_set_lossless(encoder, 1);
        ASSERT_EQ(heif_context_encode_image(context, picture, encoder, nullptr, nullptr).code,
                  heif_error_Ok);
        ASSERT_EQ(heif_context_write_to_file(context, path(name).c_str()).code, heif_error_Ok);
        heif_encoder_release(encoder);
        heif_image_release(picture);
        heif_context_free(context);
        Photo back;
        std::string error;
        ASSERT_TRUE(read_photo(path(name), back, error)) << error;
        ASSERT_EQ(back.image.width, 64);
        double total = 0;
        for (std::size_t i = 0; i < image.pixels.size(); ++i)
            total += std::abs(int(back.image.pixels[i]) - int(image.pixels[i]));
        EXPECT_LT(total / double(image.pixels.size()), 3.0) << name;
        Bytes bytes;
        ASSERT_TRUE(read_file_bytes(path(name), bytes, error));
        // The same file declaring 20000 x 20000 pixels in its size boxes.
        Bytes bomb = bytes;
        for (auto box = bomb.begin();
             (box = std::search(box, bomb.end(), std::begin(kIspe), std::end(kIspe))) != bomb.end();
             ++box) {
            const std::size_t at = std::size_t(box - bomb.begin());
            ASSERT_LE(at + 16, bomb.size());
            put(bomb, at + 8, 4, 20000, false), put(bomb, at + 12, 4, 20000, false);
        }
        ASSERT_TRUE(write_file_bytes(path(name), bomb, error));
        EXPECT_FALSE(read_photo(path(name), back, error));
        EXPECT_NE(error.find("refused as a decompression bomb"), std::string::npos) << error;
        bytes.resize(bytes.size() / 2);
        ASSERT_TRUE(write_file_bytes(path(name), bytes, error));
        EXPECT_FALSE(read_photo(path(name), back, error));
        EXPECT_EQ(error.rfind(path(name) + ": corrupt HEIF (", 0), 0u) << error;
    }
    if (formats == 0) GTEST_SKIP() << "libheif has no encoder here";
}

// Tiny files declaring enormous images, one per format, and a PNG chunk
// declaring more than the file holds, are refused with a message naming
// the file, before anything that large is allocated.
TEST_F(PhotoFileTest, DecompressionBombsAreRefusedByTheirHeader) {
    Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    png.resize(16 + 13 + 4);  // IHDR of 30000 x 30000 RGBA and its CRC, an empty IDAT
    put(png, 16, 4, 30000, false), put(png, 20, 4, 30000, false);
    png[24] = 8, png[25] = 6;
    put(png, 29, 4, std::uint32_t(crc32(0, &png[12], 17)), false);
    png.insert(png.end(), {0, 0, 0, 0, 'I', 'D', 'A', 'T', 0x35, 0xAF, 0x06, 0x1E});
    Bytes jpeg = {0xFF, 0xD8, 0xFF, 0xC0, 0, 17, 8, 0x4E, 0x20, 0x4E, 0x20, 3,  // SOF0 of
                  1, 0x11, 0, 2, 0x11, 0, 3, 0x11, 0,                        // 20000 x 20000
                  0xFF, 0xDA, 0, 12, 3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 0};
    Bytes webp = {'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'E', 'B', 'P', 'V', 'P', '8', 'X', 10, 0, 0, 0,
                  2, 0, 0, 0, 0xFE, 0x3F, 0, 0xFE, 0x3F, 0};  // animated, 16383 x 16383
    put(webp, 4, 4, std::uint32_t(webp.size() - 8), true);
    // Width and height 20000, one strip of one byte at offset 8.
    Bytes tiff = {'I', 'I', 42, 0, 8, 0, 0, 0, 4, 0};
    tiff.resize(10 + 4 * 12 + 4);
    const std::uint32_t fields[4][2] = {{256, 20000}, {257, 20000}, {273, 8}, {279, 1}};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t at = 10 + i * 12;
        put(tiff, at, 2, fields[i][0], true), put(tiff, at + 2, 2, 4, true);
        put(tiff, at + 4, 4, 1, true), put(tiff, at + 8, 4, fields[i][1], true);
    }
    // A chunk declaring 1.5 GB (libpng would allocate it before reading).
    Bytes long_chunk(png.begin(), png.begin() + 33);
    long_chunk.insert(long_chunk.end(), {0x5A, 0, 0, 0, 'z', 'T', 'X', 't', 'a', 0, 0});
    const std::vector<std::tuple<const char*, Bytes, const char*>> cases = {
        {"bomb.png", png, "too large"},
        {"chunk.png", long_chunk, "corrupt PNG (a chunk runs past the end of the file)"},
        {"bomb.jpg", jpeg, "refused as a decompression bomb"},
        {"bomb.webp", webp, "refused as a decompression bomb"},
        {"bomb.tif", tiff, "refused as a decompression bomb"},
    };
    for (const auto& [name, bytes, message] : cases) {
        std::string error;
        ASSERT_TRUE(write_file_bytes(path(name), bytes, error));
        BgraImage image;
        EXPECT_FALSE(read_image(path(name), image, error)) << name;
        EXPECT_EQ(error.rfind(path(name) + ": ", 0), 0u) << error;
        EXPECT_NE(error.find(message), std::string::npos) << error;
    }
}

}  // namespace
}  // namespace qtzq_app_test
