#include "core/common/settings_reader.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::common {
namespace {

TEST(SettingsReader, WholeNumberOnlyWithinItsRange) {
    const std::tuple<const char*, const char*, std::optional<int>> cases[] = {
        {"low end", "1", 1},
        {"high end", "9", 9},
        {"below", "0", std::nullopt},
        {"above", "10", std::nullopt},
        {"blanks around", " 5 ", 5},
        {"decimals", "5,0", std::nullopt},
        {"missing", nullptr, std::nullopt},
    };
    for (const auto& [label, stored, value] : cases) {
        SCOPED_TRACE(label);
        fakes::MemorySettingsStore store;
        if (stored != nullptr) {
            store.write("Cheque", "Copias", stored);
        }
        const SettingsReader reader(store, "Cheque");
        EXPECT_EQ(reader.whole("Copias", 1, 9), value);
        int target = 7;
        reader.whole("Copias", 1, 9, target);
        EXPECT_EQ(target, value.value_or(7));
    }
}

TEST(SettingsReader, BooleanKeepsTheTargetWhenItDoesNotRead) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Negrito", "-1");
    store.write("Cheque", "Ano", "talvez");
    for (const auto& [key, before, after] :
         {std::tuple{"Negrito", false, true}, {"Ano", true, true}, {"Missing", true, true}}) {
        bool target = before;
        SettingsReader(store, "Cheque").boolean(key, target);
        EXPECT_EQ(target, after) << key;
    }
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
