#include "core/common/text_file.h"

#include <chrono>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

namespace zv::common {
namespace {

namespace fs = std::filesystem;

// Closes on scope exit; whoever needs fclose's verdict calls release() and closes by hand.
class FileHandle {
public:
    explicit FileHandle(std::FILE* file) : m_file(file) {}
    ~FileHandle() {
        if (m_file != nullptr) {
            std::fclose(m_file);
        }
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    std::FILE* get() const { return m_file; }
    std::FILE* release() { return std::exchange(m_file, nullptr); }

private:
    std::FILE* m_file;
};

bool writeAll(std::FILE* file, std::string_view bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

// Opens a new temporary file beside `target` whose name no other writer holds: "x" mode fails
// when the name exists, so two writers (or two running copies) never share one.
std::FILE* createTemporaryBeside(const fs::path& target, fs::path& tempPath) {
    // The clock is mixed in for platforms whose random_device is deterministic.
    std::mt19937_64 rng{
        std::random_device{}() ^
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
    for (int attempt = 0; attempt < 16; ++attempt) {
        char tag[24];
        std::snprintf(tag, sizeof tag, ".tmp-%012llx",
                      static_cast<unsigned long long>(rng() & 0xFFFFFFFFFFFFULL));
        tempPath = target;
        tempPath += tag;
        if (std::FILE* file = openFile(tempPath, "wbx")) {
            return file;
        }
        std::error_code ec;
        if (!fs::exists(tempPath, ec)) {
            return nullptr;  // the folder itself is not writable
        }
    }
    return nullptr;
}

}  // namespace

std::FILE* openFile(const fs::path& path, const char* mode) {
#ifdef _WIN32
    std::wstring wideMode;
    for (const char* c = mode; *c != '\0'; ++c) {
        wideMode += static_cast<wchar_t>(*c);
    }
    return _wfopen(path.c_str(), wideMode.c_str());
#else
    return std::fopen(path.c_str(), mode);
#endif
}

std::optional<std::string> readFileBytes(const fs::path& path) {
    FileHandle file{openFile(path, "rb")};
    if (file.get() == nullptr) {
        return std::nullopt;
    }
    std::string bytes;
    std::error_code ec;
    const std::uintmax_t expected = fs::file_size(path, ec);
    if (!ec && expected > 0) {
        // With room to grow: a tape read whole then takes its next lines without being copied.
        bytes.reserve(static_cast<std::size_t>(expected) + 64 * 1024);
        bytes.resize(static_cast<std::size_t>(expected));
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    }
    // The size is only a hint: the file may have grown since it was measured.
    char chunk[64 * 1024];
    while (!std::feof(file.get()) && !std::ferror(file.get())) {
        const std::size_t n = std::fread(chunk, 1, sizeof chunk, file.get());
        bytes.append(chunk, n);
        if (n < sizeof chunk) {
            break;
        }
    }
    if (std::ferror(file.get())) {
        return std::nullopt;
    }
    return bytes;
}

bool writeFileAtomically(const fs::path& path, std::string_view bytes) {
    fs::path tempPath;
    FileHandle file{createTemporaryBeside(path, tempPath)};
    if (file.get() == nullptr) {
        return false;
    }
    bool ok = writeAll(file.get(), bytes) && std::fflush(file.get()) == 0;
    ok = std::fclose(file.release()) == 0 && ok;
    std::error_code ec;
    if (ok) {
        fs::rename(tempPath, path, ec);
        ok = !ec;
    }
    if (!ok) {
        fs::remove(tempPath, ec);
    }
    return ok;
}

std::optional<std::uintmax_t> appendToFile(const fs::path& path, std::string_view bytes) {
    FileHandle file{openFile(path, "ab")};
    if (file.get() == nullptr) {
        return std::nullopt;
    }
    bool ok = writeAll(file.get(), bytes) && std::fflush(file.get()) == 0;
    ok = std::fclose(file.release()) == 0 && ok;
    if (!ok) {
        return std::nullopt;
    }
    std::error_code ec;
    const std::uintmax_t size = fs::file_size(path, ec);
    if (ec) {
        return std::nullopt;
    }
    return size;
}

}  // namespace zv::common
