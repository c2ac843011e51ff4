// qtzq: try, script and batch the effects of libQtzqeffect from the shell.
// See `qtzq --help` and `qtzq COMMAND --help`.
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "qtzq_app/errors.h"

#include "args.h"
#include "commands.h"

using namespace qtzq_cli;

namespace {

void print_help(std::ostream& out) {
    out << "usage: qtzq COMMAND [ARGS...]\n\n"
           "Applies the photo effects of libQtzqeffect to photo files (PNG, JPEG,\n"
           "WebP, TIFF; HEIF and AVIF read) and exports colour looks as lookup tables.\n\n"
           "Commands:\n";
    for (const auto& command : commands())
        out << "  " << command.synopsis << "\n      " << command.summary << "\n";
    out << "\n'qtzq COMMAND --help' describes a command. Exit status: 0 success,\n"
           "1 a file or effect failed, 2 a usage mistake.\n";
}

// A usage mistake (UsageError, or a request the effect does not take):
// named with a pointer to the command's help, exit status 2.
int report_usage(const std::string& prefix, const char* what) {
    std::cerr << prefix << ": " << what << "\nTry '" << prefix << " --help'.\n";
    return kExitUsage;
}

// A failure while working (RunError, qtzq_app::InputError for an unusable
// input file, anything else thrown): named on stderr, exit status 1.
int report_failure(const std::string& prefix, const char* what) {
    std::cerr << prefix << ": " << what << '\n';
    return kExitFailure;
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
            return report_usage(prefix, e.what());
        } catch (const qtzq_app::RequestError& e) {
            return report_usage(prefix, e.what());
        } catch (const std::bad_alloc&) {
            return report_failure(prefix, "out of memory");
        } catch (const std::exception& e) {
            return report_failure(prefix, e.what());
        }
    }
    std::cerr << "qtzq: unknown command '" << words[0] << "'\nTry 'qtzq --help'.\n";
    return kExitUsage;
}
