// Whole-file reading and writing for the applications.
#ifndef QTZQ_APP_FILE_BYTES_H
#define QTZQ_APP_FILE_BYTES_H

#include <string>
#include <vector>

namespace qtzq_app {

// Reads the whole file into `bytes`. On failure returns false and sets
// `error` to "PATH: cannot read file (reason)".
bool read_file_bytes(const std::string& path, std::vector<unsigned char>& bytes,
                     std::string& error);

// Writes `bytes` to `path`. On failure returns false and sets `error`.
bool write_file_bytes(const std::string& path, const std::vector<unsigned char>& bytes,
                      std::string& error);

}  // namespace qtzq_app

#endif  // QTZQ_APP_FILE_BYTES_H
