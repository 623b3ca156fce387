#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zv::common {

// Whole-file helpers. None of them leaves a torn file behind if the process dies mid-way.

// The raw bytes of a file; nullopt when it cannot be read (missing included).
std::optional<std::string> readFileBytes(const std::filesystem::path& path);

// Writes `bytes` to a temporary file beside `path`, flushes it and renames it over `path`.
bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// Appends `bytes` (created if missing) and flushes. Returns the file's size afterwards.
std::optional<std::uintmax_t> appendToFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace zv::common
