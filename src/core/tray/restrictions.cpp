#include "core/tray/restrictions.h"

namespace zv::tray {

namespace {

constexpr std::string_view kExplorer = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
constexpr std::string_view kSystem = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
constexpr std::string_view kNetwork = "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Network";
constexpr std::string_view kDesktop = "Control Panel\\Desktop";

// The registry's value types as RegistryWriteValue's `kind`.
constexpr int kString = 1;
constexpr int kNumber = 4;

constexpr std::array<PolicyValue, 16> kRestrictionValues{{
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
}};

}  // namespace

std::int32_t registryRoot(int rootIndex) {
    // "-214748364" and one more digit: the digits 0 to 8 give -2147483640 to -2147483648 (8 the
    // classes root, 0x80000000); any other index is no root at all, so every call through it fails.
    if (rootIndex < 0 || rootIndex > 8) {
        return 0;
    }
    return static_cast<std::int32_t>(-2147483640LL - rootIndex);
}

const std::array<PolicyValue, 16>& restrictionValues() {
    return kRestrictionValues;
}

void protectWorkstation(Registry& registry) {
    // The shell reads MenuShowDelay as a string and the policy values as 32-bit numbers; a value
    // of the other type would be ignored, so each is written as the type it is read as.
    registry.RegistryWriteValue(kDesktop, "MenuShowDelay", "10", kCurrentUser, kString);
    for (const PolicyValue& value : kRestrictionValues) {
        registry.RegistryWriteValue(value.subkey, value.name, "1", kCurrentUser, kNumber);
    }
}

void unprotectWorkstation(Registry& registry) {
    // MenuShowDelay keeps the value protecting gave it.
    for (const PolicyValue& value : kRestrictionValues) {
        registry.RegistryDeleteValue(value.subkey, value.name, kCurrentUser);
    }
}

}  // namespace zv::tray
