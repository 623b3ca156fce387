#include "platform/system_registry.h"

#ifdef _WIN32
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "platform/windows/wide_text.h"
#endif

namespace zv::platform {

#ifdef _WIN32
namespace {

// The root handles are small negative 32-bit numbers, sign-extended to pointer width the way
// the system headers define HKEY_CURRENT_USER and its siblings.
HKEY rootKey(int rootIndex) {
    const auto root = static_cast<LONG_PTR>(tray::registryRoot(rootIndex));
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(root));
}

// A number value is the text converted to a whole number, halves to even; text that is not a
// number, or does not fit 32 bits, writes nothing.
std::optional<DWORD> wholeNumber(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<DWORD>(static_cast<std::int32_t>(rounded));
}

class WindowsRegistry final : public tray::Registry {
public:
    std::string RegistryReadString(std::string_view subkey, std::string_view valueName,
                                   int rootIndex) override {
        HKEY key = nullptr;
        if (RegOpenKeyExW(rootKey(rootIndex), windows::widen(subkey).c_str(), 0, KEY_QUERY_VALUE, &key) !=
            ERROR_SUCCESS) {
            return {};
        }
        const std::wstring name = windows::widen(valueName);
        std::string text;
        DWORD type = 0;
        DWORD bytes = 0;
        if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &bytes) == ERROR_SUCCESS &&
            (type == REG_SZ || type == REG_EXPAND_SZ)) {
            // One spare character, so a value stored without its terminating zero still reads whole.
            std::vector<wchar_t> buffer(bytes / sizeof(wchar_t) + 1, L'\0');
            DWORD size = bytes;
            if (RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()),
                                 &size) == ERROR_SUCCESS) {
                const std::wstring_view stored(buffer.data(), size / sizeof(wchar_t));
                text = windows::narrow(stored.substr(0, stored.find(L'\0')));
            }
        }
        RegCloseKey(key);
        return text;
    }

    void RegistryWriteValue(std::string_view subkey, std::string_view valueName, std::string_view value,
                            int rootIndex, int kind) override {
        HKEY key = nullptr;
        if (RegCreateKeyExW(rootKey(rootIndex), windows::widen(subkey).c_str(), 0, nullptr,
                            REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, &key,
                            nullptr) != ERROR_SUCCESS) {
            return;
        }
        const std::wstring name = windows::widen(valueName);
        if (kind == 1) {
            // The length counts the characters only, no terminating zero; readers cope with that.
            const std::wstring text = windows::widen(value);
            RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.data()),
                           static_cast<DWORD>(text.size() * sizeof(wchar_t)));
        } else if (const std::optional<DWORD> number = wholeNumber(value)) {
            RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&*number),
                           sizeof(DWORD));
        }
        RegCloseKey(key);
    }

    void RegistryDeleteValue(std::string_view subkey, std::string_view valueName, int rootIndex) override {
        HKEY key = nullptr;
        if (RegOpenKeyExW(rootKey(rootIndex), windows::widen(subkey).c_str(), 0, KEY_SET_VALUE, &key) !=
            ERROR_SUCCESS) {
            return;
        }
        RegDeleteValueW(key, windows::widen(valueName).c_str());
        RegCloseKey(key);
    }
};

}  // namespace

std::unique_ptr<tray::Registry> makeSystemRegistry() {
    return std::make_unique<WindowsRegistry>();
}

bool hasWorkstationPolicies() {
    return true;
}

#else

std::unique_ptr<tray::Registry> makeSystemRegistry() {
    return nullptr;
}

bool hasWorkstationPolicies() {
    return false;
}

#endif

}  // namespace zv::platform
