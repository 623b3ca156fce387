#pragma once

#include "core/calc/calculator.h"
#include "core/common/regional.h"

namespace zv::cli {

// The adding machine in a terminal: keys are read one by one, the tape and the total are
// redrawn after each. The tape is the one kept in the data folder, so it survives a restart.
// Returns the process exit code.
int runTerminal(const common::Regional& regional, const calc::CalculatorOptions& options);

}  // namespace zv::cli
