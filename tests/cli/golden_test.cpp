// Runs every case line of tests/cli/golden/*.txt through the real program (the line format is in
// tests/cli/golden/README.md) and reports each failing case with its file and line.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/command.h"
#include "cli/run_cli.h"
#include "core/common/text.h"
#include "core/common/text_file.h"

namespace zv::cli {
namespace {

namespace fs = std::filesystem;

const fs::path kGoldenDir = ZV_GOLDEN_DIR;

// One word of a case line. `bare` when no part of it was quoted, so that `=>` or `exit` in
// quotes are texts and not markers; `tail` when it was written `..."text"`.
struct Word {
    std::string text;
    bool bare = true;
    bool tail = false;
};

struct Case {
    std::vector<std::string> args;
    std::string input;
    int code = 0;
    std::optional<std::string> out;
    std::optional<std::string> outTail;
    std::optional<std::string> err;
    std::optional<std::string> usage;
};

// \uXXXX names at most U+FFFF: one to three bytes of UTF-8.
void appendUtf8(std::string& out, unsigned long cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
        return;
    }
    const int continuations = cp < 0x800 ? 1 : 2;
    out += static_cast<char>((continuations == 1 ? 0xC0 : 0xE0) | (cp >> (6 * continuations)));
    for (int k = continuations - 1; k >= 0; --k) {
        out += static_cast<char>(0x80 | ((cp >> (6 * k)) & 0x3F));
    }
}

// Reads the escape after a backslash inside "...", advancing `i` past it.
std::optional<std::string> readEscape(std::string_view line, std::size_t& i, std::string& out) {
    if (i >= line.size()) {
        return "a backslash ends the line";
    }
    const char c = line[i++];
    switch (c) {
        case 'n':
            out += '\n';
            return std::nullopt;
        case 'r':
            out += '\r';
            return std::nullopt;
        case 't':
            out += '\t';
            return std::nullopt;
        case '\\':
        case '"':
            out += c;
            return std::nullopt;
        case 'x':
        case 'u': {
            const std::size_t digits = c == 'x' ? 2 : 4;
            const std::string hex(line.substr(i, digits));
            if (hex.size() != digits ||
                hex.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
                return std::string("\\") + c + " needs " + std::to_string(digits) + " hex digits";
            }
            const unsigned long value = std::stoul(hex, nullptr, 16);
            if (c == 'x') {
                out += static_cast<char>(value);  // one raw byte, even one that is not UTF-8
            } else {
                appendUtf8(out, value);
            }
            i += digits;
            return std::nullopt;
        }
        default:
            return std::string("unknown escape \\") + c;
    }
}

// Splits a line into words as a shell would: blanks separate words, '...' is taken as it
// stands, "..." with escapes, and pieces written next to each other make one word.
std::variant<std::vector<Word>, std::string> splitWords(std::string_view line) {
    std::vector<Word> words;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) {
            ++i;
        }
        if (i >= line.size()) {
            return words;
        }
        Word word;
        if (line.substr(i).starts_with("...\"") || line.substr(i).starts_with("...'")) {
            word.tail = true;
            i += 3;
        }
        while (i < line.size() && line[i] != ' ' && line[i] != '\t') {
            const char c = line[i++];
            if (c == '\'') {
                const std::size_t close = line.find('\'', i);
                if (close == std::string_view::npos) {
                    return std::string("unclosed '");
                }
                word.text += line.substr(i, close - i);
                word.bare = false;
                i = close + 1;
            } else if (c == '"') {
                word.bare = false;
                while (i < line.size() && line[i] != '"') {
                    if (line[i] == '\\') {
                        ++i;
                        if (std::optional<std::string> why = readEscape(line, i, word.text)) {
                            return *why;
                        }
                    } else {
                        word.text += line[i++];
                    }
                }
                if (i >= line.size()) {
                    return std::string("unclosed \"");
                }
                ++i;
            } else {
                word.text += c;
            }
        }
        words.push_back(std::move(word));
    }
}

bool isMarker(const Word& word, std::string_view marker) {
    return word.bare && !word.tail && word.text == marker;
}

std::variant<Case, std::string> parseCase(std::string_view line) {
    auto split = splitWords(line);
    if (auto* why = std::get_if<std::string>(&split)) {
        return *why;
    }
    const std::vector<Word>& words = std::get<std::vector<Word>>(split);
    Case c;
    std::size_t i = 0;
    for (; i < words.size() && !isMarker(words[i], "<") && !isMarker(words[i], "=>"); ++i) {
        c.args.push_back(words[i].text);
    }
    if (i < words.size() && isMarker(words[i], "<")) {
        if (++i >= words.size() || words[i].bare) {
            return std::string("'<' needs a quoted text");
        }
        c.input = words[i++].text;
    }
    if (i >= words.size() || !isMarker(words[i], "=>")) {
        return std::string("no '=>' between the command line and what it must do");
    }
    ++i;
    bool exitGiven = false;
    for (; i < words.size(); ++i) {
        const Word& word = words[i];
        const bool quotedNext = i + 1 < words.size() && !words[i + 1].bare;
        if (isMarker(word, "exit")) {
            if (exitGiven || quotedNext || i + 1 >= words.size() || !common::allDigits(words[i + 1].text) ||
                words[i + 1].text.size() > 3) {
                return std::string("'exit' needs a number, once");
            }
            c.code = std::stoi(words[++i].text);
            exitGiven = true;
        } else if (isMarker(word, "err") || isMarker(word, "usage")) {
            std::optional<std::string>& slot = word.text == "err" ? c.err : c.usage;
            if (!quotedNext || slot) {
                return "'" + word.text + "' needs a quoted text, once";
            }
            slot = words[++i].text;
        } else if (word.bare) {
            return "unexpected " + word.text + " (texts are quoted)";
        } else if (c.out || c.outTail) {
            return std::string("more than one text for standard output");
        } else if (word.tail && word.text.empty()) {
            return std::string("...\"\" would match any output");
        } else {
            (word.tail ? c.outTail : c.out) = word.text;
        }
    }
    if (c.usage) {
        if (exitGiven || c.err || c.out || c.outTail) {
            return std::string("'usage' says it all: no exit, err or output beside it");
        }
        c.code = 2;
    }
    return c;
}

