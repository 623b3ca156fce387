#include "core/common/settings_reader.h"

namespace zv::common {

std::optional<std::string> SettingsReader::text(std::string_view key) const {
    return m_store.read(m_section, key);
}

std::optional<bool> SettingsReader::boolean(std::string_view key) const {
    const std::optional<std::string> stored = text(key);
    return stored ? parseBool(*stored) : std::nullopt;
}

void SettingsReader::boolean(std::string_view key, bool& target) const {
    if (const std::optional<bool> value = boolean(key)) {
        target = *value;
    }
}

std::optional<int> SettingsReader::whole(std::string_view key, int low, int high) const {
    const std::optional<std::string> stored = text(key);
    if (!stored) {
        return std::nullopt;
    }
    const std::optional<long> value = parseWhole(*stored);
    if (!value || *value < low || *value > high) {
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

void SettingsReader::whole(std::string_view key, int low, int high, int& target) const {
    if (const std::optional<int> value = whole(key, low, high)) {
        target = *value;
    }
}

}  // namespace zv::common
