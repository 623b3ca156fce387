// The calculator fed random keys, tools' blocks, amounts pasted from the tape, in-place edits,
// mode changes, Undo and Redo. After every step the tape must stay true:
// - the tape file (a sink mirroring every change) holds the tape;
// - the tape read back gives the live total, state and counter, and both go on alike;
// - Undo then Redo leaves tape and state as they were;
// - where the running total is made of added and subtracted amounts only, it is their sum.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/calc/calculator.h"
#include "core/calc/tape_line.h"
#include "core/common/number_format.h"
#include "fakes/fake_clock.h"
#include "fakes/mirror_sink.h"
#include "fuzz_support.h"

namespace {

using namespace zv;
using calc::Calculator;
using calc::Operator;
using calc::TapeLine;

// The most steps one input runs: every step rereads the whole tape, and longer runs find no more.
constexpr std::size_t kMaxSteps = 300;

void checkGoesOnAlike(const Calculator& calc, const common::Regional& regional) {
    Calculator reread(regional, calc.options());
    reread.loadTape(calc.tape().text());
    ZV_FUZZ_CHECK(reread.tape().text() == calc.tape().text());
    fuzz::checkSameState(reread, calc);
    // The pending operator and the new-total rule came back too.
    Calculator goesOn = calc;
    goesOn.setTapeSink(nullptr);
    while (!goesOn.entry().empty()) {
        goesOn.backspace();  // what was being typed is not on the tape
    }
    for (Calculator* c : {&goesOn, &reread}) {
        c->type("7%3+2=");
    }
    ZV_FUZZ_CHECK(reread.tape().text() == goesOn.tape().text());
    fuzz::checkSameState(reread, goesOn);
}

void checkUndoRedo(const Calculator& calc) {
    Calculator undone = calc;
    undone.setTapeSink(nullptr);
    if (undone.undo()) {
        ZV_FUZZ_CHECK(undone.redo());
        ZV_FUZZ_CHECK(undone.tape().text() == calc.tape().text());
        fuzz::checkSameState(undone, calc);
    }
}

// The running total worked out from the tape alone, where that needs nothing but sums: the
// amounts since the total began, each added or subtracted by the operator of the line before.
// nullopt when a factor, a divisor, a percentage or a duration took part.
std::optional<double> sumOnTape(std::string_view text, const common::NumberSeparators& seps) {
    double sum = 0;
    bool known = true;
    Operator pending = Operator::Plus;
    bool newTotalNext = false;
    bool afterSeparator = false;
    const auto restart = [&] {
        sum = 0;
        known = true;
        pending = Operator::Plus;
        newTotalNext = false;
    };
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = text.find(calc::kLineEnd, pos);
        const TapeLine line = calc::parseTapeLine(text.substr(pos, end - pos));
        pos = end + calc::kLineEnd.size();
        const bool wasAfterSeparator = afterSeparator;
        afterSeparator = false;
        const bool duration = line.field.find(':') != std::string_view::npos;
        const std::optional<double> amount = line.kind == TapeLine::Kind::Amount && !duration
                                                 ? common::parseNumber(line.field, seps)
                                                 : std::nullopt;
        if (line.kind == TapeLine::Kind::Amount && (amount || duration)) {
            if (newTotalNext) {
                const bool share = line.op == Operator::Percent;
                restart();
                known = !share;
            }
            if (duration || (pending != Operator::Plus && pending != Operator::Minus)) {
                known = false;
            } else {
                sum = pending == Operator::Plus ? sum + *amount : sum - *amount;
            }
            pending = line.op;
            if (line.op == Operator::Percent) {
                known = false;
                newTotalNext = true;
            }
        } else if (line.kind == TapeLine::Kind::Total) {
            newTotalNext = true;
        } else if (line.kind == TapeLine::Kind::Separator) {
            if (wasAfterSeparator) {
                restart();
            }
            afterSeparator = true;
        } else if (line.kind == TapeLine::Kind::Heading) {
            restart();
        }
    }
    return known ? std::optional<double>(sum) : std::nullopt;
}

void checkSum(const Calculator& calc, const common::NumberSeparators& seps) {
    const std::optional<double> sum = sumOnTape(calc.tape().text(), seps);
    if (sum) {
        const double total = calc.total();
        ZV_FUZZ_CHECK(fuzz::sameTotal(total, *sum) ||
                      std::fabs(total - *sum) <= 1e-9 * std::fmax(1, std::fabs(*sum)));
    }
}

// The tape as a user might edit it: the first digit of its first amount line changed.
std::string withFirstAmountChanged(std::string text) {
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = text.find(calc::kLineEnd, pos);
        if (calc::parseTapeLine(std::string_view(text).substr(pos, end - pos)).kind ==
            TapeLine::Kind::Amount) {
            const std::size_t digit = text.find_first_of("0123456789", pos);
            if (digit < end) {
                text[digit] = static_cast<char>('0' + (text[digit] - '0' + 1) % 10);
            }
            break;
        }
        pos = end + calc::kLineEnd.size();
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const common::Regional regional{common::Language::Portuguese, fuzz::separatorsFrom(data[0] % 2)};
    calc::CalculatorOptions options;
    options.format = static_cast<calc::NumberFormat>(data[1] % 3);
    options.timeMode = (data[1] & 0x04) != 0;
    options.enter = (data[1] & 0x08) != 0 ? calc::EnterAction::Plus : calc::EnterAction::Equals;
    options.numLock = (data[1] & 0x10) != 0;
    const fakes::FakeClock clock;
    Calculator calc(regional, options, {&clock, nullptr});
    fakes::MirrorSink file;
    calc.setTapeSink(&file);

    const std::size_t steps = size - 2 < kMaxSteps ? size - 2 : kMaxSteps;
    for (std::size_t i = 0; i < steps; ++i) {
        const std::uint8_t action = data[2 + i];
        switch (action) {
            case 'T':
                options.timeMode = !options.timeMode;
                calc.setOptions(options);
                break;
            case 'F':
                options.format = static_cast<calc::NumberFormat>((static_cast<int>(options.format) + 1) % 3);
                calc.setOptions(options);
                break;
            case 'K':
                calc.appendBlock(" =============== C\u00C1LCULO =\r\n" + std::string(19, ' ') +
                                 "99,00 +\r\n" + std::string(calc::kSeparatorLine));
                break;
            case 'L':
                calc.enterAmount(options.timeMode ? "999999999:59:59" : "999.999.999.999.999");
                break;
            case 'W':
                calc.enterAmount("100.000.000.000.000.000.000");
                break;
            case 'H':
                calc.enterAmount(options.timeMode ? "00:00:01" : "0,000001");
                break;
            case 'D':
                calc.applyEdit(withFirstAmountChanged(calc.tape().text()));
                break;
            case '~':
                calc.changeSign();
                break;
            case 'C':
                calc.clearEntry();
                break;
            case 'X':
                calc.clearTape();
                break;
            case 'B':
                calc.backspace();
                break;
            case 'E':
                calc.Form_KeyPress(calc::key::kEnter);
                break;
            case 'U':
                calc.undo();
                break;
            case 'R':
                calc.redo();
                break;
            default:
                // Every other byte is a key code as the window passes it on, odd ones included.
                calc.Form_KeyPress(action);
        }
        ZV_FUZZ_CHECK(file.copy == calc.tape().text());
        ZV_FUZZ_CHECK(!file.offsetBeyondEnd);
        checkGoesOnAlike(calc, regional);
        checkUndoRedo(calc);
        checkSum(calc, regional.separators);
    }
    return 0;
}
