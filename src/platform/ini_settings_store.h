#pragma once

#include <filesystem>
#include <memory>

#include "core/common/settings_store.h"

namespace zv::platform {

// The settings store in an INI file, in the form the windows' store writes it, so the command
// line and the windows read and write the same options. Each read and each write takes the file
// as it stands on disk; a write replaces it whole through a temporary file.
class IniSettingsStore final : public common::SettingsStore {
public:
    explicit IniSettingsStore(std::filesystem::path file) : m_file(std::move(file)) {}

    std::optional<std::string> read(std::string_view section, std::string_view key) const override;
    bool write(std::string_view section, std::string_view key, std::string_view value) override;

    const std::filesystem::path& file() const { return m_file; }

private:
    std::filesystem::path m_file;
};

// The windows' settings file: $XDG_CONFIG_HOME/Zavrello/Quorvati.ini, by default under
// ~/.config (under the current folder when there is no home either).
std::filesystem::path userSettingsFile();

}  // namespace zv::platform
