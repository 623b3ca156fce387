#include "cli/document_options.h"

#include <ostream>

#include "cli/arguments.h"
#include "cli/interest_options.h"
#include "core/common/text.h"
#include "core/common/text_table.h"
#include "core/documents/amount_words.h"

namespace zv::cli {

std::optional<Outcome> readOutputChoice(const Invocation& call, std::string_view command) {
    if (!call.operands.empty()) {
        return usageError(std::string(command) + " takes no operands");
    }
    if (call.has("--fields") == call.has("--pdf")) {
        return usageError(std::string(command) + " takes either --fields or --pdf FILE");
    }
    return std::nullopt;
}

std::optional<Outcome> readDocumentAmount(const Invocation& call, std::string_view command, double& target) {
    if (!call.has("--amount")) {
        return usageError(std::string(command) + " needs --amount");
    }
    const Parsed<double> amount = readAmount(optionValue(call, "--amount"), call.regional.separators);
    if (!amount.ok() || !documents::amountInRange(amount.value())) {
        return rejected(documents::amountRangeMessage(call.regional.language, call.regional.separators));
    }
    target = amount.value();
    return std::nullopt;
}

std::optional<Outcome> readModel(const Invocation& call, int& target) {
    if (!call.has("--model")) {
        target = 0;
        return std::nullopt;
    }
    const Parsed<long long> model = readWhole(optionValue(call, "--model"), 1, documents::kModelCount);
    if (!model.ok()) {
        return usageError("--model takes 1 to 9");
    }
    target = static_cast<int>(model.value()) - 1;
    return std::nullopt;
}

std::optional<Outcome> readDateOption(const Invocation& call, std::string_view option, common::Date& target) {
    const Parsed<common::Date> date = readDate(optionValue(call, option));
    if (!date.ok()) {
        return usageError(std::string(option) +
                          " takes a date DD/MM/YYYY, not: " + optionValue(call, option));
    }
    target = date.value();
    return std::nullopt;
}

void printFields(const Invocation& call, const std::vector<documents::FilledField>& fields) {
    for (const documents::FilledField& field : fields) {
        call.out << field.control << '\t' << field.left << '\t' << field.top << '\t' << field.text << '\n';
    }
}

Outcome writePdf(const Invocation& call, const std::string& path, const std::vector<PdfPage>& pages,
                 int titleCode) {
    if (!call.env.writePdf) {
        return rejected("this build of zavrello-cli cannot write PDF files");
    }
    const std::string title(common::trimSpaces(common::GetText(call.regional.language, titleCode)));
    if (!call.env.writePdf(path, pages, title)) {
        return rejected(common::GetText(call.regional.language, common::txt::kFileNotWritten, path));
    }
    return done();
}

}  // namespace zv::cli
