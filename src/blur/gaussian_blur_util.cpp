// GaussianBlurFilterUtil: the whole-image recursive Gaussian blur behind the
// process-wide singleton.
//
// The coefficient block of the instance is shared by every caller of
// GetInst(). To let two threads blur at once, each call works on its own
// copy of the coefficients and only publishes them into the block, under a
// lock, when it has computed new ones; the results are those of the calls
// made one after the other.
#include "qtzqeffect/blur.h"

#include <climits>
#include <cmath>
#include <cstddef>
#include <mutex>

#include "blur/deriche_coefficients.h"
#include "blur/deriche_line_filter.h"
#include "blur/deriche_lines.h"
#include "blur/sigma_mapping.h"

using qtzq::DericheCoefficients;

namespace {

constexpr int kPixelBytes = 4;
constexpr double kMaxRadius = 255.0;
constexpr double kSmallestRadius = 1e-8;       // below it: no blur, block untouched
constexpr double kSameRadiusTolerance = 1e-6;  // closer radii reuse the row coefficients

// Guards the coefficient blocks of all instances.
std::mutex block_mutex;

// Not a number, or not above 0, means no blur; beyond 255 means 255.
double clamp_radius(double radius) {
    if (!(radius > 0.0)) return 0.0;
    return radius > kMaxRadius ? kMaxRadius : radius;
}

bool blurs(double radius) { return radius >= kSmallestRadius; }

DericheCoefficients snapshot(const GaussianBlurFilterUtil& util) {
    std::lock_guard<std::mutex> lock(block_mutex);
    return qtzq::load_coefficients(util.n, util.m, util.d, util.dAnti, util.bn, util.bm);
}

void publish(GaussianBlurFilterUtil& util, const DericheCoefficients& k) {
    std::lock_guard<std::mutex> lock(block_mutex);
    qtzq::store_coefficients(k, util.n, util.m, util.d, util.dAnti, util.bn, util.bm);
}

// FindConstants on a private set: true if the set was recomputed.
bool find_constants_for_radius(double radius, DericheCoefficients& k) {
    if (!blurs(radius)) return false;
    k = qtzq::deriche_coefficients(qtzq::blur_radius_to_sigma(radius));
    return true;
}

// ConvoluteDimension with a private set.
void blur_pass(unsigned char* buffer, int width, int height, int channels, double radius,
               bool horizontal, const DericheCoefficients& k) {
    if (!blurs(radius) || channels < qtzq::kFilteredChannels || width < 1 || height < 1) return;
    qtzq::filter_deriche_pass(buffer, width, height, channels, horizontal, k);
}

}  // namespace

GaussianBlurFilterUtil::GaussianBlurFilterUtil()
    : n{}, m{}, d{}, dAnti{}, bn{}, bm{} {}

GaussianBlurFilterUtil::~GaussianBlurFilterUtil() {}

GaussianBlurFilterUtil* GaussianBlurFilterUtil::GetInst() {
    static GaussianBlurFilterUtil instance;
    return &instance;
}

int GaussianBlurFilterUtil::CreateBlurEffect(unsigned char* buffer, int width, int height,
                                             int /*channels*/, double radiusX, double radiusY) {
    if (!buffer) return 0;
    const double rx = clamp_radius(radiusX);
    const double ry = clamp_radius(radiusY);

    // Starts from the block as it stands: a radius too small to compute new
    // coefficients leaves the previous ones in use, as in a sequential run.
    DericheCoefficients k = snapshot(*this);
    bool computed = find_constants_for_radius(rx, k);
    blur_pass(buffer, width, height, kPixelBytes, rx, true, k);
    if (std::fabs(rx - ry) > kSameRadiusTolerance) computed |= find_constants_for_radius(ry, k);
    blur_pass(buffer, width, height, kPixelBytes, ry, false, k);

    if (computed) publish(*this, k);
    return 1;
}

void GaussianBlurFilterUtil::FindConstants(double radius) {
    DericheCoefficients k;
    if (find_constants_for_radius(radius, k)) publish(*this, k);
}

void GaussianBlurFilterUtil::ConvoluteDimension(unsigned char* buffer, int width, int height,
                                                int channels, double radius, bool horizontal) {
    if (!blurs(radius)) return;
    blur_pass(buffer, width, height, channels, radius, horizontal, snapshot(*this));
}

// Round to nearest, ties to even (the default floating-point rounding),
// saturating at the ends of the int range.
int GaussianBlurFilterUtil::DoubleToInt_IEEE(double value) {
    if (std::isnan(value)) return 0;
    const double rounded = std::nearbyint(value);
    if (rounded <= double(INT_MIN)) return INT_MIN;
    if (rounded >= double(INT_MAX)) return INT_MAX;
    return static_cast<int>(rounded);
}
