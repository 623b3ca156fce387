// The document commands' PDF files, written by the real program without a display and read back:
// every field's text where the layout puts it, one page per instalment of a plan.
#include <gtest/gtest.h>

#include <QProcess>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/pdf_words.h"
#include "fakes/scoped_env.h"
#include "fakes/temp_folder.h"

namespace zv::cli {
namespace {

constexpr double kPt = 0.75;  // points per layout unit (1/96 inch)

struct Ran {
    int code;
    std::string out;
    std::string err;
};

class DocumentPdf : public ::testing::Test {
protected:
    Ran run(const QStringList& args) {
        QProcess program;
        program.start(QStringLiteral(ZV_CLI), args);
        program.closeWriteChannel();
        if (!program.waitForFinished(60000)) {
            return {-1, "", "did not finish"};
        }
        return {program.exitCode(), program.readAllStandardOutput().toStdString(),
                program.readAllStandardError().toStdString()};
    }
    QString file(const char* name) const { return QString::fromStdString((m_dir.path() / name).string()); }
    void saveSettings(const std::string& ini) {
        std::filesystem::create_directories(m_dir.path() / "Zavrello");
        std::ofstream(m_dir.path() / "Zavrello" / "Quorvati.ini") << ini;
    }
    // The word of `page` whose box starts at the layout position, or empty.
    static std::string wordAt(const std::vector<fakes::PdfWord>& words, int page, int left, int top) {
        for (const fakes::PdfWord& w : words) {
            if (w.page == page && qAbs(w.box.left() - left * kPt) < 1.5 &&
                qAbs(w.box.top() - top * kPt) < 1.5) {
                return w.text.toStdString();
            }
        }
        return {};
    }

    fakes::TempFolder m_dir;
    fakes::ScopedEnv m_config{"XDG_CONFIG_HOME", m_dir.path().c_str()};
    fakes::ScopedEnv m_data{"ZAVRELLO_HOME", m_dir.path().c_str()};
};

TEST_F(DocumentPdf, AChequeIsItsFieldsOnOnePageAtTheModelsPositions) {
    saveSettings("[Cheque2]\nlblValorT=30\nlblValorL=400\ntxtFavorecidoT=90\ntxtFavorecidoL=40\n");
    const QStringList cheque = {"--decimal",  ",",       "--group", ".",         "cheque",
                                "--amount",   "1234,56", "--payee", "acme ltda", "--date",
                                "10/03/2004", "--model", "3"};
    const Ran fields = run(cheque + QStringList{"--fields"});
    const Ran pdf = run(cheque + QStringList{"--pdf", file("c.pdf")});
    ASSERT_EQ(pdf.code, 0) << pdf.err;
    EXPECT_EQ(pdf.out + pdf.err, "");
    EXPECT_EQ(fakes::pdfPages(file("c.pdf")), 1);
    const std::vector<fakes::PdfWord> words = fakes::pdfWords(file("c.pdf"));
    EXPECT_EQ(wordAt(words, 1, 400, 30), "***1.234,56");
    EXPECT_EQ(wordAt(words, 1, 40, 90), "ACME");
    // Every field's first word where --fields puts the field.
    std::istringstream lines(fields.out);
    int seen = 0;
    for (std::string line; std::getline(lines, line); ++seen) {
        SCOPED_TRACE(line);
        std::istringstream cells(line);
        std::string control, text;
        int left = 0, top = 0;
        cells >> control >> left >> top >> text;
        EXPECT_EQ(wordAt(words, 1, left, top), text);
    }
    EXPECT_EQ(seen, 8);
}

TEST_F(DocumentPdf, APlansNotesArePagesNumberedOnAndDueEachInstalment) {
    saveSettings("[Promissoria]\nNumero=00041\n");
    const Ran plan = run({"interest", "--initial", "1000", "--count", "3", "--days", "30", "--rate", "2",
                          "--notes", file("n.pdf")});
    ASSERT_EQ(plan.code, 0) << plan.err;
    EXPECT_EQ(plan.out + plan.err, "");
    ASSERT_EQ(fakes::pdfPages(file("n.pdf")), 3);
    const std::vector<fakes::PdfWord> words = fakes::pdfWords(file("n.pdf"));
    using namespace std::chrono;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const sys_days today = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
    for (int page = 1; page <= 3; ++page) {
        SCOPED_TRACE(page);
        const year_month_day due(today + days(30 * page));
        EXPECT_EQ(wordAt(words, page, 80, 20), "000" + std::to_string(41 + page));
        const unsigned day(due.day());
        EXPECT_EQ(wordAt(words, page, 372, 20), std::to_string(day / 10) + std::to_string(day % 10));
        EXPECT_EQ(wordAt(words, page, 512, 20), std::to_string(int(due.year())));
    }
    // The next note follows the last one written.
    const Ran next = run({"note", "--amount", "1", "--due", "01/01/2030", "--fields"});
    EXPECT_NE(next.out.find("txtNumero\t80\t20\t00045\n"), std::string::npos) << next.out;
}

TEST_F(DocumentPdf, AFileThatCannotBeWrittenIsToldAndLeavesNothing) {
    std::filesystem::create_directories(m_dir.path() / "taken");
    const Ran cheque = run({"cheque", "--amount", "5", "--pdf", file("taken")});
    EXPECT_EQ(cheque.code, 1);
    EXPECT_EQ(cheque.err, "Não foi possível gravar o arquivo " + file("taken").toStdString() + "\n");
    EXPECT_FALSE(std::filesystem::exists(m_dir.path() / "taken.part"));
}

}  // namespace
}  // namespace zv::cli
