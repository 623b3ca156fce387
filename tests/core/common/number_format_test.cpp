#include "common/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace zv::common {
namespace {

const NumberSeparators kBrazil{",", "."};
const NumberSeparators kUs{".", ","};
const NumberSeparators kNoBreakSpace{",", "\u00A0"};        // two bytes in UTF-8
const NumberSeparators kNarrowNoBreakSpace{",", "\u202F"};  // three bytes in UTF-8

struct FormatCase {
    const char* label;
    double value;
    std::string_view pattern;
    const char* expected;
};

void checkFormats(const FormatCase* begin, const FormatCase* end, const NumberSeparators& seps) {
    for (const FormatCase* c = begin; c != end; ++c) {
        SCOPED_TRACE(c->label);
        EXPECT_EQ(formatNumber(c->value, c->pattern, seps), c->expected);
    }
}

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheShortDecimalForm) {
    const FormatCase cases[] = {
        {"1.005 is read as typed, not as stored", 1.005, pattern::kTwoDecimals, "1,01"},
        {"2.675 likewise", 2.675, pattern::kTwoDecimals, "2,68"},
        {"negative half goes away from zero", -1.005, pattern::kTwoDecimals, "-1,01"},
        {"below half goes down", 1.0049, pattern::kTwoDecimals, "1,00"},
        {"0.5 to an integer", 0.5, pattern::kInteger, "1"},
        {"2.5 to an integer is not banker's rounding", 2.5, pattern::kInteger, "3"},
        {"carry through nines", 9.995, pattern::kMoney, "10,00"},
        {"carry makes a new group", 999999.995, pattern::kMoney, "1.000.000,00"},
        {"0.1 + 0.2 has no tail", 0.1 + 0.2, pattern::kLongDecimals, "0,3"},
        {"six decimals round at the seventh", 1.1234565, pattern::kCurrency, "1,123457"},
        {"half a cent in money", 0.005, pattern::kMoney, "0,01"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);
}

TEST(FormatNumber, ZeroAfterRoundingHasNoSign) {
    const FormatCase cases[] = {
        {"small negative in two decimals", -0.004, pattern::kTwoDecimals, "0,00"},
        {"negative zero", -0.0, pattern::kMoney, "0,00"},
        {"tiny negative in numeral", -1e-9, pattern::kNumeral, "0"},
        {"negative zero in time", -0.0, pattern::kTime, "00:00:00"},
        {"but a kept digit keeps the sign", -0.005, pattern::kTwoDecimals, "-0,01"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);
}

TEST(FormatNumber, OptionalDecimalsAreTrimmed) {
    const FormatCase cases[] = {
        {"currency keeps two", 1.5, pattern::kCurrency, "1,50"},
        {"currency shows up to six", 1.123456789, pattern::kCurrency, "1,123457"},
        {"currency drops trailing zeros past two", 1.12340, pattern::kCurrency, "1,1234"},
        {"numeral of an integer shows no separator", 5, pattern::kNumeral, "5"},
        {"numeral rounding away all decimals", 2.0000004, pattern::kNumeral, "2"},
        {"numeral with six decimals", -1234.000001, pattern::kNumeral, "-1.234,000001"},
        {"long decimals", 1.0 / 3.0, pattern::kLongDecimals, "0,3333333333"},
        {"long decimals of an integer", 2500, pattern::kLongDecimals, "2.500"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);
}

TEST(FormatNumber, GroupsWithTheUsersSeparators) {
    struct Case {
        const char* label;
        NumberSeparators seps;
        double value;
        std::string_view pattern;
        const char* expected;
    };
    const Case cases[] = {
        {"Brazil money", kBrazil, 1234.5, pattern::kMoney, "1.234,50"},
        {"US money", kUs, 1234.5, pattern::kMoney, "1,234.50"},
        {"no-break space group", kNoBreakSpace, 1234567.891, pattern::kMoney, "1\u00A0234\u00A0567,89"},
        {"narrow no-break space group", kNarrowNoBreakSpace, -9876543, pattern::kInteger,
         "-9\u202F876\u202F543"},
        {"multi-byte decimal", NumberSeparators{"\u066B", "\u066C"}, 1234.5, pattern::kMoney,
         "1\u066C234\u066B50"},
        {"four digits take one", kBrazil, 1000, pattern::kInteger, "1.000"},
        {"seven digits take two", kUs, 1000000, pattern::kInteger, "1,000,000"},
        {"negative grouped", kBrazil, -1234567.5, pattern::kCurrency, "-1.234.567,50"},
        {"no grouping without a comma in the pattern", kBrazil, 1234.5, pattern::kTwoDecimals, "1234,50"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(formatNumber(c.value, c.pattern, c.seps), c.expected);
    }
}

TEST(FormatNumber, ZeroPaddedPatterns) {
    const FormatCase cases[] = {
        {"cents pattern pads to three", 5, pattern::kCents, "005"},
        {"cents pattern with more digits", 12345, pattern::kCents, "12345"},
        {"counter", 7, pattern::kCounter, "007"},
        {"five digits", 42, pattern::kFiveDigits, "00042"},
        {"words fixed positions", 1234.567, pattern::kWordsFixed, "000000001234,57"},
        {"words fixed at the top", 999999999999.99, pattern::kWordsFixed, "999999999999,99"},
        {"words fixed of a cent", 0.01, pattern::kWordsFixed, "000000000000,01"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);
}

TEST(FormatNumber, TimePatternPlacesDigitsAroundTheColons) {
    const FormatCase cases[] = {
        {"minutes and seconds", 12345, pattern::kTime, "01:23:45"},
        {"seconds only", 5, pattern::kTime, "00:00:05"},
        {"six digits fill every position", 123456, pattern::kTime, "12:34:56"},
        {"extra hour digit goes in front", 1234567, pattern::kTime, "123:45:67"},
        {"negative", -5, pattern::kTime, "-00:00:05"},
        {"a fraction is rounded away", 59.6, pattern::kTime, "00:00:60"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);
}

TEST(FormatNumber, HugeAndTinyValuesNeverUseExponents) {
    const FormatCase cases[] = {
        {"1e20 in money", 1e20, pattern::kMoney, "100.000.000.000.000.000.000,00"},
        {"fifteen significant digits then zeros", 1.2345678901234567e20, pattern::kMoney,
         "123.456.789.012.346.000.000,00"},
        {"largest exact integer is taken to 15 digits", 9007199254740993.0, pattern::kInteger,
         "9.007.199.254.740.990"},
        {"1e-7 in long decimals", 1e-7, pattern::kLongDecimals, "0,0000001"},
        {"1e-11 in long decimals", 1e-11, pattern::kLongDecimals, "0"},
        {"denormal", 4.9e-324, pattern::kCurrency, "0,00"},
        {"a twelve digit amount keeps its cents", 123456789012.34, pattern::kMoney, "123.456.789.012,34"},
    };
    checkFormats(std::begin(cases), std::end(cases), kBrazil);

    const std::string largest = formatNumber(std::numeric_limits<double>::max(), pattern::kInteger, kUs);
    EXPECT_EQ(largest.substr(0, 20), "179,769,313,486,232,");
    EXPECT_EQ(largest.find_first_of("eE"), std::string::npos);
    EXPECT_EQ(largest.size(), 309u + 102u);  // 309 digits and 102 group separators
}

TEST(FormatNumber, NonFiniteGivesE) {
    const double values[] = {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    for (double v : values) {
        SCOPED_TRACE(v);
        EXPECT_EQ(formatNumber(v, pattern::kMoney, kBrazil), "E");
        EXPECT_EQ(formatNumber(v, pattern::kTime, kBrazil), "E");
    }
}

TEST(ParseNumber, ReadsTextWithTheUsersSeparators) {
    struct Case {
        const char* label;
        const char* text;
        NumberSeparators seps;
        double expected;
    };
    const Case cases[] = {
        {"Brazilian grouped", "1.234,5", kBrazil, 1234.5},
        {"US grouped", "1,234.5", kUs, 1234.5},
        {"no-break space group", "1\u00A0234\u00A0567,25", kNoBreakSpace, 1234567.25},
        {"plain integer", "42", kBrazil, 42},
        {"leading minus", "-0,75", kBrazil, -0.75},
        {"blanks around", "  12,5\t", kBrazil, 12.5},
        {"separator first", ",5", kBrazil, 0.5},
        {"separator last, as while typing", "5,", kBrazil, 5},
        {"minus and separator first", "-,25", kBrazil, -0.25},
        {"many decimals", "0,1234567890123", kBrazil, 0.1234567890123},
        {"largest amount", "999.999.999.999,99", kBrazil, 999999999999.99},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::optional<double> v = parseNumber(c.text, c.seps);
        ASSERT_TRUE(v.has_value());
        EXPECT_DOUBLE_EQ(*v, c.expected);
    }
}

TEST(ParseNumber, RejectsWhatIsNotANumber) {
    struct Case {
        const char* label;
        const char* text;
    };
    const Case cases[] = {
        {"empty", ""},
        {"lone minus", "-"},
        {"lone separator", ","},
        {"two decimal separators", "1,2,3"},
        {"letters", "abc"},
        {"exponent", "1e5"},
        {"the error state", "E"},
        {"inner blank", "1 234"},
        {"group separator first", ".123"},
        {"group separator last", "123."},
        {"doubled group separator", "1..234"},
        {"group separator before decimal", "1.,5"},
        {"other locale's text", "1,234.50"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(parseNumber(c.text, kBrazil), std::nullopt);
    }
}

TEST(ParseNumber, ReadsBackWhatTheFormatterWrites) {
    const double values[] = {0.0, 0.01, 1.5, -1.5, 1234.56, -987654.321, 999999999999.99, 1e15, 0.000001};
    const NumberSeparators separatorSets[] = {kBrazil, kUs, kNoBreakSpace, kNarrowNoBreakSpace};
    for (const NumberSeparators& seps : separatorSets) {
        for (double v : values) {
            SCOPED_TRACE(formatNumber(v, pattern::kNumeral, kUs) + " with group '" + seps.group + "'");
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
