#include "core/calc/tape_block.h"

#include <gtest/gtest.h>

namespace zv::calc {
namespace {

TEST(TapeBlock, LinesUpLabelsAndValuesInColumns) {
    TapeBlock block;
    block.title(" =============== C\u00C1LCULO =")
        .stacked("VALOR INICIAL ", "1.000,00")
        .pair("  \u00E0 vista", "x", 10, 3)
        .right("30 dias (1,5%) =", 26)
        .closing();
    EXPECT_EQ(block.text(),
              " =============== C\u00C1LCULO =\r\n"
              "            VALOR INICIAL \r\n"  // 26 columns
              "                 1.000,00\r\n"   // 25 columns
              "   \u00E0 vista  x\r\n"          // "à" is one column of two bytes
              "          30 dias (1,5%) =\r\n"
              " =========================\r\n");
}

}  // namespace
}  // namespace zv::calc
