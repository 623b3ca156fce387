#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/temp_folder.h"

namespace zv::platform {
namespace {

#ifndef _WIN32

// HOME in a folder of the test's own, XDG_DATA_HOME unset until a test sets it; both restored after.
class DataHome {
public:
    DataHome() {
        save("XDG_DATA_HOME", m_xdg);
        save("HOME", m_home);
        ::setenv("HOME", m_folder.path().c_str(), 1);
        ::unsetenv("XDG_DATA_HOME");
    }
    ~DataHome() {
        restore("XDG_DATA_HOME", m_xdg);
        restore("HOME", m_home);
    }
    DataHome(const DataHome&) = delete;
    DataHome& operator=(const DataHome&) = delete;

    void setXdg(const std::string& value) const { ::setenv("XDG_DATA_HOME", value.c_str(), 1); }
    std::filesystem::path operator/(std::string_view name) const { return m_folder / name; }

private:
    static void save(const char* name, std::optional<std::string>& into) {
        if (const char* value = std::getenv(name)) {
            into = value;
        }
    }
    static void restore(const char* name, const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name, value->c_str(), 1);
        } else {
            ::unsetenv(name);
        }
    }

    fakes::TempFolder m_folder;
    std::optional<std::string> m_xdg;
    std::optional<std::string> m_home;
};

std::string readAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(ProgramShortcut, GoesToTheUsersApplicationsFolder) {
    struct Case {
        const char* label;
        const char* xdg;  // nullptr: unset; a name: that folder below HOME; "./...": as given
        const char* expectedBelowHome;
    };
    const Case cases[] = {
        {"XDG_DATA_HOME set", "xdg", "xdg/applications/zavrello.desktop"},
        {"XDG_DATA_HOME unset", nullptr, ".local/share/applications/zavrello.desktop"},
        {"relative XDG_DATA_HOME ignored", "./relative", ".local/share/applications/zavrello.desktop"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const DataHome home;
        if (c.xdg != nullptr) {
            home.setXdg(c.xdg[0] == '.' ? std::string(c.xdg) : (home / c.xdg).string());
        }
        const ShortcutResult result = createProgramShortcut("/opt/zavrello/zavrello", "/opt/zavrello");
        EXPECT_TRUE(result.created);
        EXPECT_EQ(result.where, (home / c.expectedBelowHome).string());
        EXPECT_TRUE(std::filesystem::is_regular_file(home / c.expectedBelowHome));
    }
}

TEST(ProgramShortcut, EntryStartsTheProgramInItsFolder) {
    struct Case {
        const char* label;
        const char* program;
        const char* folder;
        const char* execLine;
        const char* pathLine;
    };
    const Case cases[] = {
        {"plain path", "/opt/zavrello/zavrello", "/opt/zavrello", "Exec=\"/opt/zavrello/zavrello\"\n",
         "Path=/opt/zavrello\n"},
        {"spaces and accents", "/home/ana/Meus Cálculos/zavrello", "/home/ana/Meus Cálculos",
         "Exec=\"/home/ana/Meus Cálculos/zavrello\"\n", "Path=/home/ana/Meus Cálculos\n"},
        {"shell and field-code characters", "/p/a$b`c\"d%e", "/p", "Exec=\"/p/a\\\\$b\\\\`c\\\\\"d%%e\"\n",
         "Path=/p\n"},
        {"backslash", "/p/a\\b", "/p\\q", "Exec=\"/p/a\\\\\\\\b\"\n", "Path=/p\\\\q\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const DataHome home;
        home.setXdg((home / "xdg").string());
        const ShortcutResult result = createProgramShortcut(c.program, c.folder);
        ASSERT_TRUE(result.created);
        const std::string entry = readAll(result.where);
        EXPECT_EQ(entry.rfind("[Desktop Entry]\n", 0), 0u) << entry;
        EXPECT_NE(entry.find("\nName=Zavrello\n"), std::string::npos) << entry;
        EXPECT_NE(entry.find("\nType=Application\n"), std::string::npos) << entry;
        EXPECT_NE(entry.find(c.execLine), std::string::npos) << entry;
        EXPECT_NE(entry.find(c.pathLine), std::string::npos) << entry;
    }
}

TEST(ProgramShortcut, RunningAgainReplacesTheEntry) {
    const DataHome home;
    home.setXdg((home / "xdg").string());
    ASSERT_TRUE(createProgramShortcut("/old/zavrello", "/old").created);
    const ShortcutResult result = createProgramShortcut("/new/zavrello", "/new");
    ASSERT_TRUE(result.created);
    const std::string entry = readAll(result.where);
    EXPECT_NE(entry.find("Exec=\"/new/zavrello\"\n"), std::string::npos) << entry;
    EXPECT_EQ(entry.find("/old"), std::string::npos) << entry;
    // Only the entry is left behind: no temporary file.
    std::vector<std::filesystem::path> names;
    for (const auto& file : std::filesystem::directory_iterator(home / "xdg" / "applications")) {
        names.push_back(file.path().filename());
    }
    EXPECT_EQ(names, std::vector<std::filesystem::path>{"zavrello.desktop"});
}

TEST(ProgramShortcut, ReportsAFolderThatCannotBeMade) {
    const DataHome home;
    fakes::writeRaw(home / "file", "not a folder");
    home.setXdg((home / "file").string());
    const ShortcutResult result = createProgramShortcut("/opt/zavrello/zavrello", "/opt/zavrello");
    EXPECT_FALSE(result.created);
    EXPECT_EQ(result.where, (home / "file" / "applications" / "zavrello.desktop").string());
}

#endif

}  // namespace
}  // namespace zv::platform
