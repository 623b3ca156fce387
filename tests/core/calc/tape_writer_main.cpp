// Types into a tape file until it is killed; the crash test drives it.
//
// Usage: tape_writer <tape file> <seed>
//
// It loads the file, then changes the tape for ever. Every change is announced on stdout before
// it is made and confirmed once it has returned (and so is on disk):
//   ready <pid> <size of the loaded tape>
//   will <offset> <tail>   the bytes from <offset> on become <tail>, CR LF written as '|'
//   done                   or "fail" when the tape file reported a write failure; the writer stops
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "core/calc/tape.h"
#include "core/calc/tape_file.h"

using zv::calc::kAmountColumns;

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: tape_writer <tape file> <seed>\n");
        return 2;
    }
    std::mt19937 rng(static_cast<std::mt19937::result_type>(std::strtoul(argv[2], nullptr, 10)));
    const std::optional<std::string> loaded = zv::calc::loadTape(argv[1]);
    zv::calc::Tape tape;
    tape.reset(loaded.value_or(""));
    zv::calc::TapeFile file(argv[1]);
    if (!loaded || !file.open(tape.text())) {
        std::fprintf(stderr, "tape_writer: cannot use %s\n", argv[1]);
        return 3;
    }
    tape.setSink(&file);
    std::printf("ready %ld %zu\n", static_cast<long>(::getpid()), tape.size());
    std::fflush(stdout);

    constexpr std::string_view kOperators[] = {" +", " -", " ×", " ÷"};
    auto anyOperator = [&] { return kOperators[std::uniform_int_distribution<int>(0, 3)(rng)]; };
    for (;;) {
        const int roll = std::uniform_int_distribution<int>(0, 99)(rng);
        const std::string_view last = tape.lastLine();
        const bool amountLast = std::any_of(std::begin(kOperators), std::end(kOperators), [&](auto op) {
            return last.size() == kAmountColumns + op.size() && last.ends_with(op);
        });
        std::size_t offset = tape.size();
        std::string tail;
        if (roll < 15 && amountLast) {  // the operator of the last line pressed again as another
            offset = tape.lastLineStart();
            tail.append(last.substr(0, kAmountColumns)).append(anyOperator()).append("\r\n");
        } else if (roll < 27 && amountLast) {  // undo
            offset = tape.lastLineStart();
        } else if (roll < 35) {  // another tool's block
            tail =
                " =============== CÁLCULO =\r\n            VALOR INICIAL                   1.000,00\r\n"
                " =========================\r\n";
        } else if (roll == 35) {  // cleared
            offset = 0;
            tail = "01/01/2000 ==============\r\n";
        } else {
            const long cents = std::uniform_int_distribution<long>(0, 99'999'999)(rng);
            char amount[32];
            std::snprintf(amount, sizeof amount, "%*ld,%02ld", int(kAmountColumns) - 3, cents / 100,
                          cents % 100);
            tail.append(amount).append(anyOperator()).append("\r\n");
        }

        std::string shown = tail;
        for (std::size_t at; (at = shown.find("\r\n")) != std::string::npos;) {
            shown.replace(at, 2, "|");
        }
        std::printf("will %zu %s\n", offset, shown.c_str());
        std::fflush(stdout);
        if (roll == 35) {
            tape.reset(tail);
        } else if (offset == tape.size()) {
            tape.append(tail);
        } else {
            tape.replaceTail(offset, tail);
        }
        const bool ok = file.healthy() && tape.size() == offset + tail.size();
        std::fputs(ok ? "done\n" : "fail\n", stdout);
        std::fflush(stdout);
        if (!ok) {
            return 4;
        }
    }
}
