// Numbers written as text (command-line values, "MODE:OPACITY" words):
// the whole string must be the number, or the parse fails.
#ifndef QTZQ_APP_NUMBER_TEXT_H
#define QTZQ_APP_NUMBER_TEXT_H

#include <string>

namespace qtzq_app {

// A decimal integer in [low, high]; false otherwise (out unchanged).
bool parse_int(const std::string& text, long long low, long long high, long long& out);

// A finite floating-point number; false otherwise (out unchanged).
bool parse_double(const std::string& text, double& out);

}  // namespace qtzq_app

#endif  // QTZQ_APP_NUMBER_TEXT_H
