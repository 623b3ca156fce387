#include "common/money.h"

#include "common/number_format.h"

namespace zv::common {

std::string FormatMoney(double value, const NumberSeparators& seps) {
    return formatNumber(value, pattern::kMoney, seps);
}

std::string FormatMoney(std::string_view text, const NumberSeparators& seps) {
    const std::optional<double> value = parseNumber(text, seps);
    if (!value) {
        // The system's own fallback text, whatever the user's separators are.
        return "0,00";
    }
    return FormatMoney(*value, seps);
}

}  // namespace zv::common
