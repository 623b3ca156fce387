#include "core/tools/interest_tape.h"

#include <vector>

#include "core/calc/tape_block.h"
#include "core/common/money.h"
#include "core/common/number_format.h"
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

// The tape's lines without their line ends.
std::vector<std::string_view> linesOf(std::string_view tape) {
    std::vector<std::string_view> lines;
    while (!tape.empty()) {
        const std::size_t end = tape.find('\n');
        std::string_view line = tape.substr(0, end);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(line);
        tape = end == std::string_view::npos ? std::string_view() : tape.substr(end + 1);
    }
    return lines;
}

bool isLabel(std::string_view line, int code) {
    for (const common::Language language :
         {common::Language::Portuguese, common::Language::English, common::Language::Spanish}) {
        if (line == common::padLeft(common::GetText(language, code), calc::kLabelColumns)) {
            return true;
        }
    }
    return false;
}

// The amount of a value line, its mark taken off.
std::optional<double> amountOf(std::string_view line, const common::NumberSeparators& seps) {
    line = common::trimSpaces(line);
    if (line.ends_with(" +") || line.ends_with(" T")) {
        line.remove_suffix(2);
    }
    return common::parseNumber(line, seps);
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

std::optional<std::string> capitalisationTotals(std::string_view tape, common::Language language,
                                                const common::NumberSeparators& seps) {
    double initial = 0;
    double final = 0;
    int blocks = 0;
    // A capitalisation is the only block with a days label; its initial value comes before it and
    // its final value after it, each on the line under its label.
    // (A plain value and a flag: g++ 12 at -O3 takes the optional's payload for uninitialised.)
    double pendingInitial = 0;
    bool havePendingInitial = false;
    bool sawDays = false;
    const std::vector<std::string_view> lines = linesOf(tape);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (isLabel(lines[i], t::kInitialLabel)) {
            const std::optional<double> value = amountOf(lines[i + 1], seps);
            havePendingInitial = value.has_value();
            pendingInitial = value.value_or(0.0);
            sawDays = false;
        } else if (isLabel(lines[i], t::kDaysLabel)) {
            sawDays = havePendingInitial;
        } else if (isLabel(lines[i], t::kFinalLabel) && sawDays) {
            if (const std::optional<double> value = amountOf(lines[i + 1], seps)) {
                initial += pendingInitial;
                final += *value;
                ++blocks;
            }
            havePendingInitial = false;
            sawDays = false;
        }
    }
    if (blocks == 0) {
        return std::nullopt;
    }
    const auto text = [language](int code) { return common::GetText(language, code); };
    constexpr std::size_t kSumLabelColumns = 15;
    constexpr std::size_t kSumValueColumns = calc::kValueColumns - kSumLabelColumns;
    calc::TapeBlock block;
    block.line(text(t::kTotalsHeading))
        .line(" -------------------------")
        .pair(text(t::kTotalInitial), common::FormatMoney(initial, seps), kSumLabelColumns, kSumValueColumns)
        .pair(text(t::kTotalInterest), common::FormatMoney(final - initial, seps), kSumLabelColumns,
              kSumValueColumns)
        .pair(text(t::kTotalFinal), common::FormatMoney(final, seps), kSumLabelColumns, kSumValueColumns)
        .closing();
    return block.text();
}

}  // namespace zv::tools
