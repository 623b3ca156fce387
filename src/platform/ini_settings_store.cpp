#include "platform/ini_settings_store.h"

#include <cstdlib>
#include <system_error>

#include "core/common/ini_text.h"
#include "core/common/text_file.h"

namespace zv::platform {
namespace {

std::filesystem::path fromEnv(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? std::filesystem::path(value) : std::filesystem::path();
}

}  // namespace

std::optional<std::string> IniSettingsStore::read(std::string_view section, std::string_view key) const {
    const std::optional<std::string> bytes = common::readFileBytes(m_file);
    return bytes ? common::iniValue(*bytes, section, key) : std::nullopt;
}

bool IniSettingsStore::write(std::string_view section, std::string_view key, std::string_view value) {
    std::error_code ec;
    const bool exists = std::filesystem::exists(m_file, ec);
    const std::optional<std::string> bytes = common::readFileBytes(m_file);
    if (exists && !bytes) {
        return false;  // a file that is there but cannot be read must not be replaced
    }
    if (m_file.has_parent_path()) {
        std::filesystem::create_directories(m_file.parent_path(), ec);
    }
    return common::writeFileAtomically(m_file, common::withIniValue(bytes.value_or(""), section, key, value));
}

std::filesystem::path userSettingsFile() {
    std::filesystem::path base = fromEnv("XDG_CONFIG_HOME");
    if (base.empty()) {
        const std::filesystem::path home = fromEnv("HOME");
        std::error_code ec;
        base = (home.empty() ? std::filesystem::current_path(ec) : home) / ".config";
    }
    return base / "Zavrello" / (std::string(common::kSettingsApp) + ".ini");
}

}  // namespace zv::platform
