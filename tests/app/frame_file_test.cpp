// Frame files: encoding and parsing agree, at the byte offsets the
// library's reader uses.
#include "app/app_test.h"
#include "qtzq_app/frame_file.h"

namespace qtzq_app_test {
namespace {

TEST(FrameFile, EncodeAndParseAgree) {
    qtzq_app::FrameFile frame;
    frame.inset_x = {1, -2, 3, 2147483647};
    frame.inset_y = {-2147483647 - 1, 5, 6, 7};
    frame.pieces[2] = {1, 2, 3};
    frame.pieces[7] = {9};
    std::vector<unsigned char> bytes = qtzq_app::encode_frame_file(frame);
    // Header, 6 empty records of 4 bytes and 2 present ones of 12 + data.
    EXPECT_EQ(bytes.size(), 80u + 6 * 4 + 12 + 3 + 12 + 1);
    EXPECT_EQ(bytes[44], 1);
    EXPECT_EQ(bytes[52], 0xFE);  // -2, little-endian
    qtzq_app::FrameFile back;
    std::string error;
    ASSERT_TRUE(qtzq_app::parse_frame_file(bytes, back, error)) << error;
    EXPECT_EQ(back.inset_x, frame.inset_x);
    EXPECT_EQ(back.inset_y, frame.inset_y);
    EXPECT_EQ(back.pieces, frame.pieces);
    EXPECT_FALSE(qtzq_app::parse_frame_file(std::vector<unsigned char>(79), back, error));
    bytes.pop_back();  // the last record now runs past the end
    EXPECT_FALSE(qtzq_app::parse_frame_file(bytes, back, error));
}

}  // namespace
}  // namespace qtzq_app_test
