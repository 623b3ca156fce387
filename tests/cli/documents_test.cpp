// The document commands on one settings store across several runs, as a user runs them: what a
// restore (or the window) saves is what the next command prints.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli.h"
#include "core/common/text_file.h"
#include "fakes/scoped_env.h"
#include "fakes/temp_folder.h"

namespace zv::cli {
namespace {

struct Ran {
    int code;
    std::string out;
    std::string err;
};

class DocumentCommands : public ::testing::Test {
protected:
    Ran run(std::vector<std::string> args, const std::string& input = {}) {
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        Environment env;
        env.localeSeparators = {",", "."};
        const int code = cli::run(args, in, out, err, env);
        return {code, out.str(), err.str()};
    }

    // The line of one field in --fields output.
    static std::string fieldLine(const std::string& out, const std::string& control) {
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(control + "\t")) {
                return line;
            }
        }
        return "<no " + control + ">";
    }

    fakes::TempFolder m_dir;
    fakes::ScopedEnv m_config{"XDG_CONFIG_HOME", m_dir.path().c_str()};
    fakes::ScopedEnv m_data{"ZAVRELLO_HOME", m_dir.path().c_str()};
};

const std::string kSection = "[HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Quorvati\\";

TEST_F(DocumentCommands, ARestoredLayoutIsWhatTheChequeCommandPrints) {
    const Ran restored =
        run({"layouts", "restore", "-"}, "REGEDIT4\r\n\r\n" + kSection +
                                             "Cheque2]\r\n\"lblValorT\"=\"30\"\r\n"
                                             "\"txtCidadeT\"=\"140\"\r\n\"chkAno\"=\"1\"\r\n");
    ASSERT_EQ(restored.code, 0) << restored.err;
    const Ran cheque = run({"cheque", "--amount", "10", "--date", "10/03/2004", "--model", "3", "--fields"});
    ASSERT_EQ(cheque.code, 0) << cheque.err;
    EXPECT_EQ(fieldLine(cheque.out, "txtValor"), "txtValor\t454\t30\t***10,00 ");
    EXPECT_EQ(fieldLine(cheque.out, "txtMês"), "txtMês\t480\t140\tMARÇO");
    EXPECT_EQ(fieldLine(cheque.out, "txtAno"), "txtAno\t580\t140\t2004");
    const Ran otherModel = run({"cheque", "--amount", "10", "--date", "10/03/2004", "--fields"});
    EXPECT_EQ(fieldLine(otherModel.out, "txtValor"), "txtValor\t454\t10\t***10,00 ");
}

TEST_F(DocumentCommands, TheLastEntriesTheWindowSavedFillWhatIsNotGiven) {
    std::filesystem::create_directories(m_dir / "Zavrello");
    fakes::writeRaw(m_dir / "Zavrello" / "Quorvati.ini",
                    "[Promissoria]\nNumero=00041\nCredor=JOÃO\nCredor2=E FILHOS\n"
                    "Endere%E7o=\"RUA A, 1\"\n");
    const Ran note = run({"note", "--amount", "10", "--due", "01/06/2000", "--fields"});
    ASSERT_EQ(note.code, 0) << note.err;
    EXPECT_EQ(fieldLine(note.out, "txtNumero"), "txtNumero\t80\t20\t00042");
    EXPECT_EQ(fieldLine(note.out, "txtCredor2"), "txtCredor2\t24\t124\tE FILHOS");
    EXPECT_EQ(fieldLine(note.out, "txtEndereço"), "txtEndereço\t112\t276\tRUA A, 1");
    // A creditor given replaces both lines.
    const Ran given = run({"note", "--amount", "10", "--due", "01/06/2000", "--creditor", "ana", "--fields"});
    EXPECT_EQ(fieldLine(given.out, "txtCredor"), "txtCredor\t24\t104\tANA");
    EXPECT_EQ(fieldLine(given.out, "txtCredor2"), "txtCredor2\t24\t124\t");
}

TEST_F(DocumentCommands, FieldsChangeNothingInTheStoreOrThePayeeList) {
    run({"cheque", "--amount", "10", "--payee", "acme", "--fields"});
    run({"note", "--amount", "10", "--due", "01/06/2000", "--fields"});
    EXPECT_FALSE(std::filesystem::exists(m_dir / "Zavrello" / "Quorvati.ini"));
    EXPECT_FALSE(std::filesystem::exists(m_dir / "favorecidos.txt"));
}

TEST_F(DocumentCommands, ABackupIsWindows1252AndRestoresEveryLayout) {
    const Ran restored =
        run({"layouts", "restore", "-"}, "REGEDIT4\r\n\r\n" + kSection +
                                             "Cheque]\r\n\"Banco\"=\"BANCO \\\"SÃO\\\" \\\\ 1\"\r\n" +
                                             kSection + "Promissoria8]\r\n\"lblMêsL\"=\"470\"\r\n");
    ASSERT_EQ(restored.code, 0) << restored.err;
    const std::string file = (m_dir / "b.reg").string();
    ASSERT_EQ(run({"layouts", "backup", file}).code, 0);
    const std::string bytes = common::readFileBytes(file).value_or("");
    EXPECT_TRUE(bytes.starts_with("REGEDIT4\r\n\r\n" + kSection + "Cheque]\r\n"));
    EXPECT_NE(bytes.find("\"Banco\"=\"BANCO \\\"S\xC3O\\\" \\\\ 1\"\r\n"), std::string::npos);
    EXPECT_NE(bytes.find(kSection + "Promissoria8]\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("\"lblM\xEAsL\"=\"470\"\r\n"), std::string::npos);

    std::filesystem::remove(m_dir / "Zavrello" / "Quorvati.ini");
    ASSERT_EQ(run({"layouts", "restore", file}).code, 0);
    ASSERT_EQ(run({"layouts", "backup", file + "2"}).code, 0);
    EXPECT_EQ(common::readFileBytes(file + "2"), bytes);
}

TEST_F(DocumentCommands, ARefusedRestoreWritesNothing) {
    const Ran refused =
        run({"layouts", "restore", "-"}, "REGEDIT4\r\n\r\n" + kSection + "Cheque]\r\n\"Banco\"=\"A\"\r\n" +
                                             kSection + "Configura]\r\n\"ImpDispo\"=\"X\"\r\n");
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_FALSE(std::filesystem::exists(m_dir / "Zavrello" / "Quorvati.ini"));
}

TEST_F(DocumentCommands, WithoutAPainterPdfIsRefusedAndNothingIsWritten) {
    const std::string file = (m_dir / "c.pdf").string();
    const Ran cheque = run({"cheque", "--amount", "5", "--pdf", file});
    EXPECT_EQ(cheque.code, 1);
    EXPECT_EQ(cheque.err, "this build of zavrello-cli cannot write PDF files\n");
    const Ran plan =
        run({"interest", "--initial", "100", "--count", "2", "--days", "30", "--rate", "1", "--notes", file});
    EXPECT_EQ(plan.code, 1);
    EXPECT_FALSE(std::filesystem::exists(file));
    // Refused notes keep no number.
    EXPECT_FALSE(std::filesystem::exists(m_dir / "Zavrello" / "Quorvati.ini"));
}

}  // namespace
}  // namespace zv::cli
