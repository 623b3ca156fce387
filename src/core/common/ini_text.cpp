#include "core/common/ini_text.h"

#include <vector>

#include "core/common/text.h"

namespace zv::common {
namespace {

constexpr char kHex[] = "0123456789ABCDEF";

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

unsigned hexValue(char c) {
    return isDigit(c) ? static_cast<unsigned>(c - '0') : static_cast<unsigned>((c | 0x20) - 'a' + 10);
}

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

// The code point at `i` (UTF-8), moving `i` past it; a stray byte stands for itself.
char32_t nextCodePoint(std::string_view text, std::size_t& i) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byte(i);
    const std::size_t length = lead < 0x80           ? 1
                               : (lead >> 5) == 0x6  ? 2
                               : (lead >> 4) == 0xE  ? 3
                               : (lead >> 3) == 0x1E ? 4
                                                     : 1;
    if (length == 1 || i + length > text.size()) {
        ++i;
        return lead;
    }
    char32_t cp = lead & (0x7F >> length);
    for (std::size_t k = 1; k < length; ++k) {
        cp = (cp << 6) | (byte(i + k) & 0x3F);
    }
    i += length;
    return cp;
}

bool isPlainNameCharacter(char32_t c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.';
}

struct Line {
    std::string_view text;  // without its line end
    std::size_t begin;      // offset of the line in the file
    std::size_t end;        // offset just past its line end
};

std::vector<Line> linesOf(std::string_view file) {
    std::vector<Line> lines;
    std::size_t start = 0;
    while (start < file.size()) {
        std::size_t stop = file.find_first_of("\r\n", start);
        if (stop == std::string_view::npos) {
            lines.push_back({file.substr(start), start, file.size()});
            break;
        }
        std::size_t next = stop + 1;
        if (file[stop] == '\r' && next < file.size() && file[next] == '\n') {
            ++next;
        }
        lines.push_back({file.substr(start, stop - start), start, next});
        start = next;
    }
    return lines;
}

// The section a header line opens, or nullopt when the line is no header.
std::optional<std::string> headerOf(std::string_view line) {
    line = trimBlanks(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']') {
        return std::nullopt;
    }
    return iniUnescapedName(line.substr(1, line.size() - 2));
}

// The key of a "key=value" line and where its value starts, or nullopt.
std::optional<std::pair<std::string, std::size_t>> keyOf(std::string_view line) {
    const std::string_view trimmed = trimBlanks(line);
    if (trimmed.empty() || trimmed.front() == ';' || trimmed.front() == '#' || trimmed.front() == '[') {
        return std::nullopt;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return std::nullopt;
    }
    return std::pair{iniUnescapedName(trimBlanks(line.substr(0, equals))), equals + 1};
}

struct Found {
    std::optional<std::size_t> valueLine;      // index of the key's last line
    std::optional<std::size_t> lastOfSection;  // last non-blank line of the section's last part
    std::optional<std::size_t> header;
};

Found find(const std::vector<Line>& lines, std::string_view section, std::string_view key) {
    Found found;
    bool inSection = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const std::optional<std::string> header = headerOf(lines[i].text)) {
            inSection = *header == section;
            if (inSection) {
                found.header = i;
                found.lastOfSection = i;
            }
            continue;
        }
        if (!inSection) {
            continue;
        }
        if (!trimBlanks(lines[i].text).empty()) {
            found.lastOfSection = i;
        }
        if (const auto parsed = keyOf(lines[i].text); parsed && parsed->first == key) {
            found.valueLine = i;
        }
    }
    return found;
}

}  // namespace

std::string iniEscapedName(std::string_view name) {
    std::string out;
    for (std::size_t i = 0; i < name.size();) {
        const char32_t c = nextCodePoint(name, i);
        if (isPlainNameCharacter(c)) {
            out += static_cast<char>(c);
        } else if (c == '/') {
            out += '\\';
        } else if (c <= 0xFF) {
            out += '%';
            out += kHex[c >> 4];
            out += kHex[c & 0xF];
        } else {
            out += "%U";
            for (int shift = 12; shift >= 0; shift -= 4) {
                out += kHex[(c >> shift) & 0xF];
            }
        }
    }
    return out;
}

std::string iniUnescapedName(std::string_view name) {
    std::string out;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        if (c == '\\') {
            out += '/';
            continue;
        }
        if (c == '%') {
            const bool wide = i + 1 < name.size() && name[i + 1] == 'U';
            const std::size_t digits = wide ? 4 : 2;
            const std::size_t first = i + (wide ? 2 : 1);
            bool ok = first + digits <= name.size();
            char32_t cp = 0;
            for (std::size_t k = 0; ok && k < digits; ++k) {
                ok = isHexDigit(name[first + k]);
                cp = (cp << 4) | (ok ? hexValue(name[first + k]) : 0);
            }
            if (ok) {
                appendUtf8(out, cp);
                i = first + digits - 1;
                continue;
            }
        }
        out += c;
    }
    return out;
}

