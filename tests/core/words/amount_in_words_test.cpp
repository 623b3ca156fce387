#include "core/words/amount_in_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>

#include "fakes/sample_text.h"

namespace zv::words {
namespace {

struct Case {
    double value;
    const char* expected;
};

void checkWords(std::initializer_list<Case> cases, bool withCurrency = true) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.value);
        const std::optional<std::string> words = ConverterExtenso(c.value, withCurrency);
        ASSERT_TRUE(words.has_value());
        EXPECT_EQ(*words, c.expected);
    }
}

TEST(ConverterExtenso, CentavosUnitsTensAndHundreds) {
    checkWords({
        {0.01, "UM CENTAVO"},
        {1, "UM REAL"},
        {2, "DOIS REAIS"},
        {1.01, "UM REAL E UM CENTAVO"},
        {15.03, "QUINZE REAIS E TRÊS CENTAVOS"},
        {2.675, "DOIS REAIS E SESSENTA E OITO CENTAVOS"},  // cents rounded half up
        {0.015, "DOIS CENTAVOS"},                          // half a cent above the minimum
        {100, "CEM REAIS"},
        {115, "CENTO E QUINZE REAIS"},
        {999, "NOVECENTOS E NOVENTA E NOVE REAIS"},
    });
}

TEST(ConverterExtenso, ThousandsMillionsAndBillionsKeepTheSystemsJoiners) {
    checkWords({
        {1000, "UM MIL REAIS"},  // a thousand keeps its one
        {1100, "UM MIL E CEM REAIS"},
        {1234, "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS"},
        {1000000, "UM MILHÃO DE REAIS"},  // round millions take DE
        {2000000.01, "DOIS MILHÕES DE REAIS E UM CENTAVO"},
        {1000001, "UM MILHÃO E UM REAIS"},
        {1000000000, "UM BILHÃO DE REAIS"},
        {1002000000, "UM BILHÃO E DOIS MILHÕES DE REAIS"},
        {1000005000, "UM BILHÃO E CINCO MIL REAIS"},
        {999999999999.99,
         "NOVECENTOS E NOVENTA E NOVE BILHÕES E NOVECENTOS E NOVENTA E NOVE MILHÕES E NOVECENTOS E "
         "NOVENTA E NOVE MIL E NOVECENTOS E NOVENTA E NOVE REAIS E NOVENTA E NOVE CENTAVOS"},
    });
}

TEST(ConverterExtenso, WithoutCurrencyOnlyTheCurrencyWordsGo) {
    // The spaces around the currency words stay, and so does the "DE" of a round million or billion.
    checkWords({{1.50, "UM  E CINQUENTA "},
                {2000000, "DOIS MILHÕES DE "},
                {1e9, "UM BILHÃO DE "},
                {0.25, "VINTE E CINCO "}},
               false);
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
