#include "core/common/money.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/sample_text.h"

namespace zv::common {
namespace {

using fakes::kBrazil;
using fakes::kUs;

TEST(FormatMoney, UsesTheFixedPatternWithTheUsersSeparators) {
    EXPECT_EQ(FormatMoney(1234.5, kBrazil), "1.234,50");
    EXPECT_EQ(FormatMoney(1234567.891, NumberSeparators{",", "\u00A0"}), "1\u00A0234\u00A0567,89");
    EXPECT_EQ(FormatMoney(2.675, kBrazil), "2,68");  // half away from zero
    EXPECT_EQ(FormatMoney(-0.5, kBrazil), "-0,50");
    EXPECT_EQ(FormatMoney(-0.001, kBrazil), "0,00");  // negative dust is zero
    // What is not a number shows the fixed text, whatever the separators; a zero does not.
    EXPECT_EQ(FormatMoney(0, kUs), "0.00");
    EXPECT_EQ(FormatMoney(std::nan(""), kUs), "0,00");
    EXPECT_EQ(FormatMoney(HUGE_VAL, kBrazil), "0,00");
}

TEST(FormatMoney, TextIsReadWithTheSameSeparators) {
    using namespace std::string_view_literals;
    EXPECT_EQ(FormatMoney("1.234.567,891"sv, kBrazil), "1.234.567,89");
    EXPECT_EQ(FormatMoney("1234.5"sv, kUs), "1,234.50");
    EXPECT_EQ(FormatMoney(" 7 "sv, kBrazil), "7,00");
    EXPECT_EQ(FormatMoney(""sv, kBrazil), "0,00");
    EXPECT_EQ(FormatMoney("abc"sv, kUs), "0,00");           // the fixed text does not follow US separators
    EXPECT_EQ(FormatMoney("1,234.50"sv, kBrazil), "0,00");  // other locale's text is not a number
}

}  // namespace
}  // namespace zv::common
