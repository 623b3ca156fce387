#pragma once

#include <map>
#include <string>
#include <string_view>

namespace zv::fakes {

// The keys of a desktop entry's main group, "[Desktop Entry]", with their values as written
// (escapes left as they are); the groups after it (the actions) are not read.
inline std::map<std::string, std::string> desktopEntryKeys(std::string_view text) {
    std::map<std::string, std::string> keys;
    bool inMain = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        if (line.starts_with('[')) {
            if (inMain) {
                break;
            }
            inMain = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (inMain && equals != std::string_view::npos && !line.starts_with('#')) {
            keys.emplace(std::string(line.substr(0, equals)), std::string(line.substr(equals + 1)));
        }
    }
    return keys;
}

}  // namespace zv::fakes
