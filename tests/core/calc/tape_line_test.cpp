#include "core/calc/tape_line.h"

#include <gtest/gtest.h>

#include "fakes/sample_text.h"

namespace zv::calc {
namespace {

using Kind = TapeLine::Kind;

std::string withoutLineEnd(std::string line) {
    return line.substr(0, line.size() - 2);
}

TEST(TapeLine, ParsesEveryShapeTheCalculatorWrites) {
    struct Case {
        const char* label;
        std::string line;
        Kind kind;
        std::string field;
        Operator op;
    };
    const Case cases[] = {
        {"plus", withoutLineEnd(fakes::tapeLine("1.234,50", "+")), Kind::Amount, "1.234,50", Operator::Plus},
        {"times is two bytes", withoutLineEnd(fakes::tapeLine("3,00", "\u00D7")), Kind::Amount, "3,00",
         Operator::Times},
        {"divide", withoutLineEnd(fakes::tapeLine("4,00", "\u00F7")), Kind::Amount, "4,00", Operator::Divide},
        {"a duration", withoutLineEnd(fakes::tapeLine("-01:30:00", "%")), Kind::Amount, "-01:30:00",
         Operator::Percent},
        {"total", withoutLineEnd(fakes::tapeLine("20,00", "T")), Kind::Total, "20,00", Operator::Equals},
        {"overflow", withoutLineEnd(fakes::tapeLine("9.999.999.800.000.000,", "E")), Kind::Total,
         "9.999.999.800.000.000,", Operator::Equals},
        {"separator", " =========================", Kind::Separator, "", Operator::Equals},
        {"heading", "21/11/2026 ==============", Kind::Heading, "", Operator::Equals},
        // Not the calculator's: one column too many, the keys' own signs, no field, no space.
        {"27 columns", " " + withoutLineEnd(fakes::tapeLine("99,00", "+")), Kind::Other, "",
         Operator::Equals},
        {"the key, not the sign", withoutLineEnd(fakes::tapeLine("3,00", "*")), Kind::Other, "",
         Operator::Equals},
        {"a blank total", std::string(24, ' ') + " T", Kind::Other, "", Operator::Equals},
        {"no space before the sign", std::string(25, '1') + "+", Kind::Other, "", Operator::Equals},
        {"a title ending in =", " =============== C\u00C1LCULO =", Kind::Amount,
         "=============== C\u00C1LCULO", Operator::Equals},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const TapeLine parsed = parseTapeLine(c.line);
        EXPECT_EQ(parsed.kind, c.kind);
        EXPECT_EQ(parsed.field, c.field);
        EXPECT_EQ(parsed.op, c.op);
        EXPECT_EQ(parsed.overflow, c.line.ends_with(" E"));
    }
}

TEST(TapeLine, WritesWhatItReads) {
    for (const Operator op : {Operator::Plus, Operator::Minus, Operator::Times, Operator::Divide,
                              Operator::Percent, Operator::Equals}) {
        const std::string line = amountLine("12,00", op);
        ASSERT_TRUE(line.ends_with(kLineEnd));
        const TapeLine parsed = parseTapeLine(std::string_view(line).substr(0, line.size() - 2));
        EXPECT_EQ(parsed.kind, Kind::Amount);
        EXPECT_EQ(parsed.op, op);
        EXPECT_EQ(operatorOfKey(keyOf(op)), op);
    }
    EXPECT_EQ(amountLine("3,00", Operator::Times), fakes::tapeLine("3,00", "\u00D7"));
    EXPECT_EQ(totalLine("E", true), fakes::tapeLine("E", "E"));
    EXPECT_EQ(operatorOfKey('x'), std::nullopt);
}

}  // namespace
}  // namespace zv::calc
