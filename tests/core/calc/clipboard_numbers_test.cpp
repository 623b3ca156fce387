#include "core/calc/clipboard_numbers.h"

#include <gtest/gtest.h>

#include "fakes/sample_text.h"

namespace zv::calc {
namespace {

using fakes::kBrazil;
using fakes::kUs;
using Kind = ClipboardNumbers::Kind;

TEST(ClipboardNumbers, CopiedTextIsReadAsAmountsProductsOrNothing) {
    struct Case {
        const char* label;
        const char* text;
        Kind kind;
        std::vector<double> values;
        bool timeMode = false;
        common::NumberSeparators seps = kBrazil;
    };
    const Case cases[] = {
        {"grouped amount", "1.234,56", Kind::Amounts, {1234.56}},
        {"accounting negative", " (1.234,56) ", Kind::Amounts, {-1234.56}},
        {"no-break space grouping", "1\u00A0234,5", Kind::Amounts, {1234.5}},
        {"spreadsheet column", "10\r\n2,5\r\n-1\r\n", Kind::Amounts, {10, 2.5, -1}},
        {"empty row inside a column", "1\n\n2\n", Kind::Amounts, {1, 2}},
        {"two columns", "2\t3,5\r\n10\t-1\r\n", Kind::Products, {7, -10}},
        {"three columns", "1\t2\t3\r\n4\t5\t6\r\n", Kind::InvalidSelection, {}},
        {"ragged rows", "1\t2\r\n3\r\n", Kind::InvalidSelection, {}},
        {"empty cell in two columns", "1\t2\r\n3\t\r\n", Kind::InvalidSelection, {}},
        {"header row", "Valor\r\n10\r\n20\r\n", Kind::InvalidSelection, {}},
        {"text beside numbers", "Aluguel\t1.200,00\r\nLuz\t98,10\r\n", Kind::InvalidSelection, {}},
        {"line of text holding a number", "Total\t150,00", Kind::NotNumbers, {}},
        {"document number with inner dash", "123.456.789-09", Kind::NotNumbers, {}},
        {"empty", "\r\n", Kind::NotNumbers, {}},
        {"time form in time mode", "01:30:00", Kind::Amounts, {13000}, true},
        {"negative duration", "-10:00:05", Kind::Amounts, {-100005}, true},
        {"time form outside time mode", "01:30:00", Kind::NotNumbers, {}},
        {"malformed time form", "1:3:00", Kind::NotNumbers, {}, true},
        {"US copy on a Brazilian machine", "1,234.56", Kind::NotNumbers, {}},
        {"US copy with US separators", "1,234.56", Kind::Amounts, {1234.56}, false, kUs},
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
    EXPECT_EQ(productsText({1234.5}, kUs), "1,234.50");
    EXPECT_EQ(productsText({}, kBrazil), "");
}

}  // namespace
}  // namespace zv::calc
