#include "core/calc/calc_settings.h"

#include <gtest/gtest.h>

#include "core/common/settings_keys.h"
#include "fakes/memory_settings_store.h"

using namespace zv::calc;
namespace keys = zv::common::settings;
using zv::fakes::MemorySettingsStore;

TEST(CalcSettings, FirstStartWithAnEmptyStore) {
    const CalcSettings s = loadCalcSettings(MemorySettingsStore{});
    EXPECT_TRUE(s.alwaysOnTop && s.backup && s.numLock && s.monitor && s.menuXP && s.stayInTray);
    EXPECT_EQ(s.sound, KeySound::Musical);
    EXPECT_EQ(s.port, "LPT1");
    EXPECT_EQ(s.language, 0);
    EXPECT_EQ(s.enter, EnterAction::Equals);
    EXPECT_EQ(s, CalcSettings{});
}

TEST(CalcSettings, StoredValuesAreRead) {
    MemorySettingsStore store;
    for (const auto& [key, text] : std::initializer_list<std::pair<std::string_view, const char*>>{
             {keys::kFormato, "2"},
             {keys::kSons, "1"},
             {keys::kInstrumento, "127"},
             {keys::kLetrona, "-1"},
             {keys::kNumLock, "0"},
             {keys::kCalcEnter, "ok"},
             {keys::kCalcLeft2, "-8"},
             {keys::kUltimoPath, "C:\\Relatórios"}}) {
        store.write(keys::kConfigura, key, text);
    }
    CalcSettings expected;
    expected.format = NumberFormat::Numeral;
    expected.sound = KeySound::None;
    expected.instrument = 127;
    expected.largeLetters = true;
    expected.numLock = false;
    expected.enter = EnterAction::Plus;
    expected.left = -8;
    expected.lastFolder = "C:\\Relatórios";
    EXPECT_EQ(loadCalcSettings(store), expected);
}

TEST(CalcSettings, MalformedOrOutOfRangeValuesKeepTheDefault) {
    const std::pair<std::string_view, const char*> cases[] = {
        {keys::kFormato, "3"},           {keys::kCor, "um"},   {keys::kInstrumento, "128"},
        {keys::kIdiomas2, "4"},          {keys::kBackup, "2"}, {keys::kCalcHeight, "0"},
        {keys::kCalcTop, "99999999999"}, {keys::kPorta, ""},   {keys::kCalcEnter, "OK"},
    };
    for (const auto& [key, text] : cases) {
        MemorySettingsStore store;
        store.write(keys::kConfigura, key, text);
        EXPECT_EQ(loadCalcSettings(store), CalcSettings{}) << key << "=" << text;
    }
}

TEST(CalcSettings, SaveOnCloseWritesExactlyItsKeysAndLoadsBack) {
    CalcSettings saved;
    saved.top = 40;
    saved.keypadHidden = true;
    saved.backup = false;
    saved.enter = EnterAction::Plus;
    saved.language = 2;

    MemorySettingsStore withoutSize;
    saveOnClose(withoutSize, saved);
    const std::map<MemorySettingsStore::Key, std::string> expected = {
        {{"Configura", "CalcTop"}, "40"},   {{"Configura", "Letrona"}, "False"},
        {{"Configura", "Oculte"}, "True"},  {{"Configura", "CalcEnter"}, "ok"},
        {{"Configura", "Visivel"}, "True"}, {{"Configura", "Backup"}, "False"},
        {{"Configura", "Idiomas2"}, "2"},
    };
    EXPECT_EQ(withoutSize.values, expected);
    EXPECT_EQ(loadCalcSettings(withoutSize), saved);

    saved.height = 480;
    saved.left = -5;
    saved.enter = EnterAction::Equals;
    MemorySettingsStore withSize;
    saveOnClose(withSize, saved);
    EXPECT_EQ(withSize.values.size(), expected.size() + 2);
    EXPECT_EQ(loadCalcSettings(withSize), saved);
}

TEST(CalcSettings, EngineOptionsFollowEveryOptionOfTheEngine) {
    CalcSettings s;
    s.format = NumberFormat::Fixed;
    s.enter = EnterAction::Plus;
    s.numLock = false;
    s.backup = false;
    const CalculatorOptions options = engineOptions(s, true);
    EXPECT_EQ(options.format, NumberFormat::Fixed);
    EXPECT_EQ(options.enter, EnterAction::Plus);
    EXPECT_FALSE(options.numLock);
    EXPECT_FALSE(options.backup);
    EXPECT_TRUE(options.timeMode);
    EXPECT_FALSE(engineOptions(s, false).timeMode);
}
