// qtzq: try, script and batch the effects of libQtzqeffect from the shell.
// See `qtzq --help` and `qtzq COMMAND --help`.
#include <exception>
#include <iostream>
#include <new>

#include "args.h"
#include "commands.h"

using namespace qtzq_cli;

namespace {

void print_help(std::ostream& out) {
    out << "usage: qtzq COMMAND [ARGS...]\n\n"
           "Applies the photo effects of libQtzqeffect to PNG and JPEG files.\n\n"
           "Commands:\n";
    for (const auto& command : commands())
        out << "  " << command.synopsis << "\n      " << command.summary << "\n";
    out << "\n'qtzq COMMAND --help' describes a command. Exit status: 0 success,\n"
           "1 a file or effect failed, 2 a usage mistake.\n";
}

}  // namespace

int main(int argc, char** argv) {
    const Words words(argv + 1, argv + argc);
    if (words.empty() || words[0] == "-h" || words[0] == "--help" || words[0] == "help") {
        print_help(words.empty() ? std::cerr : std::cout);
        return words.empty() ? kExitUsage : kExitOk;
    }
    for (const auto& command : commands()) {
        if (words[0] != command.name) continue;
        const std::string prefix = std::string("qtzq ") + command.name;
        try {
            return command.run(Words(words.begin() + 1, words.end()));
        } catch (const UsageError& e) {
            std::cerr << prefix << ": " << e.what() << "\nTry '" << prefix << " --help'.\n";
            return kExitUsage;
        } catch (const RunError& e) {
            std::cerr << prefix << ": " << e.what() << '\n';
            return kExitFailure;
        } catch (const std::bad_alloc&) {
            std::cerr << prefix << ": out of memory\n";
            return kExitFailure;
        } catch (const std::exception& e) {
            std::cerr << prefix << ": " << e.what() << '\n';
            return kExitFailure;
        }
    }
    std::cerr << "qtzq: unknown command '" << words[0] << "'\nTry 'qtzq --help'.\n";
    return kExitUsage;
}
