#include "qtzq_app/number_text.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

namespace qtzq_app {

bool parse_int(const std::string& text, long long low, long long high, long long& out) {
    if (text.empty()) return false;
    errno = 0;
    char* end = nullptr;
    const long long number = std::strtoll(text.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || number < low || number > high) return false;
    out = number;
    return true;
}

bool parse_double(const std::string& text, double& out) {
    if (text.empty()) return false;
    errno = 0;
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (errno != 0 || *end != '\0' || !std::isfinite(number)) return false;
    out = number;
    return true;
}

}  // namespace qtzq_app
