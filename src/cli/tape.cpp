#include <algorithm>
#include <istream>
#include <optional>
#include <ostream>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/terminal.h"
#include "core/calc/calculator.h"
#include "core/common/clock.h"

namespace zv::cli {
namespace {

// The keys written by name, in braces, in a KEYS text.
struct NamedKey {
    std::string_view name;
    void (*press)(calc::Calculator& calc);
};

constexpr NamedKey kNamedKeys[] = {
    {"ENTER", [](calc::Calculator& calc) { calc.Form_KeyPress(calc::key::kEnter); }},
    {"BACK", [](calc::Calculator& calc) { calc.backspace(); }},
    {"CE", [](calc::Calculator& calc) { calc.clearEntry(); }},
    {"NEG", [](calc::Calculator& calc) { calc.changeSign(); }},
    {"UNDO", [](calc::Calculator& calc) { calc.undo(); }},
    {"REDO", [](calc::Calculator& calc) { calc.redo(); }},
    {"CLEAR", [](calc::Calculator& calc) { calc.clearTape(); }},
};

// Types one KEYS text. Returns what is wrong with it, if anything.
std::optional<std::string> typeKeys(calc::Calculator& calc, std::string_view keys) {
    std::size_t i = 0;
    while (i < keys.size()) {
        if (keys[i] != '{') {
            calc.Form_KeyPress(static_cast<unsigned char>(keys[i]));
            ++i;
            continue;
        }
        const std::size_t close = keys.find('}', i);
        if (close == std::string_view::npos) {
            return "unclosed key name in: " + std::string(keys);
        }
        const std::string_view name = keys.substr(i + 1, close - i - 1);
        const auto* key = std::ranges::find(kNamedKeys, name, &NamedKey::name);
        if (key == std::end(kNamedKeys)) {
            return "unknown key name: {" + std::string(name) + "}";
        }
        key->press(calc);
        i = close + 1;
    }
    return std::nullopt;
}

std::string jsonString(std::string_view text) {
    std::string out = "\"";
    for (const char c : text) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    constexpr char kHex[] = "0123456789abcdef";
                    out += "\\u00";
                    out += kHex[(c >> 4) & 0xF];
                    out += kHex[c & 0xF];
                } else {
                    out += c;
                }
        }
    }
    out += '"';
    return out;
}

std::string_view stateText(calc::TotalState state) {
    switch (state) {
        case calc::TotalState::Struck:
            return "T";
        case calc::TotalState::Error:
            return "E";
        default:
            return "";
    }
}

std::optional<std::string> readOptions(const Invocation& call, calc::CalculatorOptions& options) {
    if (const auto format = call.options.find("--format"); format != call.options.end()) {
        const Parsed<long long> value = readWhole(format->second, 0, 2);
        if (!value.ok()) {
            return "--format takes 0, 1 or 2";
        }
        options.format = static_cast<calc::NumberFormat>(value.value());
    }
    if (const auto enter = call.options.find("--enter"); enter != call.options.end()) {
        if (enter->second != "plus" && enter->second != "equals") {
            return "--enter takes plus or equals";
        }
        options.enter = enter->second == "plus" ? calc::EnterAction::Plus : calc::EnterAction::Equals;
    }
    options.numLock = call.has("--numlock");
    options.timeMode = call.has("--time");
    return std::nullopt;
}

}  // namespace

Outcome runTape(const Invocation& call) {
    calc::CalculatorOptions options;
    if (const std::optional<std::string> why = readOptions(call, options)) {
        return usageError(*why);
    }
    const bool json = call.has("--json");
    if (call.operands.empty() && call.env.stdinIsTerminal && !json) {
        return runTerminal(call.regional, options) == 0 ? done() : Outcome{ExitCode::Rejected, {}};
    }
    const common::SystemClock clock;
    calc::Calculator calc(call.regional, options, {&clock, nullptr});
    if (call.operands.empty()) {
        // Line breaks separate lines of keys; Enter is written {ENTER}.
        std::string line;
        while (std::getline(call.in, line)) {
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            if (const std::optional<std::string> why = typeKeys(calc, line)) {
                return usageError(*why);
            }
        }
    } else {
        for (const std::string& keys : call.operands) {
            if (const std::optional<std::string> why = typeKeys(calc, keys)) {
                return usageError(*why);
            }
        }
    }
    const std::string_view state = stateText(calc.state());
    if (json) {
        call.out << "{\"tape\": " << jsonString(calc.tape().text())
                 << ", \"total\": " << jsonString(calc.totalText()) << ", \"state\": " << jsonString(state)
                 << ", \"counter\": " << jsonString(calc.counterText())
                 << ", \"display\": " << jsonString(calc.display()) << "}\n";
    } else {
        call.out << toLf(calc.tape().text());
        call.out << "TOTAL " << calc.totalText() << ' ' << state << ' ' << calc.counterText() << '\n';
    }
    return done();
}

}  // namespace zv::cli
