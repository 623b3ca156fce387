#include "core/calc/roll_printer.h"

#include <gtest/gtest.h>

namespace zv::calc {
namespace {

TEST(RollPrinter, AcceptsOnlyTheKnownPorts) {
    EXPECT_EQ(acceptRollPort("LPT1"), "LPT1");
    EXPECT_EQ(acceptRollPort(" com 3 "), "COM3");  // any case, blanks removed
    EXPECT_EQ(acceptRollPort("Com4"), "COM4");
    for (const char* answer : {"LPT3", "COM5", "", "/dev/lp0"}) {
        EXPECT_EQ(acceptRollPort(answer), std::nullopt) << answer;
    }
}

TEST(RollPrinter, PlainSignsAndSingleByteText) {
    EXPECT_EQ(rollPrinterText("    3,00 \u00D7\r\n    4,00 \u00F7\nCAPITALIZA\u00C7\u00C3O"),
              "    3,00 *\r\n    4,00 /\r\nCAPITALIZA\xC7\xC3O\r\n");
}

}  // namespace
}  // namespace zv::calc
