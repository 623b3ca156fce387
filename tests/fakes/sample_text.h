#pragma once

#include <string>
#include <string_view>

#include "core/common/regional.h"
#include "core/common/text.h"

namespace zv::fakes {

inline const common::NumberSeparators kBrazil{};  // "," decimal, "." group
inline const common::NumberSeparators kUs{".", ","};

// One tape line as the calculator writes it: the amount right-aligned in 24 columns, a space,
// the symbol and CR LF.
inline std::string tapeLine(std::string_view amount, std::string_view symbol) {
    return common::padLeft(amount, 24).append(" ").append(symbol).append("\r\n");
}
inline const std::string kStrikeLine = " =========================\r\n";

}  // namespace zv::fakes
