#include "platform/copy_lock.h"

#include <gtest/gtest.h>

#include <filesystem>

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

}  // namespace
}  // namespace zv::platform
