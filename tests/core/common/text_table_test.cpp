#include "common/text_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zv::common {
namespace {

constexpr Language kAllLanguages[] = {Language::Portuguese, Language::English, Language::Spanish};

int idOf(int code, Language language) {
    return code * 10 + static_cast<int>(language);
}

// True when `s` is well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool isValidUtf8(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        const auto b = static_cast<unsigned char>(s[i]);
        int extra = 0;
        unsigned cp = 0;
        if (b < 0x80) {
            ++i;
            continue;
        } else if ((b & 0xE0) == 0xC0) {
            extra = 1;
            cp = b & 0x1F;
        } else if ((b & 0xF0) == 0xE0) {
            extra = 2;
            cp = b & 0x0F;
        } else if ((b & 0xF8) == 0xF0) {
            extra = 3;
            cp = b & 0x07;
        } else {
            return false;
        }
        if (i + static_cast<std::size_t>(extra) >= s.size()) {
            return false;
        }
        for (int k = 1; k <= extra; ++k) {
            const auto c = static_cast<unsigned char>(s[i + k]);
            if ((c & 0xC0) != 0x80) {
                return false;
            }
            cp = (cp << 6) | (c & 0x3F);
        }
        const unsigned minimum[] = {0, 0x80, 0x800, 0x10000};
        if (cp < minimum[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            return false;
        }
        i += static_cast<std::size_t>(extra) + 1;
    }
    return true;
}

