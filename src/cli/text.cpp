#include <climits>
#include <ostream>

#include "cli/arguments.h"
#include "cli/command.h"
#include "core/common/text_table.h"

namespace zv::cli {

// A code without a text prints an empty line, as the interface would show an empty message.
Outcome runText(const Invocation& call) {
    if (call.operands.empty() || call.operands.size() > 4) {
        return usageError("text takes CODE and up to three arguments");
    }
    const Parsed<long long> code = readWhole(call.operands[0], INT_MIN, INT_MAX);
    if (!code.ok()) {
        return usageError("CODE must be a whole number: " + call.operands[0]);
    }
    auto arg = [&](std::size_t i) {
        return i < call.operands.size() ? std::string_view(call.operands[i]) : "";
    };
    call.out << toLf(common::GetText(call.regional.language, static_cast<int>(code.value()), arg(1), arg(2),
                                     arg(3)))
             << '\n';
    return done();
}

}  // namespace zv::cli
