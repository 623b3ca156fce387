#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/tray/restrictions.h"

namespace zv::fakes {

// A registry in memory that also records every call in the order it was made, as
// "read ROOT SUBKEY\NAME", "write ROOT SUBKEY\NAME=VALUE KIND" or "delete ROOT SUBKEY\NAME".
// Values are kept as the text written, whatever the kind; a missing value reads as "" and deletes quietly.
class MemoryRegistry final : public tray::Registry {
public:
    std::string RegistryReadString(std::string_view subkey, std::string_view valueName,
                                   int rootIndex) override {
        const std::string at = place(subkey, valueName, rootIndex);
        calls.push_back("read " + at);
        return values.contains(at) ? values[at] : std::string();
    }

    void RegistryWriteValue(std::string_view subkey, std::string_view valueName, std::string_view value,
                            int rootIndex, int kind) override {
        const std::string at = place(subkey, valueName, rootIndex);
        calls.push_back("write " + at + "=" + std::string(value) + " " + std::to_string(kind));
        values[at] = std::string(value);
    }

    void RegistryDeleteValue(std::string_view subkey, std::string_view valueName, int rootIndex) override {
        calls.push_back("delete " + place(subkey, valueName, rootIndex));
        values.erase(place(subkey, valueName, rootIndex));
    }

    std::map<std::string, std::string> values;  // by "ROOT SUBKEY\NAME"
    std::vector<std::string> calls;

private:
    static std::string place(std::string_view subkey, std::string_view valueName, int rootIndex) {
        return std::to_string(rootIndex) + " " + std::string(subkey) + "\\" + std::string(valueName);
    }
};

}  // namespace zv::fakes
