// Runs zavrello-cli as a user does and checks what it prints and how it exits.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace {

struct Result {
    int code = -1;
    std::string out;
    std::string err;
};

// `args` is shell text (quote what needs quoting); `input` goes to standard input.
Result cli(const std::string& args, const std::string& input = "",
           const std::string& env = "LC_ALL=C.UTF-8") {
    const zv::fakes::TempFolder dir;
    zv::fakes::writeRaw(dir / "in", input);
    const std::string command = "env " + env + " " + ZV_CLI + " " + args + " <" + (dir / "in").string() +
                                " >" + (dir / "out").string() + " 2>" + (dir / "err").string();
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            zv::common::readFileBytes(dir / "out").value_or("?"),
            zv::common::readFileBytes(dir / "err").value_or("?")};
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
        {"laptop keypad", kBr + "tape --numlock 'jkl+'", "TOTAL 123,00  001"},
        {"time mode", kBr + "tape --time 13000+4530+", "TOTAL 02:15:30  002"},
        {"sign and backspace", kBr + "tape '12{BACK}{NEG}+'", "TOTAL -1,00  001"},
        {"undo and redo", kBr + "tape '5+6+{UNDO}{UNDO}{REDO}'", "TOTAL 5,00  001"},
        {"clear entry twice clears", kBr + "tape '5+7{CE}{CE}'", "TOTAL 0,00  000"},
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
    const Result r = cli(kBr + "tape", "100+\n50-\r\n{ENTER}\n");  // line ends between keys are nothing
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, cli(kBr + "tape '100+50-{ENTER}'").out);
    EXPECT_TRUE(r.out.ends_with(" =========================\nTOTAL 150,00 T 002\n")) << r.out;
}

TEST(CliTape, JsonKeepsTheTapeAsItIs) {
    const Result r = cli(kBr + "tape --json '5+10%1,5'");
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out,
              "{\"tape\": \"                    5,00 +\\r\\n                   10,00 %\\r\\n\", "
              "\"total\": \"5,50\", \"state\": \"T\", \"counter\": \"002\", \"display\": \"1,5\"}\n");
}

void expectPrints(const std::string& args, const std::string& out,
                  const std::string& env = "LC_ALL=C.UTF-8") {
    const Result r = cli(args, "", env);
    EXPECT_EQ(r.code, 0) << args;
    EXPECT_EQ(r.out, out) << args;
    EXPECT_EQ(r.err, "") << args;
}

TEST(CliWords, WritesTheAmountOrRejectsIt) {
    expectPrints(kBr + "words 1234", "UM MIL E DUZENTOS E TRINTA E QUATRO REAIS\n");
    expectPrints(kBr + "words 1.000.000,01", "UM MILH\u00C3O DE REAIS E UM CENTAVO\n");
    expectPrints(kBr + "words --no-currency 1,50", "UM  E CINQUENTA \n");  // trailing spaces kept
    const Result zero = cli(kBr + "words 0");
    EXPECT_EQ(zero.code, 1);
    EXPECT_EQ(zero.out, "");
    EXPECT_EQ(zero.err, "Dados inv\u00E1lidos para se converter por extenso\n");
    const Result en = cli(kBr + "--lang en words -5");
    EXPECT_EQ(en.code, 1);
    EXPECT_FALSE(en.err.empty());
    EXPECT_EQ(en.err.find("Dados"), std::string::npos);
}

TEST(CliText, PrintsTheTextInTheChosenLanguage) {
    expectPrints("text 39 18:30:00", "Deseja realmente desligar o computador \u00E0s 18:30:00 hs. ?\n");
    expectPrints("--lang en text 4",  // line breaks become LF
                 "Calculation list is full.\n\nDo you want to erase all the calculations on the list?\n");
    expectPrints("--lang es text 18", "Fin de la b\u00FAsqueda\n");
    expectPrints("text 5", "\n");  // a missing code
}

TEST(CliMoney, UsesTheSeparatorsGivenOrTheLocale) {
    expectPrints("--decimal . --group , money 1234.5", "1,234.50\n");
    expectPrints(kBr + "money abc", "0,00\n");
    expectPrints("money 1234.5", "1,234.50\n", "LC_ALL=C");
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
