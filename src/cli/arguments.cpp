#include "cli/arguments.h"

#include <charconv>

#include "core/common/number_format.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::cli {
namespace {

// C0 controls, DEL, and the C1 controls U+0080 to U+009F (0xC2 0x80 to 0xC2 0x9F in UTF-8).
bool isControl(std::string_view oneCharacter) {
    const auto first = static_cast<unsigned char>(oneCharacter[0]);
    if (oneCharacter.size() == 1) {
        return first < 0x20 || first == 0x7F;
    }
    return oneCharacter.size() == 2 && first == 0xC2 && static_cast<unsigned char>(oneCharacter[1]) < 0xA0;
}

}  // namespace

Parsed<double> readAmount(std::string_view text, const common::NumberSeparators& seps, Sign sign) {
    if (common::trimBlanks(text).empty()) {
        return ArgumentError::Empty;
    }
    const std::optional<double> value = common::parseNumber(text, seps);
    if (!value) {
        return ArgumentError::Malformed;
    }
    if (sign != Sign::Any && *value < 0) {
        return ArgumentError::Negative;
    }
    if (sign == Sign::Positive && *value == 0) {
        return ArgumentError::Zero;
    }
    return *value;
}

Parsed<double> readRate(std::string_view text, const common::NumberSeparators& seps) {
    text = common::trimBlanks(text);
    if (text.ends_with('%')) {
        text.remove_suffix(1);
        if (common::trimBlanks(text).empty()) {
            return ArgumentError::Malformed;
        }
    }
    return readAmount(text, seps, Sign::Positive);
}

Parsed<common::Date> readDate(std::string_view text) {
    const auto parsed = common::parseDate(text);
    if (const auto* date = std::get_if<common::Date>(&parsed)) {
        return *date;
    }
    switch (std::get<common::DateError>(parsed)) {
        case common::DateError::Empty:
            return ArgumentError::Empty;
        case common::DateError::Shape:
            return ArgumentError::Malformed;
        default:
            return ArgumentError::NoSuchDate;
    }
}

Parsed<long long> readWhole(std::string_view text, long long min, long long max) {
    if (common::trimBlanks(text).empty()) {
        return ArgumentError::Empty;
    }
    if (!common::allDigits(text.starts_with('-') ? text.substr(1) : text)) {
        return ArgumentError::Malformed;
    }
    long long value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range) {
        return text.starts_with('-') && min >= 0 ? ArgumentError::Negative : ArgumentError::OutOfRange;
    }
    if (ec != std::errc{} || end != text.data() + text.size()) {
        return ArgumentError::Malformed;
    }
    if (value < 0 && min >= 0) {
        return ArgumentError::Negative;
    }
    if (value < min || value > max) {
        return ArgumentError::OutOfRange;
    }
    return value;
}

Parsed<std::string> readSeparator(std::string_view text) {
    if (text.empty()) {
        return ArgumentError::Empty;
    }
    if (!common::isValidUtf8(text) || common::utf8Length(text) != 1) {
        return ArgumentError::NotOneCharacter;
    }
    if (common::isDigit(text[0])) {
        return ArgumentError::Digit;
    }
    if (text[0] == '+' || text[0] == '-') {
        return ArgumentError::Sign;
    }
    if (isControl(text)) {
        return ArgumentError::ControlCharacter;
    }
    return std::string(text);
}

}  // namespace zv::cli
