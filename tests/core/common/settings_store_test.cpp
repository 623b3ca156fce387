#include "core/common/settings_store.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::common {
namespace {

TEST(SettingsStore, BooleansReadBackFromEveryStoredForm) {
    const std::pair<std::string_view, std::optional<bool>> cases[] = {
        {boolText(true), true},
        {boolText(false), false},
        {" \tfALSE ", false},
        {"-1", true},
        {"1", true},
        {"0", false},
        {"2", std::nullopt},
        {"Tru", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(parseBool(text), value) << text;
    }
}

TEST(SettingsStore, WholeNumbersReadOnlyWhenTheWholeTextIsOne) {
    EXPECT_EQ(parseWhole(" -15 "), -15);
    for (const char* text : {"3.5", "1 2", "  ", "99999999999999999999999"}) {
        EXPECT_EQ(parseWhole(text), std::nullopt) << text;
    }
}

TEST(SettingsStore, MissingKeyGivesTheFallbackAndAFailedWriteIsReported) {
    fakes::MemorySettingsStore store;
    EXPECT_EQ(GetSetting(store, "Configura", "Porta", "LPT1"), "LPT1");
    EXPECT_TRUE(SaveSetting(store, "Configura", "Porta", ""));
    EXPECT_EQ(GetSetting(store, "Configura", "Porta", "LPT1"), "") << "an empty value is a value";
    store.failing = true;
    EXPECT_FALSE(SaveSetting(store, "Configura", "Porta", "COM1"));
}

}  // namespace
}  // namespace zv::common
