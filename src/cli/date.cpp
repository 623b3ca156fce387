#include <ostream>

#include "cli/command.h"
#include "core/common/text_table.h"
#include "core/tools/date_calculator.h"

namespace zv::cli {
namespace {

constexpr std::string_view kSpanOptions[] = {"--years", "--months", "--weeks", "--days"};

std::string_view optionText(const Invocation& call, std::string_view name) {
    const auto found = call.options.find(name);
    return found == call.options.end() ? std::string_view{} : std::string_view(found->second);
}

Outcome print(const Invocation& call, const std::variant<tools::DateResult, tools::DateRefusal>& outcome,
              bool spanWanted) {
    if (const auto* refusal = std::get_if<tools::DateRefusal>(&outcome)) {
        return rejected(common::GetText(call.regional.language, tools::messageCode(refusal->problem)));
    }
    const tools::DateResult& result = std::get<tools::DateResult>(outcome);
    if (call.has("--tape")) {
        call.out << toLf(tools::tapeBlock(result, call.regional.language));
        return done();
    }
    if (spanWanted) {
        call.out << "years: " << result.span.years << "\nmonths: " << result.span.months
                 << "\nweeks: " << result.span.weeks << "\ndays: " << result.span.days << '\n';
    } else {
        call.out << "final: " << common::formatDate(result.final)
                 << "\nweekday: " << common::weekdayName(result.final, call.regional.language) << '\n';
    }
    call.out << "leap_days: " << result.leapDays << "\ntotal_days: " << result.totalDays << '\n';
    return done();
}

}  // namespace

// Dates and counts are checked by the calculator itself, so a wrong one gets the message the
// window shows (texts 32-34) rather than a usage error.
Outcome runDate(const Invocation& call) {
    const std::string_view action = call.operands.empty() ? std::string_view{} : call.operands[0];
    if (action == "add") {
        if (call.operands.size() != 2) {
            return usageError("date add takes one DATE");
        }
        const tools::SpanFields fields{optionText(call, "--years"), optionText(call, "--months"),
                                       optionText(call, "--weeks"), optionText(call, "--days")};
        return print(call, tools::calculateFinalDate(call.operands[1], fields), false);
    }
    if (action == "span") {
        if (call.operands.size() != 3) {
            return usageError("date span takes DATE1 and DATE2");
        }
        for (const std::string_view option : kSpanOptions) {
            if (call.has(option)) {
                return usageError(std::string(option) + " goes with date add, not date span");
            }
        }
        return print(call, tools::calculateSpan(call.operands[1], call.operands[2]), true);
    }
    return usageError("date takes add DATE or span DATE1 DATE2");
}

}  // namespace zv::cli
