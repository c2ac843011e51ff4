// Digests: SHA-256 (FIPS 180-4) of what the cases record, and the list file.
#include <algorithm>
#include <istream>
#include <locale>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "golden.h"

namespace qtzq_golden {

namespace {

constexpr std::uint32_t kRoundConstants[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t rotr(std::uint32_t x, int n) { return (x >> n) | (x << (32 - n)); }

}  // namespace

void Recorder::bytes(const unsigned char* data, std::size_t size) {
    length_ += size;
    for (std::size_t take; size > 0; data += take, size -= take) {
        take = std::min(size, block_.size() - used_);
        std::memcpy(block_.data() + used_, data, take);
        if ((used_ += take) == block_.size()) compress();
    }
}

void Recorder::little_endian(std::uint64_t value, int size) {
    unsigned char out[8];
    for (int i = 0; i < size; ++i) out[i] = std::uint8_t(value >> (8 * i));
    bytes(out, std::size_t(size));
}

void Recorder::image(const unsigned char* pixels, int width, int height) {
    i32(width);
    i32(height);
    if (width > 0 && height > 0) bytes(pixels, std::size_t(width) * std::size_t(height) * 4);
}

void Recorder::compress() {
    std::uint32_t w[64];
    for (int i = 0; i < 16; ++i) {
        w[i] = std::uint32_t(block_[4 * i]) << 24 | std::uint32_t(block_[4 * i + 1]) << 16 |
               std::uint32_t(block_[4 * i + 2]) << 8 | block_[4 * i + 3];
    }
    for (int i = 16; i < 64; ++i) {
        w[i] = w[i - 16] + (rotr(w[i - 15], 7) ^ rotr(w[i - 15], 18) ^ (w[i - 15] >> 3)) +
               w[i - 7] + (rotr(w[i - 2], 17) ^ rotr(w[i - 2], 19) ^ (w[i - 2] >> 10));
    }
    std::uint32_t a = state_[0], b = state_[1], c = state_[2], d = state_[3];
    std::uint32_t e = state_[4], f = state_[5], g = state_[6], h = state_[7];
    for (int i = 0; i < 64; ++i) {
        const std::uint32_t t1 = h + (rotr(e, 6) ^ rotr(e, 11) ^ rotr(e, 25)) +
                                 ((e & f) ^ (~e & g)) + kRoundConstants[i] + w[i];
        const std::uint32_t t2 =
            (rotr(a, 2) ^ rotr(a, 13) ^ rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
    }
    const std::uint32_t sums[8] = {a, b, c, d, e, f, g, h};
    for (int k = 0; k < 8; ++k) state_[k] += sums[k];
    used_ = 0;
}

std::string Recorder::hex_digest() {
    const std::uint64_t bits = length_ * 8;
    const unsigned char one = 0x80, zero = 0;
    bytes(&one, 1);
    while (used_ != 56) bytes(&zero, 1);
    for (int shift = 56; shift >= 0; shift -= 8) {
        const auto byte = std::uint8_t(bits >> shift);
        bytes(&byte, 1);
    }
    std::string hex;
    for (const std::uint32_t word : state_) {
        for (int shift = 28; shift >= 0; shift -= 4)
            hex += "0123456789abcdef"[(word >> shift) & 15];
    }
    return hex;
}

std::string label(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

void record_read_only(Recorder& out, const Bytes& after, const Bytes& before) {
    out.i32(after == before ? 0 : 1);
    if (after != before) out.bytes(after);
}

void record_scene(Recorder& out, const Scene& s, const Scene& original) {
    out.image(s.photo, s.width, s.height);
    record_read_only(out, s.material1, original.material1);
    record_read_only(out, s.material2, original.material2);
    record_read_only(out, s.material3, original.material3);
}

Case scene(std::string name, std::function<void(Recorder&, Scene&)> fn, Needs n) {
    const auto run = [fn](Recorder& out) {
        for (const Scene& original : scenes()) {
            Scene s = original;
            fn(out, s);
            record_scene(out, s, original);
        }
    };
    return {std::move(name), run, n};
}

DigestList parse_digest_list(std::istream& in) {
    DigestList digests;
    std::string line, name, digest, extra;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        const bool ok = (fields >> name >> digest) && !(fields >> extra) && digest.size() == 64;
        if (!ok || !digests.emplace(name, digest).second)
            throw std::runtime_error("digest list line " + std::to_string(number) +
                                     (ok ? " repeats a case: " : " is not 'name digest': ") + line);
    }
    return digests;
}

void write_digest_list(std::ostream& out, const DigestList& digests) {
    out << "# Golden digests of libQtzqeffect: SHA-256 of everything each case in\n"
           "# tests/golden/*_cases.cpp produces from the fixed inputs of inputs.cpp.\n"
           "# The same list must pass on x86-64 (gcc and clang, -O0 to -O3 -march=native)\n"
           "# and on 32-bit ARM under qemu: scripts/golden-matrix.sh and\n"
           "# scripts/cross-test-armhf.sh run it there.\n"
           "#\n"
           "# Generated, not edited. After a change that is meant to change results\n"
           "# (or adds cases), regenerate it with\n"
           "#     cmake --build <build-dir> --target update-golden\n"
           "# and review the diff: every changed line is a function whose output\n"
           "# changed. One line per case: name, digest; sorted by name.\n";
    for (const auto& [name, digest] : digests) out << name << ' ' << digest << '\n';
}

std::vector<std::string> compare_digests(const DigestList& listed, const DigestList& computed,
                                         const std::set<std::string>& skipped) {
    std::vector<std::string> problems;
    for (const auto& [name, digest] : computed) {
        const auto entry = listed.find(name);
        if (entry == listed.end()) {
            problems.push_back("new " + name + ": not in the list");
        } else if (entry->second != digest) {
            problems.push_back("changed " + name + ": listed " + entry->second + ", computed " +
                               digest);
        }
    }
    for (const auto& [name, digest] : listed) {
        if (!computed.count(name) && !skipped.count(name))
            problems.push_back("gone " + name + ": listed, no longer computed");
    }
    return problems;
}

}  // namespace qtzq_golden
