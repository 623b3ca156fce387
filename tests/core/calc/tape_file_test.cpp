#include "calc/tape_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "calc/tape.h"
#include "common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::calc {
namespace {

using fakes::TempFolder;
using fakes::writeRaw;

namespace fs = std::filesystem;
using common::readFileBytes;

constexpr std::string_view kPlus = "                  250,00 +\r\n";
constexpr std::string_view kTimes = "                  250,00 ×\r\n";  // one byte longer
constexpr std::string_view kDivide = "                    4,00 ÷\r\n";
constexpr std::string_view kTotal = "                  246,00 T\r\n =========================\r\n";

std::string lines(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text.append(part);
    }
    return text;
}

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
        {"own format unchanged", "    1,00 +\r\n    2,00 ×\r\n", "    1,00 +\r\n    2,00 ×\r\n"},
        {"LF only", "a\nb\n", "a\r\nb\r\n"},
        {"CR only", "a\rb\r", "a\r\nb\r\n"},
        {"mixed line ends", "a\r\nb\nc\rd\r\n", "a\r\nb\r\nc\r\nd\r\n"},
        {"blank lines inside are kept", "a\r\n\r\n\r\nb\r\n", "a\r\n\r\n\r\nb\r\n"},
        {"Windows-1252 signs", "    9,00 \xF7\r\n    2,00 \xD7\r\n", "    9,00 ÷\r\n    2,00 ×\r\n"},
        // A write cut at a disk page damages one line; the others keep their own encoding.
        {"one damaged line among UTF-8 lines", "    2,00 ×\r\n    3,00 \xC3\r\n    4,00 ÷\r\n",
         "    2,00 ×\r\n    3,00 Ã\r\n    4,00 ÷\r\n"},
        {"character cut at the end of the file", "    2,00 ×\r\n    3,00 \xC3",
         "    2,00 ×\r\n    3,00 \r\n"},
        {"Windows-1252 cut line at the end", "    2,00 \xD7\r\n    3,0", "    2,00 ×\r\n    3,0\r\n"},
        {"byte-order mark", "\uFEFFa\r\n", "a\r\n"},
        // What a crash can leave behind while a longer line is replaced by a shorter one.
        {"stray LF after the last CR LF", "a\r\nb\r\n\n", "a\r\nb\r\n"},
        {"stray CR after the last CR LF", "a\r\nb\r\n\r", "a\r\nb\r\n"},
        {"blanks after the last line", "a\r\nb\r\n     ", "a\r\nb\r\n"},
        {"blank last fragment of an LF file", "a\nb\n  \t", "a\r\nb\r\n"},
        {"only blanks", "   ", ""},
        {"cut-short last line is kept", "    1,00 +\r\n    2,0", "    1,00 +\r\n    2,0\r\n"},
        {"last line without line end", "a\nb", "a\r\nb\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        writeRaw(folder / "calc.fita", c.bytes);
        EXPECT_EQ(loadTape(folder / "calc.fita"), std::string(c.text));
    }
}

TEST(LoadTape, MissingFileIsAnEmptyTapeButAnUnreadableOneFails) {
    TempFolder folder;
    EXPECT_EQ(loadTape(folder / "calc.fita"), std::string());
    fs::create_directory(folder / "calc2.fita");
    EXPECT_FALSE(loadTape(folder / "calc2.fita").has_value());
}

