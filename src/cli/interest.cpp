#include <ostream>

#include "cli/interest_options.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"
#include "core/tools/interest.h"
#include "core/tools/interest_tape.h"

namespace zv::cli {

// The options become the fields of the instalment form, so the command refuses what the window
// refuses, with the same messages.
Outcome runInterest(const Invocation& call) {
    if (!call.operands.empty()) {
        return usageError("interest takes no operands");
    }
    if (!call.has("--initial") || !call.has("--count")) {
        return usageError("interest needs --initial and --count");
    }
    if (call.has("--days") == call.has("--down-payment")) {
        return usageError("interest takes either --days or --down-payment");
    }
    if (call.has("--rate") == call.has("--instalment")) {
        return usageError("interest takes either --rate or --instalment");
    }
    if (call.has("--schedule") && call.has("--tape")) {
        return usageError("interest takes --schedule or --tape, not both");
    }
    tools::LoanForm form;
    form.initial = optionValue(call, "--initial");
    form.count = optionValue(call, "--count");
    form.days = optionValue(call, "--days");
    form.downPayment = call.has("--down-payment");
    form.instalment = optionValue(call, "--instalment");
    form.rate = withoutPercent(optionValue(call, "--rate"));
    const common::Language language = call.regional.language;
    const common::NumberSeparators& seps = call.regional.separators;

    const auto checked = tools::validateLoan(form, seps);
    if (const auto* error = std::get_if<tools::LoanError>(&checked)) {
        return rejected(common::GetText(language, tools::textCode(*error)));
    }
    const tools::LoanRequest& request = std::get<tools::LoanRequest>(checked);
    const auto solved = tools::solveLoan(request);
    if (const auto* error = std::get_if<tools::LoanError>(&solved)) {
        return rejected(common::GetText(language, tools::textCode(*error)));
    }
    const tools::LoanResult& result = std::get<tools::LoanResult>(solved);
    if (call.has("--tape")) {
        call.out << toLf(tools::loanBlock(request.terms, result, language, seps));
        return done();
    }
    call.out << "rate: " << common::formatNumber(result.rate, "#,##0.000000", seps) << '\n'
             << "instalment: " << common::FormatMoney(result.instalment, seps) << '\n'
             << "total_interest: " << common::FormatMoney(result.totalInterest, seps) << '\n'
             << "final: " << common::FormatMoney(result.finalAmount, seps) << '\n';
    if (call.has("--schedule")) {
        for (const tools::ScheduleRow& row :
             tools::paymentSchedule(request.terms, result.instalment, result.rate)) {
            call.out << tools::instalmentNumber(row.number, request.terms.count) << '\t' << row.dueDays
                     << '\t' << common::FormatMoney(row.instalment, seps) << '\t'
                     << common::FormatMoney(row.interest, seps) << '\t'
                     << common::FormatMoney(row.principal, seps) << '\t'
                     << common::FormatMoney(row.balance, seps) << '\n';
        }
    }
    return done();
}

}  // namespace zv::cli
