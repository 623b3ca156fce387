#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::documents {

// The star fills that follow the two words lines: 69 characters (35 stars) and 74 (37 stars).
inline constexpr std::string_view kFill1 =
    "* * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * *";
inline constexpr std::string_view kFill2 =
    " * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * * *";
// Characters of words the first line takes before the rest goes to the second.
inline constexpr std::size_t kLine1Characters = 69;

struct WordsLines {
    std::string line1;
    std::string line2;
};

// Spreads the words over two lines, never cutting a word: line 1 takes up to 69 characters
// (code points) and, when the words run past them, gives back to line 2 the end of a word cut
// there (its space stays at the end of line 1). Each line then gets its whole fill; only what
// fits in the field is printed.
WordsLines splitWords(std::string_view words);

// Amounts the documents take: 0,01 to 999.999.999.999,99.
inline constexpr double kLowestAmount = 0.01;
inline constexpr double kHighestAmount = 999999999999.99;
bool amountInRange(double amount);

// Text 900 with its two limits ("0,01" and "999999999999,99" in the user's separators); in
// Portuguese whatever the language, as the table holds it in Portuguese only.
std::string amountRangeMessage(common::Language language, const common::NumberSeparators& seps);

// The amount field: "***" + "#,##0.00" + " ".
std::string amountText(double amount, const common::NumberSeparators& seps);
// The amount in words with currency, between "(" and ")"; nullopt outside the range.
std::optional<std::string> amountWords(double amount);

}  // namespace zv::documents
