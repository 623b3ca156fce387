#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zv::common {

bool isValidUtf8(std::string_view bytes);

// Windows-1252 bytes to UTF-8 (the five undefined bytes map to U+FFFD).
std::string cp1252ToUtf8(std::string_view bytes);

// UTF-8 to Windows-1252; characters the code page lacks become '?'.
std::string utf8ToCp1252(std::string_view text);

// Number of code points in valid UTF-8 text (the "characters" of a tape column).
std::size_t utf8Length(std::string_view text);

// The first `count` code points of the text.
std::string_view utf8Left(std::string_view text, std::size_t count);

// Decodes a text file's bytes: a UTF-8 byte-order mark is dropped, valid UTF-8 is kept,
// anything else is read as Windows-1252.
std::string decodeTextFile(std::string_view bytes);

}  // namespace zv::common

namespace zv::common {

// Upper case for ASCII and the Latin-1 letters ("ê" -> "Ê", "ã" -> "Ã"); other text unchanged.
std::string utf8ToUpper(std::string_view text);

}  // namespace zv::common