std::string iniEscapedValue(std::string_view value) {
    bool quote = !value.empty() && (isBlank(value.front()) || isBlank(value.back()));
    std::string body = value.starts_with('@') ? "@" : "";
    bool afterHexEscape = false;
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (afterHexEscape && isHexDigit(c)) {
            // A digit right after \xH would be read as part of it.
            body += "\\x";
            body += kHex[byte >> 4];
            body += kHex[byte & 0xF];
            continue;
        }
        afterHexEscape = false;
        switch (c) {
            case '"':
            case '\\':
                body += '\\';
                body += c;
                break;
            case '\n':
                body += "\\n";
                break;
            case '\r':
                body += "\\r";
                break;
            case '\t':
                body += "\\t";
                break;
            case ',':
            case ';':
            case '=':
            case '#':
                quote = true;
                body += c;
                break;
            default:
                if (byte < 0x20 || byte == 0x7F) {
                    body += "\\x";
                    if (byte >= 0x10) {
                        body += kHex[byte >> 4];
                    }
                    body += kHex[byte & 0xF];
                    afterHexEscape = true;
                } else {
                    body += c;
                }
        }
    }
    return quote ? "\"" + body + "\"" : body;
}

std::string iniUnescapedValue(std::string_view text) {
    text = trimBlanks(text);
    std::vector<std::string> items(1);
    bool quoted = false;
    bool anyComma = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        std::string& item = items.back();
        if (c == '"') {
            quoted = !quoted;
            continue;
        }
        if (c == ',' && !quoted) {
            anyComma = true;
            items.emplace_back();
            continue;
        }
        if (c != '\\' || i + 1 == text.size()) {
            item += c;
            continue;
        }
        const char e = text[++i];
        switch (e) {
            case 'a':
                item += '\a';
                break;
            case 'b':
                item += '\b';
                break;
            case 'f':
                item += '\f';
                break;
            case 'n':
                item += '\n';
                break;
            case 'r':
                item += '\r';
                break;
            case 't':
                item += '\t';
                break;
            case 'v':
                item += '\v';
                break;
            case 'x': {
                char32_t cp = 0;
                std::size_t k = i + 1;
                for (; k < text.size() && k < i + 5 && isHexDigit(text[k]); ++k) {
                    cp = (cp << 4) | hexValue(text[k]);
                }
                appendUtf8(item, cp);
                i = k - 1;
                break;
            }
            default:
                if (e >= '0' && e <= '7') {
                    char32_t cp = 0;
                    std::size_t k = i;
                    for (; k < text.size() && k < i + 3 && text[k] >= '0' && text[k] <= '7'; ++k) {
                        cp = (cp << 3) | static_cast<char32_t>(text[k] - '0');
                    }
                    appendUtf8(item, cp);
                    i = k - 1;
                } else {
                    item += e;  // \" \\ \' \? and anything else stand for themselves
                }
        }
    }
    std::string value;
    for (std::size_t n = 0; n < items.size(); ++n) {
        value += n > 0 ? "," : "";
        value += anyComma ? std::string(trimBlanks(items[n])) : items[n];
    }
    if (value.starts_with("@@")) {
        value.erase(0, 1);
    }
    return value;
}

std::optional<std::string> iniValue(std::string_view file, std::string_view section, std::string_view key) {
    const std::vector<Line> lines = linesOf(file);
    const Found found = find(lines, section, key);
    if (!found.valueLine) {
        return std::nullopt;
    }
    const std::string_view line = lines[*found.valueLine].text;
    return iniUnescapedValue(line.substr(keyOf(line)->second));
}

std::string withIniValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value) {
    const std::vector<Line> lines = linesOf(file);
    const Found found = find(lines, section, key);
    const std::string newLine = iniEscapedName(key) + "=" + iniEscapedValue(value);
    // The file's own line end, LF when it has none yet.
    const std::string_view lineEnd = file.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    if (found.valueLine) {
        const Line& old = lines[*found.valueLine];
        const std::size_t textEnd = old.begin + old.text.size();
        return std::string(file.substr(0, old.begin)) + newLine + std::string(file.substr(textEnd));
    }
    if (found.lastOfSection) {
        const Line& last = lines[*found.lastOfSection];
        std::string out(file.substr(0, last.end));
        if (last.end == last.begin + last.text.size()) {
            out += lineEnd;  // the last line of the file had no line end
        }
        return out + newLine + std::string(lineEnd) + std::string(file.substr(last.end));
    }
    std::string out(file);
    if (!out.empty()) {
        if (out.back() != '\n' && out.back() != '\r') {
            out += lineEnd;
        }
        out += lineEnd;
    }
    return out + "[" + iniEscapedName(section) + "]" + std::string(lineEnd) + newLine + std::string(lineEnd);
}

}  // namespace zv::common
