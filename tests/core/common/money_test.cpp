#include "core/common/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "fakes/sample_text.h"

namespace zv::common {
namespace {

using fakes::kBrazil;
using fakes::kUs;

TEST(FormatMoney, TwoDecimalsWithTheUsersSeparatorsAndAFixedTextForNoNumber) {
    EXPECT_EQ(FormatMoney(1234567.891, kBrazil), "1.234.567,89");
    EXPECT_EQ(FormatMoney(0, kUs), "0.00");
    // What is not a number shows "0,00" whatever the separators are.
    EXPECT_EQ(FormatMoney(std::nan(""), kUs), "0,00");
    EXPECT_EQ(FormatMoney(-HUGE_VAL, kBrazil), "0,00");
}

TEST(FormatMoney, TextIsReadWithTheSameSeparators) {
    const std::tuple<const char*, const NumberSeparators&, const char*> cases[] = {
        {"1.234.567,891", kBrazil, "1.234.567,89"},
        {" 7 ", kBrazil, "7,00"},
        {"1234.5", kUs, "1,234.50"},
        {"", kBrazil, "0,00"},
        {"abc", kUs, "0,00"},
        {"1,234.50", kBrazil, "0,00"},
    };
    for (const auto& [text, seps, expected] : cases) {
        EXPECT_EQ(FormatMoney(std::string_view{text}, seps), expected) << text;
    }
}

}  // namespace
}  // namespace zv::common
