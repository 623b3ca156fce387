#include "calc/clipboard_numbers.h"

#include <gtest/gtest.h>

using zv::calc::ClipboardNumbers;
using zv::calc::productsText;
using zv::calc::readClipboardNumbers;
using Kind = ClipboardNumbers::Kind;

namespace {

const zv::common::NumberSeparators kBrazil{",", "."};
const zv::common::NumberSeparators kUsa{".", ","};

}  // namespace

TEST(ClipboardNumbers, CopiedTextIsReadAsAmountsProductsOrNothing) {
    struct Case {
        const char* label;
        const char* text;
        zv::common::NumberSeparators seps;
        bool timeMode;
        Kind kind;
        std::vector<double> values;
    };
    const Case cases[] = {
        {"grouped amount", "1.234,56", kBrazil, false, Kind::Amounts, {1234.56}},
        {"accounting negative", " (1.234,56) ", kBrazil, false, Kind::Amounts, {-1234.56}},
        {"leading minus", "-5", kBrazil, false, Kind::Amounts, {-5}},
        {"spreadsheet column", "10\r\n2,5\r\n-1\r\n", kBrazil, false, Kind::Amounts, {10, 2.5, -1}},
        {"empty row inside a column", "1\n\n2\n", kBrazil, false, Kind::Amounts, {1, 2}},
        {"two columns", "2\t3,5\r\n10\t-1\r\n", kBrazil, false, Kind::Products, {7, -10}},
        {"one row of two cells", "4\t5", kBrazil, false, Kind::Products, {20}},
        {"three columns", "1\t2\t3\r\n4\t5\t6\r\n", kBrazil, false, Kind::InvalidSelection, {}},
        {"ragged rows", "1\t2\r\n3\r\n", kBrazil, false, Kind::InvalidSelection, {}},
        {"empty cell in two columns", "1\t2\r\n3\t\r\n", kBrazil, false, Kind::InvalidSelection, {}},
        {"header row", "Valor\r\n10\r\n20\r\n", kBrazil, false, Kind::InvalidSelection, {}},
        {"text beside numbers",
         "Aluguel\t1.200,00\r\nLuz\t98,10\r\n",
         kBrazil,
         false,
         Kind::InvalidSelection,
         {}},
        {"plain word", "Obrigado", kBrazil, false, Kind::NotNumbers, {}},
        {"line of text holding a number", "Total\t150,00", kBrazil, false, Kind::NotNumbers, {}},
        {"paragraph of text", "Bom dia,\r\nsegue o relatório.\r\n", kBrazil, false, Kind::NotNumbers, {}},
        {"date", "21/11/2026", kBrazil, false, Kind::NotNumbers, {}},
        {"document number with inner dash", "123.456.789-09", kBrazil, false, Kind::NotNumbers, {}},
        {"only marks", "-.-", kBrazil, false, Kind::NotNumbers, {}},
        {"empty", "\r\n", kBrazil, false, Kind::NotNumbers, {}},
        {"time form in time mode", "01:30:00", kBrazil, true, Kind::Amounts, {13000}},
        {"negative duration", "-10:00:05", kBrazil, true, Kind::Amounts, {-100005}},
        {"time form outside time mode", "01:30:00", kBrazil, false, Kind::NotNumbers, {}},
        {"malformed time form", "1:3:00", kBrazil, true, Kind::NotNumbers, {}},
        {"US copy on a Brazilian machine", "1,234.56", kBrazil, false, Kind::NotNumbers, {}},
        {"US copy with US separators", "1,234.56", kUsa, false, Kind::Amounts, {1234.56}},
        {"Brazilian copy with US separators", "1.234,56", kUsa, false, Kind::NotNumbers, {}},
        {"space grouping", "1 234,5", kBrazil, false, Kind::Amounts, {1234.5}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const ClipboardNumbers read = readClipboardNumbers(c.text, c.seps, c.timeMode);
        EXPECT_EQ(read.kind, c.kind);
        ASSERT_EQ(read.values.size(), c.values.size());
        for (std::size_t i = 0; i < c.values.size(); ++i) {
            EXPECT_DOUBLE_EQ(read.values[i], c.values[i]) << "value " << i;
        }
    }
}

TEST(ClipboardNumbers, ProductsGoBackOnePerLineInTheMoneyPrecision) {
    EXPECT_EQ(productsText({1234.5, 0.1234567, -2}, kBrazil), "1.234,50\r\n0,123457\r\n-2,00");
    EXPECT_EQ(productsText({1234.5}, kUsa), "1,234.50");
    EXPECT_EQ(productsText({}, kBrazil), "");
}
