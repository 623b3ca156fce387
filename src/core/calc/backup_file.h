#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace zv::calc {

inline constexpr std::string_view kBackupFileName = "calcula.txt";
// At this size or more the user is asked to prune the backup.
inline constexpr std::uintmax_t kBackupWarningSize = 3200001;

// Where cleared tapes go.
class BackupStore {
public:
    virtual ~BackupStore() = default;
    // Appends one record; returns the store's size afterwards, nullopt when it failed.
    virtual std::optional<std::uintmax_t> append(std::string_view record) = 0;
};

// The backup file "calcula.txt": only ever appended to, each record flushed. A file written by
// an older Windows program (Windows-1252) keeps that encoding for the records added to it.
class BackupFile final : public BackupStore {
public:
    explicit BackupFile(std::filesystem::path path) : m_path(std::move(path)) {}
    std::optional<std::uintmax_t> append(std::string_view record) override;
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}  // namespace zv::calc
