#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/common/text_file.h"
#include "fakes/desktop_entry.h"
#include "fakes/rows.h"
#include "fakes/scoped_env.h"
#include "fakes/temp_folder.h"

#ifdef _WIN32
#include "platform/windows/wide_text.h"
// clang-format off
#include <objbase.h>
#include <shlobj.h>
#include <shobjidl.h>
// clang-format on
#endif

namespace zv::platform {
namespace {

#ifndef _WIN32

using fakes::expectRows;

TEST(ProgramShortcut, GoesToTheUsersApplicationsFolder) {
    const fakes::TempFolder home;
    const fakes::ScopedEnv homeEnv("HOME", home.path().c_str());
    fakes::writeRaw(home / "file", "not a folder");
    // "created"/"failed", where it says the entry is (below HOME) and whether a file is there.
    auto place = [&](const char* xdg) {
        const fakes::ScopedEnv xdgEnv("XDG_DATA_HOME", xdg);
        const ShortcutResult result = createProgramShortcut("/opt/zavrello/zavrello", "/opt/zavrello");
        return std::string(result.created ? "created " : "failed ") +
               std::filesystem::path(result.where).lexically_relative(home.path()).string() +
               (std::filesystem::is_regular_file(result.where) ? " file" : "");
    };
    expectRows({
        {"XDG_DATA_HOME set", place((home / "xdg").c_str()),
         "created xdg/applications/br.com.zavrello.Zavrello.desktop file"},
        {"XDG_DATA_HOME unset", place(nullptr),
         "created .local/share/applications/br.com.zavrello.Zavrello.desktop file"},
        {"relative XDG_DATA_HOME ignored", place("./relative"),
         "created .local/share/applications/br.com.zavrello.Zavrello.desktop file"},
        {"a file where the folder should be", place((home / "file").c_str()),
         "failed file/applications/br.com.zavrello.Zavrello.desktop"},
    });
}

TEST(ProgramShortcut, EntryStartsTheProgramInItsFolderAndReplacesTheOneBefore) {
    const fakes::TempFolder home;
    const fakes::ScopedEnv xdgEnv("XDG_DATA_HOME", home.path().c_str());
    // The entry's Exec and Path lines; every run leaves that one entry, whole, and nothing else.
    auto lines = [&](const char* program, const char* folder) {
        const ShortcutResult result = createProgramShortcut(program, folder);
        const std::string entry = common::readFileBytes(result.where).value_or("");
        EXPECT_EQ(entry.rfind("[Desktop Entry]\n", 0), 0u) << entry;
        EXPECT_EQ(entry.find("[Desktop Entry]", 1), std::string::npos) << entry;
        EXPECT_NE(entry.find("\nName=Zavrello\n"), std::string::npos) << entry;
        EXPECT_NE(entry.find("\nType=Application\n"), std::string::npos) << entry;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(home / "applications"), {}), 1);
        const std::size_t exec = entry.find("\nExec="), path = entry.find("\nPath=");
        return entry.substr(exec + 1, entry.find('\n', exec + 1) - exec) +
               entry.substr(path + 1, entry.find('\n', path + 1) - path);
    };
    expectRows({
        {"plain path", lines("/opt/zavrello/zavrello", "/opt/zavrello"),
         "Exec=\"/opt/zavrello/zavrello\"\nPath=/opt/zavrello\n"},
        {"spaces and accents", lines("/home/ana/Meus Cálculos/zavrello", "/home/ana/Meus Cálculos"),
         "Exec=\"/home/ana/Meus Cálculos/zavrello\"\nPath=/home/ana/Meus Cálculos\n"},
        {"shell and field-code characters", lines("/p/a$b`c\"d%e", "/p"),
         "Exec=\"/p/a\\\\$b\\\\`c\\\\\"d%%e\"\nPath=/p\n"},
        {"backslash", lines("/p/a\\b", "/p\\q"), "Exec=\"/p/a\\\\\\\\b\"\nPath=/p\\\\q\n"},
    });
}

