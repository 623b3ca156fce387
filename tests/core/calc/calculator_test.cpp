#include "core/calc/calculator.h"

#include <gtest/gtest.h>

#include <string>

#include "core/common/text.h"
#include "core/common/text_encoding.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_backup.h"
#include "fakes/mirror_sink.h"
#include "fakes/sample_text.h"
#include "press_keys.h"

namespace zv::calc {
namespace {

using fakes::tapeLine;
const std::string& kSep = fakes::kStrikeLine;
const common::Regional kBrazil{};                              // "," decimal, "." group, day/month/year
const std::string kHeading = "21/11/2026 ==============\r\n";  // the fake clock's day
const CalculatorOptions kFixed{.format = NumberFormat::Fixed};
const CalculatorOptions kNumeral{.format = NumberFormat::Numeral};
const CalculatorOptions kTime{.timeMode = true};

Calculator typed(std::string_view keys, CalculatorOptions options = {}, const common::Regional& r = kBrazil) {
    Calculator calc(r, options);
    press(calc, keys);
    return calc;
}

// The same tape read back by a calculator with the same options.
Calculator reloaded(const Calculator& calc, const common::Regional& r = kBrazil) {
    Calculator copy(r, calc.options());
    copy.loadTape(calc.tape().text());
    return copy;
}

// "total state counter display", as a row states what it expects ("-" for no state mark).
std::string summary(const Calculator& calc) {
    const char* state = calc.state() == TotalState::Struck  ? "T"
                        : calc.state() == TotalState::Error ? "E"
                                                            : "-";
    return calc.totalText() + " " + state + " " + calc.counterText() + " " + calc.display();
}

// The tape's lines without their left padding, joined by "|"; the separator line is "==".
std::string compactTape(const Calculator& calc) {
    std::string out;
    const std::string_view text = calc.tape().text();
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = text.find(kLineEnd, pos);
        const std::string_view line = text.substr(pos, end - pos);
        out.append(out.empty() ? "" : "|").append(line == kSeparatorLine ? "==" : common::trimSpaces(line));
        pos = end + kLineEnd.size();
    }
    return out;
}

struct Row {
    const char* keys;
    CalculatorOptions options;
    const char* expected;
};

TEST(Keys, EachOperatorWritesOrRewritesOneLine) {
    const Row rows[] = {
        {"250+1234,5-3*4/2%", {}, "250,00 +|1.234,50 -|3,00 \u00D7|4,00 \u00F7|2,00 %"},
        {"2+3*4=", {}, "2,00 +|3,00 \u00D7|4,00 =|20,00 T|=="},
        {"2+3==", {}, "2,00 +|3,00 =|5,00 T|==|=="},  // "=" again: one more separator
        {"2+3+=", {}, "2,00 +|3,00 =|5,00 T|=="},     // "=" on no amount strikes the last line
        {"5+10%=", {}, "5,00 +|10,00 %|5,50 T|=="},   // ...but a percent keeps its sign
        {"50+*", {}, "50,00 \u00D7"},                 // an operator on no amount rewrites the last
        {"50+0-", {}, "50,00 -"},                     // a typed zero is no amount
        {"+", {}, ""},                                // nothing to rewrite: not on an empty tape,
        {"2+3=*", {}, "2,00 +|3,00 =|5,00 T|=="},     // nor a total,
        {"200+10%+", {}, "200,00 +|10,00 %"},         // nor a percent,
        {"50+%", {}, "50,00 +"},                      // nor into a percent
        {"5E7E", {.enter = EnterAction::Plus}, "5,00 +|7,00 +"},
        {"5+7E", {}, "5,00 +|7,00 =|12,00 T|=="},
        {"1234,5+", kFixed, "1.234,50 +"},         // a typed separator reads plainly
        {"123456789+", kFixed, "1.234.567,89 +"},  // digits are cents
        {"250+", kNumeral, "250 +"},
        {"13000+4530-10=", kTime, "01:30:00 +|00:45:30 -|00:00:10 =|02:15:20 T|=="},
        {"99999999999999+=", {}, "99.999.999.999.999,00 =|99.999.999.999.999,00 T|=="},  // 21 columns
        {"999999999999999+=", {}, "999.999.999.999.999,00 =|999.999.999.999.999,00 E|=="},
        {"99999999999999~+=", {}, "-99.999.999.999.999,00 =|-99.999.999.999.999,00 E|=="},
        {"99999999*99999999=", {}, "99.999.999,00 \u00D7|99.999.999,00 =|9.999.999.800.000.000, E|=="},
        {"999999999999999+=", kNumeral, "999.999.999.999.999 =|999.999.999.999.999 E|=="},
        {"9999999995959+=", kTime, "999999999:59:59 =|999999999:59:59 T|=="},
        {"999999999999999+999999999999999+=", kTime, "99999999999:99:99 +|99999999999:99:99 =|E E|=="},
        // The sign key on no entry: the total negated right after one, else a negative amount.
        {"2+3=~+", {}, "2,00 +|3,00 =|5,00 T|==|-5,00 +"},
        {"2-2=~5+", {}, "2,00 -|2,00 =|0,00 T|==|-5,00 +"},
        {"99999999*99999999=~5+",
         {},
         "99.999.999,00 \u00D7|99.999.999,00 =|9.999.999.800.000.000, E|==|-5,00 +"},
        {"10+5+U~+", {}, "10,00 +|-10,00 +"},
        {"5~+", kFixed, "-0,05 +"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.keys);
        const Calculator calc = typed(r.keys, r.options);
        EXPECT_EQ(compactTape(calc), r.expected);
        EXPECT_EQ(summary(reloaded(calc)).substr(0, 12), summary(calc).substr(0, 12));
    }
}

TEST(Keys, TheTotalFollowsTheTapeLeftToRight) {
    const Row rows[] = {
        {"2+3*4=", {}, "20,00 T 003 0"},
        {"10-4/3=", {}, "2,00 T 003 0"},
        {"0,1+0,2=", {}, "0,30 T 002 0"},
        {"50+*3=", {}, "150,00 T 002 0"},   // a rewritten operator is the pending one
        {"5+10%", {}, "5,50 T 002 0"},      // percent: mark-up after +,
        {"200-10%", {}, "180,00 T 002 0"},  // discount after -,
        {"200*10%", {}, "20,00 T 002 0"},   // share after × and ÷
        {"200/10%", {}, "20,00 T 002 0"},
        {"150+50=10%", {}, "20,00 T 001 0"},  // right after a total: its share
        // After a strike the next amount starts a new total (after a second strike at once).
        {"2+3=4*5=", {}, "20,00 T 002 0"},
        {"200+10%7+", {}, "7,00 - 001 0"},
        {"2+3==", {}, "0,00 - 000 0"},
        {"2+3==4+", {}, "4,00 - 001 0"},
        {"99999999*99999999=5+", {}, "5,00 - 001 0"},
        {"99999999*99999999+1+2+", {}, "9.999.999.800.000.000,00 E 002 0"},  // no count in error
        {"13000*3=", kTime, "04:30:00 T 002 00:00:00"},
        {"1000-2000=", kTime, "-00:10:00 T 002 00:00:00"},
        {"5~+1,5+", kFixed, "1,45 - 002 0,00"},
        // Undo goes back to the state before the line, the next key works with the line now last.
        {"100+50*3+U", {}, "150,00 - 002 150,00"},
        {"100+50*3+U2=", {}, "300,00 T 003 0"},
        {"2+3=U", {}, "2,00 - 001 2,00"},
        {"100+50*3+UUR", {}, "150,00 - 002 0"},
        {"13000+2000+UR", kTime, "01:50:00 - 002 00:00:00"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.keys);
        EXPECT_EQ(summary(typed(r.keys, r.options)), r.expected);
    }
}

TEST(Keys, TheEntryKeepsWhatWasTyped) {
    const Row rows[] = {
        {"1234567", {}, "1.234.567"},
        {"12,50", {}, "12,50"},  // trailing zeros and separator stay
        {"12,", {}, "12,"},
        {",5", {}, "0,5"},
        {"1,2,3", {}, "1,23"},  // one separator only,
        {"1.5", {}, "1,5"},     // from either key
        {"07", {}, "7"},
        {"12345678901234567", {}, "123.456.789.012.345"},  // fifteen digits at most
        {"1,23456789", {}, "1,234567"},                    // six decimals at most
        {"1234B~", {}, "-123"},
        {"5", kFixed, "0,05"},
        {"123456789", kFixed, "1.234.567,89"},
        {"5~", kFixed, "-0,05"},
        {"13000", kTime, "01:30:00"},
        {"130,5", kTime, "00:13:05"},  // no separator in time mode
        {"1234567", kTime, "123:45:67"},
        {"JKLuioM", {.numLock = true}, "1.234.560"},  // a laptop's keypad letters
        {"JKL", {}, "0"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.keys);
        EXPECT_EQ(typed(r.keys, r.options).display(), r.expected);
    }
    const common::Regional usa{common::Language::English, {".", ","}, common::DateOrder::MonthDayYear, "/"};
    EXPECT_EQ(compactTape(typed("1234.5+1,5=", {}, usa)), "1,234.50 +|1.50 =|1,236.00 T|==");
}

TEST(Keys, BackspaceNeverSplitsASeparatorOfSeveralBytes) {
    const common::Regional arabic{
        common::Language::English, {"\u066B", "\u066C"}, {}, "/"};  // two bytes each
    Calculator calc = typed("1234,5", {}, arabic);
    for (const char* display : {"1\u066C234\u066B", "1\u066C234", "123"}) {
        calc.backspace();
        EXPECT_EQ(calc.display(), display);
        EXPECT_TRUE(common::isValidUtf8(calc.entry()));
    }
    ASSERT_TRUE(calc.enterAmount("1\u066C234\u066B50"));
    press(calc, "BB,7+");
    EXPECT_EQ(calc.tape().text(), tapeLine("1\u066C234\u066B70", "+"));
    EXPECT_EQ(reloaded(calc, arabic).total(), calc.total());
}

TEST(Keys, ClearEntryClearsTheTapeOnlyOnAZeroDisplay) {
    const std::pair<const char*, bool> rows[] = {
        {"5+7", false}, {"5+0,", false}, {"5+6+U", false},  // typed, a typed zero, a restored total
        {"5+", true},   {"5+6=", true},  {"5+U", true},
    };
    for (const auto& [keys, clearsTape] : rows) {
        SCOPED_TRACE(keys);
        Calculator calc = typed(keys);
        const std::string before = calc.tape().text();
        EXPECT_EQ(calc.clearEntry().has_value(), clearsTape);
        EXPECT_EQ(calc.tape().text() == before, !clearsTape);
        EXPECT_EQ(calc.display(), "0");
    }
}

TEST(Options, SwitchingTimeModeClearsTheEntryBeingTyped) {
    const std::pair<const char*, bool> rows[] = {{"5+123", false}, {"12,5", false}, {"13000", true}};
    for (const auto& [keys, timeBefore] : rows) {
        SCOPED_TRACE(keys);
        Calculator calc = typed(keys, {.timeMode = timeBefore});
        const std::string before = calc.tape().text();
        calc.setOptions({.timeMode = !timeBefore});
        calc.type("+");  // nothing left to print
        EXPECT_EQ(calc.entry(), "");
        EXPECT_EQ(calc.tape().text(), before);
    }
}

TEST(Undo, RedoBringsTheLineBackAsItWasWritten) {
    struct Case {
        const char* keys;
        CalculatorOptions written;
        CalculatorOptions changedTo;  // between Undo and Redo
    };
    const Case cases[] = {
        {"1234+5678+", kFixed, kFixed},  // amounts, not cents
        {"1234+5678=", kFixed, kFixed}, {"100+1-", kTime, {}},        {"100+1-", {}, kTime},
        {"250+3*", kNumeral, kFixed},   {"250+3*", kFixed, kNumeral},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        Calculator calc = typed(c.keys, c.written);
        const std::string tape = calc.tape().text();
        const double total = calc.total();
        const std::string counter = calc.counterText();
        ASSERT_TRUE(calc.undo());
        calc.setOptions(c.changedTo);
        ASSERT_TRUE(calc.redo());
        EXPECT_EQ(calc.tape().text(), tape);
        EXPECT_EQ(calc.total(), total);
        EXPECT_EQ(calc.counterText(), counter);
    }
}

TEST(Undo, NothingToUndoOrRedo) {
    // Any later change of the tape forgets the line to redo; a second strike starts afresh.
    for (const char* keys : {"", "5+6+U7+", "5+6+U*", "5+6+U=", "5+3==U"}) {
        SCOPED_TRACE(keys);
        Calculator calc = typed(keys);
        const std::string before = calc.tape().text();
        EXPECT_FALSE(calc.redo());
        EXPECT_EQ(calc.tape().text(), before);
    }
    EXPECT_FALSE(typed("5+3==").undo());
    Calculator block = typed("5+6+U");
    block.appendBlock("JURO TOTAL 12,00\r\n");
    EXPECT_FALSE(block.redo());
}

TEST(Block, GoesBackInOneStepAndNeverChangesTheTotal) {
    Calculator calc = typed("5+");
    TapeBlock block;
    block.title(" =============== C\u00C1LCULO =").stacked("VALOR INICIAL ", "1.000,00").closing();
    calc.appendBlock(block);
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+") + block.text());
    ASSERT_TRUE(calc.undo());
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+"));
    ASSERT_TRUE(calc.redo());
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+") + block.text());

    // Lines the calculator would read as its own are moved one column right.
    const std::pair<std::string, std::string> rows[] = {
        {tapeLine("99,00", "+"), " " + tapeLine("99,00", "+")},
        {tapeLine("99,00", "T"), " " + tapeLine("99,00", "T")},
        {kHeading, " " + kHeading},
        {kSep + kSep, kSep + " " + kSep},
        {tapeLine("JURO", "+") + kSep, tapeLine("JURO", "+") + kSep},
    };
    for (const auto& [lines, written] : rows) {
        SCOPED_TRACE(lines);
        Calculator total = typed("2+3=5+");
        const std::size_t before = total.tape().size();
        total.appendBlock(lines);
        EXPECT_EQ(total.tape().text().substr(before), written);
        total.type("1+");
        EXPECT_EQ(summary(total), "6,00 - 002 0");
        EXPECT_EQ(summary(reloaded(total)), summary(total));
    }
}

TEST(EnterAmount, TakesOnlyWhatAnEntryHolds) {
    struct Case {
        const char* field;
        CalculatorOptions options;
        const char* display;  // nullptr: refused, the entry stays as it was
    };
    const Case cases[] = {
        {"    1.234,50", {}, "1.234,50"},
        {"123.456.789.012.345", {}, "123.456.789.012.345"},
        {"100.000.000.000.000.000.000", {}, nullptr},  // wider than the tape's field
        {"1.234.567.890.123,456", {}, nullptr},        // sixteen digits
        {"1,1234567", {}, nullptr},                    // seven decimals
        {"VALOR INICIAL", {}, nullptr},
        {"", {}, nullptr},
        {"250", kFixed, "250,00"},  // an amount is not cents
        {"56,78", kFixed, "56,78"},
        {"01:30:00", kTime, "01:30:00"},
        {"01:30:00", {}, nullptr},     // a duration only in time mode,
        {"1.234,50", kTime, nullptr},  // an amount only outside it
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field);
        Calculator calc = typed("2+3=7", c.options);
        const std::string before = calc.display();
        EXPECT_EQ(calc.enterAmount(c.field), c.display != nullptr);
        EXPECT_EQ(calc.display(), c.display != nullptr ? c.display : before);
        EXPECT_TRUE(calc.calculationInProgress());
    }
    EXPECT_FALSE(typed("2+3=").calculationInProgress());
    EXPECT_TRUE(typed("5+").calculationInProgress());
}

