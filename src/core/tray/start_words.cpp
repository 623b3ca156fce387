#include "core/tray/start_words.h"

#include <cctype>
#include <string>

namespace zv::tray {

using common::Language;

StartWords parseStartWords(std::string_view commandLine) {
    StartWords words;
    words.systray = commandLine == "systray";
    words.outra = commandLine.starts_with("outra");
    words.tempo = commandLine.ends_with("tempo");
    words.atualiza = commandLine == "atualiza";
    words.fechar = commandLine == "fechar";
    return words;
}

Language languageFromLangId(unsigned langId) {
    // The id written in lower-case hexadecimal without leading zeros, then its last three digits:
    // the Spanish neutral id 0x000A ("a") therefore stays English, as it always has.
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    do {
        hex.insert(hex.begin(), kDigits[langId % 16]);
        langId /= 16;
    } while (langId != 0);
    const std::string_view tail = std::string_view(hex).substr(hex.size() > 3 ? hex.size() - 3 : 0);
    if (tail == "416" || tail == "816") {
        return Language::Portuguese;
    }
    if (tail == "c0a" || tail == "80a" || tail == "40a" || tail == "00a") {
        return Language::Spanish;
    }
    return Language::English;
}

namespace {

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return out;
}

}  // namespace

Language languageFromLocaleName(std::string_view name) {
    // "ll_CC.codeset@modifier" or "ll-Script-CC": the language, then the first subtag that is
    // not a four-letter script.
    name = name.substr(0, name.find_first_of(".@"));
    const auto cut = name.find_first_of("_-");
    const std::string language = lower(name.substr(0, cut));
    std::string territory;
    std::string_view rest = cut == std::string_view::npos ? std::string_view{} : name.substr(cut + 1);
    while (!rest.empty()) {
        const auto next = rest.find_first_of("_-");
        const std::string_view subtag = rest.substr(0, next);
        if (subtag.size() != 4) {
            territory = lower(subtag);
            break;
        }
        rest = next == std::string_view::npos ? std::string_view{} : rest.substr(next + 1);
    }
    // Every Spanish language id ends in one of the Spanish digits, but only Brazil's and
    // Portugal's Portuguese ids are recognised.
    if (language == "es") {
        return Language::Spanish;
    }
    if (language == "pt" && (territory == "br" || territory == "pt")) {
        return Language::Portuguese;
    }
    return Language::English;
}

Language startLanguage(std::string_view storedIdiomas2, Language detected) {
    if (storedIdiomas2 == "1") {
        return Language::Portuguese;
    }
    if (storedIdiomas2 == "2") {
        return Language::English;
    }
    if (storedIdiomas2 == "3") {
        return Language::Spanish;
    }
    return detected;
}

}  // namespace zv::tray