TEST(ProgramShortcut, ShowsAsTheInstalledEntryAndTakesItsPlace) {
    // The one entry the package installs.
    std::filesystem::path installed;
    for (const auto& file : std::filesystem::directory_iterator(ZV_DATA_DIR)) {
        if (file.path().extension() == ".desktop") {
            ASSERT_TRUE(installed.empty()) << installed << " and " << file.path();
            installed = file.path();
        }
    }
    ASSERT_FALSE(installed.empty());
    const fakes::TempFolder home;
    const fakes::ScopedEnv xdgEnv("XDG_DATA_HOME", home.path().c_str());
    const ShortcutResult result = createProgramShortcut("/usr/bin/zavrello", "/usr/bin");
    // Same desktop-file id: where the package is installed the menu shows one entry, the user's.
    EXPECT_EQ(std::filesystem::path(result.where).filename(), installed.filename());
    auto written = fakes::desktopEntryKeys(common::readFileBytes(result.where).value_or(""));
    EXPECT_EQ(written["TryExec"], "/usr/bin/zavrello");
    auto wanted = fakes::desktopEntryKeys(common::readFileBytes(installed).value_or(""));
    for (const char* key : {"Type", "Name", "Icon", "Categories", "StartupWMClass", "Terminal"}) {
        SCOPED_TRACE(key);
        EXPECT_FALSE(wanted[key].empty());
        EXPECT_EQ(written[key], wanted[key]);
    }
}

#else

// The link is read back through the shell's own interface: target, folder and hot key as given.
std::string linkSummary(const std::filesystem::path& link) {
    std::string summary;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IShellLinkW* shellLink = nullptr;
    IPersistFile* file = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&shellLink))) &&
        SUCCEEDED(shellLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file))) &&
        SUCCEEDED(file->Load(link.c_str(), STGM_READ))) {
        wchar_t path[MAX_PATH] = {};
        wchar_t folder[MAX_PATH] = {};
        WORD hotKey = 0;
        shellLink->GetPath(path, MAX_PATH, nullptr, 0);
        shellLink->GetWorkingDirectory(folder, MAX_PATH);
        shellLink->GetHotkey(&hotKey);
        summary = windows::narrow(path) + "|" + windows::narrow(folder) + "|" + std::to_string(hotKey);
    }
    if (file != nullptr) {
        file->Release();
    }
    if (shellLink != nullptr) {
        shellLink->Release();
    }
    CoUninitialize();
    return summary;
}

TEST(ProgramShortcut, StartMenuLinkStartsTheProgramInItsFolderWithCtrlShiftC) {
    const fakes::TempFolder dir;
    // Accents only: Wine keeps a link's target in the ANSI code page alone (Windows keeps it in
    // Unicode too), so a Greek or Cyrillic target would read back mangled there whatever we do.
    const std::filesystem::path folder = dir.path() / u8"Cálculos da Conceição";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "zavrello.exe").put('x');
    const std::string program = windows::narrow((folder / "zavrello.exe").wstring());
    const ShortcutResult result = createProgramShortcut(program, windows::narrow(folder.wstring()));
    ASSERT_TRUE(result.created);
    const std::filesystem::path link = std::filesystem::path(windows::widen(result.where));
    EXPECT_EQ(link.filename(), "Zavrello.lnk");
    EXPECT_EQ(link.parent_path().filename(), "Zavrello");
    EXPECT_EQ(link.parent_path().parent_path().filename(), "Programs");
    // Ctrl+Shift+C: 'C' in the low byte, HOTKEYF_CONTROL | HOTKEYF_SHIFT (3) in the high one.
    EXPECT_EQ(linkSummary(link),
              program + "|" + windows::narrow(folder.wstring()) + "|" + std::to_string(0x343));
    std::filesystem::remove_all(link.parent_path());
}

#endif

}  // namespace
}  // namespace zv::platform
