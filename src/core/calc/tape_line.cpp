#include "core/calc/tape_line.h"

#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::calc {
namespace {

constexpr std::string_view kTimes = "\u00D7";   // ×
constexpr std::string_view kDivide = "\u00F7";  // ÷

}  // namespace

std::optional<Operator> operatorOfKey(int key) {
    switch (key) {
        case '+':
            return Operator::Plus;
        case '-':
            return Operator::Minus;
        case '*':
            return Operator::Times;
        case '/':
            return Operator::Divide;
        case '%':
            return Operator::Percent;
        case '=':
            return Operator::Equals;
        default:
            return std::nullopt;
    }
}

char keyOf(Operator op) {
    constexpr char kKeys[] = {'+', '-', '*', '/', '%', '='};
    return kKeys[static_cast<int>(op)];
}

std::optional<Operator> operatorOfSymbol(std::string_view symbol) {
    if (symbol == kTimes) {
        return Operator::Times;
    }
    if (symbol == kDivide) {
        return Operator::Divide;
    }
    return symbol.size() == 1 && symbol[0] != '*' && symbol[0] != '/' ? operatorOfKey(symbol[0])
                                                                      : std::nullopt;
}

std::string_view symbolOf(Operator op) {
    constexpr std::string_view kSymbols[] = {"+", "-", kTimes, kDivide, "%", "="};
    return kSymbols[static_cast<int>(op)];
}

TapeLine parseTapeLine(std::string_view line) {
    TapeLine parsed;
    if (line == kSeparatorLine) {
        parsed.kind = TapeLine::Kind::Separator;
        return parsed;
    }
    if (!line.starts_with(' ') && line.ends_with(kHeadingTail)) {
        parsed.kind = TapeLine::Kind::Heading;
        return parsed;
    }
    if (common::utf8Length(line) != kAmountColumns + 2) {
        return parsed;
    }
    const std::string_view field = common::utf8Left(line, kAmountColumns);
    const std::string_view tail = line.substr(field.size());
    if (!tail.starts_with(' ')) {
        return parsed;
    }
    parsed.field = common::trimSpaces(field);
    if (const std::optional<Operator> op = operatorOfSymbol(tail.substr(1))) {
        parsed.kind = TapeLine::Kind::Amount;
        parsed.op = *op;
    } else if ((tail == " T" || tail == " E") && !parsed.field.empty()) {
        parsed.kind = TapeLine::Kind::Total;
        parsed.overflow = tail == " E";
    } else {
        parsed.field = {};
    }
    return parsed;
}

std::string amountLine(std::string_view amountText, Operator op) {
    std::string line = common::padLeft(amountText, kAmountColumns);
    line.append(" ").append(symbolOf(op)).append(kLineEnd);
    return line;
}

std::string totalLine(std::string_view totalText, bool overflow) {
    std::string line = common::padLeft(totalText, kAmountColumns);
    line.append(overflow ? " E" : " T").append(kLineEnd);
    return line;
}

}  // namespace zv::calc
