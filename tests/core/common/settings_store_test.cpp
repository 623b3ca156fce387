#include "common/settings_store.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

using zv::common::parseBool;
using zv::common::parseWhole;

TEST(SettingsStore, BooleansReadBackFromEveryStoredForm) {
    struct Case {
        const char* label;
        std::string_view text;
        std::optional<bool> value;
    };
    const Case cases[] = {
        {"own rendering", zv::common::boolText(true), true},
        {"own rendering", zv::common::boolText(false), false},
        {"any case, blanks around", " \tfALSE ", false},
        {"numeric true", "-1", true},
        {"numeric one", "1", true},
        {"numeric false", "0", false},
        {"other number", "2", std::nullopt},
        {"prefix of true", "Tru", std::nullopt},
        {"empty", "", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(parseBool(c.text), c.value);
    }
}

TEST(SettingsStore, WholeNumbersReadOnlyWhenTheWholeTextIsOne) {
    struct Case {
        const char* label;
        const char* text;
        std::optional<long> value;
    };
    const Case cases[] = {
        {"negative, blanks around", " -15 ", -15},
        {"decimals", "3.5", std::nullopt},
        {"inner blank", "1 2", std::nullopt},
        {"blank", "  ", std::nullopt},
        {"too large", "99999999999999999999999", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(parseWhole(c.text), c.value);
    }
}

TEST(SettingsStore, MissingKeyGivesTheFallbackAndAFailedWriteIsReported) {
    zv::fakes::MemorySettingsStore store;
    EXPECT_EQ(zv::common::GetSetting(store, "Configura", "Porta", "LPT1"), "LPT1");
    EXPECT_TRUE(zv::common::SaveSetting(store, "Configura", "Porta", ""));
    EXPECT_EQ(zv::common::GetSetting(store, "Configura", "Porta", "LPT1"), "") << "an empty value is a value";

    store.failing = true;
    EXPECT_FALSE(zv::common::SaveSetting(store, "Configura", "Porta", "COM1"));
}