TEST(TapeFileOpen, MakesTheFileHoldTheTape) {
    TempFolder folder;
    const std::string tape = lines({kPlus, kTimes});
    struct Case {
        const char* label;
        const char* before;  // nullptr: no file
    };
    const Case cases[] = {
        {"missing file", nullptr},
        {"shorter tape", "    1,00 +\r\n"},
        {"other tape of the same size", "                  250,00 -\r\n                  250,00 ×\r\n"},
        {"same text in Windows-1252", "                  250,00 +\r\n                  250,00 \xD7\r\n"},
        {"same text with a stray line end", "                  250,00 +\r\n                  250,00 ×\r\n\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fs::path path = folder / "calc.fita";
        fs::remove(path);
        if (c.before != nullptr) {
            writeRaw(path, c.before);
        }
        TapeFile file(path);
        EXPECT_TRUE(file.open(tape));
        EXPECT_TRUE(file.healthy());
        EXPECT_EQ(readFileBytes(path), tape);
    }
}

TEST(TapeFileOpen, LeavesAnIdenticalFileUntouched) {
    TempFolder folder;
    const fs::path path = folder / "calc.fita";
    writeRaw(path, kPlus);
    const auto past = fs::last_write_time(path) - std::chrono::hours(24);
    fs::last_write_time(path, past);

    TapeFile file(path);
    ASSERT_TRUE(file.open(kPlus));
    EXPECT_EQ(fs::last_write_time(path), past);
}

TEST(TapeFileOpen, FailsWhenTheFolderIsMissing) {
    TempFolder folder;
    TapeFile file(folder / "missing" / "calc.fita");
    EXPECT_FALSE(file.open(kPlus));
    EXPECT_FALSE(file.healthy());
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
        {"appends to an empty file", "", {{0, kPlus}, {one, kDivide}}, lines({kPlus, kDivide})},
        {"operator rewritten to a longer sign", lines({kPlus}), {{0, kTimes}}, lines({kTimes})},
        {"operator rewritten to a shorter sign", lines({kTimes}), {{0, kPlus}}, lines({kPlus})},
        {"undo cuts the last line", lines({kPlus, kDivide}), {{one, ""}}, lines({kPlus})},
        {"undo of the only line", lines({kPlus}), {{0, ""}}, ""},
        {"append right after a shrink lands at the new end",
         lines({kTimes, kDivide}),
         {{0, kPlus}, {one, kDivide}},
         lines({kPlus, kDivide})},
        {"append after an undo", lines({kPlus, kDivide}), {{one, ""}, {one, kTimes}}, lines({kPlus, kTimes})},
        {"two lines replaced by a total block",
         lines({kPlus, kDivide}),
         {{one, kTotal}},
         lines({kPlus, kTotal})},
        {"block replaced by one short line", lines({kPlus, kTotal}), {{0, "x\r\n"}}, "x\r\n"},
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

    file.reset(kTotal);
    EXPECT_TRUE(file.healthy());
    file.replaceTail(kTotal.size(), kPlus);
    EXPECT_EQ(readFileBytes(path), lines({kTotal, kPlus}));
}

TEST(TapeFileReset, ReplacesTheWholeFileAndKeepsFollowing) {
    TempFolder folder;
    const fs::path path = folder / "calc.fita";
    TapeFile file(path);
    ASSERT_TRUE(file.open(lines({kPlus, kTimes, kTotal})));

    file.reset(kDivide);
    EXPECT_EQ(readFileBytes(path), kDivide);
    file.replaceTail(kDivide.size(), kPlus);
    file.replaceTail(0, kTimes);
    EXPECT_TRUE(file.healthy());
    EXPECT_EQ(readFileBytes(path), kTimes);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST(TapeFile, MirrorsATapeAndReadsBackAsTheSameTape) {
    TempFolder folder;
    const fs::path path = tapeFilePath(folder.path(), "");
    Tape tape;
    TapeFile file(path);
    ASSERT_TRUE(file.open(tape.text()));
    tape.setSink(&file);

    tape.append(kPlus);
    tape.append(kDivide);
    tape.replaceTail(tape.lastLineStart(), kTimes);
    tape.append(" =============== CÁLCULO =\r\n     VALOR INICIAL    1,00\r\n =========================");
    tape.replaceTail(tape.lastLineStart(), "");
    tape.append(kDivide);
    tape.replaceTail(tape.lastLineStart(), kPlus);
    EXPECT_EQ(readFileBytes(path), tape.text());

    tape.reset("01/02/2024 ==============\n");
    tape.append(kPlus);
    EXPECT_TRUE(file.healthy());
    EXPECT_EQ(readFileBytes(path), tape.text());
    EXPECT_EQ(loadTape(path), tape.text());
}

}  // namespace
}  // namespace zv::calc
