#include "core/common/text_encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>

namespace zv::common {
namespace {

TEST(Utf8Validation, AcceptsWellFormedTextOnly) {
    for (const std::string_view valid :
         {"", "                  250,00 +\r\n", "× ÷ €", "💰", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(isValidUtf8(valid)) << valid;
    }
    const std::pair<const char*, std::string_view> invalid[] = {
        {"Windows-1252 times sign", "250,00 \xD7\r\n"}, {"lone continuation byte", "a\x80"},
        {"sequence cut at the end", "\xF0\x9F\x92"},    {"ascii where a continuation belongs", "\xC3("},
        {"overlong two-byte lead C1", "\xC1\xBF"},      {"overlong three-byte", "\xE0\x80\xAF"},
        {"overlong four-byte", "\xF0\x80\x80\xAF"},     {"surrogate half", "\xED\xA0\x80"},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80"},        {"lead byte F5", "\xF5\x80\x80\x80"},
    };
    for (const auto& [label, bytes] : invalid) {
        EXPECT_FALSE(isValidUtf8(bytes)) << label;
    }
}

TEST(Cp1252, EveryDefinedByteSurvivesARoundTripAndOtherCharactersBecomeQuestionMarks) {
    for (int b = 0; b < 256; ++b) {
        if (b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D) {
            continue;
        }
        SCOPED_TRACE(b);
        const std::string byte(1, static_cast<char>(b));
        const std::string utf8 = cp1252ToUtf8(byte);
        EXPECT_TRUE(isValidUtf8(utf8));
        EXPECT_EQ(utf8ToCp1252(utf8), byte);
    }
    EXPECT_EQ(utf8ToCp1252("a中b💰!"), "a?b?!");
    EXPECT_EQ(utf8ToCp1252("\uFFFD\u0081₹"), "???");
}

TEST(Utf8Columns, CountsAndCutsByCodePoint) {
    // Text, its length, how many to take and what is left.
    const std::tuple<std::string_view, std::size_t, std::size_t, std::string_view> cases[] = {
        {"", 0, 3, ""},     {"abcdef", 6, 3, "abc"}, {"abc", 3, 0, ""}, {"abc", 3, 10, "abc"},
        {" ×", 2, 2, " ×"}, {"ção", 3, 2, "çã"},     {"€5", 2, 1, "€"}, {"💰ab", 3, 2, "💰a"},
    };
    for (const auto& [text, length, take, left] : cases) {
        EXPECT_EQ(utf8Length(text), length) << text;
        EXPECT_EQ(utf8Left(text, take), left) << text;
    }
}

TEST(TextFileDecoding, ReadsUtf8OrWindows1252) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"    9,00 ÷\r\n", "    9,00 ÷\r\n"},
        {"\uFEFF1,00 +\r\n", "1,00 +\r\n"},  // byte-order mark dropped
        {"\uFEFF", ""},
        {"    9,00 \xF7\r\n    2,00 \xD7\r\n", "    9,00 ÷\r\n    2,00 ×\r\n"},
        // One stray byte makes the whole file Windows-1252, so UTF-8 pairs in it read as two letters.
        {"×\xD7", "Ã—×"},
        {"\uFEFF\xD7", "×"},
        {"C\xC1LCULO a\xE7\xE3o", "CÁLCULO ação"},
        {"\x80\x9F", "€Ÿ"},            // the 0x80 row of Windows-1252
        {"\x81\x9D", "\uFFFD\uFFFD"},  // undefined there
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(decodeTextFile(bytes), text);
    }
}

TEST(Utf8UpperCase, RaisesLatinLettersAndKeepsByteOffsets) {
    EXPECT_EQ(utf8ToUpper("valor final: cálculo ação ê Ç"), "VALOR FINAL: CÁLCULO AÇÃO Ê Ç");
    // Not letters, or no one-letter capital in Latin-1, or outside it: unchanged.
    EXPECT_EQ(utf8ToUpper("÷ × ß ÿ €œ 1.250,00 + - % ="), "÷ × ß ÿ €œ 1.250,00 + - % =");

    // Finding text in the tape maps offsets in the upper-cased copy back to the tape.
    std::string all;
    for (char32_t cp = 0xA0; cp <= 0xFF; ++cp) {
        all += static_cast<char>(0xC0 | (cp >> 6));
        all += static_cast<char>(0x80 | (cp & 0x3F));
    }
    const std::string upper = utf8ToUpper(all);
    EXPECT_EQ(upper.size(), all.size());
    EXPECT_TRUE(isValidUtf8(upper));
}

}  // namespace
}  // namespace zv::common