TEST(TextTable, MissingTextsComeBackEmpty) {
    struct Case {
        const char* label;
        Language language;
        int code;
    };
    const Case cases[] = {
        {"code below the table", Language::Portuguese, 3},
        {"gap inside the table", Language::Portuguese, 5},
        {"gap between 161 and 169", Language::English, 165},
        {"gap after our own codes", Language::Spanish, 899},
        {"Portuguese-only code in English", Language::English, 900},
        {"Portuguese-only code in Spanish", Language::Spanish, 900},
        {"last Portuguese-only code in English", Language::English, 999},
        {"negative code", Language::Portuguese, -4},
        {"code too large for an id", Language::Portuguese, 1'000'000'000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(GetText(c.language, c.code, "a", "b", "c"), "");
    }
    EXPECT_EQ(rawText(0), "");
    EXPECT_EQ(rawText(40), "");  // language digit 0 is no language
    EXPECT_EQ(rawText(44), "");  // nor is 4
    EXPECT_EQ(GetText(static_cast<Language>(0), 4), "");
}

TEST(TextTable, LineBreaksAndArgumentsAreFilledIn) {
    struct Case {
        const char* label;
        Language language;
        int code;
        const char* arg1;
        const char* arg2;
        const char* expected;
    };
    const Case cases[] = {
        {"shutdown question", Language::Portuguese, 39, "18:30:00", "",
         "Deseja realmente desligar o computador às 18:30:00 hs. ?"},
        {"empty line between paragraphs", Language::English, 4, "", "",
         "Calculation list is full.\r\n\r\nDo you want to erase all the calculations on the list?"},
        {"two arguments after single and double breaks", Language::Portuguese, 43, "07:15:00", "Reunião",
         "Horário Agendado para Alarme:\r\n07:15:00 hs.\r\n\r\nReunião"},
        {"first and second argument in order", Language::Portuguese, 29, "1.234,50", "12 meses",
         "Principal + Juro Capitalizado:\r\n\r\n$ 1.234,50\r\n\r\n12 meses"},
        {"second argument unused in English", Language::English, 29, "1,234.50", "12 months",
         "Amount + Capitalized Interest Amount:\r\n\r\n$ 1,234.50"},
        {"arguments inside quotes", Language::Spanish, 206, "carpinteros", "armarios",
         "¿Sí aumentan:\r\n\"carpinteros\"\r\n\r\ncree Vd. que aumentarán:\r\n\"armarios\" ?"},
        {"Portuguese-only text with arguments", Language::Portuguese, 900, "0,01", "999,99",
         "Digite o valor na calculadora para depois imprimir!\r\n\r\nInforme valores entre 0,01 e 999,99"},
        {"missing arguments leave nothing behind", Language::Portuguese, 948, "", "",
         "Deseja salvar as alterações feitas em \"\" ?"},
        {"an argument is inserted as it stands", Language::Portuguese, 13, "a|b\u008E", "x",
         "Problemas ao tentar abrir seu programa de e-mail e enviar mensagem para:\r\n\r\na|b\u008E"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(GetText(c.language, c.code, c.arg1, c.arg2, "unused"), c.expected);
    }
}

TEST(TextTable, TextWithoutMarkersIsReturnedUnchanged) {
    const int codes[] = {18, 87, 150, 210, 211, 216};
    for (int code : codes) {
        for (Language language : kAllLanguages) {
            SCOPED_TRACE(idOf(code, language));
            const std::string_view raw = rawText(idOf(code, language));
            ASSERT_FALSE(raw.empty());
            EXPECT_EQ(GetText(language, code, "x", "y", "z"), raw);
        }
    }
}

TEST(TextTable, StoredTextsMatchTheTable) {
    struct Case {
        int id;
        const char* expected;
    };
    const Case cases[] = {
        {41, "A lista dos cálculos está cheia!||Deseja apagar todos os cálculos desta lista?"},
        {43, "La lista de cálculos esta llena.||¿Desea borrar los cálculos de esta lista?"},
        {71,
         "DICAS DE OPERAÇÃO:||- Dê clique duplo sobre a lista dos cálculos para que o número clicado seja "
         "registrado novamente.||- Use as setinhas do teclado para acessar e rolar a lista dos cálculos.||- "
         "Para somar pela área de transferência selecione e copie (Ctrl+C) algum valor numérico de outro "
         "programa como tabela do Word ou colunas do Excel. Ao copiar duas colunas (simultaneamente) será "
         "feito multiplicação de uma pela outra. O resultado é armazenado na área de transferência (Use "
         "Colar: Ctrl+V).||- Tecle F6 e abra outra janela para fazer cálculos secundários. Este recurso "
         "substitui a função MEMÓRIA das calculadoras convencionais.||- Tecle Ctrl+S para trocar o som da "
         "calculadora.||- Tecle DELETE uma vez para zerar o visor ou duas vezes para limpar a lista dos "
         "cálculos.||- Tecle ESC para fechar qualquer janela desta calculadora.||* Mais informações ou "
         "sugestões através de nosso site na INTERNET.||"
         "GOSTARIA DE VISITAR O SITE DO PROGRAMA NA INTERNET ?"},
        {73,
         "OPERACIONES:||- Pulse dos veces sobre la lista de cálculos y el número pulsado quedará de nuevo "
         "registrado.||- Utilice las flechas del teclado para navegar por el listado de cálculos.||- Puede "
         "copiar del portapapeles -seleccione y copie (Ctrl+C)- valores numéricos de otros programas (Por "
         "ej. Tablas de Word o Columnas de Excel). Si copia simultaneamente dos columnas se multiplicará la "
         "una por la otra. El resultado se almacena en el portapapeles (utilice la función Paste: "
         "Ctrl+V).||- Si pulsa F6 se abrirá otra calculadora igual para realizar cálculos secundarios. Este "
         "recurso sustituye a la función MEMORIA de las calculadoras convencionales.||- Pulse Ctrl+S para "
         "cambiar el sonido de la calculadora.||- Pulse DELETE para limpiar el resultado total o pulse dos "
         "veces para limpiar la lista de cálculos.||- Pulse ESC para cerrar la calculadora.||* Para más "
         "información y sugerencias visite nuestra página WEB.||¿DESEA VISITAR NUESTRA PÁGINA WEB?"},
        {392, "Do you really want to turn off the computer by \u008D hs. ?"},
        {572,
         "Enter an instrument number from 0 to 127.|Example:|000 = Piano|050 = Synth Strings|075 = "
         "Flute|100 = FX5 Bright||Use your keyboard to play sounds."},
        {633, "Señale la FECHA FINAL|o el Nº de DÍAS (de 1 a \u008D días):"},
        {802, "Turn off the Computer at \u008D hs. "},
        {1221, "&Função da Tecla \"ENTER\""},
        {1222, "\"ENTER\" Key &Function"},
        {1223, "&Función Tecla \"ENTER\""},
        {1313, "&Años"},
        {1371, "Tenha empatia e amor ao próximo.|Se for emprestar, não explore!"},
        {1441, "1ª Parcela com"},
        {1501, "  à vista"},
        {1611, " Limpar "},
        {1613, " Limpiar"},
        {1721, "Não foi possível abrir o arquivo de backup:||c:\\calcula.txt"},
        {1873,
         "¡Ahora sólo falta pulsar en CALCULAR para obtener la cantidad de armarios!||ATENCIÓN: Cuando "
         "pulse CALCULAR, se harán unas preguntas lógicas a las que hay que contestar para resolver el "
         "problema. Si responde correctamente, el resultado final será:||\"20 ARMARIOS\"||AYUDA: Tras "
         "pulsar en CALCULAR, responsa SI a todas las preguntas."},
        {1961,
         "Agora só falta apertar o botão CALCULAR para obter a quantidade de horas diária!||Caso você "
         "responda todas as perguntas de lógica corretamente, o resultado final desta questão será:||\"10 "
         "HORAS DIÁRIA TRABALHADA\"||DICA: Ao apertar o botão CALCULAR, responda 2 vezes NÃO e um SIM."},
        {1973,
         "Rellene al menos dos campos con los datos básicos, y después pulse CALCULAR.||Si lo prefiere, "
         "pulse en EJEMPLO, y el programa le dirá  paso a paso cómo rellenar los campos."},
        {2061, "Se aumentar:|\"\u008D\"||aumentará (ou terá que aumentar):|\"\u008E\" ?"},
        {2062, "If you add:|\"\u008D\"||the result will/would add:|\"\u008E\" ?"},
        {2102, "     CAPITALIZATION TOTAL:"},
        {2161, "\"N&umLock\" sempre ligado"},
        {2162, "\"N&umLock\" always ON"},
        {2163, "\"N&umLock\" siempre ligado"},
        {2193, "R&ehacer"},
        {9441, "Alterações canceladas pelo usuário"},
        {9481, "Deseja salvar as alterações feitas em \"\u008D\" ?"},
        {9721, " Salvar Modelo"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        EXPECT_EQ(rawText(c.id), c.expected);
    }
}

TEST(TextTable, EveryCodeHasAllThreeLanguagesExceptThePortugueseOnlyOnes) {
    int codes = 0;
    for (int code = 0; code <= 999; ++code) {
        const bool hasPortuguese = !rawText(idOf(code, Language::Portuguese)).empty();
        const bool hasEnglish = !rawText(idOf(code, Language::English)).empty();
        const bool hasSpanish = !rawText(idOf(code, Language::Spanish)).empty();
        SCOPED_TRACE(code);
        if (code >= 900) {
            EXPECT_FALSE(hasEnglish);
            EXPECT_FALSE(hasSpanish);
        } else {
            EXPECT_EQ(hasEnglish, hasPortuguese);
            EXPECT_EQ(hasSpanish, hasPortuguese);
        }
        codes += hasPortuguese ? 1 : 0;
    }
    // 186 codes of the numbered table and 24 of ours (119, 220 to 242): a lost row shows here.
    EXPECT_EQ(codes, 210);
}

TEST(TextTable, StoredTextsAreWellFormed) {
    for (int id = 0; id <= 9999; ++id) {
        const std::string_view text = rawText(id);
        if (text.empty()) {
            continue;
        }
        SCOPED_TRACE(id);
        EXPECT_TRUE(isValidUtf8(text));
        // Line breaks are stored as "|" and arguments as single markers, never spelled out.
        EXPECT_EQ(text.find_first_of("\r\n\t"), std::string_view::npos);
        EXPECT_EQ(text.find("{1}"), std::string_view::npos);
        EXPECT_EQ(text.find("{2}"), std::string_view::npos);
    }
}

TEST(TextTable, OurOwnCaptionsExistInAllLanguages) {
    const int ownCodes[] = {txt::kBeep,           137,
                            txt::kMnuExtenso,     txt::kMnuCheque,
                            txt::kMnuPromissoria, txt::kMnuConverte,
                            txt::kMnuUtil,        txt::kMnuSalvar,
                            txt::kMnuXP,          txt::kSignTooltip,
                            txt::kWordsInvalid,   txt::kWordsOnClipboard,
                            txt::kPasteHint,      txt::kSaveFilterName,
                            txt::kWaitForPrinter, txt::kMnuPortuguese,
                            txt::kMnuEnglish,     txt::kMnuSpanish};
    for (int code : ownCodes) {
        for (Language language : kAllLanguages) {
            SCOPED_TRACE(idOf(code, language));
            EXPECT_FALSE(GetText(language, code).empty());
        }
    }

    // Menu captions carry exactly one access key in every language.
    const int menuCodes[] = {txt::kBeep,        txt::kMnuExtenso, txt::kMnuCheque, txt::kMnuPromissoria,
                             txt::kMnuConverte, txt::kMnuUtil,    txt::kMnuSalvar, txt::kMnuPortuguese,
                             txt::kMnuEnglish,  txt::kMnuSpanish};
    for (int code : menuCodes) {
        for (Language language : kAllLanguages) {
            SCOPED_TRACE(idOf(code, language));
            const std::string_view caption = rawText(idOf(code, language));
            EXPECT_EQ(std::count(caption.begin(), caption.end(), '&'), 1);
        }
    }

    struct Case {
        int id;
        const char* expected;
    };
    const Case given[] = {
        {1191, "&Beep, Beep..."},
        {2201, "Copiar o Visor por &Extenso"},
        {2261, "Office XP menu"},
        {2263, "Office XP menu"},
        {2271, " Positivo/Negativo "},
        {2272, " Positive/Negative "},
        {2281, "Dados inválidos para se converter por extenso"},
        {2291, "Valor por extenso colocado na Área de Transferência."},
        {2301, "(Use colar: Ctrl+V)"},
        {2311, "Documento Texto (*.txt)"},
        {2312, "Text Document (*.txt)"},
        {2321, "Aguarde o término da impressão e então pressione OK para continuar..."},
        {2322, "Await the end of the print and then press OK to continue..."},
        {2331, "&Português"},
        {2342, "&English"},
        {2353, "E&spañol"},
    };
    for (const Case& c : given) {
        SCOPED_TRACE(c.id);
        EXPECT_EQ(rawText(c.id), c.expected);
    }
    // The language names read the same whatever the current language.
    for (int code : {txt::kMnuPortuguese, txt::kMnuEnglish, txt::kMnuSpanish}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(GetText(Language::English, code), GetText(Language::Portuguese, code));
        EXPECT_EQ(GetText(Language::Spanish, code), GetText(Language::Portuguese, code));
    }
}

}  // namespace
}  // namespace zv::common
