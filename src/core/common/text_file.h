#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zv::common {

// Whole-file helpers. None of them leaves a torn file behind if the process dies mid-way.

// std::fopen of a path, whatever letters it holds: on Windows through the wide name, since the
// narrow one is read in the ANSI code page, which cannot spell every folder a user may have.
std::FILE* openFile(const std::filesystem::path& path, const char* mode);

// The raw bytes of a file; nullopt when it cannot be read (missing included).
std::optional<std::string> readFileBytes(const std::filesystem::path& path);

// Writes `bytes` to a temporary file beside `path`, flushes it and renames it over `path`.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// Appends `bytes` (created if missing) and flushes. Returns the file's size afterwards.
std::optional<std::uintmax_t> appendToFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace zv::common
