// Random key sequences, from a fixed seed, against the rules every tape must keep: read back, it
// gives the live total, state and counter, and Undo then Redo leaves everything as it was.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "core/calc/calculator.h"
#include "fakes/fake_clock.h"
#include "fakes/mirror_sink.h"
#include "press_keys.h"

namespace zv::calc {
namespace {

const common::Regional kBrazil{};

bool sameTotal(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

void expectSameState(const Calculator& got, const Calculator& wanted, const char* what) {
    SCOPED_TRACE(what);
    EXPECT_TRUE(sameTotal(got.total(), wanted.total())) << got.total() << " vs " << wanted.total();
    EXPECT_EQ(got.totalText(), wanted.totalText());
    EXPECT_EQ(got.state(), wanted.state());
    EXPECT_EQ(got.counterText(), wanted.counterText());
}

void checkInvariants(const Calculator& calc, const fakes::MirrorSink& file) {
    EXPECT_EQ(file.copy, calc.tape().text()) << "the tape file missed a change";
    EXPECT_FALSE(file.offsetBeyondEnd);

    Calculator reread(kBrazil, calc.options());
    reread.loadTape(calc.tape().text());
    EXPECT_EQ(reread.tape().text(), calc.tape().text());
    expectSameState(reread, calc, "the tape read back");
    // Both go on the same way (the pending operator and the new-total rule came back too).
    Calculator goesOn = calc;
    goesOn.setTapeSink(nullptr);
    while (!goesOn.entry().empty()) {
        goesOn.backspace();  // what was being typed is not on the tape
    }
    for (Calculator* c : {&goesOn, &reread}) {
        c->type("7%3+2=");
    }
    EXPECT_EQ(reread.tape().text(), goesOn.tape().text());
    expectSameState(reread, goesOn, "the tape read back, then more keys");

    Calculator undone = calc;
    undone.setTapeSink(nullptr);
    if (undone.undo()) {
        ASSERT_TRUE(undone.redo());
        EXPECT_EQ(undone.tape().text(), calc.tape().text());
        expectSameState(undone, calc, "undo then redo");
    }
}

// The tape as a user might edit it: the first digit of its first amount line changed.
std::string withFirstAmountChanged(std::string text) {
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = text.find(kLineEnd, pos);
        if (parseTapeLine(std::string_view(text).substr(pos, end - pos)).kind == TapeLine::Kind::Amount) {
            const std::size_t digit = text.find_first_of("0123456789", pos);
            text[digit] = static_cast<char>('0' + (text[digit] - '0' + 1) % 10);
            break;
        }
        pos = end + kLineEnd.size();
    }
    return text;
}

TEST(Property, RandomKeysKeepTheTapeTrue) {
    // What a step may do, weighted toward typing amounts; the letters are the test's own names.
    const std::string actions = "0123456789012345678901234567899999,,+++---**//%%==E~BCCURRTFKLWHDD";
    const fakes::FakeClock clock;
    std::mt19937 random(20261123);
    std::uniform_int_distribution<std::size_t> pick(0, actions.size() - 1);
    for (int run = 0; run < 400; ++run) {
        CalculatorOptions options;
        options.format = static_cast<NumberFormat>(run % 3);
        options.timeMode = run % 7 == 0;
        options.enter = run % 2 == 0 ? EnterAction::Plus : EnterAction::Equals;
        Calculator calc(kBrazil, options, {&clock, nullptr});
        fakes::MirrorSink file;
        calc.setTapeSink(&file);
        std::string keys;
        for (int step = 0; step < 50 && !::testing::Test::HasFailure(); ++step) {
            const char action = actions[pick(random)];
            keys += action;
            switch (action) {
                case 'T':
                    options.timeMode = !options.timeMode;
                    calc.setOptions(options);
                    break;
                case 'F':
                    options.format = static_cast<NumberFormat>((static_cast<int>(options.format) + 1) % 3);
                    calc.setOptions(options);
                    break;
                case 'K':
                    calc.appendBlock(" =============== C\u00C1LCULO =\r\n" + std::string(19, ' ') +
                                     "99,00 +\r\n" + std::string(kSeparatorLine));
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
                default:
                    press(calc, std::string_view(&action, 1));
            }
            SCOPED_TRACE("run " + std::to_string(run) + ", keys " + keys);
            checkInvariants(calc, file);
        }
        if (::testing::Test::HasFailure()) {
            return;  // the first sequence that breaks a rule is the one to read
        }
    }
}

}  // namespace
}  // namespace zv::calc
