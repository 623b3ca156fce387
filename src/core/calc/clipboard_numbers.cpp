#include "core/calc/clipboard_numbers.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "core/common/number_format.h"
#include "core/common/text.h"

namespace zv::calc {

namespace {

using common::isDigit;
using Kind = ClipboardNumbers::Kind;

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";  // spreadsheets group with it in some locales

// The cell without any blanks: copied numbers arrive padded, and grouped with spaces.
std::string withoutBlanks(std::string_view cell) {
    std::string out;
    out.reserve(cell.size());
    while (!cell.empty()) {
        if (cell.front() == ' ') {
            cell.remove_prefix(1);
        } else if (cell.starts_with(kNoBreakSpace)) {
            cell.remove_prefix(kNoBreakSpace.size());
        } else {
            out += cell.front();
            cell.remove_prefix(1);
        }
    }
    return out;
}

bool isBlank(std::string_view row) {
    return withoutBlanks(row).find_first_not_of('\t') == std::string::npos;
}

// "#00:00:00", optionally with a leading "-": the digits of a duration typed as hhmmss.
std::optional<double> readDuration(std::string_view cell) {
    const bool negative = cell.starts_with('-');
    if (negative) {
        cell.remove_prefix(1);
    }
    const std::size_t hoursEnd = cell.size() >= 6 ? cell.size() - 6 : 0;
    if (hoursEnd == 0 || cell[hoursEnd] != ':' || cell[hoursEnd + 3] != ':') {
        return std::nullopt;
    }
    std::string digits;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (i == hoursEnd || i == hoursEnd + 3) {
            continue;
        }
        if (!isDigit(cell[i])) {
            return std::nullopt;
        }
        digits += cell[i];
    }
    double value = 0;
    const auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (ec != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

std::optional<double> readCell(std::string_view rawCell, const common::NumberSeparators& seps,
                               bool timeMode) {
    std::string cell = withoutBlanks(rawCell);
    if (timeMode) {
        if (const auto duration = readDuration(cell)) {
            return duration;
        }
    }
    bool digitSeen = false;
    for (const char c : cell) {
        if (isDigit(c)) {
            digitSeen = true;
        } else if (c != '(' && c != ')' && c != '-' && c != '.' && c != ',') {
            return std::nullopt;
        }
    }
    if (!digitSeen) {
        return std::nullopt;
    }
    const bool parenthesised = cell.size() >= 2 && cell.front() == '(' && cell.back() == ')';
    std::string_view number = cell;
    if (parenthesised) {
        number = number.substr(1, number.size() - 2);
    }
    const auto value = common::parseNumber(number, seps);
    if (!value) {
        return std::nullopt;
    }
    // Accounting parentheses mean a negative amount even when a "-" is written inside them too.
    return parenthesised ? -std::fabs(*value) : *value;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos) {
            parts.push_back(text.substr(start));
            return parts;
        }
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

}  // namespace

ClipboardNumbers readClipboardNumbers(std::string_view text, const common::NumberSeparators& seps,
                                      bool timeMode) {
    // Blank rows carry nothing: spreadsheets end a copy with one, and an empty row of a selection
    // is no amount.
    std::vector<std::vector<std::string_view>> rows;
    for (std::string_view line : split(text, '\n')) {
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (!isBlank(line)) {
            rows.push_back(split(line, '\t'));
        }
    }
    if (rows.empty()) {
        return {};
    }

    const std::size_t columns = rows.front().size();
    bool allNumbers = true;
    bool anyNumber = false;
    std::vector<std::vector<double>> numbers;
    for (const auto& row : rows) {
        std::vector<double> cells;
        for (const std::string_view cell : row) {
            if (const auto value = readCell(cell, seps, timeMode)) {
                anyNumber = true;
                cells.push_back(*value);
            } else {
                allNumbers = false;
            }
        }
        allNumbers = allNumbers && row.size() == columns;
        numbers.push_back(std::move(cells));
    }

    // Text with no number in it is what people copy all day, and a single line that is not all
    // numbers is text too: neither is a failed attempt at a table.
    if (!anyNumber || (rows.size() == 1 && !allNumbers)) {
        return {};
    }
    if (!allNumbers || columns > 2) {
        return {Kind::InvalidSelection, {}};
    }

    ClipboardNumbers result{columns == 1 ? Kind::Amounts : Kind::Products, {}};
    for (const auto& cells : numbers) {
        result.values.push_back(columns == 1 ? cells[0] : cells[0] * cells[1]);
    }
    return result;
}

std::string productsText(const std::vector<double>& products, const common::NumberSeparators& seps) {
    std::string text;
    for (std::size_t i = 0; i < products.size(); ++i) {
        if (i > 0) {
            text += "\r\n";
        }
        text += common::formatNumber(products[i], common::pattern::kCurrency, seps);
    }
    return text;
}

}  // namespace zv::calc
