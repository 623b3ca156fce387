#include "core/documents/payee_list.h"

#include <gtest/gtest.h>

#include "core/common/text_file.h"
#include "fakes/temp_folder.h"

namespace zv::documents {
namespace {

std::string bytesOf(const std::filesystem::path& file) {
    return common::readFileBytes(file).value_or("<missing>");
}

TEST(PayeeList, LivesInTheDataFolder) {
    EXPECT_EQ(payeeFile("/data"), std::filesystem::path("/data/favorecidos.txt"));
}

TEST(PayeeList, TheSamePayeeTwiceIsListedOnce) {
    const fakes::TempFolder dir;
    const auto file = payeeFile(dir.path());
    EXPECT_EQ(addPayee(file, "Acme Ltda"), PayeeOutcome::Added);
    EXPECT_EQ(addPayee(file, "ACME LTDA"), PayeeOutcome::AlreadyListed);
    EXPECT_EQ(addPayee(file, " acme ltda "), PayeeOutcome::AlreadyListed);
    EXPECT_EQ(addPayee(file, "José da Conceição"), PayeeOutcome::Added);
    EXPECT_EQ(bytesOf(file), "ACME LTDA\r\nJOSÉ DA CONCEIÇÃO\r\n");
    EXPECT_EQ(readPayees(file), (std::vector<std::string>{"ACME LTDA", "JOSÉ DA CONCEIÇÃO"}));
}

TEST(PayeeList, AnEntryEditedByHandInSmallLettersIsNotTheSamePayee) {
    const fakes::TempFolder dir;
    const auto file = payeeFile(dir.path());
    fakes::writeRaw(file, "acme\r\n");
    EXPECT_EQ(addPayee(file, "acme"), PayeeOutcome::Added);
    EXPECT_EQ(bytesOf(file), "acme\r\nACME\r\n");
}

TEST(PayeeList, ABlankPayeeWritesNothing) {
    const fakes::TempFolder dir;
    const auto file = payeeFile(dir.path());
    EXPECT_EQ(addPayee(file, "   "), PayeeOutcome::Blank);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(PayeeList, AFileFromOtherHandsIsContinuedAsItIs) {
    struct Case {
        const char* label;
        std::string before;
        std::string after;
    };
    const Case cases[] = {
        {"last line without its line end", "ACME\r\nBETA", "ACME\r\nBETA\r\nJOÃO\r\n"},
        {"LF line ends", "ACME\n", "ACME\nJOÃO\r\n"},
        {"Windows-1252 stays Windows-1252", "CONCEI\xC7\xC3O\r\n", "CONCEI\xC7\xC3O\r\nJO\xC3O\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const fakes::TempFolder dir;
        const auto file = payeeFile(dir.path());
        fakes::writeRaw(file, c.before);
        EXPECT_EQ(addPayee(file, "João"), PayeeOutcome::Added);
        EXPECT_EQ(bytesOf(file), c.after);
    }
}

TEST(PayeeList, AWindows1252FileReadsAsText) {
    const fakes::TempFolder dir;
    const auto file = payeeFile(dir.path());
    fakes::writeRaw(file, "CONCEI\xC7\xC3O\r\n\r\nACME\r\n");
    EXPECT_EQ(readPayees(file), (std::vector<std::string>{"CONCEIÇÃO", "ACME"}));
    EXPECT_EQ(addPayee(file, "Conceição"), PayeeOutcome::AlreadyListed);
}

TEST(PayeeList, RemovingTakesOutOnlyThatPayee) {
    const fakes::TempFolder dir;
    const auto file = payeeFile(dir.path());
    fakes::writeRaw(file, "ACME\r\nBETA\r\nGAMA\r\n");
    EXPECT_TRUE(removePayee(file, "beta"));
    EXPECT_EQ(bytesOf(file), "ACME\r\nGAMA\r\n");
    EXPECT_FALSE(removePayee(file, "DELTA"));
    EXPECT_EQ(bytesOf(file), "ACME\r\nGAMA\r\n");
}

TEST(PayeeList, AMissingFileListsNobody) {
    const fakes::TempFolder dir;
    EXPECT_TRUE(readPayees(payeeFile(dir.path())).empty());
    EXPECT_FALSE(removePayee(payeeFile(dir.path()), "ACME"));
}

}  // namespace
}  // namespace zv::documents
