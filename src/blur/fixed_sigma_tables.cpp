// Fixed coefficient tables for the blur brush's radii 2 and 12, kept as
// listed: single-precision values widened to double. The radius-2 causal
// edge row repeats the denominator with entry 3 positive; it does not follow
// bn = d * SN / SD like the other rows, and is kept that way on purpose.
#include <algorithm>
#include <iterator>

#include "blur/deriche_coefficients.h"
#include "qtzqeffect/blur.h"

namespace {

struct FixedTable {
    float n[qtzq::kDericheTaps];
    float m[qtzq::kDericheTaps];
    float d[qtzq::kDericheTaps];
    float bn[qtzq::kDericheTaps];
    float bm[qtzq::kDericheTaps];
};

constexpr FixedTable kRadius2 = {
    {0.442699f, 0.2244f, 0.031259f, 0.000733f, 0.0f},
    {0.0f, 0.239255f, 0.029755f, 0.001272f, -0.000185f},
    {0.0f, -0.033556f, 0.003398f, -0.001217f, 0.000418f},
    {0.0f, -0.033556f, 0.003398f, 0.001217f, 0.000418f},
    {0.0f, -0.009353f, 0.000947f, -0.000339f, 0.000117f},
};

constexpr FixedTable kRadius12 = {
    {0.102161f, -0.14344f, 0.08156f, -0.016004f, 0.0f},
    {0.0f, 0.098911f, -0.14501f, 0.082838f, -0.016961f},
    {0.0f, -2.372239f, 2.217768f, -0.967506f, 0.166022f},
    {0.0f, -1.307562f, 1.222419f, -0.533282f, 0.09151f},
    {0.0f, -1.065211f, 0.995849f, -0.434441f, 0.07454f},
};

void fill(const FixedTable& table, double* n, double* m, double* d, double* dAnti, double* bn,
          double* bm) {
    qtzq::DericheCoefficients k;
    const auto widen = [](const float (&from)[qtzq::kDericheTaps], double* to) {
        std::copy(std::begin(from), std::end(from), to);
    };
    widen(table.n, k.n);
    widen(table.m, k.m);
    widen(table.d, k.d);
    widen(table.d, k.dAnti);
    widen(table.bn, k.bn);
    widen(table.bm, k.bm);
    qtzq::store_coefficients(k, n, m, d, dAnti, bn, bm);
}

}  // namespace

void find_constants_2(double* n, double* m, double* d, double* dAnti, double* bn, double* bm,
                      double /*sigma*/) {
    fill(kRadius2, n, m, d, dAnti, bn, bm);
}

void find_constants_12(double* n, double* m, double* d, double* dAnti, double* bn, double* bm,
                       double /*sigma*/) {
    fill(kRadius12, n, m, d, dAnti, bn, bm);
}
