#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "core/tray/restrictions.h"

namespace zv::fakes {

// A registry in memory that also records every call in the order it was made. Values are kept
// as the text written, whatever the kind; a missing value reads as "" and deletes quietly.
class MemoryRegistry final : public tray::Registry {
public:
    enum class Op { Read, Write, Delete };
    struct Call {
        Op op;
        std::string subkey;
        std::string name;
        std::string value;  // written value; empty for reads and deletes
        int root;
        int kind;  // written kind; 0 for reads and deletes

        bool operator==(const Call&) const = default;
    };
    using Key = std::tuple<int, std::string, std::string>;

    std::string RegistryReadString(std::string_view subkey, std::string_view valueName,
                                   int rootIndex) override {
        calls.push_back({Op::Read, std::string(subkey), std::string(valueName), "", rootIndex, 0});
        const auto found = values.find(Key{rootIndex, subkey, valueName});
        return found == values.end() ? std::string() : found->second;
    }

    void RegistryWriteValue(std::string_view subkey, std::string_view valueName, std::string_view value,
                            int rootIndex, int kind) override {
        calls.push_back(
            {Op::Write, std::string(subkey), std::string(valueName), std::string(value), rootIndex, kind});
        values[Key{rootIndex, subkey, valueName}] = std::string(value);
    }

    void RegistryDeleteValue(std::string_view subkey, std::string_view valueName, int rootIndex) override {
        calls.push_back({Op::Delete, std::string(subkey), std::string(valueName), "", rootIndex, 0});
        values.erase(Key{rootIndex, subkey, valueName});
    }

    std::map<Key, std::string> values;
    std::vector<Call> calls;
};

}  // namespace zv::fakes
