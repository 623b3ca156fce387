#include "core/calc/tape_line.h"

#include <gtest/gtest.h>

#include "fakes/sample_text.h"

namespace zv::calc {
namespace {

using Kind = TapeLine::Kind;

TEST(TapeLine, ParsesEveryShapeTheCalculatorWrites) {
    const auto line = [](std::string_view amount, std::string_view mark) {
        const std::string text = fakes::tapeLine(amount, mark);
        return text.substr(0, text.size() - 2);
    };
    struct Case {
        std::string line;
        Kind kind;
        std::string field;
        Operator op;
    };
    const Case cases[] = {
        {line("1.234,50", "+"), Kind::Amount, "1.234,50", Operator::Plus},
        {line("3,00", "\u00D7"), Kind::Amount, "3,00", Operator::Times},  // two bytes, one column
        {line("-01:30:00", "\u00F7"), Kind::Amount, "-01:30:00", Operator::Divide},
        {line("9.999.999.800.000.000,", "E"), Kind::Total, "9.999.999.800.000.000,", Operator::Equals},
        {" =========================", Kind::Separator, "", Operator::Equals},
        {"21/11/2026 ==============", Kind::Heading, "", Operator::Equals},
        // Not the calculator's: a column too many, the key instead of the sign, a blank total.
        {" " + line("99,00", "+"), Kind::Other, "", Operator::Equals},
        {line("3,00", "*"), Kind::Other, "", Operator::Equals},
        {line("", "T"), Kind::Other, "", Operator::Equals},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const TapeLine parsed = parseTapeLine(c.line);
        EXPECT_EQ(parsed.kind, c.kind);
        EXPECT_EQ(parsed.field, c.field);
        EXPECT_EQ(parsed.op, c.op);
        EXPECT_EQ(parsed.overflow, c.line.ends_with(" E"));
    }
    for (const char key : {'+', '-', '*', '/', '%', '='}) {  // written lines read back
        const std::string written = amountLine("12,00", *operatorOfKey(key));
        EXPECT_EQ(keyOf(parseTapeLine(written.substr(0, written.size() - 2)).op), key);
    }
}

}  // namespace
}  // namespace zv::calc
