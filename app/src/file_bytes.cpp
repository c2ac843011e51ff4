#include "qtzq_app/file_bytes.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qtzq_app {
namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

std::string reason() { return std::strerror(errno); }

}  // namespace

bool read_file_bytes(const std::string& path, std::vector<unsigned char>& bytes,
                     std::string& error) {
    File file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) {
        error = path + ": cannot open file (" + reason() + ")";
        return false;
    }
    bytes.clear();
    unsigned char chunk[1 << 16];
    for (;;) {
        const std::size_t got = std::fread(chunk, 1, sizeof chunk, file.get());
        bytes.insert(bytes.end(), chunk, chunk + got);
        if (got < sizeof chunk) break;
    }
    if (std::ferror(file.get())) {
        error = path + ": cannot read file (" + reason() + ")";
        return false;
    }
    return true;
}

bool write_file_bytes(const std::string& path, const std::vector<unsigned char>& bytes,
                      std::string& error) {
    File file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file) {
        error = path + ": cannot create file (" + reason() + ")";
        return false;
    }
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
        std::fflush(file.get()) != 0) {
        error = path + ": cannot write file (" + reason() + ")";
        return false;
    }
    return true;
}

}  // namespace qtzq_app
