#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv::calc {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kSeparatorLine = " =========================";  // a space and 25 '='
inline constexpr std::string_view kHeadingTail = " ==============";               // after the date
inline constexpr std::size_t kAmountColumns = 24;

// The operators of the adding machine, as their lines show them.
enum class Operator : std::uint8_t { Plus, Minus, Times, Divide, Percent, Equals };

// '+', '-', '*', '/', '%', '=' (the keys) to the operator; anything else gives nullopt.
std::optional<Operator> operatorOfKey(int key);
// The key that types the operator: '*' for ×, '/' for ÷.
char keyOf(Operator op);
// The symbol on the tape: "+", "-", "×", "÷", "%", "=".
std::string_view symbolOf(Operator op);
// The operator a symbol on the tape stands for; nullopt for anything else (the keys '*' and '/'
// included).
std::optional<Operator> operatorOfSymbol(std::string_view symbol);

// What one tape line (without its CR LF) is to the calculator. The shapes are purely textual:
// whether an amount field reads as a number depends on the user's separators and is the
// calculator's business.
struct TapeLine {
    enum class Kind {
        Amount,     // the field in 24 columns, a space, an operator's symbol
        Total,      // a non-blank field in 24 columns and " T", or " E" after an overflow
        Separator,  // " =========================" closes a total
        Heading,    // the date and " ==============" that start a cleared tape
        Other,      // anything else: another tool's text, a line typed while editing
    };
    Kind kind = Kind::Other;
    std::string_view field;  // Amount and Total: the 24-column field without its blanks
    Operator op = Operator::Equals;
    bool overflow = false;  // Total: marked " E"
};

TapeLine parseTapeLine(std::string_view line);

// An amount line: the amount's text right-aligned in 24 columns, a space, the symbol, CR LF.
std::string amountLine(std::string_view amountText, Operator op);
// A total line: the text right-aligned in 24 columns, " T" (or " E"), CR LF.
std::string totalLine(std::string_view totalText, bool overflow);

}  // namespace zv::calc
