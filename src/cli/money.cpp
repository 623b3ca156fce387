#include <ostream>

#include "cli/command.h"
#include "core/common/money.h"

namespace zv::cli {

// Text that is no number prints "0,00" in the user's separators, as the money format has it.
Outcome runMoney(const Invocation& call) {
    if (call.operands.size() != 1) {
        return usageError("money takes one VALUE");
    }
    call.out << common::FormatMoney(std::string_view(call.operands[0]), call.regional.separators) << '\n';
    return done();
}

}  // namespace zv::cli
