#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#ifdef _WIN32
#include "platform/windows/wide_text.h"
#endif

namespace zv::fakes {

// One environment variable set (nullptr: unset) for a scope; what was there before comes back.
// Names and values are UTF-8; on Windows they go through the wide environment, so a value the
// ANSI code page cannot spell arrives whole. Windows has no empty variable: "" unsets there.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name) {
        m_before = get(name);
        set(value);
    }
    ~ScopedEnv() { set(m_before ? m_before->c_str() : nullptr); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
#ifdef _WIN32
    static std::optional<std::string> get(const char* name) {
        const wchar_t* before = _wgetenv(platform::windows::widen(name).c_str());
        return before != nullptr ? std::optional(platform::windows::narrow(before)) : std::nullopt;
    }
    void set(const char* value) const {
        _wputenv_s(platform::windows::widen(m_name).c_str(),
                   value != nullptr ? platform::windows::widen(value).c_str() : L"");
    }
#else
    static std::optional<std::string> get(const char* name) {
        const char* before = std::getenv(name);
        return before != nullptr ? std::optional<std::string>(before) : std::nullopt;
    }
    void set(const char* value) const {
        value != nullptr ? ::setenv(m_name, value, 1) : ::unsetenv(m_name);
    }
#endif

    const char* m_name;
    std::optional<std::string> m_before;
};

}  // namespace zv::fakes
