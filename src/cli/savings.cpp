#include <ostream>

#include "cli/interest_options.h"
#include "core/common/money.h"
#include "core/tools/interest.h"
#include "core/tools/interest_tape.h"

namespace zv::cli {

Outcome runSavings(const Invocation& call) {
    tools::Capitalisation read;
    if (std::optional<Outcome> refused =
            readCapitalisationCall(call, "savings", tools::kSavingsMaxDays, read)) {
        return *refused;
    }
    const common::NumberSeparators& seps = call.regional.separators;
    const double final = tools::capitalize(read.amount, read.rate, read.days);
    if (call.has("--tape")) {
        call.out << toLf(tools::capitalisationBlock(read.amount, read.rate, read.days, final,
                                                    call.regional.language, seps));
        return done();
    }
    call.out << "days: " << read.days << '\n' << "final: " << common::FormatMoney(final, seps) << '\n';
    return done();
}

}  // namespace zv::cli
