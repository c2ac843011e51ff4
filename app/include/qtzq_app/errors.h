// What the application code throws. Each application reports these its own
// way: the qtzq tool as a usage mistake (exit status 2) or a failure (exit
// status 1); in the Python module, pybind11 turns a RequestError (an
// std::invalid_argument) into ValueError.
#ifndef QTZQ_APP_ERRORS_H
#define QTZQ_APP_ERRORS_H

#include <stdexcept>

namespace qtzq_app {

// The caller asked for something an effect does not take: more materials
// than it has slots, or a blend table set for an effect without tables.
class RequestError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

// A file the caller named cannot be read, or holds data that cannot be
// used (a table set too short, a material of the wrong size).
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace qtzq_app

#endif  // QTZQ_APP_ERRORS_H
