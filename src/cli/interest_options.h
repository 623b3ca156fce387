#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/command.h"
#include "core/tools/interest.h"

namespace zv::cli {

// The value of an option, or empty when it is not given.
std::string optionValue(const Invocation& call, std::string_view name);

// A rate may be written with its percent sign, as the other commands take it.
std::string withoutPercent(std::string text);

// Savings and cheque discount read the same answers: an amount, a rate, and a day count or two
// dates. Fills `read` and returns nothing, or returns the usage error or the rejection.
std::optional<Outcome> readCapitalisationCall(const Invocation& call, std::string_view command,
                                              long long maxDays, tools::Capitalisation& read);

}  // namespace zv::cli
