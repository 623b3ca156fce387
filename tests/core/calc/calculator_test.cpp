#include "core/calc/calculator.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

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

Calculator typed(std::string_view keys, CalculatorOptions options = {}, const common::Regional& r = kBrazil) {
    Calculator calc(r, options);
    calc.type(keys);
    return calc;
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
    const std::pair<const char*, double> cases[] = {
        {"2+3*4=", 20},
        {"10-4/3=", 2},
        {"7*2=", 14},
        {"0,1+0,2=", 0.3},
        {"100+50-", 150},
        {"50+*3=", 150},              // a rewritten operator is the pending one
        {"2+3=4*5=", 20},             // an amount after a strike starts a new total,
        {"200+10%7+", 7},             // after a percent too,
        {"2+3==4+", 4},               // at once after a second strike,
        {"99999999*99999999=5+", 5},  // and after a strike in error
        {"2+3==", 0},                 // a second strike clears the total
        {"150+50=10%", 20},           // a percent right after a total is the total's share
    };
    for (const auto& [keys, total] : cases) {
        EXPECT_NEAR(typed(keys).total(), total, 1e-9) << keys;
    }
}

TEST(Total, PercentDependsOnTheOperatorBeforeItAndStrikes) {
    // Mark-up after +, discount after -, share after × and ÷.
    const std::pair<const char*, double> cases[] = {
        {"5+10%", 5.5}, {"200-10%", 180}, {"200*10%", 20}, {"200/10%", 20}};
    for (const auto& [keys, total] : cases) {
        const Calculator calc = typed(keys);
        EXPECT_NEAR(calc.total(), total, 1e-9) << keys;
        EXPECT_EQ(calc.state(), TotalState::Struck) << keys;
    }
}

TEST(Total, CounterAndState) {
    const std::tuple<const char*, const char*, TotalState> cases[] = {
        {"2+3*4=", "003", TotalState::Struck},
        {"2+3=4*5=", "002", TotalState::Struck},
        {"150+50=10%", "001", TotalState::Struck},
        {"50+0-", "001", TotalState::None},
        {"2+3==", "000", TotalState::None},
        {"2+3==4+", "001", TotalState::None},
        {"99999999*99999999+1+2+", "002", TotalState::Error},  // the counter stops while in error
        {"99999999*99999999=5+", "001", TotalState::None},     // the next total starts afresh
    };
    for (const auto& [keys, counter, state] : cases) {
        const Calculator calc = typed(keys);
        EXPECT_EQ(calc.counterText(), counter) << keys;
        EXPECT_EQ(calc.state(), state) << keys;
    }
    EXPECT_EQ(typed("2+3*4=").display(), "0");
    EXPECT_FALSE(typed("2+3==").canUndo());
}

TEST(Total, LongTotalIsCutAndMarkedE) {
    // 99.999.999 × 99.999.999 does not fit 22 columns.
    const Calculator calc = typed("99999999*99999999=");
    EXPECT_EQ(calc.state(), TotalState::Error);
    EXPECT_GT(calc.totalText().size(), 22u);
    EXPECT_TRUE(calc.tape().text().ends_with("\r\n  " + calc.totalText().substr(0, 22) + " E\r\n" + kSep))
        << calc.tape().text();
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
    };
    for (const auto& [keys, display] : cases) {
        EXPECT_EQ(typed(keys).display(), display) << keys;
    }
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

TEST(Undo, NothingToUndo) {
    Calculator fresh(kBrazil);
    EXPECT_FALSE(fresh.undo());
    EXPECT_FALSE(fresh.redo());
    Calculator calc = typed("5+");
    calc.appendBlock("JURO TOTAL 12,00\r\n");
    EXPECT_FALSE(calc.undo());  // not across another tool's block
    Calculator cleared = typed("5+3==");
    EXPECT_FALSE(cleared.undo());
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

TEST(Sink, SeesEveryChangeInOrder) {
    fakes::MirrorSink sink;
    const fakes::FakeClock clock;
    Calculator calc(kBrazil, {}, {&clock, nullptr});
    calc.setTapeSink(&sink);
    for (const char* keys : {"100+", "50-", "*", "3=", "", "7+", "8%", "="}) {
        calc.type(keys);
        EXPECT_EQ(sink.copy, calc.tape().text()) << keys;
    }
    calc.undo();
    EXPECT_EQ(sink.copy, calc.tape().text());
    calc.redo();
    EXPECT_EQ(sink.copy, calc.tape().text());
    calc.appendBlock("block line\nsecond");
    EXPECT_EQ(sink.copy, calc.tape().text());
    calc.clearTape();
    EXPECT_EQ(sink.copy, calc.tape().text());
    EXPECT_FALSE(sink.offsetBeyondEnd);
}

TEST(LoadTape, WorksTheStateOutFromTheLines) {
    // A struck total, a new total after a strike and after a double strike, percent, a rewritten operator.
    for (const char* keys : {"2+3*4=", "2+3=4*5+", "2+3==4+", "200-10%", "50+*"}) {
        SCOPED_TRACE(keys);
        Calculator original = typed(keys);
        Calculator reloaded(kBrazil);
        reloaded.loadTape(original.tape().text());
        EXPECT_EQ(reloaded.tape().text(), original.tape().text());
        EXPECT_DOUBLE_EQ(reloaded.total(), original.total());
        EXPECT_EQ(reloaded.counterText(), original.counterText());
        EXPECT_EQ(reloaded.state(), original.state());
        original.type("9+");  // both go on the same way
        reloaded.type("9+");
        EXPECT_DOUBLE_EQ(reloaded.total(), original.total());
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

}  // namespace
}  // namespace zv::calc
