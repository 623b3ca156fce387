// What each reader's errors are called, and the amounts, rates and dates that no command reads
// yet. Separators and whole numbers as the program takes them are in golden/*.txt.
#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>

#include "fakes/rows.h"

namespace zv::cli {
namespace {

using fakes::expectRows;

// What a reader gave, as the rows write it: the value, or the name of the error.
template <typename T>
std::string shown(const Parsed<T>& got) {
    constexpr const char* kErrors[] = {"Empty",      "Malformed",       "Negative",        "Zero",
                                       "OutOfRange", "NoSuchDate",      "NotOneCharacter", "Digit",
                                       "Sign",       "ControlCharacter"};
    std::ostringstream text;
    if (!got.ok()) {
        text << kErrors[static_cast<int>(got.error())];
    } else if constexpr (std::is_same_v<T, common::Date>) {
        text << common::formatDate(got.value());
    } else {
        text << got.value();
    }
    return text.str();
}

std::string amount(const char* text, Sign sign = Sign::Any) {
    return shown(readAmount(text, {",", "."}, sign));
}
std::string rate(const char* text) {
    return shown(readRate(text, {",", "."}));
}
std::string date(const char* text) {
    return shown(readDate(text));
}
std::string whole(const char* text, long long min, long long max) {
    return shown(readWhole(text, min, max));
}

TEST(Arguments, EachReaderTakesItsValuesAndNamesWhatIsWrong) {
    expectRows({
        {"grouped with decimals", amount("1.234,56"), "1234.56"},
        {"negative where allowed, blanks around", amount(" -5 "), "-5"},
        {"zero where not negative", amount("0", Sign::NotNegative), "0"},
        {"a centavo is positive", amount("0,01", Sign::Positive), "0.01"},
        {"a blank amount", amount("  "), "Empty"},
        {"trailing junk", amount("12abc"), "Malformed"},
        {"negative where not allowed", amount("-5", Sign::NotNegative), "Negative"},
        {"negative where positive is asked", amount("-0,01", Sign::Positive), "Negative"},
        {"zero where positive is asked", amount("0,00", Sign::Positive), "Zero"},
        {"with a percent sign", rate("2,5%"), "2.5"},
        {"blanks around and before the sign", rate(" 2,5 % "), "2.5"},
        {"zero percent", rate("0%"), "Zero"},
        {"negative", rate("-1"), "Negative"},
        {"percent sign alone", rate(" % "), "Malformed"},
        {"two percent signs", rate("2%%"), "Malformed"},
        {"a day", date("1/2/2026"), "01/02/2026"},
        {"31 February", date("31/02/2026"), "NoSuchDate"},
        {"month 0", date("01/00/2026"), "NoSuchDate"},
        {"year 0000", date("01/01/0000"), "NoSuchDate"},
        {"two-digit year", date("01/01/26"), "Malformed"},
        {"a blank date", date(" "), "Empty"},
        {"the lowest of a negative range", whole("-5", -5, 5), "-5"},
        {"the largest there is", whole("9223372036854775807", 0, LLONG_MAX), "9223372036854775807"},
        {"above the range", whole("3", 0, 2), "OutOfRange"},
        {"below a negative range", whole("-6", -5, 5), "OutOfRange"},
        {"negative where the range has none", whole("-1", 0, 2), "Negative"},
        {"too large to hold", whole("99999999999999999999", 0, LLONG_MAX), "OutOfRange"},
        {"too small to hold, none allowed", whole("-99999999999999999999", 0, LLONG_MAX), "Negative"},
        {"too small to hold", whole("-99999999999999999999", LLONG_MIN, LLONG_MAX), "OutOfRange"},
        {"minus alone", whole("-", -5, 5), "Malformed"},
        {"empty", whole("", 0, 2), "Empty"},
    });
}

}  // namespace
}  // namespace zv::cli
