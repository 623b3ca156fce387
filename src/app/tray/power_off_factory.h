#pragma once

#include <memory>

#include "platform/power_off.h"

namespace zv::app {

// The way this system is switched off: Windows' forced shutdown, elsewhere the login manager.
std::unique_ptr<platform::PowerOff> makeSystemPowerOff();

}  // namespace zv::app
