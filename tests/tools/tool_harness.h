// Running the built qtzq tool from tests, in a fresh folder per test.
#ifndef QTZQ_TESTS_TOOLS_TOOL_HARNESS_H
#define QTZQ_TESTS_TOOLS_TOOL_HARNESS_H

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "app/app_test.h"

namespace qtzq_tool_test {

using namespace qtzq_app_test;

struct RunResult {
    int status = -1;
    std::string err;
    std::string out;
};

class ToolTest : public FolderTest {
protected:
    ToolTest() : FolderTest(QTZQ_TOOL_WORK_DIR) {}

    // Runs `qtzq ARGS...` with stdin from /dev/null; stdout and stderr are
    // captured.
    RunResult run(const std::vector<std::string>& args) const {
        std::string command = quote(QTZQ_TOOL_PATH);
        for (const auto& arg : args) command += " " + quote(arg);
        command += " </dev/null >" + quote(path("stdout.txt")) + " 2>" + quote(path("stderr.txt"));
        const int raw = std::system(command.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(path("stderr.txt")),
                slurp(path("stdout.txt"))};
    }

    void run_ok(const std::vector<std::string>& args) const {
        const RunResult result = run(args);
        ASSERT_EQ(result.status, 0) << args[0] << ": " << result.err;
    }

    std::vector<unsigned char> load_bytes(const std::string& name) const {
        const std::string text = slurp(path(name));
        return std::vector<unsigned char>(text.begin(), text.end());
    }

    void save_text(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
    }

    static std::string quote(const std::string& word) {
        std::string quoted = "'";
        for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
        return quoted + "'";
    }
};

}  // namespace qtzq_tool_test

#endif  // QTZQ_TESTS_TOOLS_TOOL_HARNESS_H
