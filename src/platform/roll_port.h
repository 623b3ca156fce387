#pragma once

#include <string>
#include <string_view>

namespace zv::platform {

// The device behind a paper-roll printer's port name (LPT1, LPT2, COM1..COM4): on Linux
// /dev/lp0, /dev/lp1, /dev/ttyS0..3; on Windows the port itself (\\.\LPT1). Empty for any other
// name; the name is matched as given (upper case, no blanks).
std::string rollPortDevice(std::string_view port);

enum class PortResult { Written, CannotOpen, WriteFailed, TimedOut };

// Writes `bytes` to the device and closes it. Never waits long for a printer that is off or
// missing: gives up after `timeoutMs` and says so.
PortResult writeToPort(const std::string& device, std::string_view bytes, int timeoutMs = 5000);

}  // namespace zv::platform
