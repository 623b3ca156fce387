#pragma once

#include <optional>
#include <string>

#include "core/calc/calculator.h"
#include "core/common/settings_store.h"

namespace zv::calc {

enum class KeySound { None = 1, Beep = 2, Musical = 3 };  // stored in "Sons"

// Every option of the calculator window as stored in section "Configura". A value that is
// missing or does not read (a malformed number, a boolean that is not one) keeps the default,
// which is the window's design state.
struct CalcSettings {
    bool menuXP = true;
    NumberFormat format = NumberFormat::Floating;
    int colourScheme = 0;       // 0: design colours; 1..4 the schemes
    std::optional<int> height;  // pixels; none: the window's own
    int top = 0;
    std::optional<int> left;
    bool largeLetters = false;
    KeySound sound = KeySound::Musical;
    int instrument = 0;  // 0..127
    bool stayInTray = true;
    bool keypadHidden = false;
    EnterAction enter = EnterAction::Equals;
    bool alwaysOnTop = true;
    bool backup = true;
    bool numLock = true;
    bool monitor = true;
    std::string port = "LPT1";
    std::string lastFile = "Zavrello.txt";
    std::string lastFolder;
    int language = 0;  // 0: from the user's locale; 1 Portuguese, 2 English, 3 Spanish

    bool operator==(const CalcSettings&) const = default;
};

CalcSettings loadCalcSettings(const common::SettingsStore& store);

// What the engine is told of the options; time mode is the window's and is not stored.
CalculatorOptions engineOptions(const CalcSettings& settings, bool timeMode);

// The text each option is stored as (the key is the option's own, see settings_keys.h).
std::string storedText(bool value);
std::string storedEnter(EnterAction enter);

// Writes the options the window saves when it closes: size and position, "Letrona", "Oculte",
// "CalcEnter", "Visivel", "Backup", "Idiomas2".
void saveOnClose(common::SettingsStore& store, const CalcSettings& settings);

}  // namespace zv::calc
