// Runs zavrello-cli as a user does and checks what it prints and how it exits.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

struct Result {
    int code = -1;
    std::string out;
    std::string err;
};

std::string slurp(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// `args` is shell text (quote what needs quoting); `input` goes to standard input.
Result cli(const std::string& args, const std::string& input = "",
           const std::string& env = "LC_ALL=C.UTF-8") {
    const std::filesystem::path dir = std::filesystem::temp_directory_path() / "zv-cli-test";
    std::filesystem::create_directories(dir);
    { std::ofstream(dir / "in", std::ios::binary) << input; }
    const std::string command = "env " + env + " " + ZV_CLI + " " + args + " <" + (dir / "in").string() +
                                " >" + (dir / "out").string() + " 2>" + (dir / "err").string();
    const int status = std::system(command.c_str());
    Result r;
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.out = slurp(dir / "out");
    r.err = slurp(dir / "err");
    return r;
}

const std::string kBr = "--decimal , --group . ";

TEST(CliTape, PrintsTheTapeAndTheTotalLine) {
    const Result r = cli(kBr + "tape '2+3*4='");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out,
              "                    2,00 +\n"
              "                    3,00 \u00D7\n"
              "                    4,00 =\n"
              "                   20,00 T\n"
              " =========================\n"
              "TOTAL 20,00 T 003\n");
    EXPECT_EQ(r.err, "");
}

TEST(CliTape, OptionsAndNamedKeys) {
    struct Case {
        const char* label;
        std::string args;
        std::string lastLine;
    };
    const Case cases[] = {
        {"several KEYS arguments", kBr + "tape 200 + 10 %", "TOTAL 220,00 T 002"},
        {"fixed format", kBr + "tape --format 1 1234+5+", "TOTAL 12,39  002"},
        {"numeral format", kBr + "tape --format 2 250+", "TOTAL 250  001"},
        {"enter adds", kBr + "tape --enter plus '5{ENTER}7{ENTER}'", "TOTAL 12,00  002"},
        {"enter strikes by default", kBr + "tape '5{ENTER}'", "TOTAL 5,00 T 001"},
        {"laptop keypad", kBr + "tape --numlock 'jkl+'", "TOTAL 123,00  001"},
        {"time mode", kBr + "tape --time 13000+4530+", "TOTAL 02:15:30  002"},
        {"sign and backspace", kBr + "tape '12{BACK}{NEG}+'", "TOTAL -1,00  001"},
        {"undo and redo", kBr + "tape '5+6+{UNDO}{UNDO}{REDO}'", "TOTAL 5,00  001"},
        {"clear entry twice clears", kBr + "tape '5+7{CE}{CE}'", "TOTAL 0,00  000"},
        {"US separators", "--decimal . --group , tape 1234.5+", "TOTAL 1,234.50  001"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Result r = cli(c.args);
        EXPECT_EQ(r.code, 0) << r.err;
        ASSERT_FALSE(r.out.empty());
        const std::string body = r.out.substr(0, r.out.size() - 1);
        EXPECT_EQ(body.substr(body.rfind('\n') + 1), c.lastLine);
    }
}

TEST(CliTape, ReadsKeysFromStandardInput) {
    const Result r = cli(kBr + "tape", "100+\n50-\r\n{ENTER}\n");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out,
              "                  100,00 +\n"
              "                   50,00 =\n"
              "                  150,00 T\n"
              " =========================\n"
              "TOTAL 150,00 T 002\n");
}

TEST(CliTape, JsonKeepsTheTapeAsItIs) {
    const Result r = cli(kBr + "tape --json '5+10%1,5'");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out,
              "{\"tape\": \"                    5,00 +\\r\\n                   10,00 %\\r\\n\", "
              "\"total\": \"5,50\", \"state\": \"T\", \"counter\": \"002\", \"display\": \"1,5\"}\n");
}

TEST(CliWords, WritesTheAmountOrRejectsIt) {
    struct Case {
        const char* label;
        std::string args;
        int code;
        std::string out;
        std::string err;
    };
    const Case cases[] = {
        {"thousands", kBr + "words 1234", 0, "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS\n", ""},
        {"text with separators", kBr + "words 1.000.000,01", 0, "UM MILH\u00C3O DE REAIS E UM CENTAVO\n", ""},
        {"trailing spaces kept", kBr + "words --no-currency 1,50", 0, "UM  E CINQUENTA \n", ""},
        {"zero rejected", kBr + "words 0", 1, "", "Dados inv\u00E1lidos para se converter por extenso\n"},
        {"not a number", kBr + "words abc", 1, "", "Dados inv\u00E1lidos para se converter por extenso\n"},
        {"too large", kBr + "words 1000000000000", 1, "",
         "Dados inv\u00E1lidos para se converter por extenso\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Result r = cli(c.args);
        EXPECT_EQ(r.code, c.code);
        EXPECT_EQ(r.out, c.out);
        EXPECT_EQ(r.err, c.err);
    }
    const Result en = cli(kBr + "--lang en words -5");
    EXPECT_EQ(en.code, 1);
    EXPECT_FALSE(en.err.empty());
    EXPECT_EQ(en.err.find("Dados"), std::string::npos);
}

TEST(CliText, PrintsTheTextInTheChosenLanguage) {
    struct Case {
        const char* label;
        std::string args;
        std::string out;
    };
    const Case cases[] = {
        {"argument in place", "text 39 18:30:00",
         "Deseja realmente desligar o computador \u00E0s 18:30:00 hs. ?\n"},
        {"line breaks become LF", "--lang en text 4",
         "Calculation list is full.\n\nDo you want to erase all the calculations on the list?\n"},
        {"Spanish", "--lang es text 18", "Fin de la b\u00FAsqueda\n"},
        {"Portuguese only code in English", "--lang en text 900 1 2", "\n"},
        {"missing code", "text 5", "\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Result r = cli(c.args);
        EXPECT_EQ(r.code, 0);
        EXPECT_EQ(r.out, c.out);
    }
}

TEST(CliMoney, UsesTheSeparatorsGivenOrTheLocale) {
    struct Case {
        const char* label;
        std::string args;
        std::string env;
        std::string out;
    };
    const Case cases[] = {
        {"Brazilian", kBr + "money 1234,5", "LC_ALL=C.UTF-8", "1.234,50\n"},
        {"US", "--decimal . --group , money 1234.5", "LC_ALL=C.UTF-8", "1,234.50\n"},
        {"not a number", kBr + "money abc", "LC_ALL=C.UTF-8", "0,00\n"},
        {"locale default", "money 1234.5", "LC_ALL=C", "1,234.50\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Result r = cli(c.args, "", c.env);
        EXPECT_EQ(r.code, 0);
        EXPECT_EQ(r.out, c.out);
    }
}

TEST(CliUsage, BadCommandLinesExitTwoWithUsage) {
    for (const std::string args : {"", "frobnicate", "--lang xx text 4", "tape --format 7", "tape '{BOGUS}'",
                                   "tape '{ENTER'", "words", "text abc", "--decimal , --group , money 1"}) {
        SCOPED_TRACE(args);
        const Result r = cli(args);
        EXPECT_EQ(r.code, 2);
        EXPECT_EQ(r.out, "");
        EXPECT_NE(r.err.find("usage: zavrello-cli"), std::string::npos);
    }
}

}  // namespace
