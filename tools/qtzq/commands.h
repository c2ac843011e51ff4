// The qtzq subcommands. Each takes the words after its name and returns the
// process exit status: 0 success, 1 a failure while working (named on
// stderr), 2 a usage mistake (thrown as UsageError and reported by main).
#ifndef QTZQ_CLI_COMMANDS_H
#define QTZQ_CLI_COMMANDS_H

#include <string>
#include <vector>

namespace qtzq_cli {

using Words = std::vector<std::string>;

struct Command {
    const char* name;
    const char* synopsis;
    const char* summary;
    int (*run)(const Words& args);
};

const std::vector<Command>& commands();

int run_list(const Words& args);
int run_apply(const Words& args);
int run_gallery(const Words& args);
int run_material(const Words& args);
int run_tables(const Words& args);
int run_frame(const Words& args);
int run_make_frame(const Words& args);
int run_lut(const Words& args);

// Exit statuses.
constexpr int kExitOk = 0;
constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_COMMANDS_H
