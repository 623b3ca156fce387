#include "platform/copy_lock.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace zv::platform {
namespace {

constexpr std::intptr_t kNoHandle = -1;
constexpr int kMaxCopies = 99;

// An exclusive lock on `path`, or kNoHandle when another process holds it.
std::intptr_t tryLock(const std::filesystem::path& path) {
#ifdef _WIN32
    // No sharing: a second open fails while this handle lives.
    HANDLE h = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    return h == INVALID_HANDLE_VALUE ? kNoHandle : reinterpret_cast<std::intptr_t>(h);
#else
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) {
        return kNoHandle;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return kNoHandle;
    }
    return fd;
#endif
}

void unlock(std::intptr_t handle) {
#ifdef _WIN32
    CloseHandle(reinterpret_cast<HANDLE>(handle));
#else
    ::close(static_cast<int>(handle));
#endif
}

}  // namespace

std::optional<CopyLock> CopyLock::acquire(const std::filesystem::path& dataFolder) {
    for (int n = 1; n <= kMaxCopies; ++n) {
        std::string suffix = n == 1 ? std::string() : std::to_string(n);
        const std::intptr_t handle = tryLock(dataFolder / ("calc" + suffix + ".lock"));
        if (handle != kNoHandle) {
            return CopyLock(handle, std::move(suffix));
        }
    }
    return std::nullopt;
}

CopyLock::CopyLock(CopyLock&& other) noexcept
    : m_handle(other.m_handle), m_suffix(std::move(other.m_suffix)) {
    other.m_handle = kNoHandle;
}

CopyLock::~CopyLock() {
    if (m_handle != kNoHandle) {
        unlock(m_handle);
    }
}

}  // namespace zv::platform
