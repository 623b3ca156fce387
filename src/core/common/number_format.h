#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::common {

// The numeric patterns the system formats with. Anything else passed to formatNumber follows
// the same rules, but only these are promised.
namespace pattern {
inline constexpr std::string_view kMoney = "#,##0.00";
inline constexpr std::string_view kCurrency = "#,##0.00####";  // number formats 0 and 1
inline constexpr std::string_view kNumeral = "#,##0.######";   // number format 2
inline constexpr std::string_view kInteger = "#,##0";
inline constexpr std::string_view kWordsFixed = "000000000000.00";
inline constexpr std::string_view kCents = "#000";
inline constexpr std::string_view kCounter = "000";
inline constexpr std::string_view kFiveDigits = "00000";
inline constexpr std::string_view kTwoDecimals = "0.00";
inline constexpr std::string_view kTime = "#00:00:00";
inline constexpr std::string_view kLongDecimals = "#,##0.##########";
}  // namespace pattern

// Formats `value` with a pattern in the classic numeric-format notation:
//   '0'  a digit that is always shown (leading or trailing zeros pad to it);
//   '#'  a digit shown only when significant;
//   ','  anywhere in the integer part: group the integer digits by three;
//   '.'  the decimal point; the '0's after it are the minimum decimals, '#'s the optional ones;
//   any other character (':' in "#00:00:00") is a literal placed between the digit positions,
//   so 12345 with "#00:00:00" gives "01:23:45" and extra high digits go before the first one.
// Rounding: the value is first taken to its shortest decimal form of at most 15 significant
// digits, then rounded half away from zero to the pattern's decimals, so 1.005 with "0.00"
// gives "1,01". A value that rounds to zero carries no sign. The decimal and grouping
// characters of the result are those of `seps`. Non-finite values give "E".
std::string formatNumber(double value, std::string_view pattern, const NumberSeparators& seps);

// Reads text typed or shown with the user's separators: optional blanks around it, an optional
// leading '+' or '-', digits that may carry group separators in the integer part, and at most
// one decimal separator followed by digits. At least one digit is required.
// "1.234,5" reads 1234.5 with Brazilian separators. Anything else gives nullopt.
std::optional<double> parseNumber(std::string_view text, const NumberSeparators& seps);

}  // namespace zv::common
