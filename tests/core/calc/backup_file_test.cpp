#include "calc/backup_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

#include "common/text_encoding.h"
#include "common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

using fakes::TempFolder;
using fakes::writeRaw;

namespace fs = std::filesystem;
using common::readFileBytes;

constexpr std::string_view kRecord =
    "                    7,00 ×\r\n        BKP = 10:20:30 hs.\r\n =========================\r\n";
constexpr std::string_view kRecordCp1252 =
    "                    7,00 \xD7\r\n        BKP = 10:20:30 hs.\r\n =========================\r\n";

TEST(BackupFile, AppendsInTheEncodingTheFileAlreadyHas) {
    TempFolder folder;
    struct Case {
        const char* label;
        const char* before;  // nullptr: no file
        std::string after;
    };
    const std::string oldCp1252 = "    1,00 \xF7\r\n";
    const std::string oldUtf8 = "    1,00 ÷\r\n";
    const Case cases[] = {
        {"missing file is created in UTF-8", nullptr, std::string(kRecord)},
        {"empty file takes UTF-8", "", std::string(kRecord)},
        {"plain ASCII file takes UTF-8", "    1,00 +\r\n", "    1,00 +\r\n" + std::string(kRecord)},
        {"UTF-8 file stays UTF-8", oldUtf8.c_str(), oldUtf8 + std::string(kRecord)},
        {"Windows-1252 file stays Windows-1252", oldCp1252.c_str(), oldCp1252 + std::string(kRecordCp1252)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fs::path path = folder / kBackupFileName;
        fs::remove(path);
        if (c.before != nullptr) {
            writeRaw(path, c.before);
        }
        BackupFile backup(path);
        EXPECT_EQ(backup.append(kRecord), c.after.size());
        EXPECT_EQ(readFileBytes(path), c.after);
        // Either way the whole file reads back as the same text.
        EXPECT_TRUE(common::decodeTextFile(c.after).ends_with(kRecord));
    }
}

TEST(BackupFile, NeverRewritesEarlierRecords) {
    TempFolder folder;
    BackupFile backup(folder / kBackupFileName);
    ASSERT_EQ(backup.append(kRecord), kRecord.size());
    ASSERT_EQ(backup.append(kRecord), 2 * kRecord.size());
    EXPECT_EQ(readFileBytes(backup.path()), std::string(kRecord) + std::string(kRecord));
}

TEST(BackupFile, ReportsTheSizeThatCrossesTheWarning) {
    TempFolder folder;
    const fs::path path = folder / kBackupFileName;
    writeRaw(path, std::string(kBackupWarningSize - 2, 'x'));
    BackupFile backup(path);
    EXPECT_EQ(backup.append("y"), kBackupWarningSize - 1);
    EXPECT_EQ(backup.append("z"), kBackupWarningSize);
}

TEST(BackupFile, FailsWhenTheFolderIsMissing) {
    TempFolder folder;
    BackupFile backup(folder / "missing" / kBackupFileName);
    EXPECT_FALSE(backup.append(kRecord).has_value());
}

}  // namespace
}  // namespace zv::calc
