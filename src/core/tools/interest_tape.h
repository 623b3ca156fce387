#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/common/regional.h"
#include "core/tools/interest.h"

namespace zv::tools {

// The tape blocks of the instalment tool (CR LF line ends). Labels stand right-aligned in 26
// columns on a line of their own, each value right-aligned in 25 on the line under it, followed by
// the tape's operation mark where it has one, so the amounts line up with the tape's own.

// A capitalisation (savings, or a cheque discount, whose net amount is the initial value and the
// cheque the final one): initial value " +", days "45 dias (1,00%) =", final value " T", monthly
// rate " % ", total interest.
std::string capitalisationBlock(double initial, double ratePercent, long long days, double final,
                                common::Language language, const common::NumberSeparators& seps);

// A fixed-instalment result: initial value, count " x ", instalment with the days of the first
// one ("30 dias (1ª)"), monthly rate " % ", the down-payment note when the first instalment is
// paid at once, total interest, final amount " T".
std::string loanBlock(const LoanTerms& terms, const LoanResult& result, common::Language language,
                      const common::NumberSeparators& seps);

// The sums of every capitalisation block on `tape` (savings and cheque discounts, in any of the
// three languages, their amounts read with `seps`), as the block appended when the grouping
// option is on: the heading, a dashed line, the initial values, the interest and the final values,
// the closing line. Nullopt when the tape holds no capitalisation.
std::optional<std::string> capitalisationTotals(std::string_view tape, common::Language language,
                                                const common::NumberSeparators& seps);

}  // namespace zv::tools
