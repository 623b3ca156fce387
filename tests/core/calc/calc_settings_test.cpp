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
    EXPECT_EQ(s.sound, KeySound::Musical);
    EXPECT_EQ(s.port, "LPT1");
    EXPECT_EQ(s.language, 0);
    EXPECT_EQ(s.enter, EnterAction::Equals);
}

TEST(CalcSettings, StoredValuesAreRead) {
    CalcSettings expected;
    expected.format = NumberFormat::Numeral;
    expected.sound = KeySound::None;
    expected.instrument = 127;
    expected.numLock = false;
    expected.lastFolder = "C:\\Relatórios";
    EXPECT_EQ(loadCalcSettings(storeWith({
                  {"Formato", "2"},
                  {"Sons", "1"},
                  {"Instrumento", "127"},
                  {"NumLock", "False"},
                  {"UltimoPath", "C:\\Relatórios"},
              })),
              expected);
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
    saved.keypadHidden = true;
    saved.largeLetters = true;
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

TEST(CalcSettings, EngineOptionsFollowTheSettings) {
    CalcSettings s;
    s.format = NumberFormat::Fixed;
    s.enter = EnterAction::Plus;
    s.numLock = false;  // and the backup stays on: the two are told apart
    for (const bool timeMode : {true, false}) {
        const CalculatorOptions o = engineOptions(s, timeMode);
        EXPECT_EQ(o.format, NumberFormat::Fixed);
        EXPECT_EQ(o.enter, EnterAction::Plus);
        EXPECT_FALSE(o.numLock);
        EXPECT_TRUE(o.backup);
        EXPECT_EQ(o.timeMode, timeMode);
    }
}
