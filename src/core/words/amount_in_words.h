#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::words {

// An amount of reais and centavos in Brazilian Portuguese words, in capitals, following the
// cheque-writing rules of the system exactly (its quirks included: "UM MIL", "E" between every
// pair of groups, "DE" after a round million or billion even without currency words).
// Amounts below 0,01, above 999.999.999.999,99 or not numbers are rejected with nullopt;
// the caller shows text txt::kWordsInvalid. With `withCurrency` false the words "real(is)" and
// "centavo(s)" are left out and nothing else changes (trailing spaces included).
std::optional<std::string> ConverterExtenso(double value, bool withCurrency);

// The same for text as shown or typed (the display's text, a form's value field).
std::optional<std::string> ConverterExtenso(std::string_view text, bool withCurrency,
                                            const common::NumberSeparators& seps);

}  // namespace zv::words
