#pragma once

#include <memory>

#include "core/common/settings_store.h"

namespace zv::platform {

// The store the windows use, opened without Qt (the command line): on Windows the registry key
// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Quorvati\<section>, elsewhere the INI
// file of userSettingsFile().
std::unique_ptr<common::SettingsStore> makeUserSettingsStore();

}  // namespace zv::platform
