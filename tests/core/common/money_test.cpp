#include "common/money.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zv::common {
namespace {

const NumberSeparators kBrazil{",", "."};
const NumberSeparators kUs{".", ","};

TEST(FormatMoney, UsesTheFixedPatternWithTheUsersSeparators) {
    struct Case {
        const char* label;
        double value;
        NumberSeparators seps;
        const char* expected;
    };
    const Case cases[] = {
        {"Brazil", 1234.5, kBrazil, "1.234,50"},
        {"US", 1234.5, kUs, "1,234.50"},
        {"no-break space group", 1234567.891, NumberSeparators{",", "\u00A0"}, "1\u00A0234\u00A0567,89"},
        {"cents rounded half away from zero", 2.675, kBrazil, "2,68"},
        {"negative", -0.5, kBrazil, "-0,50"},
        {"zero", 0, kUs, "0.00"},
        {"negative dust is zero", -0.001, kBrazil, "0,00"},
        {"not a number", std::nan(""), kUs, "0,00"},
        {"infinity", HUGE_VAL, kBrazil, "0,00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(FormatMoney(c.value, c.seps), c.expected);
    }
}

TEST(FormatMoney, TextIsReadWithTheSameSeparators) {
    struct Case {
        const char* label;
        const char* text;
        NumberSeparators seps;
        const char* expected;
    };
    const Case cases[] = {
        {"Brazilian text", "1234,5", kBrazil, "1.234,50"},
        {"grouped Brazilian text", "1.234.567,891", kBrazil, "1.234.567,89"},
        {"US text", "1234.5", kUs, "1,234.50"},
        {"blanks around", " 7 ", kBrazil, "7,00"},
        {"letters give the fixed text", "abc", kBrazil, "0,00"},
        {"empty text gives the fixed text", "", kBrazil, "0,00"},
        {"the fixed text does not follow US separators", "abc", kUs, "0,00"},
        {"other locale's text is not a number", "1,234.50", kBrazil, "0,00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(FormatMoney(std::string_view{c.text}, c.seps), c.expected);
    }
}

}  // namespace
}  // namespace zv::common
