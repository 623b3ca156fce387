#include <ostream>

#include "cli/interest_options.h"
#include "core/common/money.h"
#include "core/common/text_table.h"
#include "core/tools/interest.h"
#include "core/tools/interest_tape.h"

namespace zv::cli {

Outcome runDiscount(const Invocation& call) {
    tools::Capitalisation read;
    if (std::optional<Outcome> refused =
            readCapitalisationCall(call, "discount", tools::kChequeMaxDays, read)) {
        return *refused;
    }
    const common::NumberSeparators& seps = call.regional.separators;
    const std::optional<double> net = tools::discountCheque(read.amount, read.rate, read.days);
    if (!net) {
        return rejected(
            common::GetText(call.regional.language, tools::textCode(tools::LoanError::CalculationFailed)));
    }
    if (call.has("--tape")) {
        call.out << toLf(tools::capitalisationBlock(*net, read.rate, read.days, read.amount,
                                                    call.regional.language, seps));
        return done();
    }
    call.out << "days: " << read.days << '\n' << "net: " << common::FormatMoney(*net, seps) << '\n';
    return done();
}

}  // namespace zv::cli
