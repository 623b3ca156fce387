#include "words/amount_in_words.h"

#include <gtest/gtest.h>

#include <limits>

namespace zv::words {
namespace {

const common::NumberSeparators kBrazil{",", "."};
const common::NumberSeparators kUs{".", ","};

struct Case {
    const char* label;
    double value;
    const char* expected;
};

void checkWords(const Case* begin, const Case* end, bool withCurrency) {
    for (const Case* c = begin; c != end; ++c) {
        SCOPED_TRACE(c->label);
        const std::optional<std::string> words = ConverterExtenso(c->value, withCurrency);
        ASSERT_TRUE(words.has_value());
        EXPECT_EQ(*words, c->expected);
    }
}

TEST(ConverterExtenso, CentavosAndSmallAmounts) {
    const Case cases[] = {
        {"one cent", 0.01, "UM CENTAVO"},
        {"fifty cents", 0.50, "CINQUENTA CENTAVOS"},
        {"one real", 1, "UM REAL"},
        {"two reais", 2, "DOIS REAIS"},
        {"one real one cent", 1.01, "UM REAL E UM CENTAVO"},
        {"one real fifty", 1.50, "UM REAL E CINQUENTA CENTAVOS"},
        {"fifteen fifteen", 15.15, "QUINZE REAIS E QUINZE CENTAVOS"},
        {"three, with its accent", 3.03, "TRÊS REAIS E TRÊS CENTAVOS"},
        {"cents rounded half up", 2.675, "DOIS REAIS E SESSENTA E OITO CENTAVOS"},
        {"half a cent above the minimum rounds up", 0.015, "DOIS CENTAVOS"},
    };
    checkWords(std::begin(cases), std::end(cases), true);
}

TEST(ConverterExtenso, HundredsAndTens) {
    const Case cases[] = {
        {"round hundred", 100, "CEM REAIS"},
        {"hundred and one", 101, "CENTO E UM REAIS"},
        {"hundred and ten", 110, "CENTO E DEZ REAIS"},
        {"hundred and fifteen", 115, "CENTO E QUINZE REAIS"},
        {"hundred and twenty", 120, "CENTO E VINTE REAIS"},
        {"nine hundred ninety-nine", 999, "NOVECENTOS E NOVENTA E NOVE REAIS"},
        {"tens and units", 87, "OITENTA E SETE REAIS"},
        {"hundreds and a unit", 305, "TREZENTOS E CINCO REAIS"},
    };
    checkWords(std::begin(cases), std::end(cases), true);
}

TEST(ConverterExtenso, ThousandsMillionsAndBillionsKeepTheSystemsJoiners) {
    const Case cases[] = {
        {"a thousand keeps its one", 1000, "UM MIL REAIS"},
        {"thousand and hundred", 1100, "UM MIL E CEM REAIS"},
        {"every group joined by E", 1234, "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS"},
        {"thousand and one", 1001, "UM MIL E UM REAIS"},
        {"round million takes DE", 1000000, "UM MILHÃO DE REAIS"},
        {"round millions", 2000000, "DOIS MILHÕES DE REAIS"},
        {"million and one is plural", 1000001, "UM MILHÃO E UM REAIS"},
        {"round millions with cents", 2000000.01, "DOIS MILHÕES DE REAIS E UM CENTAVO"},
        {"million and thousands", 1500000, "UM MILHÃO E QUINHENTOS MIL REAIS"},
        {"round billion takes DE", 1000000000, "UM BILHÃO DE REAIS"},
        {"billion and round millions", 1002000000, "UM BILHÃO E DOIS MILHÕES DE REAIS"},
        {"billion and thousands", 1000005000, "UM BILHÃO E CINCO MIL REAIS"},
        {"billion and units", 1000000007, "UM BILHÃO E SETE REAIS"},
        {"the largest amount", 999999999999.99,
         "NOVECENTOS E NOVENTA E NOVE BILHÕES E NOVECENTOS E NOVENTA E NOVE MILHÕES E NOVECENTOS E "
         "NOVENTA E NOVE MIL E NOVECENTOS E NOVENTA E NOVE REAIS E NOVENTA E NOVE CENTAVOS"},
    };
    checkWords(std::begin(cases), std::end(cases), true);
}

TEST(ConverterExtenso, WithoutCurrencyOnlyTheCurrencyWordsGo) {
    const Case cases[] = {
        {"spaces come from the words", 1.50, "UM  E CINQUENTA "},
        {"round million keeps DE", 1000000, "UM MILHÃO DE "},
        {"round billion keeps DE", 1000000000, "UM BILHÃO DE "},
        {"cents only", 0.25, "VINTE E CINCO "},
        {"a year", 2024, "DOIS MIL E VINTE E QUATRO "},
    };
    checkWords(std::begin(cases), std::end(cases), false);
}

TEST(ConverterExtenso, RejectsAmountsOutOfRange) {
    const double values[] = {0.0,
                             0.004,
                             0.0099,
                             -1,
                             -0.01,
                             1000000000000.0,
                             999999999999.995,
                             std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    for (double v : values) {
        SCOPED_TRACE(v);
        EXPECT_EQ(ConverterExtenso(v, true), std::nullopt);
        EXPECT_EQ(ConverterExtenso(v, false), std::nullopt);
    }
}

TEST(ConverterExtenso, ReadsTextWithTheUsersSeparators) {
    struct TextCase {
        const char* label;
        const char* text;
        common::NumberSeparators seps;
        std::optional<std::string> expected;
    };
    const TextCase cases[] = {
        {"Brazilian display", "1.234,56", kBrazil,
         "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA E SEIS CENTAVOS"},
        {"US display", "1,234.56", kUs,
         "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA E SEIS CENTAVOS"},
        {"empty display", "", kBrazil, std::nullopt},
        {"the error state", "E", kBrazil, std::nullopt},
        {"zero", "0,00", kBrazil, std::nullopt},
        {"negative", "-5", kBrazil, std::nullopt},
        {"largest accepted", "999.999.999.999,99", kBrazil,
         "NOVECENTOS E NOVENTA E NOVE BILHÕES E NOVECENTOS E NOVENTA E NOVE MILHÕES E NOVECENTOS E "
         "NOVENTA E NOVE MIL E NOVECENTOS E NOVENTA E NOVE REAIS E NOVENTA E NOVE CENTAVOS"},
    };
    for (const TextCase& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(ConverterExtenso(std::string_view{c.text}, true, c.seps), c.expected);
    }
}

}  // namespace
}  // namespace zv::words
