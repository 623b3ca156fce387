#pragma once

#include <QSettings>
#include <memory>

#include "core/common/settings_store.h"

namespace zv::app {

// The settings store on QSettings: on Windows the registry key
// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Quorvati\<section>; elsewhere the file
// $XDG_CONFIG_HOME/Zavrello/Quorvati.ini (default ~/.config/...) with one group per section.
// Every write is flushed at once.
class QSettingsStore final : public common::SettingsStore {
public:
    QSettingsStore();
    // A store in the given file (tests).
    explicit QSettingsStore(const QString& iniFile);

    std::optional<std::string> read(std::string_view section, std::string_view key) const override;
    bool write(std::string_view section, std::string_view key, std::string_view value) override;

    QString location() const;

private:
    std::unique_ptr<QSettings> m_settings;
};

}  // namespace zv::app
