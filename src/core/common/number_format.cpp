#include "core/common/number_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "core/common/text.h"

namespace zv::common {

namespace {

constexpr bool isPlaceholder(char c) {
    return c == '0' || c == '#';
}

// What a pattern asks for, read in one pass.
struct PatternInfo {
    std::string_view integer;   // everything before the decimal point
    std::string_view fraction;  // everything after it (empty when there is no point)
    int placeholders = 0;       // digit positions in the integer section
    int minInteger = 0;         // positions from the first '0' of the integer section onwards
    bool grouped = false;
    int minDecimals = 0;
    int maxDecimals = 0;
};

PatternInfo readPattern(std::string_view pattern) {
    PatternInfo info;
    const std::size_t point = pattern.find('.');
    info.integer = pattern.substr(0, point);
    if (point != std::string_view::npos) {
        info.fraction = pattern.substr(point + 1);
    }
    bool zeroSeen = false;
    for (char c : info.integer) {
        if (c == ',') {
            info.grouped = true;
        } else if (isPlaceholder(c)) {
            ++info.placeholders;
            zeroSeen = zeroSeen || c == '0';
            if (zeroSeen) {
                ++info.minInteger;
            }
        }
    }
    for (char c : info.fraction) {
        if (c == '0') {
            ++info.minDecimals;
            ++info.maxDecimals;
        } else if (c == '#') {
            ++info.maxDecimals;
        }
    }
    return info;
}

// A non-negative amount as decimal digits: value = 0.d1d2d3... x 10^pointPos. No trailing
// zeros are kept; count 0 means zero.
struct Decimal {
    char digits[24];
    int count = 0;
    int pointPos = 0;
};

// Reads to_chars' scientific text "d.ddde+XX" (the point and the fraction may be absent).
Decimal readScientific(const char* p, const char* end) {
    Decimal d;
    d.digits[d.count++] = *p++;
    if (p < end && *p == '.') {
        ++p;
    }
    while (p < end && isDigit(*p) && d.count < static_cast<int>(sizeof d.digits)) {
        d.digits[d.count++] = *p++;
    }
    int exponent = 0;
    if (p < end && *p == 'e') {
        ++p;
        const bool negative = *p == '-';
        if (*p == '-' || *p == '+') {
            ++p;
        }
        std::from_chars(p, end, exponent);
        if (negative) {
            exponent = -exponent;
        }
    }
    d.pointPos = exponent + 1;
    while (d.count > 0 && d.digits[d.count - 1] == '0') {
        --d.count;
    }
    return d;
}

// The value's decimal form at 15 significant digits, the precision the system's amounts carry.
// This is what makes 1.005 (stored as 1.00499999999999989...) read as 1.005 before rounding.
Decimal toDecimal(double magnitude) {
    char buf[40];
    // The shortest round-trip form is cheaper; when it has 15 digits or fewer it is also the
    // 15-digit rounding, since half an ulp is smaller than half a step in the 15th digit.
    auto res = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific);
    Decimal d = readScientific(buf, res.ptr);
    if (d.count <= 15) {
        return d;
    }
    res = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, 14);
    return readScientific(buf, res.ptr);
}

