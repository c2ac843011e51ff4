// The fourth-order recursive approximation of the Gaussian: two damped
// cosine/sine pairs per direction, from a fixed set of fitted constants.
//
// Every expression below keeps its order of products and sums: the blur is
// compared to the byte, and a reordered sum can move a truncated pixel.
#include "blur/deriche_coefficients.h"

#include "math/portable_math.h"
#include "qtzqeffect/blur.h"

namespace qtzq {
namespace {

// Fitted constants of the approximation, required as written.
constexpr double kSqrtTwoPi = 2.5066282746310002;
constexpr double kA0 = 1.6803;  // not 1.680: with kC0 it sums to exactly 1
constexpr double kA1 = 3.735;
constexpr double kC0 = -0.6803;
constexpr double kC1 = -0.2598;
constexpr double kOmega0 = 0.6318;
constexpr double kOmega1 = 1.997;
constexpr double kDecay0 = 1.783;
constexpr double kDecay1 = 1.723;

// The damped terms e0 = exp(-1.783 / sigma), e1 = exp(-1.723 / sigma) and
// their products. A product of decays is never a product of exps: it is the
// exp of the summed exponents, with the constants summed first and then
// divided by sigma, e.g. e0 e1 = exp(-(1.783 + 1.723) / sigma). (Doubling a
// constant is exact, so e0^2 = exp(-(2 * 1.783) / sigma) is the same either
// way; the mixed products are not.)
struct Decays {
    double e0, e1;        // e0, e1
    double e00, e11;      // e0^2, e1^2
    double e01;           // e0 e1
    double e001, e011;    // e0^2 e1, e0 e1^2
    double e0011;         // e0^2 e1^2
};

// exp, sin and cos are the portable, correctly rounded ones: the host's
// maths library differs between CPUs in the last bit, and so would the blur.
double decay(double constant_sum, double sigma) {
    return portable_exp(-constant_sum / sigma);
}

Decays decays(double sigma) {
    Decays e;
    e.e0 = decay(kDecay0, sigma);
    e.e1 = decay(kDecay1, sigma);
    e.e00 = decay(2.0 * kDecay0, sigma);
    e.e11 = decay(2.0 * kDecay1, sigma);
    e.e01 = decay(kDecay0 + kDecay1, sigma);
    e.e001 = decay(2.0 * kDecay0 + kDecay1, sigma);
    e.e011 = decay(kDecay0 + 2.0 * kDecay1, sigma);
    e.e0011 = decay(2.0 * kDecay0 + 2.0 * kDecay1, sigma);
    return e;
}

}  // namespace

DericheCoefficients deriche_coefficients(double sigma) {
    const double s = sigma * kSqrtTwoPi;
    const double a0 = kA0 / s;
    const double a1 = kA1 / s;
    const double c0 = kC0 / s;
    const double c1 = kC1 / s;

    const double o0 = kOmega0 / sigma;
    const double o1 = kOmega1 / sigma;
    const double sin0 = portable_sin(o0), cos0 = portable_cos(o0);
    const double sin1 = portable_sin(o1), cos1 = portable_cos(o1);
    const Decays e = decays(sigma);

    DericheCoefficients k{};
    k.n[0] = a0 + c0;
    k.n[1] = e.e1 * (c1 * sin1 - (c0 + 2.0 * a0) * cos1) +
             e.e0 * (a1 * sin0 - (a0 + 2.0 * c0) * cos0);
    k.n[2] = 2.0 * e.e01 * ((a0 + c0) * cos1 * cos0 - a1 * cos1 * sin0 - c1 * cos0 * sin1) +
             c0 * e.e00 + a0 * e.e11;
    k.n[3] = e.e011 * (a1 * sin0 - a0 * cos0) + e.e001 * (c1 * sin1 - c0 * cos1);
    k.n[4] = 0.0;

    k.d[0] = 0.0;
    k.d[1] = -2.0 * e.e1 * cos1 - 2.0 * e.e0 * cos0;
    k.d[2] = e.e11 + 4.0 * cos1 * cos0 * e.e01 + e.e00;
    k.d[3] = -2.0 * cos1 * e.e001 - 2.0 * cos0 * e.e011;
    k.d[4] = e.e0011;

    k.m[0] = 0.0;
    for (int i = 1; i < kDericheTaps; ++i) k.m[i] = k.n[i] - k.d[i] * k.n[0];

    // Steady-state responses to a constant 1 (SN / SD causal, SM / SD
    // anticausal) scale the denominator into the edge coefficients.
    double sn = k.n[0], sm = k.m[0], sd = k.d[0];
    for (int i = 1; i < kDericheTaps; ++i) {
        sn += k.n[i];
        sm += k.m[i];
        sd += k.d[i];
    }
    sd += 1.0;
    for (int i = 0; i < kDericheTaps; ++i) {
        k.dAnti[i] = k.d[i];
        k.bn[i] = k.d[i] * sn / sd;
        k.bm[i] = k.d[i] * sm / sd;
    }
    return k;
}

void store_coefficients(const DericheCoefficients& from, double* n, double* m, double* d,
                        double* dAnti, double* bn, double* bm) {
    for (int i = 0; i < kDericheTaps; ++i) {
        n[i] = from.n[i];
        m[i] = from.m[i];
        d[i] = from.d[i];
        dAnti[i] = from.dAnti[i];
        bn[i] = from.bn[i];
        bm[i] = from.bm[i];
    }
}

DericheCoefficients load_coefficients(const double* n, const double* m, const double* d,
                                      const double* dAnti, const double* bn, const double* bm) {
    DericheCoefficients k;
    for (int i = 0; i < kDericheTaps; ++i) {
        k.n[i] = n[i];
        k.m[i] = m[i];
        k.d[i] = d[i];
        k.dAnti[i] = dAnti[i];
        k.bn[i] = bn[i];
        k.bm[i] = bm[i];
    }
    return k;
}

}  // namespace qtzq

void find_constants(double* n, double* m, double* d, double* dAnti, double* bn, double* bm,
                    double sigma) {
    qtzq::store_coefficients(qtzq::deriche_coefficients(sigma), n, m, d, dAnti, bn, bm);
}
