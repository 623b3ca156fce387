#include "core/common/text_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
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

TEST(ReadFileBytes, ReturnsTheBytesUnchangedOrFailsWhereThereIsNoFile) {
    TempFolder folder;
    // Empty is not a failure; NUL, Ctrl-Z and lone CR stay; more than one read.
    for (const std::string& bytes : {std::string(), allByteValues(), std::string(200'000, 'x') + "end"}) {
        writeRaw(folder / "f.txt", bytes);
        EXPECT_EQ(readFileBytes(folder / "f.txt"), bytes);
    }
    EXPECT_EQ(readFileBytes(folder / "missing.txt"), std::nullopt);
    EXPECT_EQ(readFileBytes(folder.path()), std::nullopt);
}

TEST(WriteFileAtomically, LeavesExactlyTheNewBytesAndNoTemporary) {
    TempFolder folder;
    const fs::path target = folder / "tape.fita";
    // A missing file, then a shorter text over a longer one, then empty text over something.
    for (const std::string& bytes : {allByteValues(), std::string("new\r\n"), std::string()}) {
        ASSERT_TRUE(writeFileAtomically(target, bytes));
        EXPECT_EQ(readFileBytes(target), bytes);
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
    EXPECT_EQ(appendToFile(folder / "missing" / "calcula.txt", "x"), std::nullopt);
}

// Every helper reaches a file below a folder the ANSI code page of Windows cannot spell.
TEST(TextFiles, ReachAFolderNamedInAnyScript) {
    TempFolder folder;
    const fs::path dir = folder.path() / u8"Usuário Ωμέγα Пользователь";
    fs::create_directories(dir);
    const fs::path path = dir / u8"fita çã.txt";
    ASSERT_TRUE(writeFileAtomically(path, "a\r\n"));
    EXPECT_EQ(appendToFile(path, "b\r\n"), 6u);
    EXPECT_EQ(readFileBytes(path), "a\r\nb\r\n");
    std::ifstream in(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "a\r\nb\r\n");
}

}  // namespace
}  // namespace zv::common
