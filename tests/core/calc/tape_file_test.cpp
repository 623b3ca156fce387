#include "core/calc/tape_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/common/text_file.h"
#include "fakes/sample_text.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

using common::readFileBytes;
using fakes::TempFolder;
using fakes::writeRaw;
namespace fs = std::filesystem;

const std::string kPlus = fakes::tapeLine("250,00", "+");
const std::string kTimes = fakes::tapeLine("250,00", "×");  // one byte longer
const std::string kDivide = fakes::tapeLine("4,00", "÷");
const std::string kTotal = fakes::tapeLine("246,00", "T") + fakes::kStrikeLine;

TEST(TapeFilePath, NamesTheFileAfterTheRunningCopy) {
    EXPECT_EQ(tapeFilePath("data", ""), fs::path("data") / "calc.fita");
    EXPECT_EQ(tapeFilePath("data", "2"), fs::path("data") / "calc2.fita");
}

TEST(LoadTape, ReadsAnyLineEndAndEncodingAsCrLfUtf8) {
    TempFolder folder;
    struct Case {
        const char* label;
        std::string_view bytes;
        std::string_view text;
    };
    const Case cases[] = {
        {"empty file", "", ""},
        {"mixed line ends", "a\r\nb\nc\rd\r\n", "a\r\nb\r\nc\r\nd\r\n"},
        {"blank lines inside are kept", "a\r\n\r\n\r\nb\r\n", "a\r\n\r\n\r\nb\r\n"},
        {"Windows-1252 signs", "    9,00 \xF7\r\n    2,00 \xD7\r\n", "    9,00 ÷\r\n    2,00 ×\r\n"},
        // A write cut at a disk page damages one line; the others keep their own encoding.
        {"one damaged line among UTF-8 lines", "    2,00 ×\r\n    3,00 \xC3\r\n    4,00 ÷\r\n",
         "    2,00 ×\r\n    3,00 Ã\r\n    4,00 ÷\r\n"},
        {"character cut at the end of the file", "    2,00 ×\r\n    3,00 \xC3",
         "    2,00 ×\r\n    3,00 \r\n"},
        {"Windows-1252 cut line at the end", "    2,00 \xD7\r\n    3,0", "    2,00 ×\r\n    3,0\r\n"},
        // What a crash can leave behind while a longer line is replaced by a shorter one.
        {"stray LF after the last CR LF", "a\r\nb\r\n\n", "a\r\nb\r\n"},
        {"stray CR after the last CR LF", "a\r\nb\r\n\r", "a\r\nb\r\n"},
        {"blanks after the last line", "a\r\nb\r\n     ", "a\r\nb\r\n"},
        {"blank last fragment of an LF file", "a\nb\n  \t", "a\r\nb\r\n"},
        {"only blanks", "   ", ""},
        {"last line without line end", "a\nb", "a\r\nb\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        writeRaw(folder / "calc.fita", c.bytes);
        EXPECT_EQ(loadTape(folder / "calc.fita"), std::string(c.text));
    }
}

TEST(LoadTape, ATapeWrittenBackFromWhatWasReadReadsTheSame) {
    TempFolder folder;
    struct Case {
        const char* label;
        std::string_view bytes;
    };
    const Case cases[] = {
        {"byte-order mark twice", "\xEF\xBB\xBF\xEF\xBB\xBF    2,00 +\r\n"},
        {"byte-order mark twice before blanks", "\xEF\xBB\xBF\xEF\xBB\xBF             "},
        {"byte-order mark three times on a Windows-1252 tape",
         "\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBB\xBF 9 \xF7\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        writeRaw(folder / "calc.fita", c.bytes);
        const std::optional<std::string> loaded = loadTape(folder / "calc.fita");
        ASSERT_TRUE(loaded.has_value());
        {
            TapeFile file(folder / "calc.fita");
            ASSERT_TRUE(file.open(*loaded));
        }
        EXPECT_EQ(loadTape(folder / "calc.fita"), loaded);
    }
}

TEST(LoadTape, MissingFileIsAnEmptyTapeButAnUnreadableOneFails) {
    TempFolder folder;
    EXPECT_EQ(loadTape(folder / "calc.fita"), std::string());
    fs::create_directory(folder / "calc2.fita");
    EXPECT_FALSE(loadTape(folder / "calc2.fita").has_value());
}

TEST(TapeFileOpen, MakesTheFileHoldTheTapeAndLeavesAnIdenticalFileUntouched) {
    TempFolder folder;
    const fs::path path = folder / "calc.fita";
    const std::string tape = kPlus + kTimes;
    const std::optional<std::string> befores[] = {
        std::nullopt,
        fakes::tapeLine("250,00", "-") + kTimes,    // another tape of the same size
        kPlus + fakes::tapeLine("250,00", "\xD7"),  // the same text in Windows-1252
        tape + "\n",                                // with a stray line end
        tape,
    };
    for (const std::optional<std::string>& before : befores) {
        SCOPED_TRACE(before.value_or("no file"));
        fs::remove(path);
        if (before) {
            writeRaw(path, *before);
        }
        // Whole minutes: NTFS keeps 100 ns and FAT 2 s, so a finer time would not read back.
        const auto past = std::chrono::floor<std::chrono::minutes>(fs::file_time_type::clock::now()) -
                          std::chrono::hours(24);
        if (before == tape) {
            fs::last_write_time(path, past);
        }
        TapeFile file(path);
        EXPECT_TRUE(file.open(tape));
        EXPECT_TRUE(file.healthy());
        EXPECT_EQ(readFileBytes(path), tape);
        EXPECT_EQ(fs::last_write_time(path) == past, before == tape);
    }
    TapeFile missingFolder(folder / "missing" / "calc.fita");
    EXPECT_FALSE(missingFolder.open(kPlus));
    EXPECT_FALSE(missingFolder.healthy());
}

std::optional<std::string> bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The data folder lies below the user's profile, whose name may be in any script; the tape kept
// there goes to disk and back byte for byte, CR LF and all.
TEST(TapeFile, KeepsItsCrLfLinesInAFolderNamedInAnyScript) {
    TempFolder folder;
    struct Case {
        const char* label;
        const char8_t* name;
    };
    const Case cases[] = {
        {"accents", u8"Cálculos da Conceição"},
        {"Greek and Cyrillic", u8"Ωμέγα Пользователь"},
    };
    const std::string tape = kPlus + kTimes + kTotal;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fs::path dir = folder.path() / c.name;
        fs::create_directories(dir);
        const fs::path path = dir / "calc.fita";
        TapeFile file(path);
        EXPECT_TRUE(file.open(kPlus + kDivide));
        file.replaceTail(kPlus.size(), kTimes + kTotal);
        EXPECT_TRUE(file.healthy());
        EXPECT_EQ(bytesOf(path), tape);
        EXPECT_EQ(loadTape(path), tape);
    }
}

TEST(TapeFileReplaceTail, FileFollowsEveryChange) {
    TempFolder folder;
    struct Step {
        std::size_t offset;
        std::string_view text;
    };
    struct Case {
        const char* label;
        std::string start;
        std::vector<Step> steps;
        std::string expected;
    };
    const std::size_t one = kPlus.size();
    const Case cases[] = {
        {"appends to an empty file", "", {{0, kPlus}, {one, kDivide}}, kPlus + kDivide},
        {"operator rewritten to a longer sign", kPlus, {{0, kTimes}}, kTimes},
        {"undo of the only line", kPlus, {{0, ""}}, ""},
        {"append right after a shrink lands at the new end",
         kTimes + kDivide,
         {{0, kPlus}, {one, kDivide}},
         kPlus + kDivide},
        {"two lines replaced by a total block", kPlus + kDivide, {{one, kTotal}}, kPlus + kTotal},
        {"block replaced by one short line", kPlus + kTotal, {{0, "x\r\n"}}, "x\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fs::path path = folder / "calc.fita";
        TapeFile file(path);
        ASSERT_TRUE(file.open(c.start));
        for (const Step& s : c.steps) {
            file.replaceTail(s.offset, s.text);
        }
        EXPECT_TRUE(file.healthy());
        EXPECT_EQ(readFileBytes(path), c.expected);
    }
}

TEST(TapeFileReplaceTail, OffsetPastTheEndMarksTheFileUnhealthyUntilReset) {
    TempFolder folder;
    const fs::path path = folder / "calc.fita";
    TapeFile file(path);
    ASSERT_TRUE(file.open(kPlus));

    file.replaceTail(kPlus.size() + 1, kDivide);
    EXPECT_FALSE(file.healthy());
    file.replaceTail(kPlus.size(), kDivide);  // ignored: the file no longer follows the tape
    EXPECT_EQ(readFileBytes(path), kPlus);

    file.reset(kTotal);  // replaces the whole file and follows again
    EXPECT_TRUE(file.healthy());
    EXPECT_EQ(readFileBytes(path), kTotal);
    file.replaceTail(kTotal.size(), kPlus);
    file.replaceTail(0, kTimes);
    EXPECT_EQ(readFileBytes(path), kTimes);
    EXPECT_EQ(folder.entries(), std::vector<fs::path>{"calc.fita"});
}

}  // namespace
}  // namespace zv::calc
