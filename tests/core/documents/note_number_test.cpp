#include "core/documents/note_number.h"

#include <gtest/gtest.h>

#include "fakes/memory_settings_store.h"

namespace zv::documents {
namespace {

TEST(NoteNumber, TheNextOneFollowsTheSavedOne) {
    const std::tuple<const char*, const char*, long> cases[] = {
        {"first start", nullptr, 1}, {"saved as shown", "00041", 42}, {"saved plain", "7", 8},
        {"not a number", "abc", 1},  {"negative", "-5", 1},
    };
    for (const auto& [label, saved, next] : cases) {
        SCOPED_TRACE(label);
        fakes::MemorySettingsStore store;
        if (saved != nullptr) {
            store.write("Promissoria", "Numero", saved);
        }
        EXPECT_EQ(nextNoteNumber(store), next);
    }
}

TEST(NoteNumber, FiveDigitsAtLeast) {
    EXPECT_EQ(noteNumberText(1), "00001");
    EXPECT_EQ(noteNumberText(99999), "99999");
    EXPECT_EQ(noteNumberText(100000), "100000");
}

TEST(NoteNumber, PrintingOneProposesTheNext) {
    fakes::MemorySettingsStore store;
    ASSERT_TRUE(saveNoteNumber(store, nextNoteNumber(store)));
    EXPECT_EQ(store.values.at({"Promissoria", "Numero"}), "00001");
    EXPECT_EQ(noteNumberText(nextNoteNumber(store)), "00002");
}

}  // namespace
}  // namespace zv::documents
