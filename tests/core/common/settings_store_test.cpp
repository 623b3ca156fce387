#include "core/common/settings_store.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::common {
namespace {

TEST(SettingsStore, BooleansAreWrittenAsWordsAndReadFromEveryStoredForm) {
    EXPECT_EQ(boolText(true), "True");
    EXPECT_EQ(boolText(false), "False");
    const std::pair<std::string_view, std::optional<bool>> cases[] = {
        {"True", true}, {" \tfALSE ", false}, {"-1", true}, {"1", true},
        {"0", false},   {"2", std::nullopt},  {"Tru", {}},  {"", {}},
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

TEST(SettingsStore, MissingKeyGivesTheFallbackButAnEmptyValueIsAValue) {
    fakes::MemorySettingsStore store;
    EXPECT_EQ(GetSetting(store, "Configura", "Porta", "LPT1"), "LPT1");
    ASSERT_TRUE(SaveSetting(store, "Configura", "Porta", ""));
    EXPECT_EQ(GetSetting(store, "Configura", "Porta", "LPT1"), "");
}

}  // namespace
}  // namespace zv::common
