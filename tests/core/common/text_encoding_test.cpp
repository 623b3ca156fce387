#include "common/text_encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zv::common {
namespace {

TEST(Utf8Validation, AcceptsWellFormedTextOnly) {
    struct Case {
        const char* label;
        std::string_view bytes;
        bool valid;
    };
    const Case cases[] = {
        {"empty", "", true},
        {"ascii tape line", "                  250,00 +\r\n", true},
        {"times and divide signs", "× ÷", true},
        {"three-byte euro", "€", true},
        {"four-byte symbol", "💰", true},
        {"highest code point", "\xF4\x8F\xBF\xBF", true},
        {"Windows-1252 times sign", "250,00 \xD7\r\n", false},
        {"Windows-1252 c-cedilla before ascii", "\xE7\x61o", false},
        {"lone continuation byte", "a\x80", false},
        {"two-byte sequence cut at the end", "ab\xC3", false},
        {"three-byte sequence cut at the end", "\xE2\x82", false},
        {"four-byte sequence cut at the end", "\xF0\x9F\x92", false},
        {"ascii where a continuation belongs", "\xC3(", false},
        {"overlong slash", "\xC0\xAF", false},
        {"overlong two-byte lead C1", "\xC1\xBF", false},
        {"overlong three-byte", "\xE0\x80\xAF", false},
        {"overlong four-byte", "\xF0\x80\x80\xAF", false},
        {"surrogate half", "\xED\xA0\x80", false},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", false},
        {"lead byte F5", "\xF5\x80\x80\x80", false},
        {"byte FF", "\xFF", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(isValidUtf8(c.bytes), c.valid);
    }
}

TEST(Cp1252, DecodesTheBytesOlderTapesHold) {
    struct Case {
        const char* label;
        std::string_view bytes;
        std::string_view utf8;
    };
    const Case cases[] = {
        {"ascii unchanged", "  1.250,00 -\r\n", "  1.250,00 -\r\n"},
        {"times sign", "\xD7", "×"},
        {"divide sign", "\xF7", "÷"},
        {"portuguese letters", "C\xC1LCULO a\xE7\xE3o", "CÁLCULO ação"},
        {"euro in the 0x80 row", "\x80", "€"},
        {"ellipsis", "\x85", "…"},
        {"Y with diaeresis at 0x9F", "\x9F", "Ÿ"},
        {"undefined 0x81", "\x81", "\uFFFD"},
        {"undefined 0x9D", "\x9D", "\uFFFD"},
        {"no-break space", "\xA0", "\xC2\xA0"},
        {"y with diaeresis at 0xFF", "\xFF", "ÿ"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(cp1252ToUtf8(c.bytes), c.utf8);
    }
}

TEST(Cp1252, EveryDefinedByteSurvivesARoundTrip) {
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
}

TEST(Cp1252, CharactersTheCodePageLacksBecomeQuestionMarks) {
    struct Case {
        const char* label;
        std::string_view utf8;
        std::string_view bytes;
    };
    const Case cases[] = {
        {"tape line with times sign", "    7,00 ×\r\n", "    7,00 \xD7\r\n"},
        {"CJK ideograph", "a中b", "a?b"},
        {"four-byte symbol", "💰!", "?!"},
        {"replacement character", "\uFFFD", "?"},
        {"C1 control U+0081", "\u0081", "?"},
        {"rupee sign", "₹", "?"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(utf8ToCp1252(c.utf8), c.bytes);
    }
}

TEST(Utf8Columns, CountsAndCutsByCodePoint) {
    struct Case {
        const char* label;
        std::string_view text;
        std::size_t length;
        std::size_t take;
        std::string_view left;
    };
    const Case cases[] = {
        {"empty", "", 0, 3, ""},
        {"ascii", "abcdef", 6, 3, "abc"},
        {"take nothing", "abc", 3, 0, ""},
        {"take more than there is", "abc", 3, 10, "abc"},
        {"operator suffix counts as two columns", " ×", 2, 2, " ×"},
        {"cut never splits a letter", "ção", 3, 2, "çã"},
        {"three-byte euro", "€5", 2, 1, "€"},
        {"four-byte symbol", "💰ab", 3, 2, "💰a"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(utf8Length(c.text), c.length);
        EXPECT_EQ(utf8Left(c.text, c.take), c.left);
    }
}

TEST(TextFileDecoding, ReadsUtf8OrWindows1252) {
    struct Case {
        const char* label;
        std::string_view bytes;
        std::string_view text;
    };
    const Case cases[] = {
        {"empty", "", ""},
        {"utf-8 kept", "    9,00 ÷\r\n", "    9,00 ÷\r\n"},
        {"byte-order mark dropped", "\uFEFF1,00 +\r\n", "1,00 +\r\n"},
        {"only a byte-order mark", "\uFEFF", ""},
        {"Windows-1252 tape", "    9,00 \xF7\r\n    2,00 \xD7\r\n", "    9,00 ÷\r\n    2,00 ×\r\n"},
        // One stray byte makes the whole file Windows-1252, so UTF-8 pairs in it read as two letters.
        {"mixed file read as Windows-1252", "×\xD7", "Ã—×"},
        {"byte-order mark before Windows-1252", "\uFEFF\xD7", "×"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(decodeTextFile(c.bytes), c.text);
    }
}

TEST(Utf8UpperCase, RaisesLatinLettersAndKeepsByteOffsets) {
    struct Case {
        const char* label;
        std::string_view text;
        std::string_view upper;
    };
    const Case cases[] = {
        {"ascii", "valor final: 10", "VALOR FINAL: 10"},
        {"accented portuguese", "cálculo ação ê", "CÁLCULO AÇÃO Ê"},
        {"divide sign is not a letter", "÷", "÷"},
        {"times sign unchanged", "×", "×"},
        {"sharp s has no one-letter capital", "ß", "ß"},
        {"already upper", "Ç", "Ç"},
        {"outside Latin-1 unchanged", "€œ", "€œ"},
        {"digits and signs unchanged", "1.250,00 + - % =", "1.250,00 + - % ="},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(utf8ToUpper(c.text), c.upper);
    }
}

TEST(Utf8UpperCase, EveryLatin1LetterKeepsItsLength) {
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
