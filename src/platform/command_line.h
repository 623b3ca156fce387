#pragma once

#include <string>
#include <vector>

namespace zv::platform {

// The program's arguments in UTF-8, its own name left out. On Windows they are read from the wide
// command line: argv spells them in the ANSI code page, which has no letter for a narrow no-break
// space or a Greek folder name and would hand over "?" instead.
std::vector<std::string> programArguments(int argc, char** argv);

}  // namespace zv::platform
