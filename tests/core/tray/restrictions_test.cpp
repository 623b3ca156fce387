#include "core/tray/restrictions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/memory_registry.h"

namespace zv::tray {
namespace {

using fakes::MemoryRegistry;
using Op = MemoryRegistry::Op;

TEST(RegistryRoot, IsTheNumberSpelledWithTheIndexAsLastDigit) {
    const std::pair<int, std::uint32_t> cases[] = {
        {8, 0x80000000u},  // classes root
        {7, 0x80000001u},  // current user
        {6, 0x80000002u},  // local machine
        {9, 0},            // no such digit
    };
    for (const auto& [rootIndex, root] : cases) {
        EXPECT_EQ(static_cast<std::uint32_t>(registryRoot(rootIndex)), root) << rootIndex;
    }
}

TEST(Restrictions, ProtectingWritesTheMenuDelayAsTextThenEachPolicyAsTheNumberOne) {
    MemoryRegistry registry;
    protectWorkstation(registry);
    ASSERT_EQ(registry.calls.size(), 17u);
    EXPECT_EQ(registry.calls[0], (MemoryRegistry::Call{Op::Write, "Control Panel\\Desktop", "MenuShowDelay",
                                                       "10", kCurrentUser, 1}));
    for (std::size_t i = 1; i < registry.calls.size(); ++i) {
        const MemoryRegistry::Call& call = registry.calls[i];
        SCOPED_TRACE(call.name);
        EXPECT_EQ(call.subkey.rfind("Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\", 0), 0u);
        EXPECT_EQ((std::tuple{call.op, call.value, call.root, call.kind}),
                  (std::tuple{Op::Write, std::string("1"), kCurrentUser, 4}));
    }
    EXPECT_EQ(registry.values.size(), 17u) << "sixteen different policy values";
}

TEST(Restrictions, UnprotectingDeletesWhatProtectingWroteButTheMenuDelay) {
    MemoryRegistry written;
    protectWorkstation(written);
    std::vector<MemoryRegistry::Call> deletes;
    for (std::size_t i = 1; i < written.calls.size(); ++i) {
        deletes.push_back({Op::Delete, written.calls[i].subkey, written.calls[i].name, "", kCurrentUser, 0});
    }
    for (const bool protectedBefore : {true, false}) {
        SCOPED_TRACE(protectedBefore ? "after protecting" : "never protected");
        MemoryRegistry registry;
        if (protectedBefore) {
            protectWorkstation(registry);
            registry.calls.clear();
        }
        unprotectWorkstation(registry);
        EXPECT_EQ(registry.calls, deletes);
        EXPECT_EQ(registry.values.size(), protectedBefore ? 1u : 0u);
        EXPECT_EQ(registry.RegistryReadString("Control Panel\\Desktop", "MenuShowDelay", kCurrentUser),
                  protectedBefore ? "10" : "");
    }
}

}  // namespace
}  // namespace zv::tray
