#include "calc/tape.h"

#include <gtest/gtest.h>

#include "fakes/mirror_sink.h"

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
    struct Case {
        const char* label;
        const char* in;
        const char* out;
    };
    const Case cases[] = {
        {"LF only", "a\nb\n", "a\r\nb\r\n"},
        {"CR only", "a\rb", "a\r\nb\r\n"},
        {"mixed, last line unterminated", "a\r\nb\nc", "a\r\nb\r\nc\r\n"},
        {"empty lines kept", "a\n\nb\n", "a\r\n\r\nb\r\n"},
        {"empty", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        Tape tape;
        tape.reset(c.in);
        EXPECT_EQ(tape.text(), c.out);
    }
}

TEST(TapeFind, IgnoresCaseAccentsIncluded) {
    Tape tape;
    tape.reset("21/11/2026 ==============\r\n VALOR INICIAL 1.000,00\r\nJuro Capitalização 3,5\r\n");
    struct Case {
        const char* label;
        const char* needle;
        std::optional<std::size_t> at;
    };
    const Case cases[] = {
        {"lower case finds upper", "valor inicial", 28},
        {"accented letters", "CAPITALIZAÇÃO", 57},
        {"a number", "1.000", 42},
        {"missing", "parcela", std::nullopt},
        {"empty", "", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(tape.find(c.needle), c.at);
    }
    EXPECT_EQ(tape.find("2", 5), 6u);  // first match from the given offset
}

TEST(TapeSinkCalls, MirrorStaysEqual) {
    fakes::MirrorSink sink;
    Tape tape;
    tape.setSink(&sink);
    tape.append("one\r\n");
    tape.append("two");
    tape.replaceTail(tape.lastLineStart(), "three\r\n");
    tape.replaceTail(0, {});
    tape.append("four\r\n");
    EXPECT_EQ(sink.copy, tape.text());
    tape.reset("x\ny");
    EXPECT_EQ(sink.copy, "x\r\ny\r\n");
    EXPECT_EQ(sink.resets, 1);
    EXPECT_EQ(sink.changes, 5);
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

TEST(RollPrinter, AcceptsOnlyTheKnownPorts) {
    struct Case {
        const char* label;
        const char* answer;
        std::optional<std::string> port;
    };
    const Case cases[] = {
        {"as offered", "LPT1", "LPT1"},        {"lower case", "lpt2", "LPT2"},
        {"blanks removed", " com 3 ", "COM3"}, {"COM4 too", "Com4", "COM4"},
        {"no LPT3", "LPT3", std::nullopt},     {"no COM5", "COM5", std::nullopt},
        {"empty", "", std::nullopt},           {"a device path", "/dev/lp0", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(acceptRollPort(c.answer), c.port);
    }
}

TEST(RollPrinter, PlainSignsAndSingleByteText) {
    EXPECT_EQ(rollPrinterText("    3,00 \u00D7\r\n    4,00 \u00F7\nCAPITALIZA\u00C7\u00C3O"),
              "    3,00 *\r\n    4,00 /\r\nCAPITALIZA\xC7\xC3O\r\n");
}

}  // namespace
}  // namespace zv::calc
