#include "cli/cli.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include "cli/arguments.h"
#include "cli/command.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::cli {
namespace {

// An option every command takes; `apply` returns what is wrong with the value, if anything.
struct GlobalOption {
    std::string_view name;
    std::string_view value;
    std::optional<std::string> (*apply)(common::Regional& regional, std::string_view value);
};

std::optional<std::string> applyLanguage(common::Regional& regional, std::string_view value) {
    if (value == "pt") {
        regional.language = common::Language::Portuguese;
    } else if (value == "en") {
        regional.language = common::Language::English;
    } else if (value == "es") {
        regional.language = common::Language::Spanish;
    } else {
        return "unknown language: " + std::string(value);
    }
    return std::nullopt;
}

std::optional<std::string> applySeparator(std::string_view option, std::string& target,
                                          std::string_view value) {
    const Parsed<std::string> separator = readSeparator(value);
    if (separator.ok()) {
        target = separator.value();
        return std::nullopt;
    }
    const std::string name(option);
    switch (separator.error()) {
        case ArgumentError::Empty:
            return name + " needs one character";
        case ArgumentError::Digit:
            return name + " cannot be a digit: " + std::string(value);
        case ArgumentError::Sign:
            return name + " cannot be a sign: " + std::string(value);
        case ArgumentError::ControlCharacter:
            return name + " cannot be a control character";
        default:
            return name + " needs one character, not: " + std::string(value);
    }
}

const GlobalOption kGlobalOptions[] = {
    {"--lang", "pt|en|es", &applyLanguage},
    {"--decimal", "SEP",
     [](common::Regional& r, std::string_view v) {
         return applySeparator("--decimal", r.separators.decimal, v);
     }},
    {"--group", "SEP",
     [](common::Regional& r, std::string_view v) {
         return applySeparator("--group", r.separators.group, v);
     }},
};

// Column where a command's one-line help starts when its synopsis leaves room for it.
constexpr std::size_t kHelpColumn = 33;
constexpr std::string_view kHelpIndent = "        ";

std::string optionText(std::string_view name, std::string_view value) {
    std::string text = "[" + std::string(name);
    if (!value.empty()) {
        text += " " + std::string(value);
    }
    return text + "]";
}

std::string usageText() {
    std::string text = "usage: zavrello-cli";
    for (const GlobalOption& option : kGlobalOptions) {
        text += " " + optionText(option.name, option.value);
    }
    text += " COMMAND ...\n";
    for (const Command& command : commands()) {
        std::string synopsis = "  " + std::string(command.name);
        for (const CommandOption& option : command.options) {
            synopsis += " " + optionText(option.name, option.value);
        }
        if (!command.operands.empty()) {
            synopsis += " " + std::string(command.operands);
        }
        const bool oneLine = command.help.find('\n') == std::string_view::npos;
        if (oneLine && common::utf8Length(synopsis) < kHelpColumn) {
            text += common::padRight(synopsis, kHelpColumn) + std::string(command.help) + "\n";
            continue;
        }
        text += synopsis + "\n";
        std::string_view help = command.help;
        while (!help.empty()) {
            const std::size_t end = help.find('\n');
            text += std::string(kHelpIndent) + std::string(help.substr(0, end)) + "\n";
            help = end == std::string_view::npos ? std::string_view{} : help.substr(end + 1);
        }
    }
    return text;
}

// The row of a table (commands, options) with this name; nullptr when there is none.
template <typename Rows>
auto findNamed(const Rows& rows, std::string_view name) -> decltype(&*std::begin(rows)) {
    const auto row = std::ranges::find(rows, name, [](const auto& r) { return r.name; });
    return row == std::end(rows) ? nullptr : &*row;
}

bool belongsToACommand(std::string_view option) {
    return std::ranges::any_of(commands(),
                               [&](const Command& c) { return findNamed(c.options, option) != nullptr; });
}

// Global options stand anywhere before "--"; a command's own options follow its name.
Outcome dispatch(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
                 const Environment& env) {
    Invocation call{{}, {}, {}, in, out, env};
    call.regional.separators = env.localeSeparators;
    const Command* command = nullptr;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (optionsEnded || !arg.starts_with("--")) {
            if (command != nullptr) {
                call.operands.push_back(arg);
            } else if ((command = findNamed(commands(), arg)) == nullptr) {
                return usageError("unknown command: " + arg);
            }
            continue;
        }
        if (arg == "--") {
            optionsEnded = true;
            continue;
        }
        const GlobalOption* global = findNamed(kGlobalOptions, arg);
        const CommandOption* own = command != nullptr ? findNamed(command->options, arg) : nullptr;
        if (global == nullptr && own == nullptr) {
            if (command == nullptr && belongsToACommand(arg)) {
                return usageError(arg + " goes after the command it belongs to");
            }
            return usageError("unknown option: " + arg);
        }
        std::string value;
        if (global != nullptr || !own->value.empty()) {
            if (i + 1 >= args.size()) {
                return usageError(arg + " needs a value");
            }
            value = args[++i];
        }
        if (global != nullptr) {
            if (std::optional<std::string> why = global->apply(call.regional, value)) {
                return usageError(std::move(*why));
            }
        } else {
            call.options[arg] = value;
        }
    }
    if (command == nullptr) {
        return usageError("no command");
    }
    if (call.regional.separators.decimal == call.regional.separators.group) {
        return usageError("the decimal and group separators must differ");
    }
    return command->run(call);
}

}  // namespace

int run(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
        const Environment& env) {
    const Outcome outcome = dispatch(args, in, out, env);
    if (outcome.code == ExitCode::Usage) {
        err << "zavrello-cli: " << outcome.message << '\n' << usageText();
    } else if (!outcome.message.empty()) {
        err << toLf(outcome.message) << '\n';
    }
    return static_cast<int>(outcome.code);
}

std::string toLf(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue;
        }
        out += text[i];
    }
    return out;
}

}  // namespace zv::cli
