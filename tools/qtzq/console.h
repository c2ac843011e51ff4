// Messages and the progress bar on stderr, safe to use from worker threads.
// The bar is drawn only when stderr is a terminal and the user did not ask
// for quiet; messages clear it first so that the two never mix.
#ifndef QTZQ_CLI_CONSOLE_H
#define QTZQ_CLI_CONSOLE_H

#include <cstddef>
#include <mutex>
#include <string>

namespace qtzq_cli {

class Console {
public:
    // `command` prefixes every message ("qtzq apply").
    Console(std::string command, bool quiet);

    // Starts a bar over `total` steps (drawn only on a terminal).
    void start(std::size_t total);
    // One step done; `label` names it on the bar.
    void step(const std::string& label);
    // Removes the bar.
    void finish();

    // "qtzq apply: note: ..." (suppressed when quiet).
    void note(const std::string& text);
    // "qtzq apply: ..." always.
    void error(const std::string& text);

    bool bar_enabled() const { return bar_enabled_; }

private:
    void clear_bar();
    void draw_bar(const std::string& label);

    std::mutex mutex_;
    std::string command_;
    bool quiet_;
    bool bar_enabled_;
    bool bar_drawn_ = false;
    std::size_t total_ = 0;
    std::size_t done_ = 0;
};

// True when stderr is a terminal.
bool stderr_is_terminal();

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_CONSOLE_H
