#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace zv::cli {
namespace {

const common::NumberSeparators kBrazil{",", "."};

// Either the value a row expects, or the error.
template <typename T>
void expectRead(const Parsed<T>& got, const std::optional<T>& value, ArgumentError error) {
    if (value) {
        ASSERT_TRUE(got.ok()) << "error " << static_cast<int>(got.error());
        EXPECT_EQ(got.value(), *value);
    } else {
        ASSERT_FALSE(got.ok());
        EXPECT_EQ(got.error(), error);
    }
}

constexpr ArgumentError kNone = ArgumentError::Empty;  // placeholder where a row expects a value

TEST(Arguments, AmountsUseTheUsersSeparatorsAndSignRule) {
    struct Case {
        const char* label;
        const char* text;
        Sign sign;
        std::optional<double> value;
        ArgumentError error;
    };
    const Case cases[] = {
        {"grouped with decimals", "1.234,56", Sign::Any, 1234.56, kNone},
        {"negative where allowed", " -5 ", Sign::Any, -5.0, kNone},
        {"plus sign", "+5", Sign::Positive, 5.0, kNone},
        {"zero where not negative", "0", Sign::NotNegative, 0.0, kNone},
        {"a centavo is positive", "0,01", Sign::Positive, 0.01, kNone},
        {"empty", "", Sign::Any, std::nullopt, ArgumentError::Empty},
        {"blanks", "  ", Sign::Any, std::nullopt, ArgumentError::Empty},
        {"trailing junk", "12abc", Sign::Any, std::nullopt, ArgumentError::Malformed},
        {"two decimal separators", "1,2,3", Sign::Any, std::nullopt, ArgumentError::Malformed},
        {"a group separator after the decimal one", "1,5.0", Sign::Any, std::nullopt,
         ArgumentError::Malformed},
        {"a space is no group separator here", "1 234", Sign::Any, std::nullopt, ArgumentError::Malformed},
        {"negative where not allowed", "-5", Sign::NotNegative, std::nullopt, ArgumentError::Negative},
        {"negative where positive is asked", "-0,01", Sign::Positive, std::nullopt, ArgumentError::Negative},
        {"zero where positive is asked", "0,00", Sign::Positive, std::nullopt, ArgumentError::Zero},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        expectRead(readAmount(c.text, kBrazil, c.sign), c.value, c.error);
    }
}

TEST(Arguments, RatesArePositivePercentages) {
    struct Case {
        const char* label;
        const char* text;
        std::optional<double> value;
        ArgumentError error;
    };
    const Case cases[] = {
        {"decimal comma", "2,5", 2.5, kNone},
        {"with a percent sign", "2,5%", 2.5, kNone},
        {"blanks around and before the sign", " 2,5 % ", 2.5, kNone},
        {"small", "0,0001", 0.0001, kNone},
        {"zero", "0", std::nullopt, ArgumentError::Zero},
        {"zero percent", "0%", std::nullopt, ArgumentError::Zero},
        {"negative", "-1", std::nullopt, ArgumentError::Negative},
        {"empty", "", std::nullopt, ArgumentError::Empty},
        {"percent sign alone", "%", std::nullopt, ArgumentError::Malformed},
        {"two percent signs", "2%%", std::nullopt, ArgumentError::Malformed},
        {"letters", "abc", std::nullopt, ArgumentError::Malformed},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        expectRead(readRate(c.text, kBrazil), c.value, c.error);
    }
}

TEST(Arguments, DatesAreRealDaysWrittenDayFirst) {
    using std::chrono::day;
    using std::chrono::month;
    using std::chrono::year;
    struct Case {
        const char* label;
        const char* text;
        std::optional<common::Date> value;
        ArgumentError error;
    };
    const Case cases[] = {
        {"full", "21/11/2026", common::Date{year{2026}, month{11}, day{21}}, kNone},
        {"one-digit day and month", "1/2/2026", common::Date{year{2026}, month{2}, day{1}}, kNone},
        {"31 February", "31/02/2026", std::nullopt, ArgumentError::NoSuchDate},
        {"month 0", "01/00/2026", std::nullopt, ArgumentError::NoSuchDate},
        {"year 0000", "01/01/0000", std::nullopt, ArgumentError::NoSuchDate},
        {"two-digit year", "01/01/26", std::nullopt, ArgumentError::Malformed},
        {"empty", "", std::nullopt, ArgumentError::Empty},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        expectRead(readDate(c.text), c.value, c.error);
    }
}

TEST(Arguments, WholeNumbersWithinTheirRange) {
    constexpr long long kMax = std::numeric_limits<long long>::max();
    constexpr long long kMin = std::numeric_limits<long long>::min();
    struct Case {
        const char* label;
        const char* text;
        long long min;
        long long max;
        std::optional<long long> value;
        ArgumentError error;
    };
    const Case cases[] = {
        {"lowest", "0", 0, 2, 0LL, kNone},
        {"highest", "2", 0, 2, 2LL, kNone},
        {"leading zeros", "007", 0, 10, 7LL, kNone},
        {"negative where the range has them", "-5", -5, 5, -5LL, kNone},
        {"the largest there is", "9223372036854775807", 0, kMax, kMax, kNone},
        {"above the range", "3", 0, 2, std::nullopt, ArgumentError::OutOfRange},
        {"below a negative range", "-6", -5, 5, std::nullopt, ArgumentError::OutOfRange},
        {"negative where the range has none", "-1", 0, 2, std::nullopt, ArgumentError::Negative},
        {"too large to hold", "99999999999999999999", 0, kMax, std::nullopt, ArgumentError::OutOfRange},
        {"too small to hold, none allowed", "-99999999999999999999", 0, kMax, std::nullopt,
         ArgumentError::Negative},
        {"too small to hold", "-99999999999999999999", kMin, kMax, std::nullopt, ArgumentError::OutOfRange},
        {"empty", "", 0, 2, std::nullopt, ArgumentError::Empty},
        {"trailing junk", "1a", 0, 2, std::nullopt, ArgumentError::Malformed},
        {"plus sign", "+1", 0, 2, std::nullopt, ArgumentError::Malformed},
        {"minus alone", "-", -5, 5, std::nullopt, ArgumentError::Malformed},
        {"leading blank", " 1", 0, 2, std::nullopt, ArgumentError::Malformed},
        {"decimals", "1.0", 0, 2, std::nullopt, ArgumentError::Malformed},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        expectRead(readWhole(c.text, c.min, c.max), c.value, c.error);
    }
}

TEST(Arguments, SeparatorsAreOneCharacterThatCannotBeMistakenForANumber) {
    struct Case {
        const char* label;
        const char* text;
        std::optional<std::string> value;
        ArgumentError error;
    };
    const Case cases[] = {
        {"comma", ",", ",", kNone},
        {"no-break space", "\u00A0", "\u00A0", kNone},
        {"narrow no-break space", "\u202F", "\u202F", kNone},
        {"space", " ", " ", kNone},
        {"apostrophe", "'", "'", kNone},
        {"empty", "", std::nullopt, ArgumentError::Empty},
        {"two letters", "ab", std::nullopt, ArgumentError::NotOneCharacter},
        {"two no-break spaces", "\u00A0\u00A0", std::nullopt, ArgumentError::NotOneCharacter},
        {"a Latin-1 byte", "\xA0", std::nullopt, ArgumentError::NotOneCharacter},
        {"a cut UTF-8 sequence", "\xE2\x80", std::nullopt, ArgumentError::NotOneCharacter},
        {"zero", "0", std::nullopt, ArgumentError::Digit},
        {"nine", "9", std::nullopt, ArgumentError::Digit},
        {"plus", "+", std::nullopt, ArgumentError::Sign},
        {"minus", "-", std::nullopt, ArgumentError::Sign},
        {"tab", "\t", std::nullopt, ArgumentError::ControlCharacter},
        {"line feed", "\n", std::nullopt, ArgumentError::ControlCharacter},
        {"delete", "\x7F", std::nullopt, ArgumentError::ControlCharacter},
        {"a C1 control", "\u0085", std::nullopt, ArgumentError::ControlCharacter},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        expectRead(readSeparator(c.text), c.value, c.error);
    }
}

}  // namespace
}  // namespace zv::cli
