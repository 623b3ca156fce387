#include "copy_lock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "data_folder.h"

namespace zv::platform {
namespace {

std::filesystem::path freshFolder(const char* name) {
    const std::filesystem::path dir = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir;
}

TEST(CopyLock, EachRunningCopyGetsItsOwnSuffix) {
    const std::filesystem::path dir = freshFolder("zv-copy-lock");
    std::optional<CopyLock> first = CopyLock::acquire(dir);
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->suffix(), "");
    {
        const std::optional<CopyLock> second = CopyLock::acquire(dir);
        ASSERT_TRUE(second.has_value());
        EXPECT_EQ(second->suffix(), "2");
        const std::optional<CopyLock> third = CopyLock::acquire(dir);
        ASSERT_TRUE(third.has_value());
        EXPECT_EQ(third->suffix(), "3");
    }
    // Freed suffixes are taken again, the lowest first.
    EXPECT_EQ(CopyLock::acquire(dir)->suffix(), "2");
    first.reset();
    EXPECT_EQ(CopyLock::acquire(dir)->suffix(), "");
}

TEST(DataFolder, FollowsTheEnvironment) {
    const std::filesystem::path dir = freshFolder("zv-data-folder");
    ASSERT_EQ(::setenv("ZAVRELLO_HOME", (dir / "home").c_str(), 1), 0);
    EXPECT_EQ(dataFolder(), dir / "home");
    EXPECT_TRUE(std::filesystem::is_directory(dir / "home"));
    ::unsetenv("ZAVRELLO_HOME");
    ASSERT_EQ(::setenv("XDG_DATA_HOME", (dir / "xdg").c_str(), 1), 0);
    EXPECT_EQ(dataFolder(), dir / "xdg" / "zavrello");
    ::unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace zv::platform
