#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calc/backup_file.h"

namespace zv::fakes {

// A backup store in memory; `failing` makes every append fail, `baseSize` pretends the store
// already holds that many bytes.
class MemoryBackup final : public calc::BackupStore {
public:
    std::optional<std::uintmax_t> append(std::string_view record) override {
        if (failing) {
            return std::nullopt;
        }
        records.emplace_back(record);
        contents.append(record);
        return baseSize + contents.size();
    }

    std::vector<std::string> records;
    std::string contents;
    std::uintmax_t baseSize = 0;
    bool failing = false;
};

}  // namespace zv::fakes
