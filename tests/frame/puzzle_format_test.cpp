// The "ZQPTM" puzzle format table and the template collage's view of it.
#include <gtest/gtest.h>

#include "frame/file_builders.h"
#include "frame/rects.h"
#include "qtzqeffect/frame.h"

namespace {

using qtzq_test::FileBytes;
using qtzq_test::PuzzleFormatFile;

int read(cpuzzleformat& format, FileBytes file) {
    return format.ReadPuzzleFormatFile(file.data(), int(file.size()));
}

PuzzleFormatFile three_cells() {
    return PuzzleFormatFile()
        .result_size(600, 800)
        .cell({1, 2, 3, 4})
        .cell({5, 6, 7, 8})
        .cell({9, 10, 11, 12});
}

TEST(PuzzleFormat, ReadsCountSizeAndCells) {
    cpuzzleformat format;
    const FileBytes file = three_cells().bytes();
    ASSERT_EQ(read(format, file), 1);
    EXPECT_EQ(format.GetPuzzleFormatCount(), 3);
    EXPECT_EQ(format.GetPuzzleResultSize().width, 600);
    EXPECT_EQ(format.GetPuzzleResultSize().height, 800);
    // Cell 2 is the record at offset 88.
    ASSERT_EQ(file[88], 9);
    EXPECT_EQ(format.GetPuzzleRectWithIndex(2), (_tagCGRect{9, 10, 11, 12}));
}

TEST(PuzzleFormat, WrongMagicTenCellsOrTooFewBytesAreRefused) {
    cpuzzleformat format;
    read(format, three_cells().bytes());
    EXPECT_EQ(read(format, PuzzleFormatFile().magic("ZQPTN").result_size(1, 1).bytes()), 0);
    PuzzleFormatFile ten;
    for (int i = 0; i < 10; ++i) ten.cell({i, i, i, i});
    EXPECT_EQ(read(format, ten.bytes()), 0);
    FileBytes short_cells = three_cells().bytes();
    short_cells.pop_back();
    EXPECT_EQ(read(format, short_cells), 0);
    EXPECT_EQ(format.GetPuzzleFormatCount(), 3);
    EXPECT_EQ(format.GetPuzzleResultSize().width, 600);
    EXPECT_EQ(format.GetPuzzleRectWithIndex(0), (_tagCGRect{1, 2, 3, 4}));
}

TEST(PuzzleFormat, SetAndGetOnlyTouchTheNineCells) {
    cpuzzleformat format;
    format.SetPuzzleRectWithIndex(8, {1, 1, 1, 1});
    format.SetPuzzleRectWithIndex(9, {2, 2, 2, 2});
    format.SetPuzzleRectWithIndex(-1, {3, 3, 3, 3});
    EXPECT_EQ(format.GetPuzzleRectWithIndex(8), (_tagCGRect{1, 1, 1, 1}));  // beyond the count of 0
    EXPECT_EQ(format.GetPuzzleRectWithIndex(9), (_tagCGRect{0, 0, 0, 0}));
    EXPECT_EQ(format.GetPuzzleRectWithIndex(-1), (_tagCGRect{0, 0, 0, 0}));
}

// A template collage laid out with given offsets.
class LaidOutTemplate : public ctemplatepuzzle {
public:
    LaidOutTemplate(int x, int y) {
        m_layoutOffsetX = x;
        m_layoutOffsetY = y;
    }
};

TEST(TemplatePuzzle, SharesTheGlobalTableAndAddsHalfTheOffsets) {
    FileBytes file = three_cells().bytes();
    LaidOutTemplate reader(0, 0);
    ASSERT_EQ(reader.ReadPuzzleFormatFile(file.data(), int(file.size())), 1);
    EXPECT_EQ(m_format.GetPuzzleFormatCount(), 3);

    LaidOutTemplate other(21, 10);
    EXPECT_EQ(other.GetFormatCount(), 3);
    EXPECT_EQ(other.GetFormatRectWithIndex(0), (_tagCGRect{1 + 10, 2 + 5, 3, 4}));
    EXPECT_EQ(LaidOutTemplate(-21, -1).GetFormatRectWithIndex(0), (_tagCGRect{1 - 10, 2, 3, 4}));
    EXPECT_EQ(other.GetFormatRectWithIndex(9), (_tagCGRect{0, 0, 0, 0}));
}

}  // namespace
