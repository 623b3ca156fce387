#include "core/calc/backup_file.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "core/calc/calculator.h"
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
    const fs::path path = folder / kBackupFileName;
    struct Case {
        const char* label;
        std::optional<std::string> before;  // nullopt: no file
        std::string after;
    };
    const Case cases[] = {
        {"missing file is created in UTF-8", std::nullopt, kRecord},
        {"plain ASCII file takes UTF-8", "    1,00 +\r\n", "    1,00 +\r\n" + kRecord},
        {"UTF-8 file stays UTF-8", "    1,00 ÷\r\n", "    1,00 ÷\r\n" + kRecord},
        {"Windows-1252 file stays Windows-1252", "    1,00 \xF7\r\n", "    1,00 \xF7\r\n" + kRecordCp1252},
        {"and a second record goes after the first", "    1,00 \xF7\r\n" + kRecordCp1252,
         "    1,00 \xF7\r\n" + kRecordCp1252 + kRecordCp1252},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        fs::remove(path);
        if (c.before) {
            writeRaw(path, *c.before);
        }
        EXPECT_EQ(BackupFile(path).append(kRecord), c.after.size());
        EXPECT_EQ(readFileBytes(path), c.after);
    }
    EXPECT_EQ(BackupFile(folder / "missing" / kBackupFileName).append(kRecord), std::nullopt);
}

TEST(BackupFile, ClearingWarnsOnceTheFileHoldsMoreThan3200000Bytes) {
    TempFolder folder;
    const fs::path path = folder / kBackupFileName;
    BackupFile backup(path);
    Calculator calc(common::Regional{}, {}, {nullptr, &backup});
    for (const std::uintmax_t sizeAfter : {3'200'000u, 3'200'001u}) {
        calc.type("5+");
        const std::size_t record = backupRecord(calc.tape().text(), {}).size();
        writeRaw(path, std::string(sizeAfter - record, 'x'));
        const ClearReport report = calc.clearTape();
        EXPECT_TRUE(report.backedUp);
        EXPECT_EQ(report.backupTooLarge, sizeAfter > 3'200'000u) << sizeAfter;
        EXPECT_EQ(fs::file_size(path), sizeAfter);
    }
}

}  // namespace
}  // namespace zv::calc