// The text as a case line would write it.
std::string quote(std::string_view text) {
    std::string out = "\"";
    for (const char c : text) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (c == '\t') {
            out += "\\t";
        } else if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (u < 0x20 || u == 0x7F) {
            constexpr char kHex[] = "0123456789abcdef";
            out += "\\x";
            out += kHex[u >> 4];
            out += kHex[u & 0xF];
        } else {
            out += c;
        }
    }
    return out + "\"";
}

// Where two texts part, line by line, then the whole of what came.
std::string difference(std::string_view stream, std::string_view want, std::string_view got) {
    std::size_t start = 0;
    int line = 1;
    while (true) {
        const std::size_t wantEnd = want.find('\n', start);
        const std::size_t gotEnd = got.find('\n', start);
        const std::string_view wantLine =
            want.substr(start, wantEnd == want.npos ? want.npos : wantEnd + 1 - start);
        const std::string_view gotLine =
            got.substr(std::min(start, got.size()), gotEnd == got.npos ? got.npos : gotEnd + 1 - start);
        if (wantLine != gotLine || wantEnd == want.npos) {
            return std::string(stream) + " differs in its line " + std::to_string(line) + ":\n    want " +
                   quote(wantLine) + "\n    got  " + quote(gotLine) + "\n  all of " + std::string(stream) +
                   ": " + quote(got) + "\n";
        }
        start = wantEnd + 1;
        ++line;
    }
}

// What went wrong with one case; empty when it passed.
std::string check(const Case& c, const std::string& usageText) {
    const CliResult r = runCli(c.args, c.input);
    std::string problems;
    if (r.code != c.code) {
        problems += "exit code: want " + std::to_string(c.code) + ", got " + std::to_string(r.code) + "\n";
    }
    if (c.outTail) {
        const std::string& tail = *c.outTail;
        const bool endsThere = r.out.ends_with(tail) &&
                               (r.out.size() == tail.size() || r.out[r.out.size() - tail.size() - 1] == '\n');
        if (!endsThere) {
            problems += "stdout does not end with the lines " + quote(tail) +
                        "\n  all of stdout: " + quote(r.out) + "\n";
        }
    } else if (const std::string want = c.out.value_or(""); r.out != want) {
        problems += difference("stdout", want, r.out);
    }
    const std::string wantErr = c.usage ? "zavrello-cli: " + *c.usage + "\n" + usageText : c.err.value_or("");
    if (r.err != wantErr) {
        problems += difference("stderr", wantErr, r.err);
    }
    return problems;
}

std::vector<std::string> goldenFiles() {
    std::vector<std::string> names;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(kGoldenDir, ec)) {
        if (entry.path().extension() == ".txt") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::ranges::sort(names);
    return names;
}

class GoldenFile : public testing::TestWithParam<std::string> {};

TEST_P(GoldenFile, EveryCaseDoesWhatItsLineSays) {
    const fs::path path = kGoldenDir / GetParam();
    const std::optional<std::string> usageText = common::readFileBytes(kGoldenDir / "usage.out");
    ASSERT_TRUE(usageText.has_value()) << "cannot read " << (kGoldenDir / "usage.out");
    const std::optional<std::string> content = common::readFileBytes(path);
    ASSERT_TRUE(content.has_value()) << "cannot read " << path;

    int lineNumber = 0;
    int cases = 0;
    std::string_view rest = *content;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        rest = end == rest.npos ? std::string_view{} : rest.substr(end + 1);
        ++lineNumber;
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == line.npos || line[first] == '#') {
            continue;
        }
        ++cases;
        const auto parsed = parseCase(line);
        if (const auto* why = std::get_if<std::string>(&parsed)) {
            ADD_FAILURE_AT(path.string().c_str(), lineNumber)
                << "cannot read the case: " << *why << "\n  " << line;
            continue;
        }
        const std::string problems = check(std::get<Case>(parsed), *usageText);
        if (!problems.empty()) {
            ADD_FAILURE_AT(path.string().c_str(), lineNumber) << line << "\n" << problems;
        }
    }
    EXPECT_GT(cases, 0) << path << " holds no case";
}

INSTANTIATE_TEST_SUITE_P(Cli, GoldenFile, testing::ValuesIn(goldenFiles()),
                         [](const testing::TestParamInfo<std::string>& info) {
                             return fs::path(info.param).stem().string();
                         });

TEST(GoldenFiles, EveryCommandHasItsOwn) {
    const std::vector<std::string> files = goldenFiles();
    for (const Command& command : commands()) {
        EXPECT_NE(std::ranges::find(files, std::string(command.name) + ".txt"), files.end())
            << "no golden file for " << command.name;
    }
    EXPECT_NE(std::ranges::find(files, "usage.txt"), files.end());
}

}  // namespace
}  // namespace zv::cli
