// Coefficients of the fourth-order recursive Gaussian (causal plus
// anticausal filter) shared by GaussianBlurFilterUtil and the blur brush.
#ifndef QTZQ_BLUR_DERICHE_COEFFICIENTS_H
#define QTZQ_BLUR_DERICHE_COEFFICIENTS_H

namespace qtzq {

constexpr int kDericheTaps = 5;

// Six groups of five doubles, in the order of GaussianBlurFilterUtil's block.
struct DericheCoefficients {
    double n[kDericheTaps];      // causal numerator
    double m[kDericheTaps];      // anticausal numerator
    double d[kDericheTaps];      // denominator
    double dAnti[kDericheTaps];  // copy of the denominator for the anticausal filter
    double bn[kDericheTaps];     // causal edge coefficients
    double bm[kDericheTaps];     // anticausal edge coefficients
};

// The coefficient set for a Gaussian of standard deviation sigma (> 0).
DericheCoefficients deriche_coefficients(double sigma);

// Copies a set into / out of six separate arrays of five doubles.
void store_coefficients(const DericheCoefficients& from, double* n, double* m, double* d,
                        double* dAnti, double* bn, double* bm);
DericheCoefficients load_coefficients(const double* n, const double* m, const double* d,
                                      const double* dAnti, const double* bn, const double* bm);

}  // namespace qtzq

#endif  // QTZQ_BLUR_DERICHE_COEFFICIENTS_H
