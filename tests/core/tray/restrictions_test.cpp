#include "core/tray/restrictions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fakes/memory_registry.h"

namespace zv::tray {
namespace {

using fakes::MemoryRegistry;
using Op = MemoryRegistry::Op;

const std::string kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
const std::string kSystem = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
const std::string kNetwork = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Network";

// The sixteen values as the protect command lists them: Explorer's, the registry tools, the
// network set-up, then the remaining system pages.
const std::vector<std::pair<std::string, std::string>> kOrder = {
    {kExplorer, "NoSetFolders"},
    {kExplorer, "NoSetTaskbar"},
    {kExplorer, "NoSaveSettings"},
    {kSystem, "DisableRegistryTools"},
    {kNetwork, "NoNetSetup"},
    {kNetwork, "NoNetSetupIDPage"},
    {kNetwork, "NoNetSetupSecurityPage"},
    {kSystem, "NoSecCPL"},
    {kSystem, "NoPwdPage"},
    {kSystem, "NoAdminPage"},
    {kSystem, "NoProfilePage"},
    {kSystem, "NoDevMgrPage"},
    {kSystem, "NoConfigPage"},
    {kSystem, "NoFileSysPage"},
    {kSystem, "NoVirtMemPage"},
    {kSystem, "NoDispCPL"},
};

TEST(RegistryRoot, IsTheNumberSpelledWithTheIndexAsLastDigit) {
    struct Case {
        const char* label;
        int rootIndex;
        std::uint32_t root;
    };
    const Case cases[] = {
        {"classes root", 8, 0x80000000u},
        {"current user", 7, 0x80000001u},
        {"local machine", 6, 0x80000002u},
        {"no such digit", 9, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(static_cast<std::uint32_t>(registryRoot(c.rootIndex)), c.root);
    }
}

TEST(Restrictions, ProtectingWritesTheMenuDelayThenEachPolicyAsANumber) {
    MemoryRegistry registry;
    protectWorkstation(registry);
    std::vector<MemoryRegistry::Call> expected = {
        {Op::Write, "Control Panel\\Desktop", "MenuShowDelay", "10", kCurrentUser, 1}};
    for (const auto& [subkey, name] : kOrder) {
        expected.push_back({Op::Write, subkey, name, "1", kCurrentUser, 4});
    }
    EXPECT_EQ(registry.calls, expected);
}

TEST(Restrictions, UnprotectingDeletesAllSixteenAndKeepsTheMenuDelay) {
    struct Case {
        const char* label;
        bool protectedBefore;
    };
    const Case cases[] = {{"after protecting", true}, {"never protected", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        MemoryRegistry registry;
        if (c.protectedBefore) {
            protectWorkstation(registry);
            registry.calls.clear();
        }
        unprotectWorkstation(registry);
        std::vector<MemoryRegistry::Call> expected;
        for (const auto& [subkey, name] : kOrder) {
            expected.push_back({Op::Delete, subkey, name, "", kCurrentUser, 0});
        }
        EXPECT_EQ(registry.calls, expected);
        EXPECT_EQ(registry.values.size(), c.protectedBefore ? 1u : 0u);
        EXPECT_EQ(registry.RegistryReadString("Control Panel\\Desktop", "MenuShowDelay", kCurrentUser),
                  c.protectedBefore ? "10" : "");
    }
}

}  // namespace
}  // namespace zv::tray
