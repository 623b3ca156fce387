#include "platform/user_settings.h"

#include "platform/ini_settings_store.h"

#ifdef _WIN32
#include "core/tray/restrictions.h"
#include "platform/system_registry.h"
#endif

namespace zv::platform {

#ifdef _WIN32
namespace {

// The registry through the system's registry helpers. They read a missing value as empty, so an
// empty value reads as none: every caller's default for an empty text is the same as for none.
class RegistrySettingsStore final : public common::SettingsStore {
public:
    explicit RegistrySettingsStore(std::unique_ptr<tray::Registry> registry)
        : m_registry(std::move(registry)) {}

    std::optional<std::string> read(std::string_view section, std::string_view key) const override {
        std::string value = m_registry->RegistryReadString(subkey(section), key, tray::kCurrentUser);
        return value.empty() ? std::nullopt : std::optional<std::string>(std::move(value));
    }
    bool write(std::string_view section, std::string_view key, std::string_view value) override {
        m_registry->RegistryWriteValue(subkey(section), key, value, tray::kCurrentUser, 1);
        return true;
    }

private:
    static std::string subkey(std::string_view section) {
        return "Software\\VB and VBA Program Settings\\" + std::string(common::kSettingsApp) + "\\" +
               std::string(section);
    }
    std::unique_ptr<tray::Registry> m_registry;
};

}  // namespace
#endif

std::unique_ptr<common::SettingsStore> makeUserSettingsStore() {
#ifdef _WIN32
    if (std::unique_ptr<tray::Registry> registry = makeSystemRegistry()) {
        return std::make_unique<RegistrySettingsStore>(std::move(registry));
    }
#endif
    return std::make_unique<IniSettingsStore>(userSettingsFile());
}

}  // namespace zv::platform
