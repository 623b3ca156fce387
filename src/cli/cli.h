#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/common/regional.h"

namespace zv::cli {

// What the command line takes from the process it runs in.
struct Environment {
    common::NumberSeparators localeSeparators;  // the user's locale, the default for --decimal/--group
    bool stdinIsTerminal = false;
};

// Runs one command line (without the program name). Output is UTF-8 with LF line ends.
// Returns 0 on success, 1 when the input was rejected (message on `err`), 2 on a usage error.
int run(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
        const Environment& env);

}  // namespace zv::cli
