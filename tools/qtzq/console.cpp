#include "console.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace qtzq_cli {

bool stderr_is_terminal() { return ::isatty(STDERR_FILENO) == 1; }

Console::Console(std::string command, bool quiet)
    : command_(std::move(command)), quiet_(quiet), bar_enabled_(!quiet && stderr_is_terminal()) {}

void Console::start(std::size_t total) {
    std::lock_guard<std::mutex> lock(mutex_);
    total_ = total;
    done_ = 0;
    if (bar_enabled_) draw_bar("");
}

void Console::step(const std::string& label) {
    std::lock_guard<std::mutex> lock(mutex_);
    ++done_;
    if (bar_enabled_) draw_bar(label);
}

void Console::finish() {
    std::lock_guard<std::mutex> lock(mutex_);
    clear_bar();
}

void Console::note(const std::string& text) {
    if (quiet_) return;
    std::lock_guard<std::mutex> lock(mutex_);
    clear_bar();
    std::cerr << command_ << ": note: " << text << '\n';
    if (bar_enabled_ && total_ > 0 && done_ < total_) draw_bar("");
}

void Console::error(const std::string& text) {
    std::lock_guard<std::mutex> lock(mutex_);
    clear_bar();
    std::cerr << command_ << ": " << text << '\n';
    if (bar_enabled_ && total_ > 0 && done_ < total_) draw_bar("");
}

void Console::clear_bar() {
    if (!bar_drawn_) return;
    std::cerr << "\r\033[K" << std::flush;
    bar_drawn_ = false;
}

void Console::draw_bar(const std::string& label) {
    const std::size_t width = 30;
    const std::size_t filled = total_ == 0 ? width : width * done_ / total_;
    std::string bar(filled, '#');
    bar.append(width - filled, '.');
    std::string name = label.size() > 36 ? "..." + label.substr(label.size() - 33) : label;
    std::cerr << "\r\033[K[" << bar << "] " << done_ << '/' << total_ << ' ' << name << std::flush;
    bar_drawn_ = true;
}

}  // namespace qtzq_cli
