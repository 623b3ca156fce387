#include "core/tools/interest_tape.h"

#include <gtest/gtest.h>

namespace zv::tools {
namespace {

const common::NumberSeparators kBrazil{",", "."};

TEST(InterestTape, CapitalisationBlockInColumns) {
    // 100,00 at 1 % over 45 days: 101,505.
    EXPECT_EQ(capitalisationBlock(100, 1, 45, 101.505, common::Language::Portuguese, kBrazil),
              " =============== C\u00C1LCULO =\r\n"
              "            VALOR INICIAL \r\n"
              "                   100,00 +\r\n"
              "                 QTD.DIAS \r\n"
              "          45 dias (1,00%) =\r\n"
              "              VALOR FINAL \r\n"
              "                   101,51 T\r\n"
              "                JURO a.m. \r\n"
              "                     1,00 % \r\n"
              "               JURO TOTAL \r\n"
              "                     1,51\r\n"
              " =========================\r\n");
}

TEST(InterestTape, LoanBlockNamesTheFirstInstalmentOrTheDownPayment) {
    const LoanResult result{2.569025, 86, 110, 860};
    EXPECT_EQ(loanBlock({750, 10, 30, false}, result, common::Language::Portuguese, kBrazil),
              " =============== C\u00C1LCULO =\r\n"
              "            VALOR INICIAL \r\n"
              "                   750,00\r\n"
              "             QTD.PARCELAS \r\n"
              "                       10 x \r\n"
              "              VLR.PARCELA \r\n"
              "                    86,00\r\n"
              "             30 dias (1\u00AA)\r\n"
              "                JURO a.m. \r\n"
              "                     2,57 % \r\n"
              "               JURO TOTAL \r\n"
              "                   110,00\r\n"
              "              VALOR FINAL \r\n"
              "                   860,00 T\r\n"
              " =========================\r\n");
    const std::string atOnce = loanBlock({750, 10, 0, true}, result, common::Language::English, kBrazil);
    EXPECT_EQ(atOnce.find("(1st)"), std::string::npos);
    EXPECT_NE(atOnce.find(" =========== CALCULATION =\r\n"), std::string::npos);
    EXPECT_NE(atOnce.find(
                  "MONTHLY INTEREST RATE \r\n                     2,57 % \r\n                  in cash\r\n"),
              std::string::npos);
}

TEST(InterestTape, TotalsAddUpTheCapitalisationsOnly) {
    const auto pt = common::Language::Portuguese;
    const std::string tape = "                  200,00 +\r\n" +
                             capitalisationBlock(100, 1, 45, 101.505, pt, kBrazil) +
                             loanBlock({750, 10, 30, false}, {2.569025, 86, 110, 860}, pt, kBrazil) +
                             capitalisationBlock(980.39, 2, 30, 1000, common::Language::English, kBrazil);
    const std::optional<std::string> totals = capitalisationTotals(tape, pt, kBrazil);
    ASSERT_TRUE(totals);
    EXPECT_EQ(*totals,
              " TOTAL DAS CAPITALIZA\u00C7\u00D5ES:\r\n"
              " -------------------------\r\n"
              " VALOR INICIAL:  1.080,39\r\n"
              "    VALOR JURO:     21,12\r\n"  // 1,51 + 19,61
              "   VALOR FINAL:  1.101,51\r\n"
              " =========================\r\n");
    EXPECT_FALSE(capitalisationTotals("                  200,00 +\r\n", pt, kBrazil));
}

}  // namespace
}  // namespace zv::tools
