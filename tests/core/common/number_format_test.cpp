#include "core/common/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "fakes/rows.h"
#include "fakes/sample_text.h"

namespace zv::common {
namespace {

using fakes::kBrazil;
using fakes::kUs;
const NumberSeparators kNoBreakSpace{",", "\u00A0"};        // two bytes in UTF-8
const NumberSeparators kNarrowNoBreakSpace{",", "\u202F"};  // three bytes in UTF-8

std::string fmt(double value, std::string_view pattern, const NumberSeparators& seps = kBrazil) {
    return formatNumber(value, pattern, seps);
}

TEST(FormatNumber, WritesEachPatternRoundedHalfAwayFromZeroWithoutExponents) {
    fakes::expectRows({
        {"1.005 is read as typed, not as stored", fmt(1.005, pattern::kTwoDecimals), "1,01"},
        {"negative half goes away from zero", fmt(-1.005, pattern::kTwoDecimals), "-1,01"},
        {"below half goes down", fmt(1.0049, pattern::kTwoDecimals), "1,00"},
        {"2.5 to an integer is not banker's rounding", fmt(2.5, pattern::kInteger), "3"},
        {"carry makes a new group", fmt(999999.995, pattern::kMoney), "1.000.000,00"},
        {"0.1 + 0.2 has no tail", fmt(0.1 + 0.2, pattern::kLongDecimals), "0,3"},
        {"six decimals round at the seventh", fmt(1.1234565, pattern::kCurrency), "1,123457"},
        {"rounded to zero has no sign", fmt(-0.004, pattern::kTwoDecimals), "0,00"},
        {"negative zero has no sign", fmt(-0.0, pattern::kTime), "00:00:00"},
        {"currency keeps two", fmt(1.5, pattern::kCurrency), "1,50"},
        {"currency drops trailing zeros past two", fmt(1.12340, pattern::kCurrency), "1,1234"},
        {"numeral rounding away all decimals", fmt(2.0000004, pattern::kNumeral), "2"},
        {"numeral with six decimals", fmt(-1234.000001, pattern::kNumeral), "-1.234,000001"},
        {"long decimals", fmt(1.0 / 3.0, pattern::kLongDecimals), "0,3333333333"},
        {"US money", fmt(1234.5, pattern::kMoney, kUs), "1,234.50"},
        {"no-break space group", fmt(1234567.891, pattern::kMoney, kNoBreakSpace), "1\u00A0234\u00A0567,89"},
        {"narrow no-break space group", fmt(-9876543, pattern::kInteger, kNarrowNoBreakSpace),
         "-9\u202F876\u202F543"},
        {"multi-byte decimal", fmt(1234.5, pattern::kMoney, {"\u066B", "\u066C"}), "1\u066C234\u066B50"},
        {"no grouping without a comma in the pattern", fmt(1234.5, pattern::kTwoDecimals), "1234,50"},
        {"cents pattern pads to three", fmt(5, pattern::kCents), "005"},
        {"cents pattern with more digits", fmt(12345, pattern::kCents), "12345"},
        {"words fixed positions", fmt(1234.567, pattern::kWordsFixed), "000000001234,57"},
        {"time: digits around the colons", fmt(12345, pattern::kTime), "01:23:45"},
        {"time: extra hour digit goes in front", fmt(1234567, pattern::kTime), "123:45:67"},
        {"time: negative", fmt(-5, pattern::kTime), "-00:00:05"},
        {"time: a fraction is rounded away", fmt(59.6, pattern::kTime), "00:00:60"},
        {"fifteen significant digits then zeros", fmt(1.2345678901234567e20, pattern::kMoney),
         "123.456.789.012.346.000.000,00"},
        {"a twelve digit amount keeps its cents", fmt(123456789012.34, pattern::kMoney),
         "123.456.789.012,34"},
        {"1e-7 in long decimals", fmt(1e-7, pattern::kLongDecimals), "0,0000001"},
        {"1e-11 in long decimals", fmt(1e-11, pattern::kLongDecimals), "0"},
        {"denormal", fmt(4.9e-324, pattern::kCurrency), "0,00"},
        {"not a number", fmt(std::nan(""), pattern::kMoney), "E"},
        {"minus infinity in time", fmt(-HUGE_VAL, pattern::kTime), "E"},
    });
    const std::string largest = formatNumber(std::numeric_limits<double>::max(), pattern::kInteger, kUs);
    EXPECT_EQ(largest.substr(0, 20), "179,769,313,486,232,");
    EXPECT_EQ(largest.size(), 309u + 102u);  // 309 digits and 102 group separators
}

TEST(ParseNumber, ReadsTextAsTypedAndNothingElse) {
    const std::pair<const char*, double> numbers[] = {
        {"  12,5\t", 12.5}, {",5", 0.5}, {"5,", 5}, {"-,25", -0.25}};
    for (const auto& [text, expected] : numbers) {
        EXPECT_EQ(parseNumber(text, kBrazil), expected) << text;
    }
    for (const char* text :
         {"", "-", "1,2,3", "abc", "1e5", "1 234", ".123", "123.", "1..234", "1.,5", "1,234.50"}) {
        EXPECT_EQ(parseNumber(text, kBrazil), std::nullopt) << text;
    }
}

TEST(ParseNumber, ReadsBackWhatTheFormatterWrites) {
    const double values[] = {0.0, 0.01, -1.5, 1234.56, -987654.321, 999999999999.99, 1e15, 0.000001};
    for (const NumberSeparators& seps : {kBrazil, kUs, kNoBreakSpace, kNarrowNoBreakSpace}) {
        for (double v : values) {
            for (std::string_view p : {pattern::kCurrency, pattern::kNumeral, pattern::kLongDecimals}) {
                const std::string text = formatNumber(v, p, seps);
                const std::optional<double> back = parseNumber(text, seps);
                ASSERT_TRUE(back.has_value()) << text;
                EXPECT_NEAR(*back, v, 1e-6 + std::fabs(v) * 1e-15) << text;
            }
        }
    }
}

}  // namespace
}  // namespace zv::common
