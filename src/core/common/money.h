#pragma once

#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::common {

// The money format used wherever an amount is shown: "#,##0.00" with the user's separators.
std::string FormatMoney(double value, const NumberSeparators& seps);

// Same, for text that should hold a number; text that does not gives "0,00", as it stands.
std::string FormatMoney(std::string_view text, const NumberSeparators& seps);

}  // namespace zv::common
