// The "MZYPT" free collage: reproducible random layout and the fit rule.
#include <gtest/gtest.h>

#include <cstdlib>

#include "frame/file_builders.h"
#include "frame/rects.h"
#include "qtzqeffect/frame.h"

namespace {

using qtzq_test::FileBytes;
using qtzq_test::FreeCell;
using qtzq_test::FreePuzzleFile;

int read(cfreepuzzle& puzzle, FileBytes file) {
    return puzzle.ReadFrameFile(file.data(), int(file.size()));
}

// The value every AverageRandom draw takes.
int first_draw() {
    std::srand(2147483647u);
    return std::rand();
}

FreeCell fixed_cell(int x, int y, int width, int height) {
    return FreeCell().cell(x, y, width, height);
}

TEST(FreePuzzleRandom, EveryCallReseedsAndTakesTheFirstDraw) {
    cfreepuzzle puzzle;
    EXPECT_EQ(puzzle.AverageRandom(0.5f, 0.5f), 0.5f);
    const int next = std::rand();
    EXPECT_EQ(next, first_draw());  // equal bounds: reseeded, nothing drawn
    // 0.29f * 100 is 29 in single precision (28.99... in double).
    EXPECT_EQ(puzzle.AverageRandom(0.29f, 0.29f), 29 / 100.0f);

    const int r = first_draw();
    const float want = static_cast<float>(-1000 + r % 2000) / 100.0f;
    EXPECT_EQ(puzzle.AverageRandom(-10.0f, 10.0f), want);
    EXPECT_EQ(puzzle.AverageRandom(-10.0f, 10.0f), want);
    // A reversed range divides by a negative range: the sign follows r.
    EXPECT_EQ(puzzle.AverageRandom(10.0f, -10.0f), static_cast<float>(1000 + r % -2000) / 100.0f);
}

TEST(FreePuzzleLayout, FixedRangesGiveTheNominalCell) {
    const FreeCell cell =
        fixed_cell(100, 50, 400, 300).shift_x(5, 5).shift_y(-7, -7).rotation(12, 12);
    cfreepuzzle puzzle;
    EXPECT_EQ(puzzle.GetResultSize().width, 0);
    ASSERT_EQ(read(puzzle, FreePuzzleFile().cell(cell).bytes()), 1);
    EXPECT_EQ(puzzle.GetCount(), 1);
    EXPECT_EQ(puzzle.GetResultSize().width, 640);
    EXPECT_EQ(puzzle.GetResultSize().height, 896);
    EXPECT_EQ(puzzle.GetMaxRectWithIndex(0), (_tagCGRect{105, 43, 400, 300}));
    EXPECT_EQ(puzzle.GetRotationWithIndex(0), 12.0f);
}

TEST(FreePuzzleLayout, RefusedFilesLeaveTheLayout) {
    cfreepuzzle puzzle;
    read(puzzle, FreePuzzleFile().cell(fixed_cell(1, 2, 3, 4)).bytes());
    FileBytes two =
        FreePuzzleFile().cell(fixed_cell(5, 5, 5, 5)).cell(fixed_cell(6, 6, 6, 6)).bytes();
    EXPECT_EQ(puzzle.ReadFrameFile(two.data(), int(two.size()) - 1), 0);  // last record cut
    EXPECT_EQ(read(puzzle, FreePuzzleFile().magic("MZYPU").cell(fixed_cell(5, 5, 5, 5)).bytes()),
              0);
    EXPECT_EQ(puzzle.GetCount(), 1);
    EXPECT_EQ(puzzle.GetMaxRectWithIndex(1), (_tagCGRect{0, 0, 0, 0}));  // beyond the count

    // Ten cells are refused after the count is taken, and not laid out.
    FreePuzzleFile ten;
    for (int i = 0; i < 10; ++i) ten.cell(fixed_cell(i, i, 9, 9));
    EXPECT_EQ(read(puzzle, ten.bytes()), 0);
    EXPECT_EQ(puzzle.GetCount(), 10);
    EXPECT_EQ(puzzle.GetMaxRectWithIndex(0), (_tagCGRect{1, 2, 3, 4}));
    // The getters answer only for the nine cells that exist.
    EXPECT_EQ(puzzle.GetMaxRectWithIndex(9), (_tagCGRect{0, 0, 0, 0}));
    EXPECT_EQ(puzzle.GetRotationWithIndex(9), 0.0f);
    EXPECT_EQ(puzzle.GetViewRectWithIndex(9, {10, 10}), (_tagCGRect{0, 0, 0, 0}));
}

TEST(FreePuzzleFit, PhotosShrinkToFitAndAreCentred) {
    cfreepuzzle puzzle;
    const _tagCGRect cell = {100, 50, 400, 400};
    EXPECT_EQ(puzzle.ChangeRectWithMaxRect({2000, 1000}, cell), (_tagCGRect{100, 150, 400, 200}));
    EXPECT_EQ(puzzle.ChangeRectWithMaxRect({100, 100}, cell), (_tagCGRect{250, 200, 100, 100}));
    // k = 10 / 70: the width 30 * k truncates to 4.
    EXPECT_EQ(puzzle.ChangeRectWithMaxRect({30, 70}, {0, 0, 10, 10}), (_tagCGRect{3, 0, 4, 10}));
    EXPECT_EQ(puzzle.ChangeRectWithMaxRect({0, 10}, {0, 0, 10, 10}), (_tagCGRect{0, 0, 0, 0}));
    // The view rect of a cell is its nominal cell fitted the same way.
    read(puzzle, FreePuzzleFile().cell(fixed_cell(100, 50, 400, 400)).bytes());
    EXPECT_EQ(puzzle.GetViewRectWithIndex(0, {2000, 1000}), (_tagCGRect{100, 150, 400, 200}));
}

}  // namespace
