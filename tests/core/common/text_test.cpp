#include "core/common/text.h"

#include <gtest/gtest.h>

#include "core/common/regional.h"
#include "fakes/rows.h"

namespace zv::common {
namespace {

using fakes::expectRows;

TEST(Text, PadsByCharactersAndTrims) {
    // Left and right padded to five columns: "×" and "ã" are two bytes each but one column.
    auto pad = [](const char* text) { return padLeft(text, 5) + "|" + padRight(text, 5); };
    expectRows({
        {"ascii", pad("12"), "   12|12   "},
        {"two-byte sign", pad("3 \u00D7"), "  3 \u00D7|3 \u00D7  "},
        {"accented", pad("m\u00E3e"), "  m\u00E3e|m\u00E3e  "},
        {"wider than the field is never cut", pad("123456"), "123456|123456"},
        {"another fill", padLeft("7", 3, '0'), "007"},
        {"spaces trimmed", std::string(trimSpaces("   1.234,50 ")), "1.234,50"},
        {"tape columns hold spaces only", std::string(trimSpaces("\t1 ")), "\t1"},
        {"only spaces", std::string(trimSpaces("    ")), ""},
        {"blanks trimmed", std::string(trimBlanks(" \t1\t ")), "1"},
    });
}

TEST(Text, DigitsAndCaseBlindComparison) {
    EXPECT_TRUE(allDigits("0123"));
    for (const char* text : {"", "12a", "-1", "1,5", " 1"}) {
        EXPECT_FALSE(allDigits(text)) << text;
    }
    EXPECT_TRUE(equalsIgnoringCase("TRUE", "tRuE"));
    EXPECT_FALSE(equalsIgnoringCase("True", "Tru"));
}

TEST(Regional, GroupSeparatorFallback) {
    auto fallback = [](NumberSeparators given) {
        const NumberSeparators got = withGroupFallback(given);
        return got.decimal + "|" + got.group;
    };
    expectRows({
        {"C locale", fallback({".", ""}), ".|,"},
        {"comma without grouping", fallback({",", ""}), ",|."},
        {"group equal to decimal", fallback({",", ","}), ",|."},
        {"no decimal either", fallback({"", ""}), ".|,"},
        {"no-break space kept", fallback({",", "\u00A0"}), ",|\u00A0"},
    });
}

}  // namespace
}  // namespace zv::common
