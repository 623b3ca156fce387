#include <optional>
#include <ostream>

#include "cli/command.h"
#include "core/common/number_format.h"
#include "core/common/text_table.h"
#include "core/convert/converter.h"

namespace zv::cli {
namespace {

constexpr int kInvalidData = 30;  // "Dados inválidos! Operação cancelada."

}  // namespace

// The window shows nothing for a value that is no number; here that is said, with the
// system's message for invalid data.
Outcome runConvert(const Invocation& call) {
    if (call.operands.size() != 2) {
        return usageError("convert takes SOURCE and VALUE");
    }
    const std::optional<std::size_t> source = convert::findSource(call.operands[0]);
    if (!source) {
        return usageError("unknown SOURCE (an index from 0 to 36 or an entry's exact text): " +
                          call.operands[0]);
    }
    const convert::ResultSlots slots = convert::convert(source, call.operands[1], call.regional.separators);
    if (slots.captions[0].empty()) {
        return rejected(common::GetText(call.regional.language, kInvalidData));
    }
    for (std::size_t i = 0; i < convert::kSlotCount && !slots.captions[i].empty(); ++i) {
        call.out << convert::shownCaption(slots.captions[i]) << '\t' << slots.values[i] << '\n';
    }
    return done();
}

}  // namespace zv::cli
