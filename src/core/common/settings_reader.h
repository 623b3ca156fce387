#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/common/settings_store.h"

namespace zv::common {

// Reads the options of one section of the settings store ("Configura", "Cheque", "Cheque1" ...).
// A value that is missing or does not read as its kind (a malformed number, one out of its range, a
// boolean that is not one) is no value: the getters give nullopt, and those that take a target
// leave it alone, so the caller's default stands.
class SettingsReader {
public:
    SettingsReader(const SettingsStore& store, std::string_view section)
        : m_store(store), m_section(section) {}

    std::optional<std::string> text(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    void boolean(std::string_view key, bool& target) const;
    // A whole number within [low, high].
    std::optional<int> whole(std::string_view key, int low, int high) const;
    void whole(std::string_view key, int low, int high, int& target) const;

private:
    const SettingsStore& m_store;
    std::string m_section;
};

}  // namespace zv::common
