// Writes constant byte tables as C++ source text.
#ifndef QTZQ_TABLEGEN_TABLE_WRITER_H
#define QTZQ_TABLEGEN_TABLE_WRITER_H

#include <array>
#include <ostream>
#include <string>

namespace tablegen {

// The banner at the top of every generated file.
void write_generated_banner(std::ostream& out, const std::string& command,
                           const std::string& description);

// One 256-entry table as a brace-enclosed initialiser, 16 values a line,
// preceded by a comment line.
void write_byte_table(std::ostream& out, const std::string& comment,
                      const std::array<unsigned char, 256>& table);

}  // namespace tablegen

#endif  // QTZQ_TABLEGEN_TABLE_WRITER_H
