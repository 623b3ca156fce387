#include "common/text_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>
#include "fakes/temp_folder.h"

namespace zv::common {
namespace {

using fakes::TempFolder;
using fakes::writeRaw;

namespace fs = std::filesystem;

// A fresh folder under the system's temporary folder, removed with everything in it.
std::string allByteValues() {
    std::string bytes;
    for (int b = 0; b < 256; ++b) {
        bytes += static_cast<char>(b);
    }
    return bytes;
}

TEST(ReadFileBytes, ReturnsTheBytesUnchanged) {
    TempFolder folder;
    struct Case {
        const char* label;
        std::string bytes;
    };
    const Case cases[] = {
        {"empty file is not a failure", ""},
        {"line ends kept as they are", "a\r\nb\nc\r"},
        {"every byte value, NUL and Ctrl-Z included", allByteValues()},
        {"larger than one read", std::string(200'000, 'x') + "end"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        writeRaw(folder / "f.txt", c.bytes);
        const std::optional<std::string> read = readFileBytes(folder / "f.txt");
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(*read, c.bytes);
    }
}

TEST(ReadFileBytes, FailsOnWhatIsNotAReadableFile) {
    TempFolder folder;
    fs::create_directory(folder / "sub");
    EXPECT_FALSE(readFileBytes(folder / "missing.txt").has_value());
    EXPECT_FALSE(readFileBytes(folder / "sub").has_value());
}

TEST(WriteFileAtomically, LeavesExactlyTheNewBytesAndNoTemporary) {
    TempFolder folder;
    struct Case {
        const char* label;
        std::string before;  // empty: no file
        std::string bytes;
    };
    const Case cases[] = {
        {"creates a missing file", "", "1,00 +\r\n"},
        {"a shorter text leaves nothing of the longer one", "old line one\r\nold line two\r\n", "new\r\n"},
        {"a longer text", "x", std::string(100'000, 'y')},
        {"empty text empties the file", "something", ""},
        {"binary bytes unchanged", "", allByteValues()},
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
    struct Step {
        const char* label;
        std::string_view bytes;
        std::uintmax_t size;
        std::string_view content;
    };
    const Step steps[] = {
        {"creates the missing file", "first\r\n", 7, "first\r\n"},
        {"appends after what is there", "second\r\n", 15, "first\r\nsecond\r\n"},
        {"an empty append changes nothing", "", 15, "first\r\nsecond\r\n"},
        {"raw bytes kept", "\xD7\r\n", 18, "first\r\nsecond\r\n\xD7\r\n"},
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(s.label);
        EXPECT_EQ(appendToFile(path, s.bytes), s.size);
        EXPECT_EQ(readFileBytes(path), s.content);
    }
}

TEST(AppendToFile, FailsWhenTheFolderIsMissing) {
    TempFolder folder;
    EXPECT_FALSE(appendToFile(folder / "missing" / "calcula.txt", "x").has_value());
}

}  // namespace
}  // namespace zv::common