TEST(Edit, TotalsBelowAreWrittenAgainAndOneUndoTakesTheEditBack) {
    struct Case {
        const char* keys;
        std::string from, to;              // the first `from` on the tape becomes `to`
        const char* expected;              // the tape, then the summary; or the refused line's index
        CalculatorOptions typedWith = {};  // the edit is made with the standard options
    };
    const std::string k200 = tapeLine("200,00", "+");
    const Case cases[] = {
        {"100+200+300=", k200, tapeLine("250,00", "+"),
         "100,00 +|250,00 +|300,00 =|650,00 T|==  650,00 T 003 0"},
        {"100+200+300=", k200, "250 +\r\n", "100,00 +|250 +|300,00 =|650,00 T|==  650,00 T 003 0"},
        {"2+3=4+5=", "3,00 =", "13,00 =", "2,00 +|13,00 =|15,00 T|==|4,00 +|5,00 =|9,00 T|==  9,00 T 002 0"},
        {"2+3=", "2,00 +", "99999999999999,00 +",
         "99999999999999,00 +|3,00 =|100.000.000.000.002,00 E|==  100.000.000.000.002,00 E 002 0"},
        {"100+200+300=", k200, k200 + "Aluguel\r\n",
         "100,00 +|200,00 +|Aluguel|300,00 =|600,00 T|==  600,00 T 003 0"},
        {"100+200+300=", k200, "", "100,00 +|300,00 =|400,00 T|==  400,00 T 002 0"},
        {"100+200+300=", k200, "                  2a0,00 +\r\n", "1"},
        {"100+200+300=", k200, "   200,00\r\n", "1"},
        {"100+200+300=", k200, "200,00 x\r\n", "100,00 +|200,00 x|300,00 =|400,00 T|==  400,00 T 002 0"},
        {"100+200+300=", "600,00 T", "nada T", "3"},
        {"13000+4530=", "00:45:30 =", "00:45:00 =", "01:30:00 +|00:45:00 =|02:15:00 T|==  8.100,00 T 002 0",
         kTime},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.keys) + " " + c.to);
        fakes::MirrorSink file;
        Calculator calc = typed(c.keys, c.typedWith);
        calc.setOptions({});
        calc.setTapeSink(&file);
        const std::string before = calc.tape().text();
        const std::string beforeSummary = summary(calc);
        std::string text = before;
        text.replace(text.find(c.from), c.from.size(), c.to);
        const std::optional<std::size_t> refused = calc.applyEdit(text);
        if (refused) {
            EXPECT_EQ(std::to_string(*refused), c.expected);
            EXPECT_EQ(calc.tape().text(), before);
            continue;
        }
        const std::string edited = calc.tape().text();
        EXPECT_EQ(compactTape(calc) + "  " + summary(calc), c.expected);
        EXPECT_EQ(summary(reloaded(calc)), summary(calc));
        EXPECT_EQ(file.copy, edited);
        ASSERT_TRUE(calc.undo());
        EXPECT_EQ(calc.tape().text(), before);
        EXPECT_EQ(summary(calc), beforeSummary);
        ASSERT_TRUE(calc.redo());
        EXPECT_EQ(calc.tape().text(), edited);
        EXPECT_EQ(file.copy, edited);
        calc.type("1+");  // a new line forgets the edit: Undo takes back only that line
        ASSERT_TRUE(calc.undo());
        EXPECT_EQ(calc.tape().text(), edited);
    }
}

