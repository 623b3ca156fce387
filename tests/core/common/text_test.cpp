#include "core/common/text.h"

#include <gtest/gtest.h>

#include "core/common/regional.h"

namespace zv::common {
namespace {

TEST(Text, PaddingCountsCharactersNotBytes) {
    struct Case {
        const char* label;
        const char* text;
        const char* left;
        const char* right;
    };
    // "×" and "ã" are two bytes each but one column of the tape.
    const Case cases[] = {
        {"ascii", "12", "   12", "12   "},
        {"two-byte sign", "3 \u00D7", "  3 \u00D7", "3 \u00D7  "},
        {"accented", "m\u00E3e", "  m\u00E3e", "m\u00E3e  "},
        {"wider than the field is never cut", "123456", "123456", "123456"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(padLeft(c.text, 5), c.left);
        EXPECT_EQ(padRight(c.text, 5), c.right);
    }
    EXPECT_EQ(padLeft("7", 3, '0'), "007");
}

TEST(Text, TrimAndDigits) {
    EXPECT_EQ(trimSpaces("   1.234,50 "), "1.234,50");
    EXPECT_EQ(trimSpaces("\t1 "), "\t1");  // tape columns hold spaces only
    EXPECT_EQ(trimBlanks(" \t1\t "), "1");
    EXPECT_EQ(trimSpaces("    "), "");
    EXPECT_TRUE(allDigits("0123"));
    for (const char* text : {"", "12a", "-1", "1,5", " 1"}) {
        EXPECT_FALSE(allDigits(text)) << text;
    }
    EXPECT_TRUE(equalsIgnoringCase("TRUE", "tRuE"));
    EXPECT_FALSE(equalsIgnoringCase("True", "Tru"));
}

TEST(Regional, GroupSeparatorFallback) {
    struct Case {
        const char* label;
        NumberSeparators given;
        NumberSeparators wanted;
    };
    const Case cases[] = {
        {"C locale", {".", ""}, {".", ","}},
        {"comma without grouping", {",", ""}, {",", "."}},
        {"group equal to decimal", {",", ","}, {",", "."}},
        {"no decimal either", {"", ""}, {".", ","}},
        {"no-break space kept", {",", "\u00A0"}, {",", "\u00A0"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const NumberSeparators got = withGroupFallback(c.given);
        EXPECT_EQ(got.decimal, c.wanted.decimal);
        EXPECT_EQ(got.group, c.wanted.group);
    }
}

}  // namespace
}  // namespace zv::common
