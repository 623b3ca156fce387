#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::platform {
namespace {

#ifndef _WIN32

// HOME in a folder of the test's own and XDG_DATA_HOME as given (nullptr: unset); both restored after.
class DataHome {
public:
    explicit DataHome(const char* xdgBelowHome) {
        for (const char* name : {"HOME", "XDG_DATA_HOME"}) {
            const char* value = std::getenv(name);
            m_saved.emplace_back(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
        }
        ::setenv("HOME", m_folder.path().c_str(), 1);
        ::unsetenv("XDG_DATA_HOME");
        if (xdgBelowHome != nullptr) {
            const std::string xdg =
                xdgBelowHome[0] == '.' ? xdgBelowHome : (m_folder / xdgBelowHome).string();
            ::setenv("XDG_DATA_HOME", xdg.c_str(), 1);
        }
    }
    ~DataHome() {
        for (const auto& [name, value] : m_saved) {
            value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
        }
    }
    DataHome(const DataHome&) = delete;
    DataHome& operator=(const DataHome&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return m_folder / name; }

private:
    fakes::TempFolder m_folder;
    std::vector<std::pair<const char*, std::optional<std::string>>> m_saved;
};

TEST(ProgramShortcut, GoesToTheUsersApplicationsFolder) {
    struct Case {
        const char* label;
        const char* xdg;  // below HOME; "./..." as given; nullptr: unset
        const char* expectedBelowHome;
        bool created = true;
    };
    const Case cases[] = {
        {"XDG_DATA_HOME set", "xdg", "xdg/applications/zavrello.desktop"},
        {"XDG_DATA_HOME unset", nullptr, ".local/share/applications/zavrello.desktop"},
        {"relative XDG_DATA_HOME ignored", "./relative", ".local/share/applications/zavrello.desktop"},
        {"a file where the folder should be", "file", "file/applications/zavrello.desktop", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const DataHome home(c.xdg);
        fakes::writeRaw(home / "file", "not a folder");
        const ShortcutResult result = createProgramShortcut("/opt/zavrello/zavrello", "/opt/zavrello");
        EXPECT_EQ(result.created, c.created);
        EXPECT_EQ(result.where, (home / c.expectedBelowHome).string());
        EXPECT_EQ(std::filesystem::is_regular_file(home / c.expectedBelowHome), c.created);
    }
}

TEST(ProgramShortcut, EntryStartsTheProgramInItsFolderAndReplacesTheOneBefore) {
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
    const DataHome home("xdg");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const ShortcutResult result = createProgramShortcut(c.program, c.folder);
        ASSERT_TRUE(result.created);
        const std::string entry = common::readFileBytes(result.where).value_or("");
        EXPECT_EQ(entry.rfind("[Desktop Entry]\n", 0), 0u) << entry;
        for (const std::string line : {"\nName=Zavrello\n", "\nType=Application\n", c.execLine, c.pathLine}) {
            EXPECT_NE(entry.find(line), std::string::npos) << line << " in\n" << entry;
        }
        // Each run replaces the entry before it and leaves nothing else behind.
        EXPECT_EQ(entry.find("[Desktop Entry]", 1), std::string::npos) << entry;
        std::vector<std::filesystem::path> names;
        for (const auto& file : std::filesystem::directory_iterator(home / "xdg" / "applications")) {
            names.push_back(file.path().filename());
        }
        EXPECT_EQ(names, std::vector<std::filesystem::path>{"zavrello.desktop"});
    }
}

#endif

}  // namespace
}  // namespace zv::platform
