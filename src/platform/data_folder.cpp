#include "platform/data_folder.h"

#include <cstdlib>
#include <system_error>

#ifdef _WIN32
#include "platform/windows/wide_text.h"
#endif

namespace zv::platform {
namespace {

#ifdef _WIN32
// The wide environment: getenv would hand over the ANSI code page's spelling, which loses any
// letter of the user's name that code page lacks.
std::filesystem::path fromEnv(const char* name) {
    const wchar_t* value = _wgetenv(windows::widen(name).c_str());
    return value != nullptr && *value != L'\0' ? std::filesystem::path(value) : std::filesystem::path();
}
#else
std::filesystem::path fromEnv(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? std::filesystem::path(value) : std::filesystem::path();
}
#endif

std::filesystem::path defaultFolder() {
#ifdef _WIN32
    std::filesystem::path base = fromEnv("APPDATA");
    return base.empty() ? std::filesystem::current_path() / "Zavrello" : base / "Zavrello";
#else
    std::filesystem::path base = fromEnv("XDG_DATA_HOME");
    if (base.empty()) {
        const std::filesystem::path home = fromEnv("HOME");
        base = home.empty() ? std::filesystem::current_path() : home / ".local" / "share";
    }
    return base / "zavrello";
#endif
}

}  // namespace

std::filesystem::path dataFolder() {
    std::filesystem::path folder = fromEnv("ZAVRELLO_HOME");
    if (folder.empty()) {
        folder = defaultFolder();
    }
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    return folder;
}

}  // namespace zv::platform
