#include "core/common/settings_store.h"

#include "core/common/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace zv::common {

namespace {}  // namespace

std::string GetSetting(const SettingsStore& store, std::string_view section, std::string_view key,
                       std::string_view fallback) {
    if (std::optional<std::string> stored = store.read(section, key)) {
        return *std::move(stored);
    }
    return std::string(fallback);
}

bool SaveSetting(SettingsStore& store, std::string_view section, std::string_view key,
                 std::string_view value) {
    return store.write(section, key, value);
}

std::string_view boolText(bool value) {
    return value ? "True" : "False";
}

std::optional<bool> parseBool(std::string_view text) {
    text = trimBlanks(text);
    if (equalsIgnoringCase(text, "True") || text == "-1" || text == "1") {
        return true;
    }
    if (equalsIgnoringCase(text, "False") || text == "0") {
        return false;
    }
    return std::nullopt;
}

std::optional<long> parseWhole(std::string_view text) {
    text = trimBlanks(text);
    if (text.empty()) {
        return std::nullopt;
    }
    long value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc{} || stop != end) {
        return std::nullopt;
    }
    return value;
}

}  // namespace zv::common
