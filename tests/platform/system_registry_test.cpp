#include "platform/system_registry.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <optional>
#include <random>
#include <string>

#include "platform/windows/wide_text.h"
#endif

namespace zv::platform {
namespace {

// Without a system registry the tray must not offer "Proteger": both answers have to agree.
TEST(SystemRegistry, ExistsOnlyWhereThePoliciesDo) {
#ifdef _WIN32
    EXPECT_NE(makeSystemRegistry(), nullptr);
    EXPECT_TRUE(hasWorkstationPolicies());
#else
    EXPECT_EQ(makeSystemRegistry(), nullptr);
    EXPECT_FALSE(hasWorkstationPolicies());
#endif
}

#ifdef _WIN32

// A section of the program's own settings key that only this test uses, removed afterwards, so
// a run on a real desktop leaves the user's settings alone.
class ProgramSettingsKey {
public:
    ProgramSettingsKey()
        : m_section(L"Software\\VB and VBA Program Settings\\Quorvati\\zv-test-" +
                    std::to_wstring(std::random_device{}())) {}
    ~ProgramSettingsKey() { RegDeleteTreeW(HKEY_CURRENT_USER, m_section.c_str()); }
    ProgramSettingsKey(const ProgramSettingsKey&) = delete;
    ProgramSettingsKey& operator=(const ProgramSettingsKey&) = delete;

    const std::wstring& path() const { return m_section; }
    std::string utf8() const { return windows::narrow(m_section); }

    // What the registry holds, read with the system's own calls: the type and the raw bytes.
    std::optional<std::pair<DWORD, std::string>> stored(const std::wstring& subkey,
                                                        const std::wstring& name) const {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, (m_section + subkey).c_str(), 0, KEY_QUERY_VALUE, &key) !=
            ERROR_SUCCESS) {
            return std::nullopt;
        }
        DWORD type = 0;
        DWORD size = 0;
        std::optional<std::pair<DWORD, std::string>> value;
        if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size) == ERROR_SUCCESS) {
            std::string bytes(size, '\0');
            if (RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()),
                                 &size) == ERROR_SUCCESS) {
                bytes.resize(size);
                // Whether a terminating zero is kept is the registry's affair (Wine adds one).
                if (type == REG_SZ && bytes.size() >= 2 && bytes.ends_with(std::string(2, '\0'))) {
                    bytes.resize(bytes.size() - 2);
                }
                value.emplace(type, bytes);
            }
        }
        RegCloseKey(key);
        return value;
    }

private:
    std::wstring m_section;
};

std::string bytesOf(std::wstring_view text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

// The settings key and its values are Unicode in the registry: what another program (or the
// registry editor) reads there is the text itself, and it reads back the same.
TEST(SystemRegistry, StringValuesInAnyScriptGoInAndComeBack) {
    const ProgramSettingsKey settings;
    const auto registry = makeSystemRegistry();
    struct Case {
        const char* label;
        const char8_t* subkey;
        const char8_t* name;
        const char8_t* value;
        const wchar_t* wideSubkey;
        const wchar_t* wideName;
        const wchar_t* wideValue;
    };
    const Case cases[] = {
        {"accents", u8"\\Opções", u8"Cálculo", u8"Conceição × ÷", L"\\Opções", L"Cálculo", L"Conceição × ÷"},
        {"outside the ANSI code page", u8"\\Ωμέγα", u8"Пользователь", u8"€ ≠ Ωμέγα", L"\\Ωμέγα",
         L"Пользователь", L"€ ≠ Ωμέγα"},
        {"empty value", u8"\\Geral", u8"Vazio", u8"", L"\\Geral", L"Vazio", L""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::string subkey = settings.utf8() + reinterpret_cast<const char*>(c.subkey);
        const std::string name = reinterpret_cast<const char*>(c.name);
        const std::string value = reinterpret_cast<const char*>(c.value);
        registry->RegistryWriteValue(subkey, name, value, tray::kCurrentUser, 1);
        EXPECT_EQ(settings.stored(c.wideSubkey, c.wideName),
                  std::make_pair(static_cast<DWORD>(REG_SZ), bytesOf(c.wideValue)));
        EXPECT_EQ(registry->RegistryReadString(subkey, name, tray::kCurrentUser), value);
    }
}

TEST(SystemRegistry, NumberValuesAreWrittenAs32BitsAndDeletedValuesReadEmpty) {
    const ProgramSettingsKey settings;
    const auto registry = makeSystemRegistry();
    const std::string subkey = settings.utf8() + "\\Policies";
    auto dword = [](DWORD n) {
        return std::make_pair(static_cast<DWORD>(REG_DWORD),
                              std::string(reinterpret_cast<const char*>(&n), 4));
    };
    registry->RegistryWriteValue(subkey, "MenuShowDelay", " 10 ", tray::kCurrentUser, 4);
    EXPECT_EQ(settings.stored(L"\\Policies", L"MenuShowDelay"), dword(10));
    registry->RegistryWriteValue(subkey, "Negative", "-1", tray::kCurrentUser, 4);
    EXPECT_EQ(settings.stored(L"\\Policies", L"Negative"), dword(0xFFFFFFFF));
    registry->RegistryWriteValue(subkey, "NotANumber", "sim", tray::kCurrentUser, 4);
    EXPECT_EQ(settings.stored(L"\\Policies", L"NotANumber"), std::nullopt);

    registry->RegistryWriteValue(subkey, "Texto", "1", tray::kCurrentUser, 1);
    registry->RegistryDeleteValue(subkey, "Texto", tray::kCurrentUser);
    EXPECT_EQ(settings.stored(L"\\Policies", L"Texto"), std::nullopt);
    EXPECT_EQ(registry->RegistryReadString(subkey, "Texto", tray::kCurrentUser), "");
    registry->RegistryDeleteValue(subkey, "Texto", tray::kCurrentUser);  // missing: no harm
}

#endif

}  // namespace
}  // namespace zv::platform
