#include "core/tray/restrictions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "fakes/memory_registry.h"

namespace zv::tray {
namespace {

using fakes::MemoryRegistry;

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
    EXPECT_EQ(registry.calls[0], "write 7 Control Panel\\Desktop\\MenuShowDelay=10 1");
    for (std::size_t i = 1; i < registry.calls.size(); ++i) {
        const std::string& call = registry.calls[i];
        EXPECT_EQ(call.rfind("write 7 Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\", 0), 0u)
            << call;
        EXPECT_TRUE(call.ends_with("=1 4")) << call;
    }
    EXPECT_EQ(registry.values.size(), 17u) << "sixteen different policy values";
}

TEST(Restrictions, UnprotectingDeletesWhatProtectingWroteButTheMenuDelay) {
    MemoryRegistry written;
    protectWorkstation(written);
    std::vector<std::string> deletes;
    for (std::size_t i = 1; i < written.calls.size(); ++i) {
        deletes.push_back("delete" + written.calls[i].substr(5, written.calls[i].rfind('=') - 5));
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
