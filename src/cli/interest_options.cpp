#include "cli/interest_options.h"

#include "core/common/text_table.h"

namespace zv::cli {

std::string optionValue(const Invocation& call, std::string_view name) {
    const auto found = call.options.find(name);
    return found == call.options.end() ? std::string() : found->second;
}

std::string withoutPercent(std::string text) {
    if (!text.empty() && text.back() == '%') {
        text.pop_back();
    }
    return text;
}

std::optional<Outcome> readCapitalisationCall(const Invocation& call, std::string_view command,
                                              long long maxDays, tools::Capitalisation& read) {
    if (!call.operands.empty()) {
        return usageError(std::string(command) + " takes no operands");
    }
    if (!call.has("--amount") || !call.has("--rate")) {
        return usageError(std::string(command) + " needs --amount and --rate");
    }
    const bool dates = call.has("--from") || call.has("--to");
    if (call.has("--days") == dates || (dates && !(call.has("--from") && call.has("--to")))) {
        return usageError(std::string(command) + " takes either --days or --from and --to");
    }
    tools::CapitalisationForm form;
    form.amount = optionValue(call, "--amount");
    form.rate = withoutPercent(optionValue(call, "--rate"));
    if (dates) {
        form.startDate = optionValue(call, "--from");
        form.endDateOrDays = optionValue(call, "--to");
    } else {
        form.endDateOrDays = optionValue(call, "--days");
    }
    const std::optional<tools::Capitalisation> checked =
        tools::readCapitalisation(form, maxDays, call.regional.separators);
    if (!checked) {
        return rejected(common::GetText(call.regional.language, tools::interest_text::kInvalidAnswer));
    }
    read = *checked;
    return std::nullopt;
}

}  // namespace zv::cli
