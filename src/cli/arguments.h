#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "core/common/date.h"
#include "core/common/regional.h"

namespace zv::cli {

// Why an operand or an option value was not taken.
enum class ArgumentError {
    Empty,             // nothing, or only blanks
    Malformed,         // not in the form asked for: a letter, a stray sign, trailing junk, a short year
    Negative,          // below zero where that is not allowed
    Zero,              // zero where only a positive value will do
    OutOfRange,        // a whole number outside its range
    NoSuchDate,        // day or month 0, 31/02, 29/02 of a common year, month 13, the year 0000
    NotOneCharacter,   // a separator of several characters, or bytes that are not UTF-8
    Digit,             // a separator that is a digit
    Sign,              // a separator that is '+' or '-'
    ControlCharacter,  // a separator that is a control character (a line break, a tab...)
};

// A value read from the command line, or why it could not be.
template <typename T>
class Parsed {
public:
    Parsed(T value) : m_value(std::move(value)) {}   // NOLINT: a value converts implicitly
    Parsed(ArgumentError error) : m_value(error) {}  // NOLINT: so does an error

    bool ok() const { return std::holds_alternative<T>(m_value); }
    const T& value() const { return std::get<T>(m_value); }
    ArgumentError error() const { return std::get<ArgumentError>(m_value); }

private:
    std::variant<T, ArgumentError> m_value;
};

// Which signs an amount may have.
enum class Sign { Any, NotNegative, Positive };

// An amount written with the user's separators ("1.234,56" in Brazil); blanks around it and a
// leading '+' or '-' are taken.
Parsed<double> readAmount(std::string_view text, const common::NumberSeparators& seps, Sign sign = Sign::Any);

// A percentage above zero, written as an amount, with or without a '%' after it ("2,5", "2,5%").
Parsed<double> readRate(std::string_view text, const common::NumberSeparators& seps);

// A date written day first, DD/MM/YYYY (one-digit days and months taken).
Parsed<common::Date> readDate(std::string_view text);

// A whole number from `min` to `max`: digits, a leading '-' only where `min` is negative; no
// blanks, no '+', no separators.
Parsed<long long> readWhole(std::string_view text, long long min, long long max);

// A decimal or group separator: exactly one character (one UTF-8 code point, so a no-break
// space is fine), not a control character, and neither a digit nor a sign, since numbers written
// with it could not be read back.
Parsed<std::string> readSeparator(std::string_view text);

}  // namespace zv::cli
