#include "core/documents/layout_backup.h"

#include <gtest/gtest.h>

#include <sstream>

#include "fakes/memory_settings_store.h"

namespace zv::documents {
namespace {

const std::string kRoot = "[HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Quorvati\\";

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
        lines.push_back(text.substr(start, end - start));
    }
    EXPECT_EQ(start, text.size()) << "a line without CR LF at the end";
    return lines;
}

TEST(ChequeBackup, HeaderThenNineSectionsWithTheirKeysInOrder) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Banco", "BANCO DO POVO");
    store.write("Cheque", "lblValorL", "400");
    store.write("Cheque8", "chkAno", "1");
    const std::vector<std::string> lines = linesOf(chequeBackupText(store, {700, 380}));
    ASSERT_EQ(lines.size(), 1u + 9 * 19);
    EXPECT_EQ(lines[0], "REGEDIT4");
    const std::vector<std::string> first(lines.begin() + 1, lines.begin() + 20);
    EXPECT_EQ(first, (std::vector<std::string>{
                         "", kRoot + "Cheque]", "\"Height\"=\"380\"", "\"Width\"=\"700\"",
                         "\"Banco\"=\"BANCO DO POVO\"", "\"lblValorT\"=\"10\"", "\"lblValorL\"=\"400\"",
                         "\"lblExtenso1T\"=\"38\"", "\"lblExtenso1L\"=\"68\"", "\"lblExtenso2T\"=\"62\"",
                         "\"lblExtenso2L\"=\"8\"", "\"txtFavorecidoT\"=\"86\"", "\"txtFavorecidoL\"=\"18\"",
                         "\"txtCidadeT\"=\"112\"", "\"txtCidadeL\"=\"262\"", "\"lblDiaL\"=\"444\"",
                         "\"lblMêsL\"=\"480\"", "\"lblAnoL\"=\"580\"", "\"chkAno\"=\"0\""}));
    EXPECT_EQ(lines[20], "");
    EXPECT_EQ(lines[21], kRoot + "Cheque1]");
    EXPECT_EQ(lines[24], "\"Banco\"=\"Modelo 2\"");
    EXPECT_EQ(lines[1 + 8 * 19 + 1], kRoot + "Cheque8]");
    EXPECT_EQ(lines.back(), "\"chkAno\"=\"1\"");
}

TEST(ChequeBackup, TheDaysLeftIsAlwaysItsDesignPosition) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "lblDiaL", "500");
    store.write("Cheque", "lblMêsL", "530");
    const std::string text = chequeBackupText(store, {700, 380});
    EXPECT_NE(text.find("\"lblDiaL\"=\"444\"\r\n\"lblMêsL\"=\"530\""), std::string::npos);
    EXPECT_EQ(text.find("\"500\""), std::string::npos);
}

TEST(ChequeBackup, SavedSizeWinsOverTheWindows) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Height", "450");
    const std::string text = chequeBackupText(store, {700, 380});
    EXPECT_NE(text.find("Cheque]\r\n\"Height\"=\"450\"\r\n\"Width\"=\"700\""), std::string::npos);
}

TEST(LayoutsBackup, NoteSectionsFollowWithHeightModeloAndTheirPositions) {
    fakes::MemorySettingsStore store;
    store.write("Promissoria3", "Modelo", "PAPELARIA");
    const std::vector<std::string> lines = linesOf(layoutsBackupText(store, {700, 380}, 420));
    const std::size_t noteStart = 1 + 9 * 19;
    ASSERT_EQ(lines.size(), noteStart + 9 * 31);
    EXPECT_EQ(lines[noteStart + 1], kRoot + "Promissoria]");
    EXPECT_EQ(lines[noteStart + 2], "\"Height\"=\"420\"");
    EXPECT_EQ(lines[noteStart + 3], "\"Modelo\"=\"Modelo 1\"");
    EXPECT_EQ(lines[noteStart + 4], "\"txtDiaT\"=\"20\"");
    EXPECT_EQ(lines[noteStart + 5], "\"lblDiaL\"=\"372\"");
    EXPECT_EQ(lines[noteStart + 6], "\"lblMêsL\"=\"406\"");
    EXPECT_EQ(lines[noteStart + 30], "\"txtEndereçoL\"=\"112\"");
    EXPECT_EQ(lines[noteStart + 3 * 31 + 3], "\"Modelo\"=\"PAPELARIA\"");
}

TEST(LayoutsBackup, ABankNameCannotBreakTheFileOrAddKeys) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"quotes and backslashes", R"(BANCO "A" C:\X\)", R"("Banco"="BANCO \"A\" C:\\X\\")"},
        {"an attempt to close the value and add a key", "X\"\r\n\"lblValorL\"=\"1",
         R"("Banco"="X\"  \"lblValorL\"=\"1")"},
        {"a section header after a line break", "Y\n[HKEY_LOCAL_MACHINE\\Software]",
         R"("Banco"="Y [HKEY_LOCAL_MACHINE\\Software]")"},
    };
    for (const auto& [label, bank, line] : cases) {
        SCOPED_TRACE(label);
        fakes::MemorySettingsStore store;
        store.write("Cheque", "Banco", bank);
        const std::string text = layoutsBackupText(store, {700, 380}, 420);
        const std::vector<std::string> lines = linesOf(text);
        EXPECT_EQ(lines.size(), 1u + 9 * 19 + 9 * 31);
        EXPECT_EQ(lines[5], line);
        const auto parsed = parseBackup(text);
        ASSERT_TRUE(std::holds_alternative<std::vector<BackupValue>>(parsed));
        const auto& values = std::get<std::vector<BackupValue>>(parsed);
        EXPECT_EQ(values.size(), 9u * 17 + 9u * 29);
    }
}

