#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli/cli.h"
#include "core/common/regional.h"

namespace zv::cli {

enum class ExitCode { Done = 0, Rejected = 1, Usage = 2 };

// How a command ended. A rejection carries the message for the user (from the text table, in
// the chosen language); a usage error carries what is wrong with the command line, and the
// dispatcher prints it with the usage text.
struct Outcome {
    ExitCode code = ExitCode::Done;
    std::string message;
};

inline Outcome done() {
    return {};
}
inline Outcome rejected(std::string message) {
    return {ExitCode::Rejected, std::move(message)};
}
inline Outcome usageError(std::string why) {
    return {ExitCode::Usage, std::move(why)};
}

// One command line as the command sees it: the global options already applied to `regional`,
// its own options (already checked to be its own) and its operands.
struct Invocation {
    common::Regional regional;
    std::map<std::string, std::string, std::less<>> options;  // name -> value; a flag maps to ""
    std::vector<std::string> operands;
    std::istream& in;
    std::ostream& out;
    const Environment& env;

    bool has(std::string_view option) const { return options.contains(option); }
};

// An option of one command. `value` names its value in the usage text; empty for a flag.
struct CommandOption {
    std::string_view name;
    std::string_view value;
};

// A row of the command table: everything the dispatcher and the usage text need.
struct Command {
    std::string_view name;
    std::vector<CommandOption> options;
    std::string_view operands;  // as the usage text shows them: "AMOUNT", "[KEYS...]"
    std::string_view help;      // one or more lines, separated by '\n'
    Outcome (*run)(const Invocation&);
};

// The commands, in the order the usage text lists them.
const std::vector<Command>& commands();

Outcome runTape(const Invocation& call);
Outcome runWords(const Invocation& call);
Outcome runText(const Invocation& call);
Outcome runMoney(const Invocation& call);
Outcome runDate(const Invocation& call);
Outcome runConvert(const Invocation& call);
Outcome runRule3(const Invocation& call);
Outcome runInterest(const Invocation& call);
Outcome runSavings(const Invocation& call);
Outcome runDiscount(const Invocation& call);
Outcome runCheque(const Invocation& call);
Outcome runNote(const Invocation& call);
Outcome runLayouts(const Invocation& call);

// CR LF from the text table and the tape becomes LF on our output.
std::string toLf(std::string_view text);

}  // namespace zv::cli
