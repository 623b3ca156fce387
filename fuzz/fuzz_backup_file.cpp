// Any bytes as an existing backup file of cleared tapes ("calcula.txt"), UTF-8 or Windows-1252
// or damaged, and a tape cleared onto it: nothing already there is lost or changed, the record
// goes in the file's own encoding, and the whole file still reads as text for the backup window.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <fuzzer/FuzzedDataProvider.h>

#include "core/calc/backup_file.h"
#include "core/calc/tape.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "fuzz_check.h"

namespace {

namespace fs = std::filesystem;
using namespace zv;

const fs::path& scratchFile() {
    static const fs::path path =
        fs::temp_directory_path() / ("zv-fuzz-backup-" + std::to_string(::getpid()) + ".txt");
    return path;
}

void writeBytes(const fs::path& path, const std::string& bytes) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ZV_FUZZ_CHECK(file != nullptr);
    ZV_FUZZ_CHECK(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    ZV_FUZZ_CHECK(std::fclose(file) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    // The tape being cleared is always the program's own UTF-8 text.
    std::string tape = input.ConsumeRandomLengthString(2000);
    if (!common::isValidUtf8(tape)) {
        tape = common::cp1252ToUtf8(tape);
    }
    const std::string record = calc::backupRecord(tape, common::DateTime{2026, 11, 23, 9, 8, 7});
    const std::string existing = input.ConsumeRemainingBytesAsString();

    const fs::path& path = scratchFile();
    writeBytes(path, existing);
    calc::BackupFile backup(path);
    const auto size_after = backup.append(record);
    const auto bytes = common::readFileBytes(path);
    ZV_FUZZ_CHECK(bytes.has_value());
    ZV_FUZZ_CHECK(size_after.has_value() && *size_after == bytes->size());

    ZV_FUZZ_CHECK(bytes->starts_with(existing));
    const std::string added = bytes->substr(existing.size());
    const bool windows1252 = !existing.empty() && !common::isValidUtf8(existing);
    ZV_FUZZ_CHECK(added == (windows1252 ? common::utf8ToCp1252(record) : record));

    // Old Windows-1252 bytes and the new ones can together begin with the three bytes of a
    // UTF-8 byte-order mark ("ï»" then a record opening with "¿"): such a file reads as text
    // that begins after the mark, and no reader can tell otherwise.
    if (!existing.starts_with("\xEF\xBB\xBF") && bytes->starts_with("\xEF\xBB\xBF")) {
        ZV_FUZZ_CHECK(common::isValidUtf8(common::decodeTextFile(*bytes)));
        return 0;
    }
    // A Windows-1252 file cut after a lone lead byte ("Ç" is C7) and a record whose first
    // character is a continuation byte there ("¯" is AF) can together be valid UTF-8, which the
    // backup window then reads as such. Records the program writes open with ASCII.
    if (windows1252 && common::isValidUtf8(*bytes)) {
        return 0;
    }
    // The backup window shows the old records as before, then the new one.
    const std::string shown = common::decodeTextFile(*bytes);
    ZV_FUZZ_CHECK(common::isValidUtf8(shown));
    ZV_FUZZ_CHECK(shown.starts_with(common::decodeTextFile(existing)));
    std::string expected = windows1252 ? common::cp1252ToUtf8(added) : record;
    // A byte-order mark that opens the file is the file's mark, not text of the record.
    if (existing.empty() && expected.starts_with("\xEF\xBB\xBF")) {
        expected.erase(0, 3);
    }
    ZV_FUZZ_CHECK(shown.ends_with(expected));
    return 0;
}
