#pragma once

#include <string_view>

#include "core/common/regional.h"

namespace zv::tray {

// The words of the command line, compared against the whole command line (the arguments
// joined by single spaces) as the program always has: "systray", "atualiza" and "fechar" must be
// all of it, "outra" its first five characters and "tempo" its last five.
struct StartWords {
    bool systray = false;   // start in the tray, calculator not shown
    bool outra = false;     // open a further calculator even when a copy runs
    bool tempo = false;     // with "outra": time mode at once
    bool atualiza = false;  // close the running copy and take its place
    bool fechar = false;    // close the running copy and end
};

StartWords parseStartWords(std::string_view commandLine);

// The interface language at start: a stored "Idiomas2" of 1, 2 or 3 wins; otherwise the user's
// language id decides (its last three hexadecimal digits: 416 and 816 Portuguese; c0a, 80a, 40a
// and 00a Spanish; anything else English).
common::Language languageFromLangId(unsigned langId);
// The same rule for a locale name ("pt_BR.UTF-8", "es-MX", "en_US"): Portuguese for Brazil and
// Portugal, Spanish for the Spanish locales, English otherwise.
common::Language languageFromLocaleName(std::string_view name);
common::Language startLanguage(std::string_view storedIdiomas2, common::Language detected);

// The message a second copy sends the running one: "max" followed by the time; only a message
// that starts with "max" shows the calculator. "fechar" asks the running copy to end.
inline constexpr std::string_view kShowMessage = "max";
inline constexpr std::string_view kCloseMessage = "fechar";
inline constexpr std::string_view kCopyName = "Stiopreig";  // how the running copy is found

}  // namespace zv::tray
