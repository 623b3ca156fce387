#include <ostream>

#include "cli/document_options.h"
#include "cli/interest_options.h"
#include "core/common/clock.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"
#include "core/documents/amount_words.h"
#include "core/documents/note_number.h"
#include "core/documents/plan_documents.h"
#include "core/tools/interest.h"
#include "core/tools/interest_tape.h"
#include "platform/user_settings.h"

namespace zv::cli {
namespace {

// The plan's notes or cheques as the schedule window prints them, due from today in the saved
// bold; the last note written becomes the saved number, as printing them from the window does.
Outcome writePlanDocuments(const Invocation& call, const tools::LoanTerms& terms,
                           const tools::LoanResult& result) {
    const common::NumberSeparators& seps = call.regional.separators;
    const common::SystemClock clock;
    const common::Date loanDay = common::dateOf(clock.now()).value_or(common::Date{});
    const std::vector<tools::ScheduleRow> rows =
        tools::paymentSchedule(terms, result.instalment, result.rate);
    const std::unique_ptr<common::SettingsStore> store = platform::makeUserSettingsStore();
    const bool notes = call.has("--notes");
    const documents::DocumentKind kind =
        notes ? documents::DocumentKind::Note : documents::DocumentKind::Cheque;
    const std::optional<documents::PlanPages> plan =
        documents::fillPlanDocuments(*store, kind, rows, loanDay, seps);
    if (!plan) {
        return rejected(documents::amountRangeMessage(call.regional.language, seps));
    }
    const bool bold = documents::savedBold(*store, kind);
    std::vector<PdfPage> pages;
    for (const std::vector<documents::FilledField>& fields : plan->pages) {
        pages.push_back({fields, bold});
    }
    const Outcome written = writePdf(call, optionValue(call, notes ? "--notes" : "--cheques"), pages,
                                     notes ? common::txt::kPlanNotes : common::txt::kPlanCheques);
    if (notes && written.code == ExitCode::Done && !documents::saveNoteNumber(*store, plan->lastNumber)) {
        return rejected(common::GetText(call.regional.language, common::txt::kSettingsNotWritten));
    }
    return written;
}

}  // namespace

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
    const int outputs = static_cast<int>(call.has("--schedule")) + static_cast<int>(call.has("--tape")) +
                        static_cast<int>(call.has("--notes")) + static_cast<int>(call.has("--cheques"));
    if (outputs > 1) {
        return usageError("interest takes one of --schedule, --tape, --notes and --cheques");
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
    if (call.has("--notes") || call.has("--cheques")) {
        return writePlanDocuments(call, request.terms, result);
    }
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
