#include "platform/command_line.h"

#ifdef _WIN32
#include "platform/windows/wide_text.h"
// windows.h (through wide_text.h) first: shellapi.h depends on its types.
#include <shellapi.h>
#endif

namespace zv::platform {

std::vector<std::string> programArguments(int argc, char** argv) {
#ifdef _WIN32
    int count = 0;
    if (LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count)) {
        std::vector<std::string> args;
        for (int i = 1; i < count; ++i) {
            args.push_back(windows::narrow(wide[i]));
        }
        LocalFree(wide);
        return args;
    }
#endif
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

}  // namespace zv::platform
