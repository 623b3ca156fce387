#include "core/tray/start_words.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace zv::tray {
namespace {

constexpr common::Language kPt = common::Language::Portuguese;
constexpr common::Language kEn = common::Language::English;
constexpr common::Language kEs = common::Language::Spanish;

TEST(StartWords, AreComparedWithTheWholeCommandLine) {
    // The command line and the words found in it.
    const std::pair<const char*, const char*> cases[] = {
        {"systray", "systray"},    {"systray ", ""},
        {"SYSTRAY", ""},           {"outra", "outra"},
        {"outraX", "outra"},       {" outra", ""},
        {"outra tempo ", "outra"}, {"outra tempo", "outra tempo"},
        {"atualiza", "atualiza"},  {"atualiza systray", ""},
        {"fechar", "fechar"},
    };
    for (const auto& [commandLine, found] : cases) {
        const StartWords w = parseStartWords(commandLine);
        const std::string words = std::string(w.systray ? " systray" : "") + (w.outra ? " outra" : "") +
                                  (w.tempo ? " tempo" : "") + (w.atualiza ? " atualiza" : "") +
                                  (w.fechar ? " fechar" : "");
        EXPECT_EQ(words, *found == '\0' ? "" : std::string(" ") + found) << '"' << commandLine << '"';
    }
}

TEST(StartLanguage, FollowsTheLastThreeHexDigitsOfTheLanguageId) {
    // Portuguese of Brazil and Portugal; Spanish of Mexico, modern and traditional sort, Guatemala; the
    // Spanish neutral id has no third digit; English; German.
    const std::pair<unsigned, common::Language> cases[] = {
        {0x0416, kPt}, {0x0816, kPt}, {0x080A, kEs}, {0x0C0A, kEs}, {0x040A, kEs},
        {0x100A, kEs}, {0x000A, kEn}, {0x0409, kEn}, {0x0407, kEn},
    };
    for (const auto& [langId, language] : cases) {
        EXPECT_EQ(languageFromLangId(langId), language) << std::hex << langId;
    }
}

TEST(StartLanguage, FollowsTheLocaleName) {
    const std::pair<const char*, common::Language> cases[] = {
        {"pt_BR.UTF-8", kPt}, {"pt_PT@euro", kPt}, {"pt-Latn-BR", kPt}, {"pt_AO", kEn},
        {"es-MX", kEs},       {"en_US", kEn},      {"", kEn},
    };
    for (const auto& [name, language] : cases) {
        EXPECT_EQ(languageFromLocaleName(name), language) << name;
    }
}

TEST(StartLanguage, AStoredLanguageWinsOverTheDetectedOne) {
    // What is stored, what was detected, and the language used.
    const std::tuple<const char*, common::Language, common::Language> cases[] = {
        {"1", kEs, kPt}, {"2", kEs, kEn}, {"3", kEn, kEs}, {"0", kEs, kEs}, {"4", kPt, kPt},
    };
    for (const auto& [stored, detected, language] : cases) {
        EXPECT_EQ(startLanguage(stored, detected), language) << stored;
    }
}

}  // namespace
}  // namespace zv::tray
