#include "core/words/amount_in_words.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/rows.h"
#include "fakes/sample_text.h"

namespace zv::words {
namespace {

std::string say(double value, bool withCurrency = true) {
    return ConverterExtenso(value, withCurrency).value_or("none");
}

TEST(ConverterExtenso, CentavosUnitsTensAndHundreds) {
    fakes::expectRows({
        {"a centavo", say(0.01), "UM CENTAVO"},
        {"a real", say(1), "UM REAL"},
        {"reais", say(2), "DOIS REAIS"},
        {"one and one", say(1.01), "UM REAL E UM CENTAVO"},
        {"teens", say(15.03), "QUINZE REAIS E TRÊS CENTAVOS"},
        {"cents rounded half up", say(2.675), "DOIS REAIS E SESSENTA E OITO CENTAVOS"},
        {"half a cent above the minimum", say(0.015), "DOIS CENTAVOS"},
        {"a round hundred", say(100), "CEM REAIS"},
        {"a hundred and more", say(115), "CENTO E QUINZE REAIS"},
        {"every place", say(999), "NOVECENTOS E NOVENTA E NOVE REAIS"},
    });
}

TEST(ConverterExtenso, ThousandsMillionsAndBillionsKeepTheSystemsJoiners) {
    fakes::expectRows({
        {"a thousand keeps its one", say(1000), "UM MIL REAIS"},
        {"a thousand and a hundred", say(1100), "UM MIL E CEM REAIS"},
        {"a thousand and more", say(1234), "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS"},
        {"round millions take DE", say(1000000), "UM MILHÃO DE REAIS"},
        {"millions and a centavo", say(2000000.01), "DOIS MILHÕES DE REAIS E UM CENTAVO"},
        {"a million and one", say(1000001), "UM MILHÃO E UM REAIS"},
        {"a billion", say(1000000000), "UM BILHÃO DE REAIS"},
        {"a billion and millions", say(1002000000), "UM BILHÃO E DOIS MILHÕES DE REAIS"},
        {"a billion and thousands", say(1000005000), "UM BILHÃO E CINCO MIL REAIS"},
        {"the largest", say(999999999999.99),
         "NOVECENTOS E NOVENTA E NOVE BILHÕES E NOVECENTOS E NOVENTA E NOVE MILHÕES E NOVECENTOS E "
         "NOVENTA E NOVE MIL E NOVECENTOS E NOVENTA E NOVE REAIS E NOVENTA E NOVE CENTAVOS"},
        // The spaces around the currency words stay, and so does the DE of a round million or billion.
        {"no currency, reais and centavos", say(1.50, false), "UM  E CINQUENTA "},
        {"no currency, round millions", say(2000000, false), "DOIS MILHÕES DE "},
        {"no currency, a billion", say(1e9, false), "UM BILHÃO DE "},
        {"no currency, centavos", say(0.25, false), "VINTE E CINCO "},
    });
}

TEST(ConverterExtenso, RejectsAmountsOutOfRange) {
    for (double v : {0.0, 0.004, 0.0099, -0.01, 1000000000000.0, 999999999999.995, std::nan(""), HUGE_VAL}) {
        EXPECT_EQ(ConverterExtenso(v, true), std::nullopt) << v;
    }
}

TEST(ConverterExtenso, ReadsTextWithTheUsersSeparators) {
    const char* words = "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA E SEIS CENTAVOS";
    EXPECT_EQ(ConverterExtenso(std::string_view{"1.234,56"}, true, fakes::kBrazil), words);
    EXPECT_EQ(ConverterExtenso(std::string_view{"1,234.56"}, true, fakes::kUs), words);
    for (const char* text : {"", "E", "0,00", "-5", "1,234.56"}) {
        EXPECT_EQ(ConverterExtenso(std::string_view{text}, true, fakes::kBrazil), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace zv::words
