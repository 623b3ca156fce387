#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace zv::platform {

// Tells running copies apart: each copy holds an exclusive lock on a file of its own in the
// data folder for as long as it runs, and the system drops the lock when the process ends,
// however it ends. The first copy's suffix is empty, the next ones "2", "3", ...
class CopyLock {
public:
    // Takes the first free suffix; nullopt when no lock can be taken at all.
    static std::optional<CopyLock> acquire(const std::filesystem::path& dataFolder);

    CopyLock(CopyLock&& other) noexcept;
    CopyLock& operator=(CopyLock&&) = delete;
    CopyLock(const CopyLock&) = delete;
    CopyLock& operator=(const CopyLock&) = delete;
    ~CopyLock();

    const std::string& suffix() const { return m_suffix; }

private:
    CopyLock(std::intptr_t handle, std::string suffix) : m_handle(handle), m_suffix(std::move(suffix)) {}

    std::intptr_t m_handle;
    std::string m_suffix;
};

}  // namespace zv::platform
