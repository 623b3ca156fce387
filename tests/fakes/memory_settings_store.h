#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/common/settings_store.h"

namespace zv::fakes {

// A settings store in memory, keyed by (section, key); `failing` makes every write fail and
// change nothing, as a store that cannot be written does.
class MemorySettingsStore final : public common::SettingsStore {
public:
    using Key = std::pair<std::string, std::string>;

    std::optional<std::string> read(std::string_view section, std::string_view key) const override {
        const auto found = values.find(Key{section, key});
        if (found == values.end()) {
            return std::nullopt;
        }
        return found->second;
    }

    bool write(std::string_view section, std::string_view key, std::string_view value) override {
        if (failing) {
            return false;
        }
        values[Key{section, key}] = std::string(value);
        return true;
    }

    std::map<Key, std::string> values;
    bool failing = false;
};

}  // namespace zv::fakes
