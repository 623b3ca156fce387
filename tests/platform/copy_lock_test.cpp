#include "platform/copy_lock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "fakes/scoped_env.h"
#include "fakes/temp_folder.h"
#include "platform/data_folder.h"

namespace zv::platform {
namespace {

TEST(CopyLock, EachRunningCopyTakesTheLowestFreeSuffix) {
    const fakes::TempFolder dir;
    auto next = [&] { return CopyLock::acquire(dir.path()).value().suffix(); };
    std::optional<CopyLock> first = CopyLock::acquire(dir.path());
    std::optional<CopyLock> second = CopyLock::acquire(dir.path());
    EXPECT_EQ(first.value().suffix() + "|" + second.value().suffix() + "|" + next(), "|2|3");
    second.reset();
    EXPECT_EQ(next(), "2");
    first.reset();
    EXPECT_EQ(next(), "");
}

#ifdef _WIN32

std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

// %APPDATA% is the roaming profile folder, which holds the user's name: one the ANSI code page
// cannot spell must still find (and create) the folder, not a mangled neighbour of it.
TEST(DataFolder, IsZavrelloInTheUsersApplicationData) {
    const fakes::TempFolder dir;
    struct Case {
        const char* label;
        std::filesystem::path appData;
    };
    const Case cases[] = {
        {"plain", dir / "AppData"},
        {"accents", dir.path() / u8"Usuário João" / "AppData"},
        {"outside the ANSI code page", dir.path() / u8"Пользователь Ωμέγα" / "AppData"},
    };
    const fakes::ScopedEnv own("ZAVRELLO_HOME", nullptr);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fakes::ScopedEnv appData("APPDATA", utf8(c.appData).c_str());
        EXPECT_EQ(utf8(dataFolder()), utf8(c.appData / "Zavrello"));
        EXPECT_TRUE(std::filesystem::is_directory(c.appData / "Zavrello"));
    }
}

TEST(DataFolder, OwnFolderComesFirst) {
    const fakes::TempFolder dir;
    const std::filesystem::path own = dir.path() / u8"Cálculos Ωμέγα";
    const fakes::ScopedEnv appData("APPDATA", utf8(dir / "AppData").c_str());
    const fakes::ScopedEnv ownEnv("ZAVRELLO_HOME", utf8(own).c_str());
    EXPECT_EQ(utf8(dataFolder()), utf8(own));
    EXPECT_TRUE(std::filesystem::is_directory(own));
}

#else

TEST(DataFolder, FollowsTheEnvironmentAndIsCreated) {
    const fakes::TempFolder dir;
    const fakes::ScopedEnv xdg("XDG_DATA_HOME", (dir / "xdg").c_str());
    {
        const fakes::ScopedEnv own("ZAVRELLO_HOME", (dir / "own").c_str());
        EXPECT_EQ(dataFolder(), dir / "own");
        EXPECT_TRUE(std::filesystem::is_directory(dir / "own"));
    }
    const fakes::ScopedEnv own("ZAVRELLO_HOME", nullptr);
    EXPECT_EQ(dataFolder(), dir / "xdg" / "zavrello");
}

#endif

}  // namespace
}  // namespace zv::platform
