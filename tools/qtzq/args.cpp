#include "args.h"

#include "qtzq_app/number_text.h"

namespace qtzq_cli {

using qtzq_app::parse_double;
using qtzq_app::parse_int;

namespace {

const OptionDef* find_long(const std::vector<OptionDef>& options, const std::string& name) {
    for (const auto& option : options)
        if (option.name == name) return &option;
    return nullptr;
}

const OptionDef* find_short(const std::vector<OptionDef>& options, char letter) {
    for (const auto& option : options)
        if (option.short_name != 0 && option.short_name == letter) return &option;
    return nullptr;
}

}  // namespace

std::string ParsedArgs::value(const std::string& name, const std::string& fallback) const {
    const auto it = values_.find(name);
    return it == values_.end() ? fallback : it->second.back();
}

std::vector<std::string> ParsedArgs::values(const std::string& name) const {
    const auto it = values_.find(name);
    return it == values_.end() ? std::vector<std::string>{} : it->second;
}

int ParsedArgs::int_value(const std::string& name, int fallback, int low, int high) const {
    if (!has(name)) return fallback;
    long long number = 0;
    if (!parse_int(value(name), low, high, number))
        throw UsageError("--" + name + " wants a whole number from " + std::to_string(low) +
                         " to " + std::to_string(high) + ", not '" + value(name) + "'");
    return int(number);
}

double ParsedArgs::double_value(const std::string& name, double fallback, double low,
                                double high) const {
    if (!has(name)) return fallback;
    double number = 0;
    if (!parse_double(value(name), number) || number < low || number > high)
        throw UsageError("--" + name + " wants a number from " + std::to_string(low) + " to " +
                         std::to_string(high) + ", not '" + value(name) + "'");
    return number;
}

ParsedArgs parse_args(const std::vector<std::string>& args, const std::vector<OptionDef>& options) {
    ParsedArgs parsed;
    bool options_ended = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (options_ended || word == "-" || word.size() < 2 || word[0] != '-') {
            parsed.positionals.push_back(word);
            continue;
        }
        if (word == "--") {
            options_ended = true;
            continue;
        }
        if (word == "-h" || word == "--help") {
            parsed.add("help", "");
            continue;
        }
        const OptionDef* option = nullptr;
        std::string shown, inline_value;
        bool has_inline = false;
        if (word[1] == '-') {
            const std::size_t equals = word.find('=');
            const std::string name = word.substr(2, equals == std::string::npos ? std::string::npos
                                                                                : equals - 2);
            if (equals != std::string::npos) {
                has_inline = true;
                inline_value = word.substr(equals + 1);
            }
            shown = "--" + name;
            option = find_long(options, name);
        } else {
            shown = word.substr(0, 2);
            option = find_short(options, word[1]);
            if (word.size() > 2) {
                has_inline = true;
                inline_value = word.substr(2);
            }
        }
        if (!option) {
            // A negative number is a positional, not an option.
            double number = 0;
            if (parse_double(word, number)) {
                parsed.positionals.push_back(word);
                continue;
            }
            throw UsageError("unknown option '" + shown + "'");
        }
        if (!option->takes_value && has_inline)
            throw UsageError("option '" + shown + "' takes no value");
        if (!option->repeatable && parsed.has(option->name))
            throw UsageError("option '" + shown + "' given more than once");
        std::string value;
        if (option->takes_value) {
            if (has_inline) {
                value = inline_value;
            } else if (i + 1 < args.size()) {
                value = args[++i];
            } else {
                throw UsageError("option '" + shown + "' needs a value");
            }
        }
        parsed.add(option->name, value);
    }
    return parsed;
}

}  // namespace qtzq_cli
