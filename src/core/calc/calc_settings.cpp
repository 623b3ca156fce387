#include "core/calc/calc_settings.h"

#include <limits>
#include <string_view>

#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"

namespace zv::calc {

namespace keys = common::settings;

namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();

void writeWhole(common::SettingsStore& store, std::string_view key, int value) {
    common::SaveSetting(store, keys::kConfigura, key, std::to_string(value));
}

void writeBool(common::SettingsStore& store, std::string_view key, bool value) {
    common::SaveSetting(store, keys::kConfigura, key, common::boolText(value));
}

}  // namespace

CalcSettings loadCalcSettings(const common::SettingsStore& store) {
    const common::SettingsReader config(store, keys::kConfigura);
    CalcSettings s;

    config.boolean(keys::kMenuXP, s.menuXP);
    if (const auto format = config.whole(keys::kFormato, 0, 2)) {
        s.format = static_cast<NumberFormat>(*format);
    }
    config.whole(keys::kCor, 0, 4, s.colourScheme);
    // A window cannot be zero or fewer pixels high; such a height is not taken.
    if (const auto height = config.whole(keys::kCalcHeight, 1, kIntMax)) {
        s.height = height;
    }
    config.whole(keys::kCalcTop, kIntMin, kIntMax, s.top);
    if (const auto left = config.whole(keys::kCalcLeft2, kIntMin, kIntMax)) {
        s.left = left;
    }
    config.boolean(keys::kLetrona, s.largeLetters);
    if (const auto sound = config.whole(keys::kSons, 1, 3)) {
        s.sound = static_cast<KeySound>(*sound);
    }
    config.whole(keys::kInstrumento, 0, 127, s.instrument);
    config.boolean(keys::kFicarSystray, s.stayInTray);
    config.boolean(keys::kOculte, s.keypadHidden);
    if (const auto enter = config.text(keys::kCalcEnter)) {
        s.enter = *enter == keys::kEnterAdds ? EnterAction::Plus : EnterAction::Equals;
    }
    config.boolean(keys::kVisivel, s.alwaysOnTop);
    config.boolean(keys::kBackup, s.backup);
    config.boolean(keys::kNumLock, s.numLock);
    config.boolean(keys::kMonitor, s.monitor);
    if (auto port = config.text(keys::kPorta); port && !port->empty()) {
        s.port = *std::move(port);
    }
    if (auto file = config.text(keys::kUltimoArq); file && !file->empty()) {
        s.lastFile = *std::move(file);
    }
    if (auto folder = config.text(keys::kUltimoPath)) {
        s.lastFolder = *std::move(folder);
    }
    config.whole(keys::kIdiomas2, 0, 3, s.language);
    return s;
}

CalculatorOptions engineOptions(const CalcSettings& settings, bool timeMode) {
    return CalculatorOptions{settings.format, settings.enter, settings.numLock, timeMode, settings.backup};
}

std::string storedText(bool value) {
    return std::string(common::boolText(value));
}

std::string storedEnter(EnterAction enter) {
    return std::string(enter == EnterAction::Plus ? keys::kEnterAdds : keys::kEnterStrikes);
}

void saveOnClose(common::SettingsStore& store, const CalcSettings& settings) {
    if (settings.height) {
        writeWhole(store, keys::kCalcHeight, *settings.height);
    }
    writeWhole(store, keys::kCalcTop, settings.top);
    if (settings.left) {
        writeWhole(store, keys::kCalcLeft2, *settings.left);
    }
    writeBool(store, keys::kLetrona, settings.largeLetters);
    writeBool(store, keys::kOculte, settings.keypadHidden);
    common::SaveSetting(store, keys::kConfigura, keys::kCalcEnter, storedEnter(settings.enter));
    writeBool(store, keys::kVisivel, settings.alwaysOnTop);
    writeBool(store, keys::kBackup, settings.backup);
    writeWhole(store, keys::kIdiomas2, settings.language);
}

}  // namespace zv::calc
