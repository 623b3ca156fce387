#include "cli/cli.h"

#include <charconv>
#include <istream>
#include <optional>
#include <ostream>
#include <string_view>

#include "cli/terminal.h"
#include "core/calc/calculator.h"
#include "core/common/clock.h"
#include "core/common/money.h"
#include "core/common/text_table.h"
#include "core/words/amount_in_words.h"

namespace zv::cli {
namespace {

constexpr std::string_view kUsage =
    "usage: zavrello-cli [--lang pt|en|es] [--decimal SEP] [--group SEP] COMMAND ...\n"
    "  tape [--format 0|1|2] [--enter plus|equals] [--numlock] [--time] [--json] [KEYS...]\n"
    "        types KEYS into a fresh calculator and prints the tape; named keys:\n"
    "        {ENTER} {BACK} {CE} {NEG} {UNDO} {REDO} {CLEAR}. Without KEYS the keys are read\n"
    "        from standard input (from a terminal: the adding machine, kept between runs)\n"
    "  words [--no-currency] AMOUNT   the amount in Portuguese words\n"
    "  text CODE [ARG1 [ARG2 [ARG3]]] an interface text\n"
    "  money VALUE                    VALUE in the money format\n";

struct UsageError {
    std::string message;
};

struct Options {
    common::Regional regional;
    calc::CalculatorOptions calc;
    bool json = false;
    bool noCurrency = false;
    std::string command;
    std::vector<std::string> operands;
};

// CR LF from the tables and the tape becomes LF on our output.
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

Options parse(const std::vector<std::string>& args, const Environment& env) {
    Options o;
    o.regional.separators = env.localeSeparators;
    bool optionsEnded = false;
    auto value = [&](std::size_t& i) -> const std::string& {
        if (i + 1 >= args.size()) {
            throw UsageError{args[i] + " needs a value"};
        }
        return args[++i];
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (optionsEnded || !a.starts_with("--")) {
            if (o.command.empty()) {
                o.command = a;
            } else {
                o.operands.push_back(a);
            }
            continue;
        }
        if (a == "--") {
            optionsEnded = true;
        } else if (a == "--lang") {
            const std::string& v = value(i);
            if (v == "pt") {
                o.regional.language = common::Language::Portuguese;
            } else if (v == "en") {
                o.regional.language = common::Language::English;
            } else if (v == "es") {
                o.regional.language = common::Language::Spanish;
            } else {
                throw UsageError{"unknown language: " + v};
            }
        } else if (a == "--decimal" || a == "--group") {
            const std::string& v = value(i);
            if (v.empty()) {
                throw UsageError{a + " needs one character"};
            }
            (a == "--decimal" ? o.regional.separators.decimal : o.regional.separators.group) = v;
        } else if (a == "--format") {
            const std::string& v = value(i);
            if (v != "0" && v != "1" && v != "2") {
                throw UsageError{"--format takes 0, 1 or 2"};
            }
            o.calc.format = static_cast<calc::NumberFormat>(v[0] - '0');
        } else if (a == "--enter") {
            const std::string& v = value(i);
            if (v != "plus" && v != "equals") {
                throw UsageError{"--enter takes plus or equals"};
            }
            o.calc.enter = v == "plus" ? calc::EnterAction::Plus : calc::EnterAction::Equals;
        } else if (a == "--numlock") {
            o.calc.numLock = true;
        } else if (a == "--time") {
            o.calc.timeMode = true;
        } else if (a == "--json") {
            o.json = true;
        } else if (a == "--no-currency") {
            o.noCurrency = true;
        } else {
            throw UsageError{"unknown option: " + a};
        }
    }
    if (o.command.empty()) {
        throw UsageError{"no command"};
    }
    if (o.regional.separators.decimal == o.regional.separators.group) {
        throw UsageError{"the decimal and group separators must differ"};
    }
    return o;
}

// Types one KEYS text; named keys are written in braces.
void typeKeys(calc::Calculator& calc, std::string_view keys) {
    std::size_t i = 0;
    while (i < keys.size()) {
        if (keys[i] != '{') {
            calc.Form_KeyPress(static_cast<unsigned char>(keys[i]));
            ++i;
            continue;
        }
        const std::size_t close = keys.find('}', i);
        if (close == std::string_view::npos) {
            throw UsageError{"unclosed key name in: " + std::string(keys)};
        }
        const std::string_view name = keys.substr(i + 1, close - i - 1);
        if (name == "ENTER") {
            calc.Form_KeyPress(calc::key::kEnter);
        } else if (name == "BACK") {
            calc.backspace();
        } else if (name == "CE") {
            calc.clearEntry();
        } else if (name == "NEG") {
            calc.changeSign();
        } else if (name == "UNDO") {
            calc.undo();
        } else if (name == "REDO") {
            calc.redo();
        } else if (name == "CLEAR") {
            calc.clearTape();
        } else {
            throw UsageError{"unknown key name: {" + std::string(name) + "}"};
        }
        i = close + 1;
    }
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

int runTape(const Options& o, std::istream& in, std::ostream& out, const Environment& env) {
    if (o.operands.empty() && env.stdinIsTerminal && !o.json) {
        return runTerminal(o.regional, o.calc);
    }
    const common::SystemClock clock;
    calc::Calculator calc(o.regional, o.calc, {&clock, nullptr});
    if (o.operands.empty()) {
        // Line breaks separate lines of keys; Enter is written {ENTER}.
        std::string line;
        while (std::getline(in, line)) {
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            typeKeys(calc, line);
        }
    } else {
        for (const std::string& keys : o.operands) {
            typeKeys(calc, keys);
        }
    }
    const std::string_view state = stateText(calc.state());
    if (o.json) {
        out << "{\"tape\": " << jsonString(calc.tape().text())
            << ", \"total\": " << jsonString(calc.totalText()) << ", \"state\": " << jsonString(state)
            << ", \"counter\": " << jsonString(calc.counterText())
            << ", \"display\": " << jsonString(calc.display()) << "}\n";
    } else {
        out << toLf(calc.tape().text());
        out << "TOTAL " << calc.totalText() << ' ' << state << ' ' << calc.counterText() << '\n';
    }
    return 0;
}

int runWords(const Options& o, std::ostream& out, std::ostream& err) {
    if (o.operands.size() != 1) {
        throw UsageError{"words takes one AMOUNT"};
    }
    const std::optional<std::string> words =
        words::ConverterExtenso(o.operands[0], !o.noCurrency, o.regional.separators);
    if (!words) {
        err << common::GetText(o.regional.language, common::txt::kWordsInvalid) << '\n';
        return 1;
    }
    out << *words << '\n';
    return 0;
}

int runText(const Options& o, std::ostream& out) {
    if (o.operands.empty() || o.operands.size() > 4) {
        throw UsageError{"text takes CODE and up to three arguments"};
    }
    const std::string& codeText = o.operands[0];
    int code = 0;
    const auto [end, ec] = std::from_chars(codeText.data(), codeText.data() + codeText.size(), code);
    if (ec != std::errc() || end != codeText.data() + codeText.size()) {
        throw UsageError{"CODE must be a whole number: " + codeText};
    }
    auto arg = [&](std::size_t i) { return i < o.operands.size() ? std::string_view(o.operands[i]) : ""; };
    out << toLf(common::GetText(o.regional.language, code, arg(1), arg(2), arg(3))) << '\n';
    return 0;
}

int runMoney(const Options& o, std::ostream& out) {
    if (o.operands.size() != 1) {
        throw UsageError{"money takes one VALUE"};
    }
    out << common::FormatMoney(std::string_view(o.operands[0]), o.regional.separators) << '\n';
    return 0;
}

}  // namespace

int run(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
        const Environment& env) {
    try {
        const Options o = parse(args, env);
        if (o.command == "tape") {
            return runTape(o, in, out, env);
        }
        if (o.command == "words") {
            return runWords(o, out, err);
        }
        if (o.command == "text") {
            return runText(o, out);
        }
        if (o.command == "money") {
            return runMoney(o, out);
        }
        throw UsageError{"unknown command: " + o.command};
    } catch (const UsageError& e) {
        err << "zavrello-cli: " << e.message << '\n' << kUsage;
        return 2;
    }
}

}  // namespace zv::cli
