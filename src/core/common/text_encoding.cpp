#include "core/common/text_encoding.h"

#include <array>
#include <cstdint>

namespace zv::common {
namespace {

// Code points of bytes 0x80..0x9F in Windows-1252; 0xFFFD where the code page has none.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Decodes one code point of valid UTF-8 at text[i] and advances i.
char32_t nextCodePoint(std::string_view text, std::size_t& i) {
    const auto b0 = static_cast<unsigned char>(text[i]);
    int extra = b0 < 0x80 ? 0 : b0 < 0xE0 ? 1 : b0 < 0xF0 ? 2 : 3;
    char32_t cp = extra == 0 ? b0 : extra == 1 ? (b0 & 0x1F) : extra == 2 ? (b0 & 0x0F) : (b0 & 0x07);
    ++i;
    for (; extra > 0 && i < text.size(); --extra, ++i) {
        cp = (cp << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
    }
    return cp;
}

}  // namespace

bool isValidUtf8(std::string_view bytes) {
    std::size_t i = 0;
    const std::size_t n = bytes.size();
    while (i < n) {
        const auto b0 = static_cast<unsigned char>(bytes[i]);
        if (b0 < 0x80) {
            ++i;
            continue;
        }
        int extra;
        char32_t min;
        if (b0 >= 0xC2 && b0 <= 0xDF) {
            extra = 1, min = 0x80;
        } else if (b0 >= 0xE0 && b0 <= 0xEF) {
            extra = 2, min = 0x800;
        } else if (b0 >= 0xF0 && b0 <= 0xF4) {
            extra = 3, min = 0x10000;
        } else {
            return false;
        }
        if (i + static_cast<std::size_t>(extra) >= n) {
            return false;
        }
        char32_t cp = b0 & (extra == 1 ? 0x1F : extra == 2 ? 0x0F : 0x07);
        for (int k = 1; k <= extra; ++k) {
            const auto b = static_cast<unsigned char>(bytes[i + k]);
            if ((b & 0xC0) != 0x80) {
                return false;
            }
            cp = (cp << 6) | (b & 0x3F);
        }
        if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            return false;
        }
        i += static_cast<std::size_t>(extra) + 1;
    }
    return true;
}

std::string cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b < 0x80) {
            out += c;
        } else if (b < 0xA0) {
            appendUtf8(out, kCp1252High[b - 0x80]);
        } else {
            appendUtf8(out, b);
        }
    }
    return out;
}

std::string utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const char32_t cp = nextCodePoint(text, i);
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            out += static_cast<char>(cp);
            continue;
        }
        char mapped = '?';
        for (std::size_t k = 0; k < kCp1252High.size(); ++k) {
            if (kCp1252High[k] == cp && cp != 0xFFFD) {
                mapped = static_cast<char>(0x80 + k);
                break;
            }
        }
        out += mapped;
    }
    return out;
}

std::size_t utf8Length(std::string_view text) {
    std::size_t count = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++count;
        }
    }
    return count;
}

std::string_view utf8Left(std::string_view text, std::size_t count) {
    std::size_t seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
            if (seen == count) {
                return text.substr(0, i);
            }
            ++seen;
        }
    }
    return text;
}

std::string decodeTextFile(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    if (isValidUtf8(bytes)) {
        return std::string(bytes);
    }
    return cp1252ToUtf8(bytes);
}

std::string utf8ToUpper(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const auto b = static_cast<unsigned char>(text[i]);
        if (b < 0x80) {
            out += (b >= 'a' && b <= 'z') ? static_cast<char>(b - 0x20) : static_cast<char>(b);
            ++i;
            continue;
        }
        const std::size_t start = i;
        const char32_t cp = nextCodePoint(text, i);
        if (cp >= 0xE0 && cp <= 0xFE && cp != 0xF7) {
            appendUtf8(out, cp - 0x20);
        } else {
            out.append(text.substr(start, i - start));
        }
    }
    return out;
}

}  // namespace zv::common
