// AutoColorLevel: stretching each colour channel between its 0.6 % tails.
#include <cmath>

#include "pixel/image_walk.h"
#include "pixel/numeric.h"
#include "pixel/tone_tables.h"
#include "qtzqeffect/pixel.h"

namespace {

constexpr int kLevels = 256;

// The share of pixels each tail should hold.
const double kTailFraction = 0.006;

// Levels L and H that a channel's values are stretched between.
struct LevelBounds {
    int low;
    int high;
};

// Distance of cumulative count `count` (as a fraction of `total`) from the
// tail fraction.
double tail_distance(long long count, double total) {
    return std::fabs(static_cast<double>(count) / total - kTailFraction);
}

// Low bound: the first k whose fraction of values <= k lies strictly nearer
// the tail fraction than that of values <= k + 1 gives L = k + 1 (one step
// inward; deliberate). 0 when no k qualifies.
int low_bound(const long long (&counts)[kLevels], double total) {
    long long at_or_below = counts[0];
    for (int k = 0; k < kLevels - 1; ++k) {
        const long long next = at_or_below + counts[k + 1];
        if (tail_distance(at_or_below, total) < tail_distance(next, total)) return k + 1;
        at_or_below = next;
    }
    return 0;
}

// High bound, the mirror image: fractions of values >= k from k = 255 down,
// H = k - 1 at the first hit. 255 when no k qualifies.
int high_bound(const long long (&counts)[kLevels], double total) {
    long long at_or_above = counts[kLevels - 1];
    for (int k = kLevels - 1; k > 0; --k) {
        const long long next = at_or_above + counts[k - 1];
        if (tail_distance(at_or_above, total) < tail_distance(next, total)) return k - 1;
        at_or_above = next;
    }
    return kLevels - 1;
}

LevelBounds channel_bounds(CHistogram& histogram, _IMAGE_CHANNEL channel) {
    const int total = histogram.GetCount(channel);
    if (total == 0) return {0, 0};
    long long counts[kLevels];
    for (int v = 0; v < kLevels; ++v) counts[v] = histogram.GetChannelHistogram(channel, v);
    const double n = static_cast<double>(total);
    return {low_bound(counts, n), high_bound(counts, n)};
}

// (v - L) * 255 / (H - L) in double, rounded half away from zero and
// clamped; for L = H the division is skipped (0 up to L, 255 above).
unsigned char stretched(int value, const LevelBounds& bounds) {
    double x = static_cast<double>(value - bounds.low);
    if (bounds.low != bounds.high) x = x / static_cast<double>(bounds.high - bounds.low);
    x = x * 255.0;
    const double rounded = x > 0.0 ? x + 0.5 : x - 0.5;
    return qtzq::clamp_byte(qtzq::truncate_int(rounded));
}

// The stretch of every level of a channel: one table per channel, filled by
// `stretched` itself, so the pass over the image looks values up instead of
// dividing in double at every pixel.
struct StretchTable {
    unsigned char map[kLevels];
    bool identity = true;

    explicit StretchTable(const LevelBounds& bounds) {
        for (int v = 0; v < kLevels; ++v) {
            map[v] = stretched(v, bounds);
            identity = identity && map[v] == v;
        }
    }
};

}  // namespace

void AutoColorLevel(unsigned char* pixels, int width, int height, bool analyse) {
    if (pixels == nullptr) return;
    LevelBounds red = {0, kLevels - 1};
    LevelBounds green = red;
    LevelBounds blue = red;
    // Without analysis the bounds stay 0 and 255 and the mapping below is
    // the identity: callers rely on that.
    if (analyse) {
        CHistogram histogram(pixels, width, height);
        red = channel_bounds(histogram, IMAGE_CHANNEL_RED);
        green = channel_bounds(histogram, IMAGE_CHANNEL_GREEN);
        blue = channel_bounds(histogram, IMAGE_CHANNEL_BLUE);
    }
    const StretchTable b(blue), g(green), r(red);
    // Bounds 0 and 255 (no analysis, or a full-range photo) change nothing.
    if (b.identity && g.identity && r.identity) return;
    qtzq::apply_tables(pixels, width, height, b.map, g.map, r.map);
}
