// Command-line parsing for the qtzq subcommands: GNU-style long options
// (--name VALUE or --name=VALUE), single-letter short options (-o VALUE),
// "--" to end the options, and positional arguments in between.
#ifndef QTZQ_CLI_ARGS_H
#define QTZQ_CLI_ARGS_H

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace qtzq_cli {

// A usage mistake: the subcommand prints it with a pointer to --help and
// exits with status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A failure while doing the work (unreadable file, bad data): printed on
// stderr, exit status 1.
class RunError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct OptionDef {
    std::string name;        // long name without the dashes
    char short_name = 0;     // 0 when there is none
    bool takes_value = false;
    bool repeatable = false;
};

class ParsedArgs {
public:
    std::vector<std::string> positionals;

    bool has(const std::string& name) const { return values_.count(name) != 0; }
    // The option's value, or `fallback` when it was not given.
    std::string value(const std::string& name, const std::string& fallback = "") const;
    // Every value of a repeatable option, in command-line order.
    std::vector<std::string> values(const std::string& name) const;
    // The option as an integer in [low, high]; a UsageError otherwise.
    int int_value(const std::string& name, int fallback, int low, int high) const;
    // The option as a number in [low, high]; a UsageError otherwise.
    double double_value(const std::string& name, double fallback, double low, double high) const;

    void add(const std::string& name, const std::string& value) { values_[name].push_back(value); }

private:
    std::map<std::string, std::vector<std::string>> values_;
};

// Parses `args` (the words after the subcommand's name). "-h" and "--help"
// are always accepted and recorded as the option "help". Throws UsageError
// for an unknown option, a missing value or a repeated single option.
ParsedArgs parse_args(const std::vector<std::string>& args, const std::vector<OptionDef>& options);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_ARGS_H
