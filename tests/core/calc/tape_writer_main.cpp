// Types into a tape file until it is killed; the crash test drives it.
//
// Usage: tape_writer <tape file> <seed>
//
// It loads the file, then changes the tape for ever. Every change is announced on stdout before
// it is made and confirmed once it has returned (and so is on disk):
//   ready <size of the loaded tape>
//   will <seq> <offset> <tail>   the bytes from <offset> on become <tail>, CR LF written as '|'
//   done <seq>
//   fail <seq>                   the tape file reported a write failure; the writer stops
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "calc/tape.h"
#include "calc/tape_file.h"

namespace {

using zv::calc::Tape;

constexpr std::string_view kOperators[] = {" +", " -", " ×", " ÷"};
constexpr std::string_view kBlock =
    " =============== CÁLCULO =\r\n"
    "            VALOR INICIAL                   1.000,00\r\n"
    " =========================\r\n";
constexpr std::string_view kHeading = "01/01/2000 ==============\r\n";

void emit(const std::string& message) {
    std::fwrite(message.data(), 1, message.size(), stdout);
    std::fflush(stdout);
}

std::string escaped(std::string_view tail) {
    std::string out;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        if (tail.substr(i).starts_with("\r\n")) {
            out += '|';
            ++i;
        } else {
            out += tail[i];
        }
    }
    return out;
}

std::string amountLine(std::mt19937& rng, std::string_view op) {
    const long cents = std::uniform_int_distribution<long>(0, 99'999'999)(rng);
    char amount[32];
    std::snprintf(amount, sizeof amount, "%ld,%02ld", cents / 100, cents % 100);
    std::string line(zv::calc::kAmountColumns - std::string_view(amount).size(), ' ');
    line.append(amount).append(op).append("\r\n");
    return line;
}

// The operator suffix the last line ends in, or nothing when it is not an amount line.
std::string_view lastOperator(const Tape& tape) {
    const std::string_view line = tape.lastLine();
    for (const std::string_view op : kOperators) {
        if (line.ends_with(op) && line.size() == zv::calc::kAmountColumns + op.size()) {
            return op;
        }
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: tape_writer <tape file> <seed>\n");
        return 2;
    }
    const std::filesystem::path path = argv[1];
    std::mt19937 rng(static_cast<std::mt19937::result_type>(std::strtoul(argv[2], nullptr, 10)));

    const std::optional<std::string> loaded = zv::calc::loadTape(path);
    if (!loaded) {
        std::fprintf(stderr, "tape_writer: cannot read %s\n", path.string().c_str());
        return 3;
    }
    Tape tape;
    tape.reset(*loaded);
    zv::calc::TapeFile file(path);
    if (!file.open(tape.text())) {
        std::fprintf(stderr, "tape_writer: cannot write %s\n", path.string().c_str());
        return 3;
    }
    tape.setSink(&file);
    emit("ready " + std::to_string(tape.size()) + "\n");

    std::uniform_int_distribution<int> pick(0, 99);
    std::uniform_int_distribution<std::size_t> pickOperator(0, std::size(kOperators) - 1);
    for (unsigned long seq = 1;; ++seq) {
        const int roll = pick(rng);
        const std::string_view op = lastOperator(tape);
        std::size_t offset = tape.size();
        std::string tail;
        enum class Change { Append, Replace, Reset } change = Change::Append;
        if (roll < 15 && !op.empty()) {  // the operator of the last line pressed again as another
            offset = tape.lastLineStart();
            tail = std::string(tape.lastLine().substr(0, zv::calc::kAmountColumns));
            tail.append(kOperators[pickOperator(rng)]).append("\r\n");
            change = Change::Replace;
        } else if (roll < 27 && !op.empty()) {  // undo
            offset = tape.lastLineStart();
            change = Change::Replace;
        } else if (roll < 35) {
            tail = kBlock;
        } else if (roll < 36) {  // cleared
            offset = 0;
            tail = kHeading;
            change = Change::Reset;
        } else {
            tail = amountLine(rng, kOperators[pickOperator(rng)]);
        }

        emit("will " + std::to_string(seq) + " " + std::to_string(offset) + " " + escaped(tail) + "\n");
        switch (change) {
            case Change::Append:
                tape.append(tail);
                break;
            case Change::Replace:
                tape.replaceTail(offset, tail);
                break;
            case Change::Reset:
                tape.reset(tail);
                break;
        }
        if (!file.healthy() || tape.size() != offset + tail.size()) {
            emit("fail " + std::to_string(seq) + "\n");
            return 4;
        }
        emit("done " + std::to_string(seq) + "\n");
    }
}
