#pragma once

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/calc/tape_sink.h"

namespace zv::calc {

// The tape file name of a running copy: "calc" + suffix + ".fita" in the data folder.
std::filesystem::path tapeFilePath(const std::filesystem::path& dataFolder, std::string_view suffix);

// Reads a tape file: UTF-8 or Windows-1252 (decided line by line, so that one line damaged by a
// crash cannot change how the others read), any line ends; returns UTF-8 text with CR LF.
// A missing file reads as an empty tape; nullopt only when the file exists but cannot be read.
// A last line cut short by a crash is kept if it holds anything but blanks.
std::optional<std::string> loadTape(const std::filesystem::path& path);

// Keeps a tape file identical to the tape as it changes. Appends go straight to the file (one
// write per change, flushed), so every completed line is on disk as soon as it is on the tape;
// a whole-tape change is written to a temporary file and renamed over the old one. A process
// killed at any moment leaves a file that reads back with every completed line.
class TapeFile final : public TapeSink {
public:
    explicit TapeFile(std::filesystem::path path);
    ~TapeFile() override;
    TapeFile(const TapeFile&) = delete;
    TapeFile& operator=(const TapeFile&) = delete;

    // Makes the file hold exactly `currentText` (rewriting it only if it differs) and keeps it
    // open for the changes that follow. False when the file cannot be written.
    bool open(std::string_view currentText);

    void replaceTail(std::size_t offset, std::string_view text) override;
    void reset(std::string_view wholeText) override;

    // False once a write has failed; the tape in memory is unaffected.
    bool healthy() const { return m_healthy; }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
    std::FILE* m_file = nullptr;
    std::size_t m_size = 0;
    bool m_healthy = true;
};

}  // namespace zv::calc
