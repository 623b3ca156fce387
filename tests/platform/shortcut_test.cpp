#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/common/text_file.h"
#include "fakes/desktop_entry.h"
#include "fakes/rows.h"
#include "fakes/scoped_env.h"
#include "fakes/temp_folder.h"

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

#endif

}  // namespace
}  // namespace zv::platform
