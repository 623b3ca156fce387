#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zv::common {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// True for a non-empty run of the digits 0-9 and nothing else.
bool allDigits(std::string_view text);

// The text without the spaces and tabs around it.
std::string_view trimBlanks(std::string_view text);
// The text without the spaces around it (tape columns are padded with spaces only).
std::string_view trimSpaces(std::string_view text);

// The text right-aligned in `columns` characters (UTF-8 code points, as a tape column counts
// them), padded with `fill` on the left; text already as wide or wider is returned whole.
std::string padLeft(std::string_view text, std::size_t columns, char fill = ' ');
// The text left-aligned in `columns` characters, padded with `fill` on the right.
std::string padRight(std::string_view text, std::size_t columns, char fill = ' ');

// ASCII letters compared without regard to case.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace zv::common
