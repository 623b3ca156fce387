#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::common {

// The per-user store of options: string values addressed by application, section and key.
// The application is always "Quorvati"; implementations hold it themselves.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    // The stored text, or nullopt when the section or the key does not exist.
    virtual std::optional<std::string> read(std::string_view section, std::string_view key) const = 0;
    // Writes one value, creating the section if needed; false when the store cannot be written.
    virtual bool write(std::string_view section, std::string_view key, std::string_view value) = 0;
};

inline constexpr std::string_view kSettingsApp = "Quorvati";

// The stored text, or `fallback` when there is none.
std::string GetSetting(const SettingsStore& store, std::string_view section, std::string_view key,
                       std::string_view fallback);
bool SaveSetting(SettingsStore& store, std::string_view section, std::string_view key,
                 std::string_view value);

// Booleans are written "True"/"False" and read back from "True"/"False"/"-1"/"0"/"1" (any case,
// blanks around ignored); anything else is not a boolean.
std::string_view boolText(bool value);
std::optional<bool> parseBool(std::string_view text);
// A whole number written in decimal (blanks around ignored), or nullopt.
std::optional<long> parseWhole(std::string_view text);

}  // namespace zv::common
