#include <optional>
#include <ostream>

#include "cli/command.h"
#include "core/common/text_table.h"
#include "core/words/amount_in_words.h"

namespace zv::cli {

Outcome runWords(const Invocation& call) {
    if (call.operands.size() != 1) {
        return usageError("words takes one AMOUNT");
    }
    const std::optional<std::string> words =
        words::ConverterExtenso(call.operands[0], !call.has("--no-currency"), call.regional.separators);
    if (!words) {
        return rejected(common::GetText(call.regional.language, common::txt::kWordsInvalid));
    }
    call.out << *words << '\n';
    return done();
}

}  // namespace zv::cli
