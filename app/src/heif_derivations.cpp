#include "heif_derivations.h"

#include "big_endian.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <vector>

namespace qtzq_app {
namespace {

struct Box {
    char type[4];
    const unsigned char* body;
    std::size_t size;  // of the body
};

// The box at `p` (before `end`), advancing `p` past it; false when it does
// not fit.
bool next_box(const unsigned char*& p, const unsigned char* end, Box& box) {
    const std::size_t left = std::size_t(end - p);
    if (left < 8) return false;
    std::uint64_t size = big_endian(p, 4);
    std::size_t header = 8;
    if (size == 1) {
        if (left < 16) return false;
        size = big_endian(p + 8, 8);
        header = 16;
    } else if (size == 0) {
        size = left;  // to the end
    }
    if (size < header || size > left) return false;
    std::memcpy(box.type, p + 4, 4);
    box.body = p + header;
    box.size = std::size_t(size) - header;
    p += size;
    return true;
}

// The first box of the given type among those in [p, end); `found` tells
// whether there is one, false is returned for malformed boxes.
bool find_box(const unsigned char* p, const unsigned char* end, const char* type, Box& box,
              bool& found) {
    found = false;
    while (p < end) {
        if (!next_box(p, end, box)) return false;
        if (std::memcmp(box.type, type, 4) == 0) {
            found = true;
            return true;
        }
    }
    return true;
}

using Derivations = std::map<std::uint32_t, std::vector<std::uint32_t>>;

// The 'dimg' references of an 'iref' body (a full box: version 0 has
// 16-bit item ids, version 1 32-bit).
bool read_derivations(const Box& iref, Derivations& derivations) {
    if (iref.size < 4) return false;
    const int id_bytes = iref.body[0] == 0 ? 2 : 4;
    const unsigned char* p = iref.body + 4;
    const unsigned char* const end = iref.body + iref.size;
    while (p < end) {
        Box entry;
        if (!next_box(p, end, entry)) return false;
        if (entry.size < std::size_t(id_bytes) + 2) return false;
        const auto from = std::uint32_t(big_endian(entry.body, id_bytes));
        const auto count = std::size_t(big_endian(entry.body + id_bytes, 2));
        if (entry.size < std::size_t(id_bytes) + 2 + count * std::size_t(id_bytes)) return false;
        if (std::memcmp(entry.type, "dimg", 4) != 0) continue;
        std::vector<std::uint32_t>& to = derivations[from];
        for (std::size_t k = 0; k < count; ++k)
            to.push_back(std::uint32_t(big_endian(entry.body + id_bytes + 2 + k * id_bytes, id_bytes)));
    }
    return true;
}

constexpr int kTooDeep = -1;

// The longest chain of derivations from `item`, or kTooDeep when one is
// longer than `budget` levels. Recursion stays within budget + 1 calls.
int chain_length(const Derivations& derivations, std::uint32_t item, int budget,
                 std::map<std::uint32_t, int>& known) {
    const auto seen = known.find(item);
    if (seen != known.end()) return seen->second;
    const auto sources = derivations.find(item);
    if (sources == derivations.end()) return known[item] = 0;
    if (budget == 0) return kTooDeep;
    int longest = 0;
    for (std::uint32_t source : sources->second) {
        const int length = chain_length(derivations, source, budget - 1, known);
        if (length == kTooDeep) return kTooDeep;
        longest = std::max(longest, length + 1);
    }
    return known[item] = longest;
}

}  // namespace

bool heif_derivations_bounded(const unsigned char* bytes, std::size_t size) {
    Box meta, iref;
    bool found = false;
    if (!find_box(bytes, bytes + size, "meta", meta, found)) return false;
    if (!found) return true;
    if (meta.size < 4) return false;  // a full box: version and flags first
    if (!find_box(meta.body + 4, meta.body + meta.size, "iref", iref, found)) return false;
    if (!found) return true;
    Derivations derivations;
    if (!read_derivations(iref, derivations)) return false;
    std::map<std::uint32_t, int> known;
    for (const auto& [item, sources] : derivations)
        if (chain_length(derivations, item, kMostDerivationLevels, known) == kTooDeep) return false;
    return true;
}

}  // namespace qtzq_app
