#include "curve/spline_controls.h"

#include "pixel/numeric.h"

namespace qtzq {
namespace {

// Integer results are computed in 64 bits (no int input can overflow them)
// and saturate when stored back as int; for levels 0..255 nothing saturates.
int saturate_int(long long value) {
    if (value < INT32_MIN) return INT32_MIN;
    if (value > INT32_MAX) return INT32_MAX;
    return static_cast<int>(value);
}

// Floor division by 4, the arithmetic right shift by 2 of the three-point
// formula, written without shifting a negative value.
long long floor_quarter(long long value) {
    return value >= 0 ? value / 4 : -((-value + 3) / 4);
}

// Right-hand side of row `row` (point row + 1): 6 P_i, with the known end
// control points moved over in the first and last rows.
double right_side(const _POINT* points, int count, int row) {
    const int i = row + 1;
    long long side = 6LL * points[i].y;
    if (i == 1) side -= points[0].y;
    if (i == count - 2) side -= points[count - 1].y;
    return static_cast<double>(side);
}

// Solves the tridiagonal system (diagonal 4, off-diagonals 1) for the inner
// control levels in double precision: forward elimination, then back
// substitution. The operation order fixes the rounding and with it the
// truncated results.
std::vector<double> solve_inner_levels(const _POINT* points, int count) {
    const int rows = count - 2;
    std::vector<double> diagonal(rows), side(rows), solution(rows);
    const double kDiagonal = 4.0;
    const double kOffDiagonal = 1.0;
    for (int row = 0; row < rows; ++row) side[row] = right_side(points, count, row);
    diagonal[0] = kDiagonal;
    for (int row = 1; row < rows; ++row) {
        const double factor = kOffDiagonal / diagonal[row - 1];
        diagonal[row] = kDiagonal - factor * kOffDiagonal;
        side[row] = side[row] - factor * side[row - 1];
    }
    solution[rows - 1] = side[rows - 1] / diagonal[rows - 1];
    for (int row = rows - 2; row >= 0; --row)
        solution[row] = (side[row] - kOffDiagonal * solution[row + 1]) / diagonal[row];
    return solution;
}

}  // namespace

std::vector<int> spline_control_levels(const _POINT* points, int count) {
    std::vector<int> levels(count);
    levels[0] = points[0].y;
    levels[count - 1] = points[count - 1].y;
    if (count == 3) {
        const long long side = 6LL * points[1].y - points[0].y - points[2].y;
        levels[1] = saturate_int(floor_quarter(side));
    } else if (count > 3) {
        const std::vector<double> inner = solve_inner_levels(points, count);
        for (int i = 1; i + 1 < count; ++i) levels[i] = truncate_int(inner[i - 1]);
    }
    return levels;
}

}  // namespace qtzq
