#include "core/calc/calc_settings.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

using namespace zv::calc;
using zv::fakes::MemorySettingsStore;

namespace {

MemorySettingsStore storeWith(std::initializer_list<std::pair<const char*, const char*>> values) {
    MemorySettingsStore store;
    for (const auto& [key, text] : values) {
        store.write("Configura", key, text);
    }
    return store;
}

}  // namespace

TEST(CalcSettings, FirstStartWithAnEmptyStore) {
    const CalcSettings s = loadCalcSettings(MemorySettingsStore{});
    EXPECT_TRUE(s.alwaysOnTop && s.backup && s.numLock && s.monitor && s.menuXP && s.stayInTray);
    EXPECT_TRUE(s.sound == KeySound::Musical && s.port == "LPT1" && s.language == 0);
    EXPECT_EQ(s.enter, EnterAction::Equals);
}

TEST(CalcSettings, StoredValuesAreRead) {
    const std::tuple<const char*, const char*, void (*)(CalcSettings&)> cases[] = {
        {"Formato", "2", [](CalcSettings& s) { s.format = NumberFormat::Numeral; }},
        {"Sons", "1", [](CalcSettings& s) { s.sound = KeySound::None; }},
        {"Instrumento", "127", [](CalcSettings& s) { s.instrument = 127; }},
        {"NumLock", "False", [](CalcSettings& s) { s.numLock = false; }},
        {"UltimoPath", "C:\\Relatórios", [](CalcSettings& s) { s.lastFolder = "C:\\Relatórios"; }},
    };
    for (const auto& [key, text, change] : cases) {
        CalcSettings expected;
        change(expected);
        EXPECT_EQ(loadCalcSettings(storeWith({{key, text}})), expected) << key;
    }
}

TEST(CalcSettings, MalformedOrOutOfRangeValuesKeepTheDefault) {
    const std::pair<const char*, const char*> cases[] = {
        {"Formato", "3"},           {"Cor", "um"},   {"Instrumento", "128"},
        {"Idiomas2", "4"},          {"Backup", "2"}, {"CalcHeight", "0"},
        {"CalcTop", "99999999999"}, {"Porta", ""},   {"CalcEnter", "OK"},
    };
    for (const auto& stored : cases) {
        EXPECT_EQ(loadCalcSettings(storeWith({stored})), CalcSettings{})
            << stored.first << "=" << stored.second;
    }
}

TEST(CalcSettings, SaveOnCloseWritesExactlyItsKeysAndLoadsBack) {
    CalcSettings saved;
    saved.top = 40;
    saved.keypadHidden = saved.largeLetters = true;
    saved.backup = false;
    saved.enter = EnterAction::Plus;
    saved.language = 2;
    MemorySettingsStore store;
    saveOnClose(store, saved);
    EXPECT_EQ(store.values, storeWith({{"CalcTop", "40"},
                                       {"Letrona", "True"},
                                       {"Oculte", "True"},
                                       {"CalcEnter", "ok"},
                                       {"Visivel", "True"},
                                       {"Backup", "False"},
                                       {"Idiomas2", "2"}})
                                .values);
    EXPECT_EQ(loadCalcSettings(store), saved);
    // With a size and a place, those too.
    saved.height = 480;
    saved.left = -5;
    saved.enter = EnterAction::Equals;
    saveOnClose(store, saved);
    EXPECT_EQ(store.values.size(), 9u);
    EXPECT_EQ(loadCalcSettings(store), saved);
}

TEST(CalcSettings, EngineOptionsTellNumLockFromBackup) {
    CalcSettings s;
    s.format = NumberFormat::Fixed;
    s.enter = EnterAction::Plus;
    s.numLock = false;
    for (const bool timeMode : {true, false}) {
        const CalculatorOptions o = engineOptions(s, timeMode);
        EXPECT_TRUE(o.format == NumberFormat::Fixed && o.enter == EnterAction::Plus && o.backup);
        EXPECT_EQ(std::pair(o.numLock, o.timeMode), std::pair(false, timeMode));
    }
}