TEST(ClearTape, BacksUpAndStartsWithAHeading) {
    const fakes::FakeClock clock;
    fakes::MemoryBackup backup;
    Calculator calc(kBrazil, {}, {&clock, &backup});
    calc.type("2+3=");
    const std::string before = calc.tape().text();
    EXPECT_TRUE(calc.clearTape().backedUp);
    EXPECT_EQ(backup.records, std::vector<std::string>{before + "        BKP = 14:05:09 hs.\r\n" + kSep});
    EXPECT_EQ(calc.tape().text(), kHeading);
    EXPECT_EQ(summary(calc), "0,00 - 000 0");
    calc.type("5+7");
    press(calc, "CC");  // clear entry twice does the same
    EXPECT_EQ(backup.records.size(), 2u);
    EXPECT_EQ(calc.tape().text(), kHeading);

    Calculator off(kBrazil, {.backup = false}, {&clock, &backup});
    off.type("5+");
    EXPECT_TRUE(off.clearTape().cleared);
    EXPECT_FALSE(Calculator(kBrazil, {}, {&clock, &backup}).clearTape().backedUp);  // an empty tape
    EXPECT_EQ(backup.records.size(), 2u);

    backup.failing = true;  // without its backup the tape is kept
    const ClearReport failed = typed("5+").clearTape();
    Calculator kept(kBrazil, {}, {&clock, &backup});
    kept.type("5+");
    EXPECT_TRUE(kept.clearTape().backupFailed);
    EXPECT_EQ(kept.tape().text(), tapeLine("5,00", "+"));
    EXPECT_TRUE(failed.cleared);  // no backup store at all is no failure
}

TEST(LoadTape, HeadingsStartANewTotalAndOtherLinesAreSkipped) {
    const std::pair<std::string, const char*> rows[] = {
        {kHeading + tapeLine("10,00", "+") + tapeLine("5,00", "-"), "15,00 - 002 0"},
        {tapeLine("10,00", "+") + "JURO TOTAL  3,00\r\n" + tapeLine("5,00", "+"), "15,00 - 002 0"},
        {tapeLine("10,00", "+") + tapeLine("5,00", "+") + kHeading + tapeLine("7,00", "+"), "7,00 - 001 0"},
    };
    for (const auto& [tape, expected] : rows) {
        Calculator calc(kBrazil);
        calc.loadTape(tape);
        EXPECT_EQ(summary(calc), expected);
        EXPECT_TRUE(calc.undo());
    }
    Calculator calc(kBrazil);
    calc.loadTape(tapeLine("10,00", "+") + kHeading + tapeLine("7,00", "+"));
    calc.undo();
    EXPECT_FALSE(calc.undo());  // not back across the heading
}

}  // namespace
}  // namespace zv::calc