// Rounds half away from zero (on the magnitude: the next digit 5 or more rounds up) to
// `decimals` places, then drops trailing zeros.
void roundTo(Decimal& d, int decimals) {
    const int keep = d.pointPos + decimals;
    if (keep < d.count) {
        if (keep < 0) {
            d.count = 0;
        } else {
            const bool up = d.digits[keep] >= '5';
            d.count = keep;
            if (up) {
                int i = keep - 1;
                while (i >= 0 && d.digits[i] == '9') {
                    --i;
                }
                if (i < 0) {
                    d.digits[0] = '1';
                    d.count = 1;
                    ++d.pointPos;
                } else {
                    ++d.digits[i];
                    d.count = i + 1;
                }
            }
        }
    }
    while (d.count > 0 && d.digits[d.count - 1] == '0') {
        --d.count;
    }
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern, const NumberSeparators& seps) {
    if (!std::isfinite(value)) {
        return "E";
    }
    const PatternInfo info = readPattern(pattern);
    Decimal d = toDecimal(std::fabs(value));
    roundTo(d, info.maxDecimals);

    const bool negative = std::signbit(value) && d.count > 0;
    const int intDigits = d.count > 0 ? std::max(d.pointPos, 0) : 0;
    const int length = std::max(intDigits, info.minInteger);  // integer digits shown
    const int leadingZeros = length - intDigits;
    const int fracDigits = d.count > 0 ? std::max(d.count - d.pointPos, 0) : 0;
    const int shownDecimals = std::max(fracDigits, info.minDecimals);

    auto integerDigit = [&](int index) {  // index 0 is the leftmost of `length` digits
        const int j = index - leadingZeros;
        return j >= 0 && j < d.count ? d.digits[j] : '0';
    };

    std::string out;  // most results fit the small-string buffer: no reserve
    if (negative) {
        out += '-';
    }

    int next = 0;  // next integer digit to write
    auto emitDigit = [&] {
        if (info.grouped && next > 0 && (length - next) % 3 == 0) {
            out += seps.group;
        }
        out += integerDigit(next);
        ++next;
    };

    // Digits are matched to the placeholders from the right; digits beyond the placeholders go
    // before the first one, and placeholders with no digit left ('#' positions) show nothing.
    const int extra = length - info.placeholders;
    int placeholder = 0;
    for (char c : info.integer) {
        if (c == ',') {
            continue;
        }
        if (isPlaceholder(c)) {
            if (placeholder == 0) {
                while (next < extra) {
                    emitDigit();
                }
            }
            if (extra + placeholder >= 0) {
                emitDigit();
            }
            ++placeholder;
        } else if (placeholder == 0 || next > 0) {
            // A literal is kept before the first position or once digits have started;
            // one between unused '#' positions would otherwise dangle in front.
            out += c;
        }
    }
    while (next < length) {  // a pattern without integer positions still shows the digits
        emitDigit();
    }

    if (shownDecimals > 0) {
        out += seps.decimal;
        int position = 0;
        for (char c : info.fraction) {
            if (isPlaceholder(c)) {
                if (position < shownDecimals) {
                    const int j = d.pointPos + position;
                    out += j >= 0 && j < d.count ? d.digits[j] : '0';
                }
                ++position;
            } else {
                out += c;
            }
        }
    } else {
        for (char c : info.fraction) {
            if (!isPlaceholder(c)) {
                out += c;
            }
        }
    }
    return out;
}

std::optional<double> parseNumber(std::string_view text, const NumberSeparators& seps) {
    text = trimBlanks(text);

    std::string ascii;  // the number rewritten for from_chars: digits and at most one '.'
    ascii.reserve(text.size() + 2);
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    ascii += '0';  // so that ",5" reads as 0.5

    bool digitSeen = false;
    bool decimalSeen = false;
    bool afterGroup = false;  // a group separator must sit between two integer digits
    bool lastWasDigit = false;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::string_view rest = text.substr(pos);
        const char c = rest.front();
        if (isDigit(c)) {
            ascii += c;
            digitSeen = true;
            lastWasDigit = true;
            afterGroup = false;
            ++pos;
        } else if (!seps.decimal.empty() && rest.starts_with(seps.decimal)) {
            if (decimalSeen || afterGroup) {
                return std::nullopt;
            }
            decimalSeen = true;
            lastWasDigit = false;
            ascii += '.';
            pos += seps.decimal.size();
        } else if (!seps.group.empty() && rest.starts_with(seps.group)) {
            if (decimalSeen || !lastWasDigit) {
                return std::nullopt;
            }
            afterGroup = true;
            lastWasDigit = false;
            pos += seps.group.size();
        } else {
            return std::nullopt;
        }
    }
    if (!digitSeen || afterGroup) {
        return std::nullopt;
    }

    double result = 0;
    const auto [end, ec] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), result);
    if (ec != std::errc{} || end != ascii.data() + ascii.size()) {
        return std::nullopt;
    }
    return negative ? -result : result;
}

}  // namespace zv::common
