#include <ostream>
#include <vector>

#include "cli/command.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"
#include "core/tools/rule_of_three.h"

namespace zv::cli {
namespace {

// "BASE:NEW:d" or "BASE:NEW:i"; either value may be empty (the checks then say what is missing).
bool readRow(std::string_view text, tools::RuleRow& row, tools::Proportion& answer) {
    const std::size_t first = text.find(':');
    const std::size_t second = first == std::string_view::npos ? first : text.find(':', first + 1);
    if (second == std::string_view::npos) {
        return false;
    }
    const std::string_view kind = text.substr(second + 1);
    if (kind != "d" && kind != "i") {
        return false;
    }
    row.base = text.substr(0, first);
    row.newValue = text.substr(first + 1, second - first - 1);
    answer = kind == "d" ? tools::Proportion::Direct : tools::Proportion::Inverse;
    return true;
}

}  // namespace

// The operands fill the grid's rows in their order: the unknown's row is row 0, each ROW the
// next row, and its d or i answers the question about it.
Outcome runRule3(const Invocation& call) {
    if (call.operands.empty() || call.operands.size() > tools::kRuleRows) {
        return usageError("rule3 takes BASE_OF_UNKNOWN and up to five ROWs");
    }
    std::vector<tools::RuleRow> rows(call.operands.size());
    rows[0].base = call.operands[0];
    std::vector<tools::Proportion> answerOfRow(call.operands.size());
    for (std::size_t i = 1; i < call.operands.size(); ++i) {
        if (!readRow(call.operands[i], rows[i], answerOfRow[i])) {
            return usageError("a ROW is BASE:NEW:d or BASE:NEW:i, not: " + call.operands[i]);
        }
    }
    const auto checked = tools::checkRule(rows, 0, call.regional.separators);
    if (const auto* error = std::get_if<tools::RuleError>(&checked)) {
        return rejected(common::GetText(call.regional.language, tools::messageCode(*error)));
    }
    // A ROW left wholly empty ("::d") is a row not in use, and nobody is asked about it.
    const tools::RuleSetup& setup = std::get<tools::RuleSetup>(checked);
    std::vector<tools::Proportion> answers;
    for (const tools::KnownRow& known : setup.known) {
        answers.push_back(answerOfRow[known.row]);
    }
    const std::optional<double> result = tools::solveRule(setup, answers);
    if (!result) {
        return rejected(
            common::GetText(call.regional.language, tools::messageCode(tools::RuleError::InvalidData)));
    }
    call.out << "result: "
             << common::formatNumber(*result, common::pattern::kLongDecimals, call.regional.separators)
             << '\n';
    return done();
}

}  // namespace zv::cli
