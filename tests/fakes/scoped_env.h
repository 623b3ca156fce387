#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace zv::fakes {

// One environment variable set (nullptr: unset) for a scope; what was there before comes back.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name)) {
            m_before = before;
        }
        value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~ScopedEnv() { m_before ? ::setenv(m_name, m_before->c_str(), 1) : ::unsetenv(m_name); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

}  // namespace zv::fakes
