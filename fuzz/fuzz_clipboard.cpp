// Any text copied from another program, as the clipboard monitor hands it to the calculator.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <fuzzer/FuzzedDataProvider.h>

#include "core/calc/clipboard_numbers.h"
#include "core/common/text_encoding.h"
#include "fuzz_support.h"

namespace {

using namespace zv;
using Kind = calc::ClipboardNumbers::Kind;

// Rows that hold more than blanks (spaces, no-break spaces, tabs), as the reader counts them.
std::size_t filledRows(std::string_view text) {
    std::size_t rows = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            end = text.size();
        }
        std::string_view row = text.substr(start, end - start);
        if (row.ends_with('\r')) {
            row.remove_suffix(1);
        }
        bool filled = false;
        for (std::size_t i = 0; i < row.size() && !filled; ++i) {
            if (row.substr(i).starts_with("\xC2\xA0")) {
                ++i;
            } else {
                filled = row[i] != ' ' && row[i] != '\t';
            }
        }
        rows += filled ? 1 : 0;
        start = end + 1;
    }
    return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const common::NumberSeparators seps = fuzz::separatorsFrom(input.ConsumeIntegral<std::uint8_t>());
    const bool timeMode = input.ConsumeBool();
    const std::string text = input.ConsumeRemainingBytesAsString();

    const calc::ClipboardNumbers read = calc::readClipboardNumbers(text, seps, timeMode);
    if (read.kind == Kind::NotNumbers || read.kind == Kind::InvalidSelection) {
        ZV_FUZZ_CHECK(read.values.empty());
        return 0;
    }
    // One value per row of the table, each row read whole.
    ZV_FUZZ_CHECK(read.values.size() == filledRows(text));
    for (const double value : read.values) {
        ZV_FUZZ_CHECK(!std::isnan(value));
    }

    // The products the program puts back on the clipboard read back as the same amounts.
    const std::string back = calc::productsText(read.values, seps);
    ZV_FUZZ_CHECK(common::isValidUtf8(back));
    bool allFinite = true;
    for (const double value : read.values) {
        allFinite = allFinite && std::isfinite(value);
    }
    // The reader knows the marks "." and "," and blanks; with a locale that groups with
    // another mark, what goes back on the clipboard is not meant to read back.
    const auto known = [](const std::string& mark) {
        return mark == "." || mark == "," || mark == " " || mark == "\xC2\xA0";
    };
    if (allFinite && known(seps.decimal) && known(seps.group)) {
        const calc::ClipboardNumbers again = calc::readClipboardNumbers(back, seps, false);
        ZV_FUZZ_CHECK(again.kind == Kind::Amounts);
        ZV_FUZZ_CHECK(again.values.size() == read.values.size());
        for (std::size_t i = 0; i < read.values.size(); ++i) {
            // Put back in the money format's precision: six decimals at most.
            ZV_FUZZ_CHECK(std::fabs(again.values[i] - read.values[i]) <=
                          5e-7 + 1e-13 * std::fabs(read.values[i]));
        }
    }
    return 0;
}
