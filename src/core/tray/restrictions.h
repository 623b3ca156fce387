#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zv::tray {

// The system registry through the root-index rule: the root key is the signed 32-bit number read
// from "-214748364" followed by the digit of rootIndex (8 classes root, 7 current user, 6 local
// machine). Failures are not reported: a read gives "", a write or a delete does nothing.
class Registry {
public:
    virtual ~Registry() = default;
    virtual std::string RegistryReadString(std::string_view subkey, std::string_view valueName,
                                           int rootIndex) = 0;
    // kind 1: a string value; anything else: the value as a 32-bit number.
    virtual void RegistryWriteValue(std::string_view subkey, std::string_view valueName,
                                    std::string_view value, int rootIndex, int kind) = 0;
    virtual void RegistryDeleteValue(std::string_view subkey, std::string_view valueName, int rootIndex) = 0;
};

std::int32_t registryRoot(int rootIndex);

inline constexpr int kCurrentUser = 7;

struct PolicyValue {
    std::string_view subkey;
    std::string_view name;
};

// The sixteen per-user policy values, in the order they are written and deleted.
const std::array<PolicyValue, 16>& restrictionValues();

// Protecting writes "MenuShowDelay" = 10 under Control Panel\Desktop, then each policy value 1;
// unprotecting deletes the sixteen values and leaves MenuShowDelay as it is.
void protectWorkstation(Registry& registry);
void unprotectWorkstation(Registry& registry);

}  // namespace zv::tray
