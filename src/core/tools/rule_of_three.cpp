#include "core/tools/rule_of_three.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/text.h"

namespace zv::tools {
namespace {

bool isBlank(std::string_view text) {
    return common::trimBlanks(text).empty();
}

bool inUse(const RuleRow& row) {
    return !isBlank(row.base) || !isBlank(row.newValue);
}

}  // namespace

int messageCode(RuleError error) {
    switch (error) {
        case RuleError::NegativeBase:
            return 197;
        case RuleError::NewValueMissing:
            return 199;
        case RuleError::TooFewRows:
            return 200;
        case RuleError::NoUnknown:
            return 201;
        case RuleError::InvalidData:
            break;
    }
    return 30;
}

std::variant<RuleSetup, RuleError> checkRule(std::span<const RuleRow> rows,
                                             std::optional<std::size_t> unknown,
                                             const common::NumberSeparators& seps) {
    rows = rows.first(std::min(rows.size(), kRuleRows));
    // Strictly below zero: an empty or zero base passes here.
    for (std::size_t i = 0; i < std::min<std::size_t>(rows.size(), 2); ++i) {
        const std::optional<double> base = common::parseNumber(rows[i].base, seps);
        if (base && *base < 0) {
            return RuleError::NegativeBase;
        }
    }
    std::size_t used = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!inUse(rows[i])) {
            continue;
        }
        ++used;
        if (i != unknown && isBlank(rows[i].newValue)) {
            return RuleError::NewValueMissing;
        }
    }
    if (used < 2) {
        return RuleError::TooFewRows;
    }
    if (!unknown || *unknown >= rows.size()) {
        return RuleError::NoUnknown;
    }
    const std::optional<double> unknownBase = common::parseNumber(rows[*unknown].base, seps);
    if (!unknownBase) {
        return RuleError::InvalidData;
    }
    RuleSetup setup{*unknown, *unknownBase, {}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i == *unknown || !inUse(rows[i])) {
            continue;
        }
        const std::optional<double> base = common::parseNumber(rows[i].base, seps);
        const std::optional<double> newValue = common::parseNumber(rows[i].newValue, seps);
        if (!base || !newValue) {
            return RuleError::InvalidData;
        }
        setup.known.push_back({i, *base, *newValue});
    }
    return setup;
}

std::optional<double> solveRule(const RuleSetup& setup, std::span<const Proportion> answers) {
    if (answers.size() != setup.known.size()) {
        return std::nullopt;
    }
    double numerator = setup.unknownBase;
    double denominator = 1;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const KnownRow& row = setup.known[i];
        const bool direct = answers[i] == Proportion::Direct;
        numerator *= direct ? row.newValue : row.base;
        denominator *= direct ? row.base : row.newValue;
    }
    // A zero denominator gives an infinity or, over a zero numerator, NaN.
    const double result = numerator / denominator;
    return std::isfinite(result) ? std::optional(result) : std::nullopt;
}

}  // namespace zv::tools
