// qtzq make-frame and qtzq frame: frame files round trip, and the framed
// photo is the library's composite.
#include <qtzqeffect/frame.h>

#include <cstring>

#include "file_bytes.h"
#include "frame_file.h"
#include "tool_harness.h"

namespace qtzq_tool_test {
namespace {

using FrameTest = ToolTest;

BgraImage solid(int width, int height, unsigned char b, unsigned char g, unsigned char r,
                unsigned char a = 255) {
    BgraImage image(width, height);
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) {
        image.pixels[i] = b;
        image.pixels[i + 1] = g;
        image.pixels[i + 2] = r;
        image.pixels[i + 3] = a;
    }
    return image;
}

// Corners 6 x 6 red, top/bottom edges 4 x 6 and left/right edges 6 x 4
// blue, insets 2, 2; the right edge is left out.
class FramedPhoto : public FrameTest {
protected:
    void make_frame() {
        save_png("corner.png", solid(6, 6, 0, 0, 255));
        save_png("hedge.png", solid(4, 6, 255, 0, 0));
        save_png("vedge.png", solid(6, 4, 255, 0, 0, 128));
        const std::string c = path("corner.png"), h = path("hedge.png"), v = path("vedge.png");
        const RunResult result = run({"make-frame", c, c, c, c, h, h, v, "-", "--insets", "2,2",
                                      "-o", path("frame.bin")});
        ASSERT_EQ(result.status, 0) << result.err;
    }
};

TEST_F(FramedPhoto, MakeFrameStoresThePngFilesAndInsets) {
    make_frame();
    std::vector<unsigned char> bytes;
    std::string error;
    ASSERT_TRUE(qtzq_tools::read_file_bytes(path("frame.bin"), bytes, error));
    qtzq_cli::FrameFile frame;
    ASSERT_TRUE(qtzq_cli::parse_frame_file(bytes, frame, error)) << error;
    for (int corner = 0; corner < 4; ++corner) {
        EXPECT_EQ(frame.inset_x[std::size_t(corner)], 2);
        EXPECT_EQ(frame.inset_y[std::size_t(corner)], 2);
    }
    const std::string corner = slurp(path("corner.png")), vedge = slurp(path("vedge.png"));
    EXPECT_EQ(std::string(frame.pieces[0].begin(), frame.pieces[0].end()), corner);
    EXPECT_EQ(std::string(frame.pieces[6].begin(), frame.pieces[6].end()), vedge);
    EXPECT_TRUE(frame.pieces[7].empty());
    // Header, 7 present records (12 bytes + data each) and one empty record.
    EXPECT_EQ(bytes.size(), 80 + 7 * 12 + 4 * corner.size() + 2 * slurp(path("hedge.png")).size() +
                                vedge.size() + 4);
}

TEST_F(FramedPhoto, FramedPhotoIsTheLibraryCompositeAroundThePhoto) {
    make_frame();
    const BgraImage photo = opaque(sample_photo(16, 12));
    save_png("photo.png", photo);
    const RunResult result = run({"frame", path("frame.bin"), path("photo.png"), "-o", path("out.png")});
    ASSERT_EQ(result.status, 0) << result.err;
    const BgraImage out = load_png("out.png");
    // Spans 12 and 8 are whole numbers of 4-pixel edges: nothing is cropped.
    ASSERT_EQ(out.width, 16 + 6 + 6 - 2 - 2);
    ASSERT_EQ(out.height, 12 + 6 + 6 - 2 - 2);
    EXPECT_EQ(std::memcmp(out.at(12, 10), photo.at(8, 6), 4), 0);  // photo at (4, 4)
    EXPECT_EQ(out.at(0, 0)[2], 255);                                // a red corner
    EXPECT_EQ(out.at(8, 1)[0], 255);                                // the blue top edge
    EXPECT_EQ(std::memcmp(out.at(21, 8), "\xFF\xFF\xFF\xFF", 4), 0);      // no right edge: white

    // The same through the library directly.
    std::vector<unsigned char> bytes;
    std::string error;
    ASSERT_TRUE(qtzq_tools::read_file_bytes(path("frame.bin"), bytes, error));
    cframe frame;
    ASSERT_EQ(frame.ReadFrameFile(bytes.data(), int(bytes.size())), 1);
    for (int slot = 0; slot < 8; ++slot) {
        int length = 0;
        unsigned char* block = frame.GetFrameImage(slot, length);
        if (!block) continue;
        BgraImage piece;
        ASSERT_TRUE(qtzq_tools::read_png_memory(block, std::size_t(length), "piece", piece, error));
        frame.SetFrameImageData(slot, piece.data(), piece.width, piece.height);
    }
    BgraImage copy = photo;
    int width = 0, height = 0;
    const unsigned char* framed = frame.GetCompositeImage(copy.data(), 16, 12, 1.0f, &width, &height);
    ASSERT_NE(framed, nullptr);
    EXPECT_EQ(std::vector<unsigned char>(framed, framed + out.pixels.size()), out.pixels);
}

TEST_F(FramedPhoto, DamagedFrameFilesAndPiecesAreRefused) {
    make_frame();
    save_png("photo.png", sample_photo(16, 12));
    std::vector<unsigned char> bytes;
    std::string error;
    ASSERT_TRUE(qtzq_tools::read_file_bytes(path("frame.bin"), bytes, error));
    bytes.resize(bytes.size() - 30);
    ASSERT_TRUE(qtzq_tools::write_file_bytes(path("cut.bin"), bytes, error));
    const RunResult cut = run({"frame", path("cut.bin"), path("photo.png"), "-o", path("out.png")});
    EXPECT_EQ(cut.status, 1);
    EXPECT_NE(cut.err.find(path("cut.bin") + ": the record of the left piece announces"),
              std::string::npos)
        << cut.err;
    save_text("text.png", "not a picture");
    const RunResult piece = run({"make-frame", path("text.png"), "-", "-", "-", "-", "-", "-",
                                 "-", "-o", path("f.bin")});
    EXPECT_EQ(piece.status, 1);
    EXPECT_NE(piece.err.find(path("text.png") + ": not a PNG file"), std::string::npos);
    EXPECT_EQ(run({"make-frame", "-", "-", "-o", path("f.bin")}).status, 2);
    EXPECT_EQ(run({"make-frame", "-", "-", "-", "-", "-", "-", "-", "-", "--insets", "1,2,3",
                   "-o", path("f.bin")}).status, 2);
    EXPECT_FALSE(fs::exists(path("out.png")));
    EXPECT_FALSE(fs::exists(path("f.bin")));
}

TEST(FrameFile, EncodeAndParseAgree) {
    qtzq_cli::FrameFile frame;
    frame.inset_x = {1, -2, 3, 2147483647};
    frame.inset_y = {-2147483647 - 1, 5, 6, 7};
    frame.pieces[2] = {1, 2, 3};
    frame.pieces[7] = {9};
    const std::vector<unsigned char> bytes = qtzq_cli::encode_frame_file(frame);
    EXPECT_EQ(bytes.size(), 80u + 6 * 4 + 12 + 3 + 12 + 1);
    EXPECT_EQ(bytes[44], 1);
    EXPECT_EQ(bytes[52], 0xFE);  // -2, little-endian
    qtzq_cli::FrameFile back;
    std::string error;
    ASSERT_TRUE(qtzq_cli::parse_frame_file(bytes, back, error)) << error;
    EXPECT_EQ(back.inset_x, frame.inset_x);
    EXPECT_EQ(back.inset_y, frame.inset_y);
    EXPECT_EQ(back.pieces, frame.pieces);
    EXPECT_FALSE(qtzq_cli::parse_frame_file(std::vector<unsigned char>(79), back, error));
}

}  // namespace
}  // namespace qtzq_tool_test
