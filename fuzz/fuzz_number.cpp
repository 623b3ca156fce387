// Numbers in the user's format: text read with any locale's separators, amounts put back on the
// tape as shown, and any value formatted with the system's patterns.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <fuzzer/FuzzedDataProvider.h>

#include "core/calc/calculator.h"
#include "core/calc/tape_line.h"
#include "core/common/number_format.h"
#include "core/common/text_encoding.h"
#include "fuzz_support.h"

namespace {

using namespace zv;

constexpr std::string_view kPatterns[] = {
    common::pattern::kMoney,   common::pattern::kCurrency,     common::pattern::kNumeral,
    common::pattern::kInteger, common::pattern::kWordsFixed,   common::pattern::kCents,
    common::pattern::kCounter, common::pattern::kFiveDigits,   common::pattern::kTwoDecimals,
    common::pattern::kTime,    common::pattern::kLongDecimals,
};

bool close(double a, double b, double absolute) {
    return std::fabs(a - b) <= absolute + 1e-13 * std::fabs(b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const common::NumberSeparators seps = fuzz::separatorsFrom(input.ConsumeIntegral<std::uint8_t>());
    const bool timeMode = input.ConsumeBool();
    const auto pattern = kPatterns[input.ConsumeIntegralInRange<std::size_t>(0, std::size(kPatterns) - 1)];
    const double value = input.ConsumeFloatingPoint<double>();
    const std::string text = input.ConsumeRemainingBytesAsString();

    // Formatting never fails and gives text; the grouping patterns give back what they show.
    const std::string shown = common::formatNumber(value, pattern, seps);
    ZV_FUZZ_CHECK(common::isValidUtf8(shown));
    ZV_FUZZ_CHECK(!shown.empty());
    // Up to 1e300: the last digits of the largest doubles round, at 15 digits, past the largest.
    if (std::fabs(value) < 1e300 && pattern == common::pattern::kLongDecimals) {
        const auto back = common::parseNumber(shown, seps);
        ZV_FUZZ_CHECK(back.has_value() && close(*back, value, 1e-10));
    }

    // Read text is a finite number that the system writes back as the same number.
    if (const auto parsed = common::parseNumber(text, seps)) {
        ZV_FUZZ_CHECK(std::isfinite(*parsed));
        const auto again =
            common::parseNumber(common::formatNumber(*parsed, common::pattern::kLongDecimals, seps), seps);
        ZV_FUZZ_CHECK(again.has_value() && close(*again, *parsed, 1e-10));
    }

    // An amount taken from the tape goes into the entry, and the next operator puts it on the
    // tape as an amount line that reads back (a zero is no amount: the operator writes nothing).
    const common::Regional regional{common::Language::Portuguese, seps};
    calc::CalculatorOptions options;
    options.timeMode = timeMode;
    options.format = static_cast<calc::NumberFormat>(size % 3);
    calc::Calculator calc(regional, options);
    if (calc.enterAmount(text)) {
        const auto amount = calc.displayValue();
        ZV_FUZZ_CHECK(amount.has_value());
        calc.Form_KeyPress('+');
        const calc::TapeLine line = calc::parseTapeLine(calc.tape().lastLine());
        ZV_FUZZ_CHECK(line.kind == calc::TapeLine::Kind::Amount || *amount == 0);
        fuzz::checkReadsBack(calc, regional);
    }
    return 0;
}
