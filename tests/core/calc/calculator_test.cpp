#include "calc/calculator.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_clock.h"
#include "fakes/memory_backup.h"
#include "fakes/mirror_sink.h"

namespace zv::calc {
namespace {

const common::Regional kBrazil{};  // "," decimal, "." group, day/month/year
const common::Regional kUsa{common::Language::English, {".", ","}, common::DateOrder::MonthDayYear, "/"};

// One tape line as the engine writes it: the text right-aligned in 24 columns, a space, the
// symbol and CR LF.
std::string line(std::string_view amount, std::string_view symbol) {
    std::string out(24 - amount.size(), ' ');
    out.append(amount).append(" ").append(symbol).append("\r\n");
    return out;
}
const std::string kSep = " =========================\r\n";

Calculator typed(std::string_view keys, CalculatorOptions options = {}, const common::Regional& r = kBrazil) {
    Calculator calc(r, options);
    calc.type(keys);
    return calc;
}

TEST(Total, FollowsTheTapeStrictlyLeftToRight) {
    struct Case {
        const char* label;
        const char* keys;
        double total;
    };
    const Case cases[] = {
        {"each operator acts on the amount after it", "2+3*4=", 20},
        {"subtract then divide", "10-4/3=", 2},
        {"first amount becomes the total whatever its operator", "7*2=", 14},
        {"decimal amounts", "0,1+0,2=", 0.3},
        {"running total without a strike", "100+50-", 150},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_NEAR(typed(c.keys).total(), c.total, 1e-9);
    }
}

TEST(Tape, LinesAreTwentyFourColumnsThenSymbol) {
    const Calculator calc = typed("250+1234,5-3*4/2%");
    EXPECT_EQ(calc.tape().text(), line("250,00", "+") + line("1.234,50", "-") + line("3,00", "\u00D7") +
                                      line("4,00", "\u00F7") + line("2,00", "%"));
}

TEST(Tape, StrikingWritesTotalLineAndSeparator) {
    const Calculator calc = typed("2+3*4=");
    EXPECT_EQ(calc.tape().text(),
              line("2,00", "+") + line("3,00", "\u00D7") + line("4,00", "=") + line("20,00", "T") + kSep);
    EXPECT_EQ(calc.state(), TotalState::Struck);
    EXPECT_EQ(calc.counterText(), "003");
    EXPECT_EQ(calc.display(), "0");
}

TEST(Percent, DependsOnTheOperatorBeforeIt) {
    struct Case {
        const char* label;
        const char* keys;
        double total;
    };
    const Case cases[] = {
        {"mark-up after plus", "5+10%", 5.5},     {"mark-up of 200", "200+10%", 220},
        {"discount after minus", "200-10%", 180}, {"share after times", "200*10%", 20},
        {"share after divide", "200/10%", 20},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Calculator calc = typed(c.keys);
        EXPECT_NEAR(calc.total(), c.total, 1e-9);
        EXPECT_EQ(calc.state(), TotalState::Struck);
    }
}

TEST(Percent, RightAfterATotalIsTheTotalsShare) {
    const Calculator calc = typed("150+50=10%");
    EXPECT_DOUBLE_EQ(calc.total(), 20);
    EXPECT_EQ(calc.state(), TotalState::Struck);
    EXPECT_EQ(calc.counterText(), "001");
}

TEST(Percent, EqualsAfterItStrikesWithoutRelabellingTheLine) {
    const Calculator calc = typed("5+10%=");
    EXPECT_EQ(calc.tape().text(), line("5,00", "+") + line("10,00", "%") + line("5,50", "T") + kSep);
}

TEST(OperatorOnEmptyEntry, RewritesTheLastLineOperator) {
    const Calculator calc = typed("50+*");
    EXPECT_EQ(calc.tape().text(), line("50,00", "\u00D7"));
    EXPECT_DOUBLE_EQ(calc.total(), 50);
    // The rewritten operator is the pending one: 50 × 3.
    Calculator more = typed("50+*3=");
    EXPECT_DOUBLE_EQ(more.total(), 150);
}

TEST(OperatorOnEmptyEntry, CountsZeroAsEmpty) {
    const Calculator calc = typed("50+0-");
    EXPECT_EQ(calc.tape().text(), line("50,00", "-"));
    EXPECT_EQ(calc.counterText(), "001");
}

TEST(OperatorOnEmptyEntry, LeavesOtherLinesAlone) {
    struct Case {
        const char* label;
        const char* keys;
    };
    const Case cases[] = {
        {"empty tape", "+"},
        {"after a struck total", "2+3=*"},
        {"percent keeps its sign", "200+10%+"},
        {"percent needs an amount", "50+%"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        std::string before =
            typed(std::string_view(c.keys).substr(0, std::string_view(c.keys).size() - 1)).tape().text();
        EXPECT_EQ(typed(c.keys).tape().text(), before);
    }
}

TEST(Strike, EqualsOnEmptyEntryStrikesTheLastLine) {
    const Calculator calc = typed("2+3+=");
    EXPECT_EQ(calc.tape().text(), line("2,00", "+") + line("3,00", "=") + line("5,00", "T") + kSep);
}

TEST(Strike, SecondEqualsAddsSeparatorAndClears) {
    const Calculator calc = typed("2+3==");
    EXPECT_EQ(calc.tape().text(), line("2,00", "+") + line("3,00", "=") + line("5,00", "T") + kSep + kSep);
    EXPECT_DOUBLE_EQ(calc.total(), 0);
    EXPECT_EQ(calc.counterText(), "000");
    EXPECT_EQ(calc.state(), TotalState::None);
    EXPECT_FALSE(calc.canUndo());
    const Calculator next = typed("2+3==4+");
    EXPECT_DOUBLE_EQ(next.total(), 4);
    EXPECT_EQ(next.counterText(), "001");
}

TEST(Strike, NextAmountAfterASingleStrikeStartsANewTotal) {
    const Calculator calc = typed("2+3=4*5=");
    EXPECT_DOUBLE_EQ(calc.total(), 20);
    EXPECT_EQ(calc.counterText(), "002");
    EXPECT_DOUBLE_EQ(typed("200+10%7+").total(), 7);
}

TEST(Overflow, LongTotalIsCutAndMarkedE) {
    // 99.999.999 × 99.999.999 does not fit 22 columns.
    const Calculator calc = typed("99999999*99999999=");
    EXPECT_EQ(calc.state(), TotalState::Error);
    const std::string& tape = calc.tape().text();
    const std::size_t sepStart = tape.size() - kSep.size();
    const std::size_t totalStart = tape.rfind("\r\n", sepStart - 3) + 2;
    const std::string totalLine = tape.substr(totalStart, sepStart - totalStart);
    EXPECT_EQ(totalLine, "  " + calc.totalText().substr(0, 22) + " E\r\n");
    EXPECT_GT(calc.totalText().size(), 22u);
}

TEST(Overflow, CounterStopsWhileInError) {
    const Calculator calc = typed("99999999*99999999+1+2+");
    EXPECT_EQ(calc.state(), TotalState::Error);
    EXPECT_EQ(calc.counterText(), "002");
    // The struck total after an overflow starts the next total afresh.
    const Calculator next = typed("99999999*99999999=5+");
    EXPECT_EQ(next.state(), TotalState::None);
    EXPECT_DOUBLE_EQ(next.total(), 5);
}

TEST(Entry, DisplayGroupsThousandsAndKeepsWhatWasTyped) {
    struct Case {
        const char* label;
        const char* keys;
        const char* display;
    };
    const Case cases[] = {
        {"nothing typed", "", "0"},
        {"grouping", "1234567", "1.234.567"},
        {"trailing separator stays", "12,", "12,"},
        {"trailing zeros stay", "12,50", "12,50"},
        {"separator on empty entry", ",5", "0,5"},
        {"separator once only", "1,2,3", "1,23"},
        {"either separator key", "1.5", "1,5"},
        {"leading zero dropped", "07", "7"},
        {"fifteen digits at most", "12345678901234567", "123.456.789.012.345"},
        {"six decimals at most", "1,23456789", "1,234567"},
        {"letters ignored", "1a2b", "12"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(typed(c.keys).display(), c.display);
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
    EXPECT_EQ(calc.tape().text(), line("-123,00", "+"));
    calc.type("5");
    EXPECT_FALSE(calc.clearEntry().has_value());  // only the entry goes
    EXPECT_EQ(calc.display(), "0");
    EXPECT_EQ(calc.tape().text(), line("-123,00", "+"));
}

TEST(Entry, SignKeyOnEmptyEntry) {
    // Mid-calculation it starts a negative amount.
    Calculator mid = typed("10+");
    mid.changeSign();
    mid.type("3+");
    EXPECT_DOUBLE_EQ(mid.total(), 7);
    // Right after a struck total it takes the total, negated.
    Calculator after = typed("2+3=");
    after.changeSign();
    EXPECT_EQ(after.display(), "-5");
    after.type("+");
    EXPECT_DOUBLE_EQ(after.total(), -5);
}

TEST(Formats, ThreeDisplayFormats) {
    struct Case {
        const char* label;
        NumberFormat format;
        const char* keys;
        const char* display;
        const char* tapeAmount;
    };
    const Case cases[] = {
        {"floating", NumberFormat::Floating, "1234,5", "1.234,5", "1.234,50"},
        {"fixed: digits are cents", NumberFormat::Fixed, "5", "0,05", "0,05"},
        {"fixed: 1234 is 12,34", NumberFormat::Fixed, "1234", "12,34", "12,34"},
        {"fixed: big", NumberFormat::Fixed, "123456789", "1.234.567,89", "1.234.567,89"},
        {"fixed: typed separator reads plainly", NumberFormat::Fixed, "12,5", "12,5", "12,50"},
        {"numeral: no forced decimals", NumberFormat::Numeral, "250", "250", "250"},
        {"numeral: up to six decimals", NumberFormat::Numeral, "0,125", "0,125", "0,125"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        CalculatorOptions options;
        options.format = c.format;
        Calculator calc(kBrazil, options);
        calc.type(c.keys);
        EXPECT_EQ(calc.display(), c.display);
        calc.Form_KeyPress('+');
        EXPECT_EQ(calc.tape().text(), line(c.tapeAmount, "+"));
    }
}

TEST(Formats, FixedKeepsTheMinusAndChangingFormatReformatsTheTotal) {
    CalculatorOptions fixed;
    fixed.format = NumberFormat::Fixed;
    Calculator calc(kBrazil, fixed);
    calc.type("5");
    calc.changeSign();
    EXPECT_EQ(calc.display(), "-0,05");
    calc.type("+1,5+");
    EXPECT_EQ(calc.totalText(), "1,45");
    CalculatorOptions numeral;
    numeral.format = NumberFormat::Numeral;
    calc.setOptions(numeral);
    EXPECT_EQ(calc.totalText(), "1,45");
    calc.type("1+");
    EXPECT_EQ(calc.totalText(), "2,45");
}

TEST(Keys, LaptopKeypadLettersWithNumLock) {
    CalculatorOptions numLock;
    numLock.numLock = true;
    EXPECT_EQ(typed("JKL", numLock).display(), "123");
    EXPECT_EQ(typed("uioM", numLock).display(), "4.560");
    EXPECT_EQ(typed("JKL").display(), "0");
    Calculator calc(kBrazil, numLock);
    EXPECT_EQ(calc.Form_KeyPress('k'), '2');
    EXPECT_EQ(calc.Form_KeyPress('x'), 0);
}

TEST(Keys, EnterAddsOrStrikes) {
    CalculatorOptions plus;
    plus.enter = EnterAction::Plus;
    Calculator adding(kBrazil, plus);
    adding.type("5");
    EXPECT_EQ(adding.Form_KeyPress(key::kEnter), key::kEnterPlus);
    adding.type("7");
    adding.Form_KeyPress(key::kEnter);
    EXPECT_DOUBLE_EQ(adding.total(), 12);
    EXPECT_EQ(adding.tape().text(), line("5,00", "+") + line("7,00", "+"));

    Calculator striking(kBrazil);
    striking.type("5+7");
    EXPECT_EQ(striking.Form_KeyPress(key::kEnter), '=');
    EXPECT_EQ(striking.state(), TotalState::Struck);
    EXPECT_DOUBLE_EQ(striking.total(), 12);
}

TEST(Keys, OtherSeparatorsFromTheLocale) {
    const Calculator calc = typed("1234.5+1,5=", {}, kUsa);
    EXPECT_EQ(calc.tape().text(), line("1,234.50", "+") + line("1.50", "=") + line("1,236.00", "T") + kSep);
}

TEST(TimeMode, DurationsAddAsHoursMinutesSeconds) {
    CalculatorOptions time;
    time.timeMode = true;
    Calculator calc(kBrazil, time);
    calc.type("13000");
    EXPECT_EQ(calc.display(), "01:30:00");
    EXPECT_EQ(calc.Form_KeyPress(','), 0);  // no separator in time mode
    calc.type("+4530-10=");
    EXPECT_EQ(calc.tape().text(), line("01:30:00", "+") + line("00:45:30", "-") + line("00:00:10", "=") +
                                      line("02:15:20", "T") + kSep);
    EXPECT_EQ(calc.totalText(), "02:15:20");
}

TEST(TimeMode, FactorsAndNegativeDurations) {
    CalculatorOptions time;
    time.timeMode = true;
    EXPECT_EQ(typed("13000*3=", time).totalText(), "04:30:00");
    EXPECT_EQ(typed("1000-2000=", time).totalText(), "-00:10:00");
    EXPECT_EQ(typed("1234567+", time).display(), "00:00:00");
    EXPECT_EQ(typed("1234567", time).display(), "123:45:67");
}

TEST(Undo, RestoresTheTotalAndCounterBeforeTheLine) {
    Calculator calc = typed("100+50*3+");
    ASSERT_DOUBLE_EQ(calc.total(), 450);
    ASSERT_TRUE(calc.undo());
    EXPECT_DOUBLE_EQ(calc.total(), 150);
    EXPECT_EQ(calc.counterText(), "002");
    EXPECT_EQ(calc.display(), "150,00");
    EXPECT_EQ(calc.tape().text(), line("100,00", "+") + line("50,00", "\u00D7"));
    EXPECT_TRUE(calc.canRedo());
    // The pending operator is the one of the line now last: 150 × 2.
    calc.type("2=");
    EXPECT_DOUBLE_EQ(calc.total(), 300);
}

TEST(Undo, RedoReplaysTheLineThroughTheKeys) {
    Calculator calc = typed("100+50*3+");
    calc.undo();
    calc.undo();
    ASSERT_TRUE(calc.redo());  // the last line undone: "50 ×"
    EXPECT_EQ(calc.tape().text(), line("100,00", "+") + line("50,00", "\u00D7"));
    EXPECT_DOUBLE_EQ(calc.total(), 150);
    EXPECT_FALSE(calc.canRedo());
    EXPECT_FALSE(calc.redo());
}

TEST(Undo, StruckTotalGoesWithItsLine) {
    Calculator calc = typed("2+3=");
    ASSERT_TRUE(calc.undo());
    EXPECT_EQ(calc.tape().text(), line("2,00", "+"));
    EXPECT_EQ(calc.state(), TotalState::None);
    ASSERT_TRUE(calc.redo());
    EXPECT_EQ(calc.tape().text(), line("2,00", "+") + line("3,00", "=") + line("5,00", "T") + kSep);
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

TEST(Undo, NewLineForgetsTheRedoLine) {
    Calculator calc = typed("5+6+");
    calc.undo();
    calc.type("7+");
    EXPECT_FALSE(calc.redo());
}

TEST(Undo, TimeModeRedoKeepsTheDuration) {
    CalculatorOptions time;
    time.timeMode = true;
    Calculator calc = typed("13000+2000+", time);
    calc.undo();
    EXPECT_EQ(calc.display(), "01:30:00");
    calc.redo();
    EXPECT_EQ(calc.totalText(), "01:50:00");
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
    ASSERT_EQ(backup.records.size(), 1u);
    EXPECT_EQ(backup.records[0], before + "        BKP = 14:05:09 hs.\r\n" + kSep);
    EXPECT_EQ(calc.tape().text(), "21/11/2026 ==============\r\n");
    EXPECT_DOUBLE_EQ(calc.total(), 0);
    EXPECT_EQ(calc.counterText(), "000");
}

TEST(ClearTape, BackupRules) {
    const fakes::FakeClock clock;
    {
        SCOPED_TRACE("an empty tape makes no record");
        fakes::MemoryBackup backup;
        Calculator calc(kBrazil, {}, {&clock, &backup});
        EXPECT_FALSE(calc.clearTape().backedUp);
        EXPECT_TRUE(backup.records.empty());
    }
    {
        SCOPED_TRACE("backup switched off");
        fakes::MemoryBackup backup;
        CalculatorOptions noBackup;
        noBackup.backup = false;
        Calculator calc(kBrazil, noBackup, {&clock, &backup});
        calc.type("5+");
        EXPECT_TRUE(calc.clearTape().cleared);
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
        EXPECT_EQ(calc.tape().text(), line("5,00", "+"));
    }
}

TEST(ClearTape, ClearEntryTwiceClearsEverything) {
    const fakes::FakeClock clock;
    fakes::MemoryBackup backup;
    Calculator calc(kBrazil, {}, {&clock, &backup});
    calc.type("5+7");
    EXPECT_FALSE(calc.clearEntry().has_value());
    const std::optional<ClearReport> report = calc.clearEntry();
    ASSERT_TRUE(report.has_value());
    EXPECT_TRUE(report->cleared);
    EXPECT_EQ(backup.records.size(), 1u);
    EXPECT_EQ(calc.tape().text(), "21/11/2026 ==============\r\n");
    EXPECT_DOUBLE_EQ(calc.total(), 0);
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
    struct Case {
        const char* label;
        const char* keys;
    };
    const Case cases[] = {
        {"running total", "100+50*3-"},
        {"struck total", "2+3*4="},
        {"new total after a strike", "2+3=4*5+"},
        {"after a double strike", "2+3==4+"},
        {"percent", "200-10%"},
        {"rewritten operator", "50+*"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Calculator original = typed(c.keys);
        Calculator reloaded(kBrazil);
        reloaded.loadTape(original.tape().text());
        EXPECT_EQ(reloaded.tape().text(), original.tape().text());
        EXPECT_DOUBLE_EQ(reloaded.total(), original.total());
        EXPECT_EQ(reloaded.counterText(), original.counterText());
        EXPECT_EQ(reloaded.state(), original.state());
        // Both go on the same way.
        Calculator a = original;
        a.type("9+");
        reloaded.type("9+");
        EXPECT_DOUBLE_EQ(reloaded.total(), a.total());
    }
}

TEST(LoadTape, UndoWorksAfterReloadAndForeignLinesAreSkipped) {
    Calculator calc(kBrazil);
    calc.loadTape("21/11/2026 ==============\n" + line("10,00", "+") + line("5,00", "-"));
    EXPECT_DOUBLE_EQ(calc.total(), 15);
    ASSERT_TRUE(calc.undo());
    EXPECT_DOUBLE_EQ(calc.total(), 10);

    Calculator mixed(kBrazil);
    mixed.loadTape(line("10,00", "+") + "JURO TOTAL  3,00\r\n" + line("5,00", "+"));
    EXPECT_DOUBLE_EQ(mixed.total(), 15);
}

}  // namespace
}  // namespace zv::calc
