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
    EXPECT_EQ(bubble.ReadFrameFile(file.data(), int(file.size())), 383);
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{10, 20, 100, 50}));
    EXPECT_EQ(bubble.GetTextColorWithIndex(0), 12);
    EXPECT_EQ(bubble.GetTextColorWithIndex(1), 34);
    EXPECT_EQ(bubble.GetTextColorWithIndex(2), 56);
    EXPECT_EQ(bubble.GetTextColorWithIndex(3), 255);  // always opaque
    EXPECT_EQ(bubble.GetTextColorWithIndex(4), 0);
    EXPECT_EQ(bubble.GetTextColorWithIndex(-1), 0);
}

TEST(SpeechBubble, CornersAreNotOrdered) {
    FileBytes file = BubbleFile().box(50, 60, 10, -2147483647 - 1).bytes();
    csbubble bubble;
    bubble.ReadFrameFile(file.data(), int(file.size()));
    // -2147483648 - 60 wraps around.
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{50, 60, -40, 2147483647 - 59}));
}

TEST(SpeechBubble, ShortFilesAreNotReadAndStillAnswer383) {
    FileBytes file = BubbleFile().box(1, 2, 3, 4).color(5, 6, 7, 8).bytes();
    csbubble bubble;
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{0, 0, 0, 0}));
    bubble.ReadFrameFile(file.data(), int(file.size()));
    FileBytes other = BubbleFile().box(9, 9, 9, 9).bytes();
    EXPECT_EQ(bubble.ReadFrameFile(other.data(), 223), 383);
    EXPECT_EQ(bubble.ReadFrameFile(nullptr, 224), 383);
    EXPECT_EQ(bubble.ReadFrameFile(other.data(), -1), 383);
    EXPECT_EQ(bubble.GetTextDrawRect(), (_tagCGRect{1, 2, 2, 2}));
    EXPECT_EQ(bubble.GetTextColorWithIndex(2), 7);
}

}  // namespace
