#include "core/common/money.h"

#include <cmath>

#include "core/common/number_format.h"

namespace zv::common {
namespace {
// What money shows for anything that is not a number, whatever the user's separators are.
constexpr const char* kNotANumber = "0,00";
}  // namespace

std::string FormatMoney(double value, const NumberSeparators& seps) {
    if (!std::isfinite(value)) {
        return kNotANumber;
    }
    return formatNumber(value, pattern::kMoney, seps);
}

std::string FormatMoney(std::string_view text, const NumberSeparators& seps) {
    const std::optional<double> value = parseNumber(text, seps);
    if (!value) {
        return kNotANumber;
    }
    return FormatMoney(*value, seps);
}

}  // namespace zv::common
