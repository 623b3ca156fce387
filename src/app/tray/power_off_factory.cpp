#include "app/tray/power_off_factory.h"

#ifndef _WIN32
#include "app/tray/logind_power_off.h"
#endif

namespace zv::app {

std::unique_ptr<platform::PowerOff> makeSystemPowerOff() {
#ifdef _WIN32
    return platform::makeNativePowerOff();
#else
    return std::make_unique<LogindPowerOff>();
#endif
}

}  // namespace zv::app