TEST(LayoutsRestore, EveryValueOfABackupComesBackUnchanged) {
    fakes::MemorySettingsStore store;
    store.write("Cheque", "Banco", R"(BANCO "A" C:\X\ ÇÃ)");
    store.write("Cheque5", "lblExtenso2T", "70");
    store.write("Promissoria8", "txtEndereçoT", "300");
    store.write("Configura", "ImpDispo", "HP");
    const std::string text = layoutsBackupText(store, {700, 380}, 420);
    fakes::MemorySettingsStore restored;
    const auto parsed = parseBackup(text);
    ASSERT_TRUE(std::holds_alternative<std::vector<BackupValue>>(parsed));
    ASSERT_TRUE(restoreBackup(restored, std::get<std::vector<BackupValue>>(parsed)));
    EXPECT_EQ(restored.values.at({"Cheque", "Banco"}), R"(BANCO "A" C:\X\ ÇÃ)");
    EXPECT_EQ(restored.values.at({"Cheque5", "lblExtenso2T"}), "70");
    EXPECT_EQ(restored.values.at({"Promissoria8", "txtEndereçoT"}), "300");
    EXPECT_FALSE(restored.values.contains({"Configura", "ImpDispo"}));
    EXPECT_EQ(text, layoutsBackupText(restored, {700, 380}, 420));
}

TEST(LayoutsRestore, RefusesTheWholeFileForOneLineOutsideTheDocuments) {
    struct Case {
        const char* label;
        std::string body;
        BackupProblem problem;
        int line;
    };
    const std::string cheque = kRoot + "Cheque]\r\n\"Banco\"=\"A\"\r\n";
    const Case cases[] = {
        {"another section of ours", cheque + kRoot + "Configura]\r\n\"ImpDispo\"=\"X\"\r\n",
         BackupProblem::ForeignSection, 5},
        {"a tenth cheque model", kRoot + "Cheque9]\r\n", BackupProblem::ForeignSection, 3},
        {"another program", "[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run]\r\n",
         BackupProblem::ForeignSection, 3},
        {"another root", "[HKEY_LOCAL_MACHINE\\Software\\VB and VBA Program Settings\\Quorvati\\Cheque]\r\n",
         BackupProblem::ForeignSection, 3},
        {"deleting a section",
         "[-HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Quorvati\\Cheque]\r\n",
         BackupProblem::ForeignSection, 3},
        {"deleting a value", cheque + "\"Banco\"=-\r\n", BackupProblem::BadLine, 5},
        {"a number value", cheque + "\"Negrito\"=dword:00000001\r\n", BackupProblem::BadLine, 5},
        {"the default value", cheque + "@=\"x\"\r\n", BackupProblem::BadLine, 5},
        {"junk after the value", cheque + "\"Banco\"=\"A\" \"B\"\r\n", BackupProblem::BadLine, 5},
        {"an unknown escape", cheque + "\"Banco\"=\"A\\n\"\r\n", BackupProblem::BadLine, 5},
        {"a value before any section", "\"Banco\"=\"A\"\r\n", BackupProblem::NoSection, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const auto parsed = parseBackup("REGEDIT4\r\n\r\n" + c.body);
        ASSERT_TRUE(std::holds_alternative<BackupError>(parsed));
        EXPECT_EQ(std::get<BackupError>(parsed).problem, c.problem);
        EXPECT_EQ(std::get<BackupError>(parsed).line, c.line);
    }
}

TEST(LayoutsRestore, OnlyARegedit4FileIsABackup) {
    for (const char* text : {"", "Windows Registry Editor Version 5.00\r\n", "[Cheque]\r\nBanco=A\r\n"}) {
        SCOPED_TRACE(text);
        const auto parsed = parseBackup(text);
        ASSERT_TRUE(std::holds_alternative<BackupError>(parsed));
        EXPECT_EQ(std::get<BackupError>(parsed).problem, BackupProblem::NotABackup);
    }
}

TEST(LayoutsRestore, SectionNamesAreTakenInAnyCaseAndStoredAsTheDocumentsWriteThem) {
    const auto parsed = parseBackup(
        "REGEDIT4\n\n[hkey_current_user\\software\\vb and vba program settings\\quorvati\\PROMISSORIA4]\n"
        "; a comment\n\"Modelo\" = \"X\"\n");
    ASSERT_TRUE(std::holds_alternative<std::vector<BackupValue>>(parsed));
    const auto& values = std::get<std::vector<BackupValue>>(parsed);
    ASSERT_EQ(values.size(), 1u);
    EXPECT_EQ(values[0].section, "Promissoria4");
    EXPECT_EQ(values[0].key, "Modelo");
    EXPECT_EQ(values[0].value, "X");
}

}  // namespace
}  // namespace zv::documents
