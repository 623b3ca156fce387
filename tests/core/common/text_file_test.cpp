#include "core/common/text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/temp_folder.h"

namespace zv::common {
namespace {

using fakes::TempFolder;
using fakes::writeRaw;

namespace fs = std::filesystem;

std::string allByteValues() {
    std::string bytes;
    for (int b = 0; b < 256; ++b) {
        bytes += static_cast<char>(b);
    }
    return bytes;
}

TEST(ReadFileBytes, ReturnsTheBytesUnchanged) {
    TempFolder folder;
    // Empty is not a failure; NUL, Ctrl-Z and lone CR stay; more than one read.
    for (const std::string& bytes : {std::string(), allByteValues(), std::string(200'000, 'x') + "end"}) {
        writeRaw(folder / "f.txt", bytes);
        EXPECT_EQ(readFileBytes(folder / "f.txt"), bytes);
    }
}

TEST(WriteFileAtomically, LeavesExactlyTheNewBytesAndNoTemporary) {
    TempFolder folder;
    struct Case {
        const char* label;
        std::string before;  // empty: no file
        std::string bytes;
    };
    const Case cases[] = {
        {"creates a missing file", "", allByteValues()},
        {"a shorter text leaves nothing of the longer one", "old line one\r\nold line two\r\n", "new\r\n"},
        {"empty text empties the file", "something", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fs::path target = folder / "tape.fita";
        fs::remove(target);
        if (!c.before.empty()) {
            writeRaw(target, c.before);
        }
        ASSERT_TRUE(writeFileAtomically(target, c.bytes));
        EXPECT_EQ(readFileBytes(target), c.bytes);
        EXPECT_EQ(folder.entries(), std::vector<fs::path>{"tape.fita"});
    }
}

TEST(WriteFileAtomically, FailureLeavesTheOldFileAndNoTemporary) {
    TempFolder folder;
    EXPECT_FALSE(writeFileAtomically(folder / "no-such-folder" / "f.txt", "x"));

    // Renaming a file over a folder fails after the temporary was written.
    fs::create_directory(folder / "taken");
    writeRaw(folder / "taken" / "inside.txt", "kept");
    EXPECT_FALSE(writeFileAtomically(folder / "taken", "x"));
    EXPECT_EQ(folder.entries(), std::vector<fs::path>{"taken"});
    EXPECT_EQ(readFileBytes(folder / "taken" / "inside.txt"), "kept");
}

TEST(AppendToFile, AddsAtTheEndAndReportsTheSize) {
    TempFolder folder;
    const fs::path path = folder / "calcula.txt";
    EXPECT_EQ(appendToFile(path, "first\r\n"), 7u);  // created
    EXPECT_EQ(appendToFile(path, "\xD7\r\n"), 10u);
    EXPECT_EQ(appendToFile(path, ""), 10u);
    EXPECT_EQ(readFileBytes(path), "first\r\n\xD7\r\n");
}

TEST(TextFiles, FailWhereThereIsNoFile) {
    TempFolder folder;
    fs::create_directory(folder / "sub");
    EXPECT_FALSE(readFileBytes(folder / "missing.txt").has_value());
    EXPECT_FALSE(readFileBytes(folder / "sub").has_value());
    EXPECT_FALSE(appendToFile(folder / "missing" / "calcula.txt", "x").has_value());
}

}  // namespace
}  // namespace zv::common
