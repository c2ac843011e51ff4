#include "sha256.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using qtzq_golden::Sha256;

std::string digest_of(const std::string& message) {
    Sha256 sha;
    sha.update(message.data(), message.size());
    return sha.hex_digest();
}

// The test vectors of FIPS 180-4 / NIST, including both padding cases: a
// message whose length leaves room for the length field in its last block,
// and one (56 bytes) that needs an extra block.
TEST(Sha256, KnownVectors) {
    EXPECT_EQ(digest_of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(digest_of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(digest_of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(digest_of(std::string(1000000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

// Feeding a message in pieces of any size gives the digest of the whole.
TEST(Sha256, PiecewiseUpdateEqualsOneUpdate) {
    std::string message;
    for (int i = 0; i < 300; ++i) message += static_cast<char>(i * 7 + 3);
    const std::string whole = digest_of(message);
    for (std::size_t piece = 1; piece <= 130; ++piece) {
        Sha256 sha;
        for (std::size_t at = 0; at < message.size(); at += piece)
            sha.update(message.data() + at, std::min(piece, message.size() - at));
        EXPECT_EQ(sha.hex_digest(), whole) << "pieces of " << piece;
    }
}

}  // namespace
