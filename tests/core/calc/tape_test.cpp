#include "core/calc/tape.h"

#include <gtest/gtest.h>

namespace zv::calc {
namespace {

TEST(TapeText, KeepsWholeLines) {
    Tape tape;
    tape.append("first");
    tape.append("second\r\n");
    EXPECT_EQ(tape.text(), "first\r\nsecond\r\n");
    EXPECT_EQ(tape.lastLine(), "second");
    EXPECT_EQ(tape.lastLineStart(), 7u);
    tape.replaceTail(tape.lastLineStart(), "other");
    EXPECT_EQ(tape.text(), "first\r\nother\r\n");
    tape.replaceTail(tape.lastLineStart(), {});
    EXPECT_EQ(tape.text(), "first\r\n");
    EXPECT_EQ(tape.lastLine(), "first");
    EXPECT_EQ(tape.lastLineStart(), 0u);
}

TEST(TapeText, ResetNormalisesLineEnds) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\r\nb\nc\rd", "a\r\nb\r\nc\r\nd\r\n"},  // mixed, last line unterminated
        {"a\n\nb\n", "a\r\n\r\nb\r\n"},            // empty lines kept
        {"a\rb\r\n", "a\r\nb\r\n"},                // a lone CR among CR LF
        {"a\r\r\n", "a\r\n\r\n"},                  // a CR before a CR LF
        {"a\r\nb\r\n", "a\r\nb\r\n"},              // already whole: kept as it is
        {"", ""},
    };
    for (const auto& [in, out] : cases) {
        Tape tape;
        tape.reset(in);
        EXPECT_EQ(tape.text(), out);
    }
}

TEST(TapeFind, IgnoresCaseAccentsIncluded) {
    Tape tape;
    tape.reset("21/11/2026 ==============\r\n VALOR INICIAL 1.000,00\r\nJuro Capitalização 3,5\r\n");
    EXPECT_EQ(tape.find("valor inicial"), 28u);  // lower case finds upper
    EXPECT_EQ(tape.find("CAPITALIZAÇÃO"), 57u);  // accented letters too
    EXPECT_EQ(tape.find("1.000"), 42u);
    EXPECT_EQ(tape.find("parcela"), std::nullopt);
    EXPECT_EQ(tape.find(""), std::nullopt);
    EXPECT_EQ(tape.find("2", 5), 6u);  // first match from the given offset
}

TEST(TapeRecords, BackupRecordAndHeading) {
    const common::DateTime now{2026, 3, 7, 9, 4, 2};
    EXPECT_EQ(backupRecord("  5,00 +\r\n", now),
              "  5,00 +\r\n        BKP = 09:04:02 hs.\r\n =========================\r\n");
    EXPECT_EQ(backupRecord("no line end", now),
              "no line end\r\n        BKP = 09:04:02 hs.\r\n =========================\r\n");
    EXPECT_EQ(headingLine(now), "07/03/2026 ==============\r\n");
    EXPECT_EQ(headingLine(now, common::DateOrder::MonthDayYear, "-"), "03-07-2026 ==============\r\n");
    EXPECT_EQ(headingLine(now, common::DateOrder::YearMonthDay, "."), "2026.03.07 ==============\r\n");
}

}  // namespace
}  // namespace zv::calc
