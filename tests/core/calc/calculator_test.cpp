#include "core/calc/calculator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>

#include "core/common/text_encoding.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_backup.h"
#include "fakes/mirror_sink.h"
#include "fakes/sample_text.h"

namespace zv::calc {
namespace {

using fakes::tapeLine;
const std::string& kSep = fakes::kStrikeLine;
const common::Regional kBrazil{};  // "," decimal, "." group, day/month/year
const common::Regional kUsa{common::Language::English, {".", ","}, common::DateOrder::MonthDayYear, "/"};
const std::string kHeading = "21/11/2026 ==============\r\n";  // the fake clock's day

// Keys as the user presses them; beside the characters: '~' the sign key, 'C' clear entry,
// 'B' backspace, 'U' undo, 'R' redo.
void press(Calculator& calc, std::string_view keys) {
    for (const char k : keys) {
        switch (k) {
            case '~':
                calc.changeSign();
                break;
            case 'C':
                calc.clearEntry();
                break;
            case 'B':
                calc.backspace();
                break;
            case 'U':
                calc.undo();
                break;
            case 'R':
                calc.redo();
                break;
            default:
                calc.Form_KeyPress(static_cast<unsigned char>(k));
        }
    }
}

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

TEST(Tape, EveryKeyWritesItsLine) {
    const std::string two = tapeLine("2,00", "+");
    const std::pair<const char*, std::string> cases[] = {
        // The amount right-aligned in 24 columns, a space and the operator's symbol.
        {"250+1234,5-3*4/2%", tapeLine("250,00", "+") + tapeLine("1.234,50", "-") +
                                  tapeLine("3,00", "\u00D7") + tapeLine("4,00", "\u00F7") +
                                  tapeLine("2,00", "%")},
        // Striking writes the total line and a separator; striking again another separator.
        {"2+3*4=", two + tapeLine("3,00", "\u00D7") + tapeLine("4,00", "=") + tapeLine("20,00", "T") + kSep},
        {"2+3==", two + tapeLine("3,00", "=") + tapeLine("5,00", "T") + kSep + kSep},
        // Equals on an empty entry strikes the last line; after a percent the line keeps its sign.
        {"2+3+=", two + tapeLine("3,00", "=") + tapeLine("5,00", "T") + kSep},
        {"5+10%=", tapeLine("5,00", "+") + tapeLine("10,00", "%") + tapeLine("5,50", "T") + kSep},
        // An operator on an empty entry (a typed zero is empty) rewrites the last line's operator.
        {"50+*", tapeLine("50,00", "\u00D7")},
        {"50+0-", tapeLine("50,00", "-")},
    };
    for (const auto& [keys, tape] : cases) {
        EXPECT_EQ(typed(keys).tape().text(), tape) << keys;
    }
    // But not on an empty tape, after a struck total, after a percent, nor as a percent without an amount.
    for (const std::string keys : {"+", "2+3=*", "200+10%+", "50+%"}) {
        EXPECT_EQ(typed(keys).tape().text(), typed(keys.substr(0, keys.size() - 1)).tape().text()) << keys;
    }
}

TEST(Total, FollowsTheTapeStrictlyLeftToRight) {
    struct Case {
        const char* keys;
        double total;
        const char* counter;
        TotalState state;
    };
    const Case cases[] = {
        {"2+3*4=", 20, "003", TotalState::Struck},
        {"10-4/3=", 2, "003", TotalState::Struck},
        {"0,1+0,2=", 0.3, "002", TotalState::Struck},
        {"100+50-", 150, "002", TotalState::None},
        {"50+*3=", 150, "002", TotalState::Struck},  // a rewritten operator is the pending one
        {"50+0-", 50, "001", TotalState::None},      // a typed zero is no amount
        // Percent: mark-up after +, discount after -, share after × and ÷; it strikes the total.
        {"5+10%", 5.5, "002", TotalState::Struck},
        {"200-10%", 180, "002", TotalState::Struck},
        {"200*10%", 20, "002", TotalState::Struck},
        {"200/10%", 20, "002", TotalState::Struck},
        {"150+50=10%", 20, "001", TotalState::Struck},  // right after a total: its share
        // An amount after a strike starts a new total: after "=", after a percent, after a
        // second strike (which clears the total) and after a strike in error.
        {"2+3=4*5=", 20, "002", TotalState::Struck},
        {"200+10%7+", 7, "001", TotalState::None},
        {"2+3==", 0, "000", TotalState::None},
        {"2+3==4+", 4, "001", TotalState::None},
        {"99999999*99999999=5+", 5, "001", TotalState::None},
        {"99999999*99999999+1+2+", 9.999999800000004e15, "002", TotalState::Error},  // no count in error
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        const Calculator calc = typed(c.keys);
        EXPECT_NEAR(calc.total(), c.total, 1e-9 * std::max(1.0, std::fabs(c.total)));
        EXPECT_EQ(calc.counterText(), c.counter);
        EXPECT_EQ(calc.state(), c.state);
    }
    EXPECT_EQ(typed("2+3*4=").display(), "0");
}

TEST(Total, OverflowIsMarkedEAndReadsBackSo) {
    struct Case {
        const char* label;
        const char* keys;
        CalculatorOptions options;
        std::string totalLine;  // the struck total as the tape shows it
    };
    const CalculatorOptions time{.timeMode = true};
    const Case cases[] = {
        {"21 columns is a total", "99999999999999+=", {}, tapeLine("99.999.999.999.999,00", "T")},
        {"22 columns is an overflow", "999999999999999+=", {}, tapeLine("999.999.999.999.999,00", "E")},
        {"a minus sign makes the 22nd", "99999999999999~+=", {}, tapeLine("-99.999.999.999.999,00", "E")},
        {"cut to 22 columns", "99999999*99999999=", {}, tapeLine("9.999.999.800.000.000,", "E")},
        {"the numeral format overflows where the others do",
         "999999999999999+=",
         {.format = NumberFormat::Numeral},
         tapeLine("999.999.999.999.999", "E")},
        {"hours within 15 hhmmss digits", "9999999995959+=", time, tapeLine("999999999:59:59", "T")},
        {"hours beyond 15 hhmmss digits", "999999999999999+999999999999999+=", time, tapeLine("E", "E")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Calculator calc = typed(c.keys, c.options);
        EXPECT_TRUE(calc.tape().text().ends_with(c.totalLine + kSep)) << calc.tape().text();
        EXPECT_EQ(calc.state(), c.totalLine.ends_with("E\r\n") ? TotalState::Error : TotalState::Struck);
        EXPECT_EQ(reloaded(calc).state(), calc.state());
    }
}

TEST(Entry, DisplayGroupsThousandsAndKeepsWhatWasTyped) {
    const std::pair<const char*, const char*> cases[] = {
        {"1234567", "1.234.567"},
        {"12,50", "12,50"},                            // trailing zeros stay
        {"12,", "12,"},                                // so does a trailing separator
        {",5", "0,5"},                                 // separator on an empty entry
        {"1,2,3", "1,23"},                             // one separator only
        {"1.5", "1,5"},                                // either separator key
        {"07", "7"},                                   // leading zero dropped
        {"12345678901234567", "123.456.789.012.345"},  // fifteen digits at most
        {"1,23456789", "1,234567"},                    // six decimals at most
        {"12,5BB", "12"},                              // backspace takes whole characters
    };
    for (const auto& [keys, display] : cases) {
        EXPECT_EQ(typed(keys).display(), display) << keys;
    }
}

TEST(Entry, BackspaceNeverSplitsASeparatorOfSeveralBytes) {
    // Arabic decimal and group separators take two bytes each.
    const common::Regional arabic{
        common::Language::English, {"\u066B", "\u066C"}, common::DateOrder::DayMonthYear, "/"};
    Calculator calc = typed("1234,5", {}, arabic);
    EXPECT_EQ(calc.display(), "1\u066C234\u066B5");
    for (const char* display : {"1\u066C234\u066B", "1\u066C234", "123"}) {
        calc.backspace();
        EXPECT_EQ(calc.display(), display);
        EXPECT_TRUE(common::isValidUtf8(calc.entry()));
    }
    ASSERT_TRUE(calc.enterAmount("1\u066C234\u066B50"));
    calc.backspace();
    calc.backspace();
    press(calc, ",7+");
    EXPECT_EQ(calc.tape().text(), tapeLine("1\u066C234\u066B70", "+"));
    EXPECT_EQ(reloaded(calc, arabic).total(), calc.total());
}

TEST(Entry, BackspaceSignAndClearEntry) {
    Calculator calc(kBrazil);
    calc.type("1234");
    calc.backspace();
    EXPECT_EQ(calc.display(), "123");
    calc.changeSign();
    EXPECT_EQ(calc.display(), "-123");
    calc.Form_KeyPress('+');
    calc.type("5");
    EXPECT_FALSE(calc.clearEntry().has_value());  // only the entry goes
    EXPECT_EQ(calc.display(), "0");
    EXPECT_EQ(calc.tape().text(), tapeLine("-123,00", "+"));

    // On an empty entry the sign key starts a negative amount mid-calculation...
    Calculator mid = typed("10+");
    mid.changeSign();
    mid.type("3+");
    EXPECT_DOUBLE_EQ(mid.total(), 7);
    // ...and right after a struck total takes the total, negated.
    Calculator after = typed("2+3=");
    after.changeSign();
    EXPECT_EQ(after.display(), "-5");
    after.type("+");
    EXPECT_DOUBLE_EQ(after.total(), -5);
}

TEST(Entry, SignKeyOnAnEmptyEntry) {
    struct Case {
        const char* label;
        const char* keys;
        std::string lastLine;
    };
    const Case cases[] = {
        {"after a total: the total negated", "2+3=~+", tapeLine("-5,00", "+")},
        {"after a zero total: a negative amount", "2-2=~5+", tapeLine("-5,00", "+")},
        {"after an overflow: a negative amount, not a line too wide for the tape", "99999999*99999999=~5+",
         tapeLine("-5,00", "+")},
        {"mid-calculation: a negative amount", "10+~3+", tapeLine("-3,00", "+")},
        {"after undo: the restored total negated", "10+5+U~+", tapeLine("-10,00", "+")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Calculator calc = typed(c.keys);
        EXPECT_TRUE(calc.tape().text().ends_with(c.lastLine)) << calc.tape().text();
        EXPECT_EQ(reloaded(calc).totalText(), calc.totalText());
    }
}

TEST(Entry, ClearEntryClearsTheTapeOnlyOnAZeroDisplay) {
    struct Case {
        const char* label;
        const char* keys;
        bool clearsTape;
    };
    const Case cases[] = {
        {"something typed", "5+7", false},
        {"a typed zero with a separator", "5+0,", false},
        {"a total restored by undo", "5+6+U", false},
        {"nothing typed", "5+", true},
        {"a struck total", "5+6=", true},
        {"undo back to a zero total", "5+U", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Calculator calc = typed(c.keys);
        const std::string before = calc.tape().text();
        EXPECT_EQ(calc.clearEntry().has_value(), c.clearsTape);
        EXPECT_EQ(calc.tape().text() == before, !c.clearsTape);
        EXPECT_EQ(calc.display(), "0");
    }
}

TEST(Formats, ThreeDisplayFormats) {
    // The format, the keys typed, the display and the amount on the tape after +.
    const std::tuple<NumberFormat, const char*, const char*, const char*> cases[] = {
        {NumberFormat::Floating, "1234,5", "1.234,5", "1.234,50"},
        {NumberFormat::Fixed, "5", "0,05", "0,05"},  // digits are cents
        {NumberFormat::Fixed, "123456789", "1.234.567,89", "1.234.567,89"},
        {NumberFormat::Fixed, "12,5", "12,5", "12,50"},  // a typed separator reads plainly
        {NumberFormat::Numeral, "250", "250", "250"},    // no forced decimals
    };
    for (const auto& [format, keys, display, tapeAmount] : cases) {
        Calculator calc = typed(keys, {.format = format});
        EXPECT_EQ(calc.display(), display) << keys;
        calc.Form_KeyPress('+');
        EXPECT_EQ(calc.tape().text(), tapeLine(tapeAmount, "+")) << keys;
    }
}

TEST(Formats, FixedKeepsTheMinusAndChangingFormatReformatsTheTotal) {
    Calculator calc = typed("5", {.format = NumberFormat::Fixed});
    calc.changeSign();
    EXPECT_EQ(calc.display(), "-0,05");
    calc.type("+1,5+");
    EXPECT_EQ(calc.totalText(), "1,45");
    calc.setOptions({.format = NumberFormat::Numeral});
    EXPECT_EQ(calc.totalText(), "1,45");
    calc.type("1+");
    EXPECT_EQ(calc.totalText(), "2,45");
}

TEST(Keys, LaptopLettersEnterAndTheLocalesSeparators) {
    const CalculatorOptions numLock{.numLock = true};
    EXPECT_EQ(typed("JKL", numLock).display(), "123");
    EXPECT_EQ(typed("uioM", numLock).display(), "4.560");
    EXPECT_EQ(typed("JKL").display(), "0");
    Calculator calc(kBrazil, numLock);
    EXPECT_EQ(calc.Form_KeyPress('k'), '2');
    EXPECT_EQ(calc.Form_KeyPress('x'), 0);

    // Enter adds or strikes as chosen.
    Calculator adding = typed("5", {.enter = EnterAction::Plus});
    EXPECT_EQ(adding.Form_KeyPress(key::kEnter), key::kEnterPlus);
    adding.type("7");
    adding.Form_KeyPress(key::kEnter);
    EXPECT_EQ(adding.tape().text(), tapeLine("5,00", "+") + tapeLine("7,00", "+"));
    EXPECT_DOUBLE_EQ(adding.total(), 12);

    Calculator striking = typed("5+7");
    EXPECT_EQ(striking.Form_KeyPress(key::kEnter), '=');
    EXPECT_EQ(striking.state(), TotalState::Struck);
    EXPECT_DOUBLE_EQ(striking.total(), 12);

    // Either separator key types the locale's decimal separator.
    EXPECT_EQ(typed("1234.5+1,5=", {}, kUsa).tape().text(),
              tapeLine("1,234.50", "+") + tapeLine("1.50", "=") + tapeLine("1,236.00", "T") + kSep);
}

TEST(TimeMode, DurationsAddAsHoursMinutesSeconds) {
    const CalculatorOptions time{.timeMode = true};
    Calculator calc = typed("13000", time);
    EXPECT_EQ(calc.display(), "01:30:00");
    EXPECT_EQ(calc.Form_KeyPress(','), 0);  // no separator in time mode
    calc.type("+4530-10=");
    EXPECT_EQ(calc.tape().text(), tapeLine("01:30:00", "+") + tapeLine("00:45:30", "-") +
                                      tapeLine("00:00:10", "=") + tapeLine("02:15:20", "T") + kSep);
    EXPECT_EQ(typed("13000*3=", time).totalText(), "04:30:00");
    EXPECT_EQ(typed("1000-2000=", time).totalText(), "-00:10:00");
    EXPECT_EQ(typed("1234567+", time).display(), "00:00:00");
    EXPECT_EQ(typed("1234567", time).display(), "123:45:67");
}

TEST(TimeMode, SwitchingClearsTheEntryBeingTyped) {
    struct Case {
        const char* label;
        const char* keys;
        bool timeBefore;
        const char* display;
    };
    const Case cases[] = {
        {"digits, switching on", "5+123", false, "00:00:00"},
        {"a decimal amount, switching on", "12,5", false, "00:00:00"},
        {"a duration, switching off", "13000", true, "0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Calculator calc = typed(c.keys, {.timeMode = c.timeBefore});
        calc.setOptions({.timeMode = !c.timeBefore});
        EXPECT_EQ(calc.entry(), "");
        EXPECT_EQ(calc.display(), c.display);
        const std::string before = calc.tape().text();
        calc.type("+");  // nothing left to print
        EXPECT_EQ(calc.tape().text(), before);
    }
}

TEST(Undo, RestoresTheTotalAndCounterBeforeTheLine) {
    Calculator calc = typed("100+50*3+");
    ASSERT_TRUE(calc.undo());
    EXPECT_DOUBLE_EQ(calc.total(), 150);
    EXPECT_EQ(calc.counterText(), "002");
    EXPECT_EQ(calc.display(), "150,00");
    EXPECT_EQ(calc.tape().text(), tapeLine("100,00", "+") + tapeLine("50,00", "\u00D7"));
    EXPECT_TRUE(calc.canRedo());
    calc.type("2=");  // the pending operator is the one of the line now last: 150 × 2
    EXPECT_DOUBLE_EQ(calc.total(), 300);

    Calculator struck = typed("2+3=");  // a struck total goes with its line
    ASSERT_TRUE(struck.undo());
    EXPECT_EQ(struck.tape().text(), tapeLine("2,00", "+"));
    EXPECT_EQ(struck.state(), TotalState::None);
    ASSERT_TRUE(struck.redo());
    EXPECT_EQ(struck.tape().text(), typed("2+3=").tape().text());
}

TEST(Undo, RedoReplaysTheLineThroughTheKeys) {
    Calculator calc = typed("100+50*3+");
    calc.undo();
    calc.undo();
    ASSERT_TRUE(calc.redo());  // the last line undone: "50 ×"
    EXPECT_EQ(calc.tape().text(), tapeLine("100,00", "+") + tapeLine("50,00", "\u00D7"));
    EXPECT_DOUBLE_EQ(calc.total(), 150);
    EXPECT_FALSE(calc.redo());

    Calculator forgets = typed("5+6+");  // a new line forgets the redo line
    forgets.undo();
    forgets.type("7+");
    EXPECT_FALSE(forgets.redo());

    Calculator time = typed("13000+2000+", {.timeMode = true});
    time.undo();
    EXPECT_EQ(time.display(), "01:30:00");
    time.redo();
    EXPECT_EQ(time.totalText(), "01:50:00");
}

TEST(Undo, RedoBringsTheLineBackAsItWasWritten) {
    struct Case {
        const char* label;
        const char* keys;
        CalculatorOptions written;
        CalculatorOptions changedTo;  // between Undo and Redo
    };
    const Case cases[] = {
        {"fixed format: amounts, not cents",
         "1234+5678+",
         {.format = NumberFormat::Fixed},
         {.format = NumberFormat::Fixed}},
        {"fixed format: a struck total",
         "1234+5678=",
         {.format = NumberFormat::Fixed},
         {.format = NumberFormat::Fixed}},
        {"time mode switched off", "100+1-", {.timeMode = true}, {}},
        {"time mode switched on", "100+1-", {}, {.timeMode = true}},
        {"numeral to fixed", "250+3*", {.format = NumberFormat::Numeral}, {.format = NumberFormat::Fixed}},
        {"fixed to numeral", "250+3*", {.format = NumberFormat::Fixed}, {.format = NumberFormat::Numeral}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Calculator calc = typed(c.keys, c.written);
        const std::string tape = calc.tape().text();
        const double total = calc.total();
        const std::string counter = calc.counterText();
        const TotalState state = calc.state();
        ASSERT_TRUE(calc.undo());
        calc.setOptions(c.changedTo);
        ASSERT_TRUE(calc.redo());
        EXPECT_EQ(calc.tape().text(), tape);
        EXPECT_EQ(calc.total(), total);
        EXPECT_EQ(calc.counterText(), counter);
        EXPECT_EQ(calc.state(), state);
        EXPECT_EQ(reloaded(calc).total(), total);
    }
}

TEST(Undo, NothingToUndoOrRedo) {
    Calculator fresh(kBrazil);
    EXPECT_FALSE(fresh.undo());
    EXPECT_FALSE(fresh.redo());
    EXPECT_FALSE(typed("5+3==").undo());  // a second strike starts afresh
    // Any later change of the tape forgets the line to redo.
    for (const char* keys : {"5+6+U7+", "5+6+U*", "5+6+U="}) {
        SCOPED_TRACE(keys);
        Calculator calc = typed(keys);
        EXPECT_FALSE(calc.redo());
    }
    Calculator block = typed("5+6+U");
    block.appendBlock("JURO TOTAL 12,00\r\n");
    EXPECT_FALSE(block.redo());
}

TEST(Undo, TakesABlockBackInOneStep) {
    Calculator calc = typed("5+");
    TapeBlock block;
    block.title(" =============== C\u00C1LCULO =").stacked("VALOR INICIAL ", "1.000,00").closing();
    calc.appendBlock(block);
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+") + block.text());
    ASSERT_TRUE(calc.undo());
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+"));
    EXPECT_DOUBLE_EQ(calc.total(), 5);
    ASSERT_TRUE(calc.redo());
    EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+") + block.text());
    ASSERT_TRUE(calc.undo());
    ASSERT_TRUE(calc.undo());  // and then the line before it
    EXPECT_EQ(calc.tape().text(), "");
}

TEST(Block, NeverChangesTheTotalLiveOrReadBack) {
    // Lines of a block that the calculator would read as its own are moved one column right.
    struct Case {
        const char* label;
        std::string block;
        std::string written;
    };
    const Case cases[] = {
        {"an amount line", tapeLine("99,00", "+"), " " + tapeLine("99,00", "+")},
        {"a total line", tapeLine("99,00", "T"), " " + tapeLine("99,00", "T")},
        {"a heading", kHeading, " " + kHeading},
        {"a separator after a separator", kSep + kSep, kSep + " " + kSep},
        {"text, and one separator to close", tapeLine("JURO", "+") + kSep, tapeLine("JURO", "+") + kSep},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Calculator calc = typed("2+3=5+");
        const std::size_t before = calc.tape().size();
        calc.appendBlock(c.block);
        EXPECT_EQ(calc.tape().text().substr(before), c.written);
        calc.type("1+");
        EXPECT_DOUBLE_EQ(calc.total(), 6);
        const Calculator again = reloaded(calc);
        EXPECT_DOUBLE_EQ(again.total(), 6);
        EXPECT_EQ(again.counterText(), calc.counterText());
    }
}

TEST(EnterAmount, TakesALineOfTheTapeAgain) {
    Calculator calc = typed("2+3=");
    EXPECT_FALSE(calc.calculationInProgress());
    ASSERT_TRUE(calc.enterAmount("    1.234,50"));
    EXPECT_EQ(calc.display(), "1.234,50");
    EXPECT_TRUE(calc.calculationInProgress());
    calc.type("+");
    EXPECT_DOUBLE_EQ(calc.total(), 1234.5);
    EXPECT_FALSE(calc.enterAmount("VALOR INICIAL"));
    EXPECT_FALSE(calc.enterAmount(""));
    EXPECT_TRUE(typed("5+").calculationInProgress());
}

TEST(EnterAmount, TakesOnlyWhatAnEntryHolds) {
    struct Case {
        const char* label;
        const char* field;
        CalculatorOptions options;
        const char* display;  // nullptr: refused, the entry stays as it was
    };
    const CalculatorOptions fixed{.format = NumberFormat::Fixed};
    const Case cases[] = {
        {"fifteen digits", "123.456.789.012.345", {}, "123.456.789.012.345"},
        {"wider than the tape's field", "100.000.000.000.000.000.000", {}, nullptr},
        {"sixteen digits", "1.234.567.890.123,456", {}, nullptr},
        {"seven decimals", "1,1234567", {}, nullptr},
        {"fixed format: an amount is not cents", "250", fixed, "250,00"},
        {"fixed format: decimals as they stand", "56,78", fixed, "56,78"},
        {"a duration in time mode", "01:30:00", {.timeMode = true}, "01:30:00"},
        {"a duration outside time mode", "01:30:00", {}, nullptr},
        {"an amount in time mode", "1.234,50", {.timeMode = true}, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Calculator calc = typed("7", c.options);
        const std::string before = calc.display();
        EXPECT_EQ(calc.enterAmount(c.field), c.display != nullptr);
        EXPECT_EQ(calc.display(), c.display != nullptr ? c.display : before);
        calc.type("+");
        EXPECT_EQ(reloaded(calc).total(), calc.total());
    }
}

TEST(ClearTape, BacksUpAndStartsWithAHeading) {
    const fakes::FakeClock clock;
    fakes::MemoryBackup backup;
    Calculator calc(kBrazil, {}, {&clock, &backup});
    calc.type("2+3=");
    const std::string before = calc.tape().text();
    const ClearReport report = calc.clearTape();
    EXPECT_TRUE(report.cleared);
    EXPECT_TRUE(report.backedUp);
    EXPECT_FALSE(report.backupTooLarge);
    EXPECT_EQ(backup.records, std::vector<std::string>{before + "        BKP = 14:05:09 hs.\r\n" + kSep});
    EXPECT_EQ(calc.tape().text(), kHeading);
    EXPECT_DOUBLE_EQ(calc.total(), 0);
    EXPECT_EQ(calc.counterText(), "000");

    // Clear entry twice does the same.
    calc.type("5+7");
    EXPECT_FALSE(calc.clearEntry().has_value());
    const std::optional<ClearReport> twice = calc.clearEntry();
    ASSERT_TRUE(twice.has_value());
    EXPECT_TRUE(twice->cleared);
    EXPECT_EQ(backup.records.size(), 2u);
    EXPECT_EQ(calc.tape().text(), kHeading);
}

TEST(ClearTape, BackupRules) {
    const fakes::FakeClock clock;
    {
        SCOPED_TRACE("an empty tape makes no record, nor does a switched-off backup");
        fakes::MemoryBackup backup;
        Calculator empty(kBrazil, {}, {&clock, &backup});
        EXPECT_FALSE(empty.clearTape().backedUp);
        Calculator off(kBrazil, {.backup = false}, {&clock, &backup});
        off.type("5+");
        EXPECT_TRUE(off.clearTape().cleared);
        EXPECT_TRUE(backup.records.empty());
    }
    {
        SCOPED_TRACE("the size warning starts at 3200001 bytes");
        fakes::MemoryBackup backup;
        Calculator calc(kBrazil, {}, {&clock, &backup});
        calc.type("5+");
        backup.baseSize = kBackupWarningSize - backupRecord(calc.tape().text(), clock.now()).size() - 1;
        EXPECT_FALSE(calc.clearTape().backupTooLarge);
        calc.type("5+");
        backup.baseSize = kBackupWarningSize - backup.contents.size() -
                          backupRecord(calc.tape().text(), clock.now()).size();
        EXPECT_TRUE(calc.clearTape().backupTooLarge);
    }
    {
        SCOPED_TRACE("a failed backup keeps the tape");
        fakes::MemoryBackup backup;
        backup.failing = true;
        Calculator calc(kBrazil, {}, {&clock, &backup});
        calc.type("5+");
        const ClearReport report = calc.clearTape();
        EXPECT_FALSE(report.cleared);
        EXPECT_TRUE(report.backupFailed);
        EXPECT_EQ(calc.tape().text(), tapeLine("5,00", "+"));
    }
}

TEST(LoadTape, UndoWorksAfterReloadAndForeignLinesAreSkipped) {
    Calculator calc(kBrazil);
    calc.loadTape("21/11/2026 ==============\n" + tapeLine("10,00", "+") + tapeLine("5,00", "-"));
    EXPECT_DOUBLE_EQ(calc.total(), 15);
    ASSERT_TRUE(calc.undo());
    EXPECT_DOUBLE_EQ(calc.total(), 10);

    Calculator mixed(kBrazil);
    mixed.loadTape(tapeLine("10,00", "+") + "JURO TOTAL  3,00\r\n" + tapeLine("5,00", "+"));
    EXPECT_DOUBLE_EQ(mixed.total(), 15);
}

TEST(LoadTape, ADatedHeadingStartsANewTotal) {
    Calculator calc(kBrazil);
    calc.loadTape(tapeLine("10,00", "+") + tapeLine("5,00", "+") + kHeading + tapeLine("7,00", "+"));
    EXPECT_DOUBLE_EQ(calc.total(), 7);
    EXPECT_EQ(calc.counterText(), "001");
    EXPECT_TRUE(calc.undo());
    EXPECT_FALSE(calc.undo());  // not back across the heading
}

}  // namespace
}  // namespace zv::calc
