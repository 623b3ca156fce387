#include "core/documents/note_number.h"

#include <optional>

#include "core/common/settings_keys.h"

namespace zv::documents {

std::string noteNumberText(long number) {
    std::string text = std::to_string(number);
    if (text.size() < 5) {
        text.insert(0, 5 - text.size(), '0');
    }
    return text;
}

long nextNoteNumber(const common::SettingsStore& store) {
    const std::optional<std::string> saved =
        store.read(common::settings::kPromissoria, common::settings::kNumero);
    const std::optional<long> number = saved ? common::parseWhole(*saved) : std::nullopt;
    // The highest a whole-number field of the original form held.
    constexpr long kHighest = 2147483646;
    return number && *number >= 0 && *number <= kHighest ? *number + 1 : 1;
}

bool saveNoteNumber(common::SettingsStore& store, long number) {
    return common::SaveSetting(store, common::settings::kPromissoria, common::settings::kNumero,
                               noteNumberText(number));
}

}  // namespace zv::documents
