#include "platform/copy_lock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "fakes/temp_folder.h"
#include "platform/data_folder.h"

namespace zv::platform {
namespace {

TEST(CopyLock, EachRunningCopyGetsItsOwnSuffix) {
    const fakes::TempFolder dir;
    std::optional<CopyLock> first = CopyLock::acquire(dir.path());
    EXPECT_EQ(first.value().suffix(), "");
    {
        const std::optional<CopyLock> second = CopyLock::acquire(dir.path());
        const std::optional<CopyLock> third = CopyLock::acquire(dir.path());
        EXPECT_EQ(second.value().suffix(), "2");
        EXPECT_EQ(third.value().suffix(), "3");
    }
    // Freed suffixes are taken again, the lowest first.
    EXPECT_EQ(CopyLock::acquire(dir.path()).value().suffix(), "2");
    first.reset();
    EXPECT_EQ(CopyLock::acquire(dir.path()).value().suffix(), "");
}

TEST(DataFolder, FollowsTheEnvironment) {
    const fakes::TempFolder dir;
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
