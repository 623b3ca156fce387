#include "core/common/ini_text.h"

#include <gtest/gtest.h>

namespace zv::common {
namespace {

// Lines as Qt 6's settings class writes them (taken from a file it wrote), with their values.
struct QtLine {
    const char* label;
    const char* key;
    const char* value;
    const char* line;
};
const QtLine kQtLines[] = {
    {"a key with a non-ASCII letter", "lblMêsL", "480", "lblM%EAsL=480"},
    {"quotes, backslash and list separators", "Banco", "BANCO \"X\" C:\\a;b=c #d",
     "Banco=\"BANCO \\\"X\\\" C:\\\\a;b=c #d\""},
    {"blanks around", "Lead", "  spaced  ", "Lead=\"  spaced  \""},
    {"a leading at sign", "At", "@foo", "At=@@foo"},
    {"line breaks and tabs", "Nl", "a\nb\tc\rd", "Nl=a\\nb\\tc\\rd"},
    {"other control characters", "Ctl", "x\x01y", "Ctl=x\\x1y"},
    {"a comma and letters beyond ASCII", "Endereço", "RUA DA CONCEIÇÃO, 12",
     "Endere%E7o=\"RUA DA CONCEIÇÃO, 12\""},
    {"empty", "Empty", "", "Empty="},
    {"a blank in a key", "k k", "v", "k%20k=v"},
    {"beyond Latin-1", "Euro", "€ 中", "Euro=€ 中"},
};

TEST(IniText, WritesLinesAsQtDoes) {
    for (const QtLine& q : kQtLines) {
        SCOPED_TRACE(q.label);
        EXPECT_EQ(iniEscapedName(q.key) + "=" + iniEscapedValue(q.value), q.line);
    }
}

TEST(IniText, ReadsLinesQtWrote) {
    for (const QtLine& q : kQtLines) {
        SCOPED_TRACE(q.label);
        EXPECT_EQ(iniValue(std::string("[Cheque]\n") + q.line + "\n", "Cheque", q.key), q.value);
    }
}

TEST(IniText, ReadsWhatQtReadsFromAFileEditedByHand) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"blanks around the equals sign", "k = spaced ", "spaced"},
        {"an unquoted list", "k=a, b", "a,b"},
        {"a quoted escape", "k=\"x\\\"y\"", "x\"y"},
        {"a four-digit code", "k=\\x20ac", "€"},
        {"a character escaped after a code", "k=x\\x1\\x61",
         "x\x01"
         "a"},
    };
    for (const auto& [label, line, value] : cases) {
        SCOPED_TRACE(label);
        EXPECT_EQ(iniValue(std::string("[Cheque]\r\n") + line + "\r\n", "Cheque", "k"), value);
    }
}

TEST(IniText, AHexDigitAfterAControlCharacterIsEscapedToo) {
    const std::string value =
        "x\x01"
        "a";
    EXPECT_EQ(iniValue("[S]\nk=" + iniEscapedValue(value) + "\n", "S", "k"), value);
}

TEST(IniText, FindsTheKeyOnlyInItsSection) {
    const std::string file = "[Cheque]\nBanco=A\n\n[Cheque1]\nBanco=B\n\n[Weird%20Sec]\nk%20k=v\n";
    EXPECT_EQ(iniValue(file, "Cheque", "Banco"), "A");
    EXPECT_EQ(iniValue(file, "Cheque1", "Banco"), "B");
    EXPECT_EQ(iniValue(file, "Cheque2", "Banco"), std::nullopt);
    EXPECT_EQ(iniValue(file, "Cheque", "banco"), std::nullopt);
    EXPECT_EQ(iniValue(file, "Weird Sec", "k k"), "v");
}

TEST(IniText, WritingChangesOnlyItsOwnLine) {
    const std::string file =
        "[Configura]\r\nGeometry=@ByteArray(\\x1\\xd9\\xd0\\xcb)\r\nImpDispo=\r\n\r\n[Cheque]\r\nBanco=A\r\n";
    struct Case {
        const char* label;
        const char* section;
        const char* key;
        const char* value;
        std::string expected;
    };
    const Case cases[] = {
        {"a key already there", "Configura", "ImpDispo", "HP LaserJet",
         "[Configura]\r\nGeometry=@ByteArray(\\x1\\xd9\\xd0\\xcb)\r\nImpDispo=HP "
         "LaserJet\r\n\r\n[Cheque]\r\nBanco=A\r\n"},
        {"a new key goes at the end of its section", "Configura", "Cor", "2",
         "[Configura]\r\nGeometry=@ByteArray(\\x1\\xd9\\xd0\\xcb)\r\nImpDispo=\r\nCor=2\r\n\r\n[Cheque]"
         "\r\nBanco=A\r\n"},
        {"a new section goes at the end", "Promissoria", "Endereço", "RUA A, 1",
         file + "\r\n[Promissoria]\r\nEndere%E7o=\"RUA A, 1\"\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::string written = withIniValue(file, c.section, c.key, c.value);
        EXPECT_EQ(written, c.expected);
        EXPECT_EQ(iniValue(written, c.section, c.key), c.value);
    }
}

TEST(IniText, AFirstValueMakesAFileOfOneSection) {
    EXPECT_EQ(withIniValue("", "Cheque", "lblMêsL", "480"), "[Cheque]\nlblM%EAsL=480\n");
    EXPECT_EQ(withIniValue("[Cheque]\nBanco=A", "Cheque", "chkAno", "1"), "[Cheque]\nBanco=A\nchkAno=1\n");
}

}  // namespace
}  // namespace zv::common
