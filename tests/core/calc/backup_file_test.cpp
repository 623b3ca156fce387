#include "core/calc/backup_file.h"

#include <gtest/gtest.h>

#include <string>

#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

using common::readFileBytes;
using fakes::TempFolder;
using fakes::writeRaw;
namespace fs = std::filesystem;

const std::string kRecord =
    "                    7,00 ×\r\n        BKP = 10:20:30 hs.\r\n =========================\r\n";
const std::string kRecordCp1252 =
    "                    7,00 \xD7\r\n        BKP = 10:20:30 hs.\r\n =========================\r\n";

TEST(BackupFile, AppendsInTheEncodingTheFileAlreadyHas) {
    TempFolder folder;
    struct Case {
        const char* label;
        const char* before;  // nullptr: no file
        std::string after;
    };
    const Case cases[] = {
        {"missing file is created in UTF-8", nullptr, kRecord},
        {"plain ASCII file takes UTF-8", "    1,00 +\r\n", "    1,00 +\r\n" + kRecord},
        {"UTF-8 file stays UTF-8", "    1,00 ÷\r\n", "    1,00 ÷\r\n" + kRecord},
        {"Windows-1252 file stays Windows-1252", "    1,00 \xF7\r\n", "    1,00 \xF7\r\n" + kRecordCp1252},
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
    // A second record goes after the first, which is never rewritten.
    BackupFile backup(folder / kBackupFileName);
    EXPECT_EQ(backup.append(kRecord), 2 * kRecordCp1252.size() + 12);
    EXPECT_EQ(readFileBytes(backup.path()), "    1,00 \xF7\r\n" + kRecordCp1252 + kRecordCp1252);
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
    EXPECT_FALSE(BackupFile(folder / "missing" / kBackupFileName).append(kRecord).has_value());
}

}  // namespace
}  // namespace zv::calc
