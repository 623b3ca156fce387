#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::calc {

// The port a paper-roll printer hangs on, from what the user typed: blanks removed, upper case,
// one of LPT1, LPT2, COM1 to COM4. Anything else gives nullopt (nothing is printed).
std::optional<std::string> acceptRollPort(std::string_view answer);

// The tape as a roll printer takes it: "×" becomes "*", "÷" becomes "/" (its character set has
// neither), lines end in CR LF, and the text is in the single-byte Windows-1252 code page.
std::string rollPrinterText(std::string_view tapeText);

}  // namespace zv::calc
