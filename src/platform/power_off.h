#pragma once

#include <memory>

namespace zv::platform {

// Switches the computer off, as the scheduled shutdown does when its time comes.
class PowerOff {
public:
    virtual ~PowerOff() = default;
    // True when the system accepted the request (the machine goes down afterwards); false when
    // it refused or there is no one to ask.
    virtual bool powerOff() = 0;
};

// The system's own way, where it has one without a desktop bus: Windows' forced shutdown.
// nullptr elsewhere; on Linux the window program asks the login manager over D-Bus instead.
std::unique_ptr<PowerOff> makeNativePowerOff();

}  // namespace zv::platform
