#include "core/tools/interest_tape.h"

#include "core/calc/tape_block.h"
#include "core/common/money.h"
#include "core/common/text.h"
#include "core/common/text_table.h"

namespace zv::tools {
namespace {

namespace t = interest_text;

// The label on its line, then the value in the value columns followed by its mark.
void labelled(calc::TapeBlock& block, std::string_view label, std::string_view value,
              std::string_view mark = {}) {
    block.right(label, calc::kLabelColumns)
        .line(common::padLeft(value, calc::kValueColumns) + std::string(mark));
}

}  // namespace

std::string capitalisationBlock(double initial, double ratePercent, long long days, double final,
                                common::Language language, const common::NumberSeparators& seps) {
    const auto text = [language](int code) { return common::GetText(language, code); };
    const std::string rate = common::FormatMoney(ratePercent, seps);
    calc::TapeBlock block;
    block.title(text(t::kBlockTitle));
    labelled(block, text(t::kInitialLabel), common::FormatMoney(initial, seps), " +");
    labelled(block, text(t::kDaysLabel), std::to_string(days) + text(t::kDaysOpen) + rate + "%)", " =");
    labelled(block, text(t::kFinalLabel), common::FormatMoney(final, seps), " T");
    labelled(block, text(t::kRateLabel), rate, " % ");
    labelled(block, text(t::kInterestLabel), common::FormatMoney(final - initial, seps));
    block.closing();
    return block.text();
}

std::string loanBlock(const LoanTerms& terms, const LoanResult& result, common::Language language,
                      const common::NumberSeparators& seps) {
    const auto text = [language](int code) { return common::GetText(language, code); };
    calc::TapeBlock block;
    block.title(text(t::kBlockTitle));
    labelled(block, text(t::kInitialLabel), common::FormatMoney(terms.initial, seps));
    labelled(block, text(t::kCountLabel), std::to_string(terms.count), " x ");
    labelled(block, text(t::kInstalmentLabel), common::FormatMoney(result.instalment, seps));
    if (!terms.downPayment) {
        block.right(std::to_string(terms.days) + text(t::kDaysOpen) + text(t::kFirst) + ")",
                    calc::kValueColumns);
    }
    labelled(block, text(t::kRateLabel), common::FormatMoney(result.rate, seps), " % ");
    if (terms.downPayment) {
        block.right(text(t::kDownPayment), calc::kValueColumns);
    }
    labelled(block, text(t::kInterestLabel), common::FormatMoney(result.totalInterest, seps));
    labelled(block, text(t::kFinalLabel), common::FormatMoney(result.finalAmount, seps), " T");
    block.closing();
    return block.text();
}

}  // namespace zv::tools
