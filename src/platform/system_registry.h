#pragma once

#include <memory>

#include "core/tray/restrictions.h"

namespace zv::platform {

// The system registry behind the tray's registry operations, or nullptr on a system that has
// none (then "Proteger" is not offered).
std::unique_ptr<tray::Registry> makeSystemRegistry();

// Whether the per-user policy values that "Proteger" switches mean anything here: Windows only.
bool hasWorkstationPolicies();

}  // namespace zv::platform
