#include "core/documents/amount_words.h"

#include "core/common/money.h"
#include "core/common/number_format.h"
#include "core/common/text_encoding.h"
#include "core/common/text_table.h"
#include "core/words/amount_in_words.h"

namespace zv::documents {

WordsLines splitWords(std::string_view words) {
    std::string line1(common::utf8Left(words, kLine1Characters));
    std::string line2(words.substr(line1.size()));
    if (!line2.empty()) {
        // Whole characters go back, last byte first: a multi-byte letter moves as one.
        while (!line1.empty() && line1.back() != ' ') {
            std::size_t start = line1.size() - 1;
            while (start > 0 && (static_cast<unsigned char>(line1[start]) & 0xC0) == 0x80) {
                --start;
            }
            line2.insert(0, line1.substr(start));
            line1.erase(start);
        }
    }
    return {line1 + std::string(kFill1), line2 + std::string(kFill2)};
}

bool amountInRange(double amount) {
    return amount >= kLowestAmount && amount <= kHighestAmount;
}

std::string amountRangeMessage(common::Language language, const common::NumberSeparators& seps) {
    const std::string low = common::formatNumber(kLowestAmount, common::pattern::kTwoDecimals, seps);
    const std::string high = common::formatNumber(kHighestAmount, common::pattern::kTwoDecimals, seps);
    std::string message = common::GetText(language, common::txt::kAmountOutOfRange, low, high);
    // The text exists in Portuguese only; an empty message would tell the user nothing.
    if (message.empty()) {
        message = common::GetText(common::Language::Portuguese, common::txt::kAmountOutOfRange, low, high);
    }
    return message;
}

std::string amountText(double amount, const common::NumberSeparators& seps) {
    return "***" + common::FormatMoney(amount, seps) + " ";
}

std::optional<std::string> amountWords(double amount) {
    if (!amountInRange(amount)) {
        return std::nullopt;
    }
    const std::optional<std::string> words = words::ConverterExtenso(amount, true);
    if (!words) {
        return std::nullopt;
    }
    return "(" + *words + ")";
}

}  // namespace zv::documents
