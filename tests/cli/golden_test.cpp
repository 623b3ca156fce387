// Runs every case line of golden/*.txt through the real program, as a user runs it; the line
// format is in golden/README.md. A failure names the file and line of its case.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::cli {
namespace {

struct Case {
    std::vector<std::string> args;
    std::string input;
    int code = 0;
    std::string out;
    bool tail = false;  // the output only has to end with `out`'s lines
    std::string err;
};

std::string shellQuoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + "'";
}

// The program the cases run: this build's, or the command in ZV_GOLDEN_PROGRAM, which runs
// another build of it (scripts/test-windows: the Windows one under Wine).
std::string program() {
    const char* other = std::getenv("ZV_GOLDEN_PROGRAM");
    return other != nullptr && *other != '\0' ? other : ZV_CLI;
}

// ZV_GOLDEN_WINDOWS=1: the program is a Windows one. Its standard output and error are text
// streams that write each line end as CR LF, so its outputs must be the cases' own with every LF
// written that way and nothing else changed. Its command line is UTF-16, which no byte sequence
// that is not UTF-8 can reach: such cases cannot be put to it.
bool windowsProgram() {
    const char* windows = std::getenv("ZV_GOLDEN_WINDOWS");
    return windows != nullptr && std::string_view(windows) == "1";
}

std::string withCrLf(std::string_view text) {
    std::string out;
    for (const char c : text) {
        out += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    return out;
}

// What the program does with a case's command line and input, run from a folder of the test's own
// that is also its data folder, with the locale C.UTF-8 (separators . and ,) and no other setting.
Case runCli(const Case& c) {
    const fakes::TempFolder dir;
    fakes::writeRaw(dir / "in", c.input);
    std::string command = "cd " + shellQuoted(dir.path().string()) +
                          " && env -i LC_ALL=C.UTF-8 ZAVRELLO_HOME=\"$PWD\" " + shellQuoted(program());
    for (const std::string& arg : c.args) {
        command += " " + shellQuoted(arg);
    }
    const int status = std::system((command + " <in >out 2>err").c_str());
    Case got;
    got.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    got.out = common::readFileBytes(dir / "out").value_or("");
    got.err = common::readFileBytes(dir / "err").value_or("");
    return got;
}

// The words of a case line, each with how it was written: ' ' bare, '"' quoted, '.' quoted after
// "...". Nullopt when a quoted word is not closed, holds an escape other than \n \r \t \\ \" \xHH
// or runs into the next word.
std::optional<std::vector<std::pair<char, std::string>>> splitWords(std::string_view line) {
    const std::string_view from = "nrt\\\"", to = "\n\r\t\\\"";
    std::vector<std::pair<char, std::string>> words;
    for (std::size_t i = 0; (i = line.find_first_not_of(' ', i)) != line.npos;) {
        const char kind = line.substr(i, 4) == "...\"" ? '.' : line[i] == '"' ? '"' : ' ';
        if (kind == ' ') {
            const std::size_t end = std::min(line.find(' ', i), line.size());
            words.emplace_back(kind, line.substr(i, end - i));
            i = end;
            continue;
        }
        std::string text;
        for (i += kind == '.' ? 4 : 1; i < line.size() && line[i] != '"'; ++i) {
            const std::string_view next = line.substr(i + 1, 3);
            if (line[i] != '\\') {
                text += line[i];
            } else if (!next.empty() && from.find(next[0]) != from.npos) {
                text += to[from.find(line[++i])];
            } else if (next.size() == 3 && next[0] == 'x' && std::isxdigit(next[1]) &&
                       std::isxdigit(next[2])) {
                text += static_cast<char>(std::stoi(std::string(next.substr(1)), nullptr, 16));
                i += 3;
            } else {
                return std::nullopt;
            }
        }
        if (++i > line.size() || (i < line.size() && line[i] != ' ')) {
            return std::nullopt;
        }
        words.emplace_back(kind, std::move(text));
    }
    return words;
}

// Nullopt when the line does not keep to the format.
std::optional<Case> parseCase(std::string_view line, const std::string& usageText) {
    const auto words = splitWords(line);
    if (!words) {
        return std::nullopt;
    }
    auto w = words->begin();
    auto is = [&](std::string_view marker) {
        return w != words->end() && w->first == ' ' && w->second == marker;
    };
    auto quoted = [&] { return w != words->end() && w->first == '"'; };
    Case c;
    for (; w != words->end() && !is("<") && !is("=>"); ++w) {
        c.args.push_back(w->second);
    }
    if (is("<")) {
        if (++w, !quoted()) {
            return std::nullopt;
        }
        c.input = (w++)->second;
    }
    if (!is("=>")) {
        return std::nullopt;
    }
    while (++w != words->end()) {
        const auto& [kind, key] = *w;
        if (kind != ' ' && !(kind == '.' && key.empty())) {  // ..."" would match any output
            c.out = key;
            c.tail = kind == '.';
        } else if (kind != ' ' || ++w == words->end()) {
            return std::nullopt;
        } else if (key == "exit" && w->first == ' ' && common::allDigits(w->second) && w->second.size() < 4) {
            c.code = std::stoi(w->second);
        } else if (key == "err" && quoted()) {
            c.err = w->second;
        } else if (key == "usage" && quoted()) {
            c.code = 2;
            c.err = "zavrello-cli: " + w->second + "\n" + usageText;
        } else {
            return std::nullopt;
        }
    }
    return c;
}

TEST(Golden, EveryCaseDoesWhatItsLineSays) {
    const std::filesystem::path dir = ZV_GOLDEN_DIR;
    const std::string usage = common::readFileBytes(dir / "usage.out").value_or("");
    std::vector<std::string> names{"usage", "separators"};
    for (const Command& command : commands()) {
        names.emplace_back(command.name);
    }
    int notUtf8 = 0;
    for (const std::string& name : names) {
        const std::string path = (dir / (name + ".txt")).string();
        std::istringstream lines(common::readFileBytes(path).value_or(""));
        int number = 0;
        int cases = 0;
        for (std::string line; std::getline(lines, line);) {
            ++number;
            const std::size_t first = line.find_first_not_of(' ');
            if (first == line.npos || line[first] == '#') {
                continue;
            }
            ++cases;
            const testing::ScopedTrace where(path.c_str(), number, line);
            std::optional<Case> c = parseCase(line, usage);
            if (!c) {
                ADD_FAILURE() << "this line is no case";
                continue;
            }
            if (windowsProgram()) {
                if (!std::all_of(c->args.begin(), c->args.end(), common::isValidUtf8)) {
                    ++notUtf8;
                    continue;
                }
                c->out = withCrLf(c->out);
                c->err = withCrLf(c->err);
            }
            Case got = runCli(*c);
            if (c->tail && ("\n" + got.out).ends_with("\n" + c->out)) {
                got.out = c->out;  // only its last lines are given
            }
            EXPECT_EQ(got.code, c->code);
            EXPECT_EQ(got.out, c->out);
            EXPECT_EQ(got.err, c->err);
        }
        EXPECT_GT(cases, 0) << "no case in " << path;
    }
    if (notUtf8 > 0) {
        std::printf("%d cases left out: an argument that is no UTF-8 cannot reach a Windows program\n",
                    notUtf8);
    }
}

}  // namespace
}  // namespace zv::cli
