#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "core/common/regional.h"

namespace zv::tools {

// Rows of the grid the checks and the calculation look at; rows beyond them are ignored.
inline constexpr std::size_t kRuleRows = 6;

// One row of the grid as typed: `txtValor` (base situation) and `txtValor2` (new situation).
struct RuleRow {
    std::string base;
    std::string newValue;
};

// Why the calculation does not start, in the order the checks run.
enum class RuleError {
    NegativeBase,     // a base value below zero in row 0 or 1 (0 itself passes)
    NewValueMissing,  // a row in use, other than the unknown's, without a new value
    TooFewRows,       // fewer than two rows in use
    NoUnknown,        // no row marked as the unknown
    InvalidData,      // a field in use that holds no number, or an arithmetic fault
};

// The text-table code of the message for `error`: 197, 199, 200, 201 or 30.
int messageCode(RuleError error);

// A known row: its place in the grid and its two values.
struct KnownRow {
    std::size_t row;
    double base;
    double newValue;
};

// What passed the checks: the unknown's row and base value, and the known rows in row order,
// which is the order the user is asked about them.
struct RuleSetup {
    std::size_t unknown;
    double unknownBase;
    std::vector<KnownRow> known;
};

// Runs the checks over `rows` with `unknown` the marked row (nullopt: none). A row is in use
// when its base or its new value holds anything but blanks. Numbers are read with `seps`.
std::variant<RuleSetup, RuleError> checkRule(std::span<const RuleRow> rows,
                                             std::optional<std::size_t> unknown,
                                             const common::NumberSeparators& seps);

enum class Proportion { Direct, Inverse };

// The unknown's new value: its base times new/base for each direct row and base/new for each
// inverse one, the numerators and the denominators multiplied apart and divided once.
// `answers[i]` is the answer for `setup.known[i]`. nullopt on a division by zero or a result
// that is no finite number (message 30); also when the answers do not match the known rows.
std::optional<double> solveRule(const RuleSetup& setup, std::span<const Proportion> answers);

}  // namespace zv::tools
