#include "core/common/text_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "core/common/text_encoding.h"
#include "fakes/rows.h"

namespace zv::common {
namespace {

constexpr Language kAllLanguages[] = {Language::Portuguese, Language::English, Language::Spanish};

int idOf(int code, Language language) {
    return code * 10 + static_cast<int>(language);
}

TEST(TextTable, MissingTextsComeBackEmpty) {
    const std::pair<Language, int> cases[] = {
        {Language::Portuguese, 3},     {Language::Portuguese, 5},  // below the table, a gap inside it
        {Language::English, 900},      {Language::Spanish, 999},   // Portuguese-only codes
        {Language::Portuguese, -4},    {Language::Portuguese, 1 << 30},
        {static_cast<Language>(0), 4}, {static_cast<Language>(4), 4},
    };
    for (const auto& [language, code] : cases) {
        EXPECT_EQ(GetText(language, code, "a", "b", "c"), "") << code << " in " << static_cast<int>(language);
    }
}

TEST(TextTable, LineBreaksAndArgumentsAreFilledIn) {
    fakes::expectRows({
        {"line breaks", GetText(Language::English, 4),
         "Calculation list is full.\r\n\r\nDo you want to erase all the calculations on the list?"},
        {"two arguments", GetText(Language::Portuguese, 43, "07:15:00", "Reunião"),
         "Horário Agendado para Alarme:\r\n07:15:00 hs.\r\n\r\nReunião"},
        {"no place for the second argument", GetText(Language::English, 29, "1,234.50", "12 months"),
         "Amount + Capitalized Interest Amount:\r\n\r\n$ 1,234.50"},
        {"missing arguments leave nothing", GetText(Language::Portuguese, 948),
         "Deseja salvar as alterações feitas em \"\" ?"},
        {"markers inside an argument stay", GetText(Language::Portuguese, 13, "a|b\u008E", "x"),
         "Problemas ao tentar abrir seu programa de e-mail e enviar mensagem para:\r\n\r\na|b\u008E"},
    });
}

TEST(TextTable, EveryCodeHasAllThreeLanguagesExceptThePortugueseOnlyOnes) {
    int codes = 0;
    for (int code = 0; code <= 999; ++code) {
        const bool hasPortuguese = !rawText(idOf(code, Language::Portuguese)).empty();
        SCOPED_TRACE(code);
        EXPECT_EQ(!rawText(idOf(code, Language::English)).empty(), hasPortuguese && code < 900);
        EXPECT_EQ(!rawText(idOf(code, Language::Spanish)).empty(), hasPortuguese && code < 900);
        codes += hasPortuguese ? 1 : 0;
    }
    // 186 codes of the numbered table and 102 of ours (119, 220 to 265, 280 to 282, 290 to 302,
    // 304, 305, 360 to 396): a lost row shows here.
    EXPECT_EQ(codes, 288);
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
            if (code >= txt::kMnuPortuguese) {
                EXPECT_EQ(caption, GetText(Language::Portuguese, code));
            }
        }
    }
}

}  // namespace
}  // namespace zv::common
