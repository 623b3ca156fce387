#include "platform/power_off.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace zv::platform {

#ifdef _WIN32
namespace {

// Shutting down needs the shutdown privilege enabled in the process token. A failure here is
// not reported: the exit call is made anyway and says for itself whether it worked.
void enableShutdownPrivilege() {
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) {
        return;
    }
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (LookupPrivilegeValueA(nullptr, "SeShutdownPrivilege", &privileges.Privileges[0].Luid)) {
        AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    }
    CloseHandle(token);
}

class ExitWindowsPowerOff final : public PowerOff {
public:
    bool powerOff() override {
        enableShutdownPrivilege();
        constexpr UINT kShutDownForced = EWX_SHUTDOWN | EWX_FORCE;  // 5
        constexpr DWORD kReason = 4095;
        return ExitWindowsEx(kShutDownForced, kReason) != 0;
    }
};

}  // namespace

std::unique_ptr<PowerOff> makeNativePowerOff() {
    return std::make_unique<ExitWindowsPowerOff>();
}

#else

std::unique_ptr<PowerOff> makeNativePowerOff() {
    return nullptr;
}

#endif

}  // namespace zv::platform
