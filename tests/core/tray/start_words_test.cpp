#include "core/tray/start_words.h"

#include <gtest/gtest.h>

namespace zv::tray {
namespace {

using common::Language;

TEST(StartWords, AreComparedWithTheWholeCommandLine) {
    struct Case {
        const char* label;
        const char* commandLine;
        bool systray, outra, tempo, atualiza, fechar;
    };
    const Case cases[] = {
        {"systray alone", "systray", true, false, false, false, false},
        {"systray with a trailing space", "systray ", false, false, false, false, false},
        {"systray in capitals", "SYSTRAY", false, false, false, false, false},
        {"outra alone", "outra", false, true, false, false, false},
        {"outra then tempo", "outra tempo", false, true, true, false, false},
        {"outra glued to more", "outraX", false, true, false, false, false},
        {"outra not first", " outra", false, false, false, false, false},
        {"tempo not last", "outra tempo ", false, true, false, false, false},
        {"atualiza", "atualiza", false, false, false, true, false},
        {"atualiza with more", "atualiza systray", false, false, false, false, false},
        {"fechar", "fechar", false, false, false, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const StartWords words = parseStartWords(c.commandLine);
        EXPECT_EQ(words.systray, c.systray);
        EXPECT_EQ(words.outra, c.outra);
        EXPECT_EQ(words.tempo, c.tempo);
        EXPECT_EQ(words.atualiza, c.atualiza);
        EXPECT_EQ(words.fechar, c.fechar);
    }
}

TEST(StartLanguage, FollowsTheLastThreeHexDigitsOfTheLanguageId) {
    struct Case {
        const char* label;
        unsigned langId;
        Language language;
    };
    const Case cases[] = {
        {"Portuguese, Brazil", 0x0416, Language::Portuguese},
        {"Portuguese, Portugal", 0x0816, Language::Portuguese},
        {"Spanish, Mexico", 0x080A, Language::Spanish},
        {"Spanish, modern sort", 0x0C0A, Language::Spanish},
        {"Spanish, traditional sort", 0x040A, Language::Spanish},
        {"Spanish, Guatemala", 0x100A, Language::Spanish},
        {"Spanish neutral has no third digit", 0x000A, Language::English},
        {"English, United States", 0x0409, Language::English},
        {"German", 0x0407, Language::English},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(languageFromLangId(c.langId), c.language);
    }
}

TEST(StartLanguage, FollowsTheLocaleName) {
    struct Case {
        const char* label;
        const char* name;
        Language language;
    };
    const Case cases[] = {
        {"Brazil with a codeset", "pt_BR.UTF-8", Language::Portuguese},
        {"Portugal with a modifier", "pt_PT@euro", Language::Portuguese},
        {"Brazil, tag form with a script", "pt-Latn-BR", Language::Portuguese},
        {"Portuguese elsewhere", "pt_AO", Language::English},
        {"Mexico", "es-MX", Language::Spanish},
        {"English", "en_US", Language::English},
        {"empty", "", Language::English},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(languageFromLocaleName(c.name), c.language);
    }
}

TEST(StartLanguage, AStoredLanguageWinsOverTheDetectedOne) {
    struct Case {
        const char* label;
        const char* stored;
        Language detected;
        Language language;
    };
    const Case cases[] = {
        {"stored Portuguese", "1", Language::Spanish, Language::Portuguese},
        {"stored English", "2", Language::Spanish, Language::English},
        {"stored Spanish", "3", Language::English, Language::Spanish},
        {"not chosen", "0", Language::Spanish, Language::Spanish},
        {"out of range", "4", Language::Portuguese, Language::Portuguese},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(startLanguage(c.stored, c.detected), c.language);
    }
}

}  // namespace
}  // namespace zv::tray
