#include "platform/shortcut.h"

#include <filesystem>
#include <system_error>

#include "platform/desktop_identity.h"

#ifdef _WIN32
// windows.h (through wide_text.h) before the shell headers, which depend on its types.
#include "platform/windows/wide_text.h"
// clang-format off
#include <objbase.h>
#include <shlobj.h>
#include <shobjidl.h>
#include <knownfolders.h>
#include <commctrl.h>
// clang-format on
#else
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#endif

namespace zv::platform {

#ifdef _WIN32

ShortcutResult createProgramShortcut(const std::string& programPath, const std::string& workingFolder) {
    PWSTR programs = nullptr;
    if (FAILED(SHGetKnownFolderPath(FOLDERID_Programs, KF_FLAG_CREATE, nullptr, &programs))) {
        CoTaskMemFree(programs);
        return {};
    }
    const std::filesystem::path group = std::filesystem::path(programs) / L"Zavrello";
    CoTaskMemFree(programs);
    const std::filesystem::path link = group / L"Zavrello.lnk";
    ShortcutResult result{false, windows::narrow(link.wstring())};
    std::error_code ec;
    std::filesystem::create_directories(group, ec);
    if (ec) {
        return result;
    }

    // The window program's thread usually has COM already (Qt sets up OLE for drag and drop);
    // S_FALSE then, which still needs its matching uninitialise. A thread in another apartment
    // (RPC_E_CHANGED_MODE) can still create the in-process shell link.
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IShellLinkW* shellLink = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&shellLink)))) {
        const std::wstring target = windows::widen(programPath);
        const std::wstring folder = windows::widen(workingFolder);
        // Ctrl+Shift+C: the key in the low byte, the modifiers in the high one (0x343).
        constexpr WORD kHotKey = MAKEWORD('C', HOTKEYF_CONTROL | HOTKEYF_SHIFT);
        IPersistFile* file = nullptr;
        if (SUCCEEDED(shellLink->SetPath(target.c_str())) &&
            SUCCEEDED(shellLink->SetWorkingDirectory(folder.c_str())) &&
            SUCCEEDED(shellLink->SetHotkey(kHotKey)) &&
            SUCCEEDED(shellLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)))) {
            result.created = SUCCEEDED(file->Save(link.c_str(), TRUE));
            file->Release();
        }
        shellLink->Release();
    }
    if (SUCCEEDED(com)) {
        CoUninitialize();
    }
    return result;
}

#else

namespace {

std::filesystem::path applicationsFolder() {
    // A relative XDG_DATA_HOME is invalid and must be ignored.
    const char* xdg = std::getenv("XDG_DATA_HOME");
    if (xdg != nullptr && *xdg == '/') {
        return std::filesystem::path(xdg) / "applications";
    }
    const char* home = std::getenv("HOME");
    const std::filesystem::path base =
        home != nullptr && *home != '\0' ? std::filesystem::path(home) : std::filesystem::current_path();
    return base / ".local" / "share" / "applications";
}

// Escapes of a desktop-entry string value: backslash and control characters.
std::string escapeString(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\t':
                out += "\\t";
                break;
            case '\r':
                out += "\\r";
                break;
            default:
                out += c;
        }
    }
    return out;
}

// Exec= holds a command line: the program is one quoted argument, inside which the quote,
// backquote, dollar and backslash take a backslash, and % is doubled (it would start a field
// code). The string escapes apply on top, so a literal backslash ends up as four.
std::string execArgument(const std::string& program) {
    std::string quoted = "\"";
    for (const char c : program) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') {
            quoted += '\\';
        } else if (c == '%') {
            quoted += '%';
        }
        quoted += c;
    }
    quoted += '"';
    return escapeString(quoted);
}

}  // namespace

// Desktop entries have no standard hot key: Ctrl+Shift+C of the Windows shortcut has no
// counterpart here, and a global shortcut is left to the user's desktop settings.
ShortcutResult createProgramShortcut(const std::string& programPath, const std::string& workingFolder) {
    const std::filesystem::path folder = applicationsFolder();
    // Named as the installed entry, so that where the program is installed it takes that entry's
    // place in the menu instead of showing the program twice; TryExec hides it once the program
    // is gone.
    const std::string name = std::string(kApplicationId) + ".desktop";
    const std::filesystem::path entry = folder / name;
    ShortcutResult result{false, entry.string()};
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    if (ec) {
        return result;
    }
    const std::string text =
        "[Desktop Entry]\nType=Application\nName=Zavrello\nExec=" + execArgument(programPath) +
        "\nTryExec=" + escapeString(programPath) + "\nPath=" + escapeString(workingFolder) +
        "\nIcon=" + std::string(kApplicationId) + "\nCategories=" + std::string(kMenuCategories) +
        "\nStartupWMClass=" + std::string(kWindowClass) + "\nTerminal=false\n";

    // Written beside the entry and renamed over it, so a menu never reads half an entry.
    const std::filesystem::path temp = folder / ("." + name + "." + std::to_string(::getpid()) + ".tmp");
    std::FILE* file = std::fopen(temp.c_str(), "wb");
    if (file == nullptr) {
        return result;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool flushed = std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0;
    const bool closed = std::fclose(file) == 0;
    if (!written || !flushed || !closed) {
        std::filesystem::remove(temp, ec);
        return result;
    }
    std::filesystem::rename(temp, entry, ec);
    if (ec) {
        std::filesystem::remove(temp, ec);
        return result;
    }
    result.created = true;
    return result;
}

#endif

}  // namespace zv::platform
