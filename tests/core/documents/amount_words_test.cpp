#include "core/documents/amount_words.h"

#include <gtest/gtest.h>

#include <string>

#include "core/common/text_encoding.h"

namespace zv::documents {
namespace {

// "A A A ... ": n one-letter words, each followed by its space (2n characters).
std::string pairs(std::size_t n) {
    std::string text;
    for (std::size_t i = 0; i < n; ++i) {
        text += "A ";
    }
    return text;
}

TEST(SplitWords, FillsHaveTheirLengthAndStars) {
    EXPECT_EQ(kFill1.size(), 69u);
    EXPECT_EQ(std::count(kFill1.begin(), kFill1.end(), '*'), 35);
    EXPECT_EQ(kFill2.size(), 74u);
    EXPECT_EQ(std::count(kFill2.begin(), kFill2.end(), '*'), 37);
}

TEST(SplitWords, NeverCutsAWord) {
    struct Case {
        const char* label;
        std::string words;
        std::string line1;  // before its fill
        std::string line2;  // before its fill
    };
    const std::string sixtyNine = pairs(30) + "CENTAVOS)";
    const std::string cut = pairs(33) + "CENTAVOS)";  // the 69th character is its "N"
    const Case cases[] = {
        {"short words stay on line 1", "(UM REAL)", "(UM REAL)", ""},
        {"exactly 69 characters stay on line 1", sixtyNine, sixtyNine, ""},
        {"the word cut at the 69th character moves whole", cut, pairs(33), "CENTAVOS)"},
        {"a 70th character that is a space moves the word before it", sixtyNine + " E", pairs(30),
         "CENTAVOS) E"},
        {"a word of 70 letters goes all to line 2", std::string(70, 'X'), "", std::string(70, 'X')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const WordsLines lines = splitWords(c.words);
        EXPECT_EQ(lines.line1, c.line1 + std::string(kFill1));
        EXPECT_EQ(lines.line2, c.line2 + std::string(kFill2));
    }
}

TEST(SplitWords, CountsCharactersNotBytes) {
    // 69 characters with a "Ê" (two bytes) among them: still one line.
    const std::string words = "TRÊS " + pairs(29) + "REAIS)";
    ASSERT_EQ(common::utf8Length(words), 69u);
    const WordsLines lines = splitWords(words);
    EXPECT_EQ(lines.line1, words + std::string(kFill1));
    EXPECT_EQ(lines.line2, std::string(kFill2));
}

TEST(AmountText, StarsMoneyAndASpace) {
    const common::NumberSeparators brazil;
    EXPECT_EQ(amountText(1234.5, brazil), "***1.234,50 ");
    EXPECT_EQ(amountText(0.01, {".", ","}), "***0.01 ");
}

TEST(AmountWords, InParenthesesWithCurrency) {
    EXPECT_EQ(amountWords(1.5), "(UM REAL E CINQUENTA CENTAVOS)");
}

TEST(AmountWords, OnlyWithinTheDocumentsRange) {
    const std::tuple<const char*, double, bool> cases[] = {
        {"one centavo", 0.01, true}, {"below a centavo", 0.009, false},  {"zero", 0, false},
        {"negative", -5, false},     {"highest", 999999999999.99, true}, {"a trillion", 1e12, false},
    };
    for (const auto& [label, amount, taken] : cases) {
        SCOPED_TRACE(label);
        EXPECT_EQ(amountInRange(amount), taken);
        EXPECT_EQ(amountWords(amount).has_value(), taken);
    }
}

TEST(AmountRangeMessage, GivesBothLimitsInTheUsersSeparatorsInAnyLanguage) {
    for (const auto language : {common::Language::Portuguese, common::Language::English}) {
        SCOPED_TRACE(static_cast<int>(language));
        EXPECT_EQ(amountRangeMessage(language, {}),
                  "Digite o valor na calculadora para depois imprimir!\r\n\r\nInforme valores entre 0,01 e "
                  "999999999999,99");
    }
}

}  // namespace
}  // namespace zv::documents
