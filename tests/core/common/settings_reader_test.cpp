#include "core/common/settings_reader.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::common {
namespace {

TEST(SettingsReader, WholeNumberOnlyWithinItsRange) {
    struct Case {
        const char* label;
        const char* stored;  // nullptr: the key is missing
        std::optional<int> value;
    };
    const Case cases[] = {
        {"low end", "1", 1},
        {"high end", "9", 9},
        {"below", "0", std::nullopt},
        {"above", "10", std::nullopt},
        {"blanks around", " 5 ", 5},
        {"not a number", "cinco", std::nullopt},
        {"decimals", "5,0", std::nullopt},
        {"empty", "", std::nullopt},
        {"missing", nullptr, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        fakes::MemorySettingsStore store;
        if (c.stored != nullptr) {
            store.write("Cheque", "Copias", c.stored);
        }
        const SettingsReader reader(store, "Cheque");
        EXPECT_EQ(reader.whole("Copias", 1, 9), c.value);
        int target = 7;
        reader.whole("Copias", 1, 9, target);
        EXPECT_EQ(target, c.value.value_or(7));
    }
}

TEST(SettingsReader, BooleanLeavesTheDefaultWhenItDoesNotRead) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Negrito", "-1");
    store.write("Cheque", "Ano", "talvez");
    const SettingsReader reader(store, "Cheque");
    bool bold = false;
    reader.boolean("Negrito", bold);
    EXPECT_TRUE(bold);
    bool year = true;
    reader.boolean("Ano", year);
    EXPECT_TRUE(year);
    reader.boolean("Missing", year);
    EXPECT_TRUE(year);
}

TEST(SettingsReader, ReadsOnlyItsOwnSection) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Banco", "Primeiro");
    store.write("Cheque1", "Banco", "Segundo");
    EXPECT_EQ(SettingsReader(store, "Cheque1").text("Banco"), "Segundo");
    EXPECT_EQ(SettingsReader(store, "Cheque").text("Banco"), "Primeiro");
    EXPECT_EQ(SettingsReader(store, "Cheque2").text("Banco"), std::nullopt);
}

}  // namespace
}  // namespace zv::common
