#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "core/common/clock.h"
#include "core/common/regional.h"
#include "core/common/settings_store.h"

namespace zv::app {

class Dialogs;
class UiLanguage;

// What every window of the program is given: the services it shares with the others. Copies
// point at the same services; tests pass their own.
struct AppContext {
    common::SettingsStore* store = nullptr;
    common::Regional regional;  // separators and date order; the language is `language`'s
    const common::Clock* clock = nullptr;
    Dialogs* dialogs = nullptr;
    std::filesystem::path dataFolder;
    UiLanguage* language = nullptr;
    // Hands a finished block of text (whole lines, CR LF) to the calculator's tape; the tape view
    // and the tape file follow. The calculator window sets it for the windows it opens.
    std::function<void(std::string_view block)> appendToTape;
};

}  // namespace zv::app
