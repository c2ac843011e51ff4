// Speech bubble files: the text box and the text colour.
#include <gtest/gtest.h>

#include "frame/file_builders.h"
#include "frame/rects.h"
#include "qtzqeffect/frame.h"

namespace {

using qtzq_test::BubbleFile;
using qtzq_test::FileBytes;

TEST(SpeechBubble, ReadsTheTextBoxAndColour) {
    FileBytes file = BubbleFile().box(10, 20, 110, 70).color(12, 34, 56, 0).bytes();
    csbubble bubble;
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{0, 0, 0, 0}));
    EXPECT_EQ(bubble.ReadFrameFile(file.data(), int(file.size())), 383);
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{10, 20, 100, 50}));
    const int colour[] = {0, 12, 34, 56, 255, 0};  // indices -1..4; always opaque
    for (int i = -1; i <= 4; ++i) EXPECT_EQ(bubble.GetTextColorWithIndex(i), colour[i + 1]) << i;

    // The corners are not ordered: -2147483648 - 60 wraps around.
    file = BubbleFile().box(50, 60, 10, -2147483647 - 1).bytes();
    bubble.ReadFrameFile(file.data(), int(file.size()));
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{50, 60, -40, 2147483647 - 59}));
}

// Every length short of the whole file is not read (and stays inside its
// bytes: each prefix is a heap block of exactly that size), and still 383.
TEST(SpeechBubble, ShortFilesAreNotReadAndStillAnswer383) {
    FileBytes file = BubbleFile().box(1, 2, 3, 4).color(5, 6, 7, 8).bytes();
    csbubble bubble;
    bubble.ReadFrameFile(file.data(), int(file.size()));
    FileBytes other = BubbleFile().box(9, 9, 9, 9).color(9, 9, 9, 9).bytes();
    for (std::size_t length = 0; length < other.size(); ++length) {
        FileBytes bytes = qtzq_test::prefix(other, length);
        ASSERT_EQ(bubble.ReadFrameFile(bytes.data(), int(length)), 383);
    }
    EXPECT_EQ(bubble.ReadFrameFile(nullptr, 224), 383);
    EXPECT_EQ(bubble.ReadFrameFile(other.data(), -1), 383);
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{1, 2, 2, 2}));
    EXPECT_EQ(bubble.GetTextColorWithIndex(2), 7);
}

}  // namespace
