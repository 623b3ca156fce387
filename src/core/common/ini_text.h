#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::common {

// The settings file of the windows on systems without a registry: an INI text written the way
// Qt's settings classes write it, so that the command line and the windows share one store.
//   [Section]            section and key names escape any character that is not a letter, a
//   key=value            digit, '_', '-' or '.' as %XX (a code point up to U+00FF) or %UXXXX;
//   lblM%EAsL=480        "lblMêsL" is written this way.
// A value is quoted when it holds ',', ';', '=', '#' or '"' or starts or ends with a blank;
// '"' and '\' are escaped, line breaks and tabs become \n \r \t, other control characters \xH;
// a value starting with '@' gets a second one. Other text is kept as UTF-8.

// The text of `key` in `section`, or nullopt when there is none. A value that Qt reads as a
// list (commas outside quotes) comes back joined with ",", as the windows' store returns it.
std::optional<std::string> iniValue(std::string_view file, std::string_view section, std::string_view key);

// The file with `key` in `section` set to `value`: its line is rewritten in place, or added at
// the end of the section, or a new section is added at the end. Every other line is kept
// byte for byte, so values the windows wrote that this unit does not read survive it.
std::string withIniValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value);

// A section or key name as the file writes it ("lblMêsL" -> "lblM%EAsL"), and back.
std::string iniEscapedName(std::string_view name);
std::string iniUnescapedName(std::string_view name);
// A value as the file writes it, and back.
std::string iniEscapedValue(std::string_view value);
std::string iniUnescapedValue(std::string_view text);

}  // namespace zv::common
