#include "core/common/text.h"

#include <algorithm>

#include "core/common/text_encoding.h"

namespace zv::common {

bool allDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

std::string_view trimBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string_view trimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string padLeft(std::string_view text, std::size_t columns, char fill) {
    const std::size_t length = utf8Length(text);
    std::string out;
    out.reserve(text.size() + (length < columns ? columns - length : 0));
    if (length < columns) {
        out.assign(columns - length, fill);
    }
    out.append(text);
    return out;
}

std::string padRight(std::string_view text, std::size_t columns, char fill) {
    const std::size_t length = utf8Length(text);
    std::string out(text);
    if (length < columns) {
        out.append(columns - length, fill);
    }
    return out;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace zv::common
