#include "cli/document_options.h"
#include "cli/interest_options.h"
#include "core/common/clock.h"
#include "core/common/text_table.h"
#include "platform/user_settings.h"

namespace zv::cli {

// The cheque as the window would print it today: the layout of the chosen model, and the last
// payee and city the window printed where no other is given. Its PDF keeps nothing for the next
// time: the payee and city given here are for this cheque only.
Outcome runCheque(const Invocation& call) {
    double amount = 0;
    int model = 0;
    if (auto wrong = readOutputChoice(call, "cheque")) {
        return *wrong;
    }
    if (auto wrong = readModel(call, model)) {
        return *wrong;
    }
    const common::SystemClock clock;
    common::Date date = common::dateOf(clock.now()).value_or(common::Date{});
    if (call.has("--date")) {
        if (auto wrong = readDateOption(call, "--date", date)) {
            return *wrong;
        }
    }
    if (auto wrong = readDocumentAmount(call, "cheque", amount)) {
        return *wrong;
    }
    const std::unique_ptr<common::SettingsStore> store = platform::makeUserSettingsStore();
    documents::Layout layout = documents::loadLayout(*store, documents::DocumentKind::Cheque, model);
    layout.fourDigitYear = layout.fourDigitYear || call.has("--year4");
    documents::ChequeEntry entry = documents::lastChequeEntry(*store);
    entry.amount = amount;
    entry.date = date;
    if (call.has("--payee")) {
        entry.payee = optionValue(call, "--payee");
    }
    if (call.has("--city")) {
        entry.city = optionValue(call, "--city");
    }
    std::vector<documents::FilledField> fields =
        *documents::fillCheque(layout, entry, call.regional.separators);
    if (call.has("--fields")) {
        printFields(call, fields);
        return done();
    }
    const bool bold = call.has("--bold") || documents::savedBold(*store, documents::DocumentKind::Cheque);
    return writePdf(call, optionValue(call, "--pdf"), {{std::move(fields), bold}}, common::txt::kChequeTitle);
}

}  // namespace zv::cli
