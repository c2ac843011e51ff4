#include <locale>
#include <sstream>

#include "families.h"

namespace qtzq_golden {

std::string label(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

}  // namespace qtzq_golden
