// Whole-file reading for the tools.
#ifndef QTZQ_TOOLS_FILE_BYTES_H
#define QTZQ_TOOLS_FILE_BYTES_H

#include <string>
#include <vector>

namespace qtzq_tools {

// Reads the whole file into `bytes`. On failure returns false and sets
// `error` to "PATH: cannot read file (reason)".
bool read_file_bytes(const std::string& path, std::vector<unsigned char>& bytes,
                     std::string& error);

// Writes `bytes` to `path`. On failure returns false and sets `error`.
bool write_file_bytes(const std::string& path, const std::vector<unsigned char>& bytes,
                      std::string& error);

}  // namespace qtzq_tools

#endif  // QTZQ_TOOLS_FILE_BYTES_H
