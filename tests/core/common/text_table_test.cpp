#include "core/common/text_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "core/common/text_encoding.h"

namespace zv::common {
namespace {

constexpr Language kAllLanguages[] = {Language::Portuguese, Language::English, Language::Spanish};

int idOf(int code, Language language) {
    return code * 10 + static_cast<int>(language);
}

TEST(TextTable, MissingTextsComeBackEmpty) {
    const std::pair<Language, int> cases[] = {
        {Language::Portuguese, 3},       // below the table
        {Language::Portuguese, 5},       // a gap inside it
        {Language::English, 900},        // Portuguese-only codes
        {Language::Spanish, 999},        //
        {Language::Portuguese, -4},      // negative
        {Language::Portuguese, 1 << 30}  // too large for an id
    };
    for (const auto& [language, code] : cases) {
        EXPECT_EQ(GetText(language, code, "a", "b", "c"), "") << code;
    }
    EXPECT_EQ(rawText(40), "");  // language digit 0 is no language
    EXPECT_EQ(rawText(44), "");  // nor is 4
    EXPECT_EQ(GetText(static_cast<Language>(0), 4), "");
}

TEST(TextTable, LineBreaksAndArgumentsAreFilledIn) {
    struct Case {
        Language language;
        int code;
        const char* arg1;
        const char* arg2;
        const char* expected;
    };
    const Case cases[] = {
        {Language::Portuguese, 39, "18:30:00", "",
         "Deseja realmente desligar o computador às 18:30:00 hs. ?"},
        {Language::English, 4, "", "",
         "Calculation list is full.\r\n\r\nDo you want to erase all the calculations on the list?"},
        {Language::Portuguese, 43, "07:15:00", "Reunião",
         "Horário Agendado para Alarme:\r\n07:15:00 hs.\r\n\r\nReunião"},
        // The English text has no place for the second argument.
        {Language::English, 29, "1,234.50", "12 months",
         "Amount + Capitalized Interest Amount:\r\n\r\n$ 1,234.50"},
        // Missing arguments leave nothing behind; markers inside an argument are not filled in.
        {Language::Portuguese, 948, "", "", "Deseja salvar as alterações feitas em \"\" ?"},
        {Language::Portuguese, 13, "a|b\u008E", "x",
         "Problemas ao tentar abrir seu programa de e-mail e enviar mensagem para:\r\n\r\na|b\u008E"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(GetText(c.language, c.code, c.arg1, c.arg2, "unused"), c.expected);
    }
}

TEST(TextTable, StoredTextsKeepBlanksQuotesAndMarkers) {
    const std::pair<int, const char*> cases[] = {
        {392, "Do you really want to turn off the computer by \u008D hs. ?"},
        {1501, "  à vista"},
        {2061, "Se aumentar:|\"\u008D\"||aumentará (ou terá que aumentar):|\"\u008E\" ?"},
        {2271, " Positivo/Negativo "},
    };
    for (const auto& [id, expected] : cases) {
        EXPECT_EQ(rawText(id), expected) << id;
    }
    // Text without markers comes back as stored.
    for (Language language : kAllLanguages) {
        EXPECT_EQ(GetText(language, 18, "x", "y", "z"), rawText(idOf(18, language)));
    }
}

TEST(TextTable, EveryCodeHasAllThreeLanguagesExceptThePortugueseOnlyOnes) {
    int codes = 0;
    for (int code = 0; code <= 999; ++code) {
        const bool hasPortuguese = !rawText(idOf(code, Language::Portuguese)).empty();
        const bool hasEnglish = !rawText(idOf(code, Language::English)).empty();
        const bool hasSpanish = !rawText(idOf(code, Language::Spanish)).empty();
        SCOPED_TRACE(code);
        EXPECT_EQ(hasEnglish, hasPortuguese && code < 900);
        EXPECT_EQ(hasSpanish, hasPortuguese && code < 900);
        codes += hasPortuguese ? 1 : 0;
    }
    // 186 codes of the numbered table and 27 of ours (119, 220 to 245): a lost row shows here.
    EXPECT_EQ(codes, 213);
}

TEST(TextTable, StoredTextsAreWellFormed) {
    for (int id = 0; id <= 9999; ++id) {
        const std::string_view text = rawText(id);
        SCOPED_TRACE(id);
        EXPECT_TRUE(isValidUtf8(text));
        // Line breaks are stored as "|" and arguments as single markers, never spelled out.
        EXPECT_EQ(text.find_first_of("\r\n\t"), std::string_view::npos);
        EXPECT_EQ(text.find("{1}"), std::string_view::npos);
        EXPECT_EQ(text.find("{2}"), std::string_view::npos);
    }
}

TEST(TextTable, OurMenuCaptionsHaveOneAccessKeyAndLanguageNamesNeverChange) {
    for (int code :
         {txt::kBeep, txt::kMnuExtenso, txt::kMnuCheque, txt::kMnuPromissoria, txt::kMnuConverte,
          txt::kMnuUtil, txt::kMnuSalvar, txt::kMnuPortuguese, txt::kMnuEnglish, txt::kMnuSpanish}) {
        for (Language language : kAllLanguages) {
            const std::string caption = GetText(language, code);
            EXPECT_EQ(std::count(caption.begin(), caption.end(), '&'), 1) << caption;
        }
    }
    for (int code : {txt::kMnuPortuguese, txt::kMnuEnglish, txt::kMnuSpanish}) {
        EXPECT_EQ(GetText(Language::English, code), GetText(Language::Portuguese, code));
        EXPECT_EQ(GetText(Language::Spanish, code), GetText(Language::Portuguese, code));
    }
}

}  // namespace
}  // namespace zv::common
