#include "core/convert/converter.h"

#include <gtest/gtest.h>

#include <string>

namespace zv::convert {
namespace {

const common::NumberSeparators kBrazil{",", "."};
const common::NumberSeparators kUs{".", ","};

std::optional<std::size_t> source(std::string_view name) {
    return findSource(name);
}

TEST(Converter, ListsItsSourcesInTheirOrder) {
    struct Case {
        const char* label;
        std::size_t index;
        const char* name;
    };
    const Case cases[] = {
        {"first", 0, "Bar"},
        {"Celsius before Fahrenheit", 8, "Graus Celsius"},
        {"Fahrenheit", 9, "Graus Fahrenheit"},
        {"singular Cúbico kept", 14, "Kilos/Metros Cúbico"},
        {"miles", 27, "Milhas"},
        {"inches", 32, "Polegadas"},
        {"last", 36, "Toneladas Métricas"},
    };
    ASSERT_EQ(sourceNames().size(), 37U);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(sourceNames()[c.index], c.name);
    }
}

TEST(Converter, FindsASourceByItsIndexOrItsExactEntry) {
    struct Case {
        const char* label;
        const char* text;
        std::optional<std::size_t> index;
    };
    const Case cases[] = {
        {"index", "0", 0},
        {"last index", "36", 36},
        {"entry", "Milhas", 27},
        {"entry with accents and blanks", "Metros Cúbicos/Stroke", 26},
        {"past the end", "37", std::nullopt},
        {"negative", "-1", std::nullopt},
        {"other case", "milhas", std::nullopt},
        {"without accent", "Centimetros (cm)", std::nullopt},
        {"empty", "", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(findSource(c.text), c.index);
    }
}

// Physical facts and the system's own worked cases; the wrong factors it keeps on purpose are
// checked against the figure the written table gives (1/0.444482 = 2.24980989...).
TEST(Converter, GivesTheTableResults) {
    struct Case {
        const char* label;
        const char* source;
        const char* value;
        std::size_t slot;
        const char* caption;
        const char* result;
    };
    const Case cases[] = {
        {"water freezes at 32 °F", "Graus Fahrenheit", "32", 0, "&Graus Celsius", "0"},
        {"body heat", "Graus Fahrenheit", "98,6", 0, "&Graus Celsius", "37"},
        {"-40 is -40 in both scales", "Graus Celsius", "-40", 0, "&Graus Fahrenheit", "-40"},
        {"water boils at 100 °C", "Graus Celsius", "100", 0, "&Graus Fahrenheit", "212"},
        {"inch to metres, wrong on purpose", "Polegadas", "1", 0, "&Metros (M)", "254"},
        {"inch to centimetres", "Polegadas", "1", 1, "&Centímetros (cm)", "2,54"},
        {"inch to millimetres", "Polegadas", "1", 2, "&Milímetros (mm)", "25,4"},
        {"inch to feet, ten decimals", "Polegadas", "1", 3, "P&és (feet)", "0,0833333333"},
        {"a foot in metres", "Pés (feet)", "1", 0, "&Metros (M)", "0,3048"},
        {"a mile as 1,609 km", "Milhas", "1", 0, "&Quilômetros", "1,609"},
        {"a cubic metre in litres", "Metros Cúbicos", "1", 2, "&Litros", "1.000"},
        {"a kilopascal in pascal", "KiloPascal (Kpa)", "1", 2, "&Pascal (Pa)", "1.000"},
        {"a bar in psi", "Bar", "1", 0, "&PSI", "14,50377"},
        {"decanewton with its 0.444482", "Decanewtons", "1", 0, "&Libras", "2,2498098911"},
        {"mile captions differ by source", "Quilômetros", "1,609", 0, "&Milhas", "1"},
        {"second spelling of kilo per litre", "Mud Weight PPG", "8,3454", 1, "K&ilo/Litro", "1"},
        {"fourth slot", "Kilos/Metros Cúbico", "119,826", 3, "&Kilo/Litro", "0,1198264912"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const ResultSlots slots = convert(source(c.source), c.value, kBrazil);
        EXPECT_EQ(slots.captions[c.slot], c.caption);
        EXPECT_EQ(slots.values[c.slot], c.result);
    }
}

TEST(Converter, FillsOnlyTheSlotsItsSourceHas) {
    struct Case {
        const char* label;
        const char* source;
        std::size_t filled;
    };
    const Case cases[] = {
        {"one", "Milhas", 1},
        {"two", "Bar/M", 2},
        {"three", "Bar", 3},
        {"four", "Kilos/Litro", 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const ResultSlots slots = convert(source(c.source), "2", kBrazil);
        for (std::size_t i = 0; i < kSlotCount; ++i) {
            SCOPED_TRACE(i);
            EXPECT_EQ(slots.captions[i].empty(), i >= c.filled);
            EXPECT_EQ(slots.values[i].empty(), i >= c.filled);
        }
    }
}

TEST(Converter, ShowsNothingWithoutASourceOrANumber) {
    struct Case {
        const char* label;
        std::optional<std::size_t> source;
        std::string value;
    };
    const Case cases[] = {
        {"no source chosen", std::nullopt, "5"},
        {"source out of range", 37, "5"},
        {"letters", 12, "abc"},
        {"number then letters", 12, "12abc"},
        {"two decimal separators", 12, "1,2,3"},
        {"empty", 12, ""},
        {"overflow", 0, "1" + std::string(307, '0')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const ResultSlots slots = convert(c.source, c.value, kBrazil);
        for (std::size_t i = 0; i < kSlotCount; ++i) {
            EXPECT_EQ(slots.captions[i], "");
            EXPECT_EQ(slots.values[i], "");
        }
    }
}

TEST(Converter, ReadsAndWritesWithTheUsersSeparators) {
    struct Case {
        const char* label;
        common::NumberSeparators seps;
        const char* value;
        const char* litres;
    };
    const Case cases[] = {
        {"Brazil, as reformatted", kBrazil, "1.234,5", "1.234.500"},
        {"Brazil, as typed", kBrazil, "0,5", "500"},
        {"US", kUs, "1,234.5", "1,234,500"},
        {"no-break space groups",
         {",", "\xC2\xA0"},
         "2\xC2\xA0"
         "000",
         "2\xC2\xA0"
         "000\xC2\xA0"
         "000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(convert(source("Metros Cúbicos"), c.value, c.seps).values[2], c.litres);
    }
}

TEST(Converter, TakesDigitsBackspaceAndOneDecimalSeparator) {
    struct Case {
        const char* label;
        common::NumberSeparators seps;
        const char* text;
        const char* key;
        bool taken;
    };
    const Case cases[] = {
        {"digit", kBrazil, "12", "7", true},
        {"backspace", kBrazil, "12,5", "\b", true},
        {"first decimal comma", kBrazil, "12", ",", true},
        {"second decimal comma", kBrazil, "12,5", ",", false},
        {"point is no decimal in Brazil", kBrazil, "12", ".", false},
        {"point is the US decimal", kUs, "12", ".", true},
        {"comma groups in the US", kUs, "12", ",", false},
        {"minus", kBrazil, "", "-", false},
        {"letter", kBrazil, "1", "e", false},
        {"blank", kBrazil, "1", " ", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(acceptsKey(c.text, c.key, c.seps), c.taken);
    }
}

TEST(Converter, ReformatsANumberOnLeavingTheField) {
    struct Case {
        const char* label;
        const char* text;
        const char* shown;
    };
    const Case cases[] = {
        {"groups thousands", "1234567", "1.234.567"},
        {"drops trailing zeros", "1234,500", "1.234,5"},
        {"drops a bare separator", "12,", "12"},
        {"ten decimals at most", "0,123456789049", "0,123456789"},
        {"rounds half away from zero", "0,00000000005", "0,0000000001"},
        {"already formatted", "1.234,5", "1.234,5"},
        {"letters stay", "abc", "abc"},
        {"empty stays", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(reformatValue(c.text, kBrazil), c.shown);
    }
}

TEST(Converter, CopiesAResultAsTheSlotShowsIt) {
    EXPECT_EQ(copiedText("1", 32, "0,0833333333", "P&és (feet)", kBrazil),
              "1 Polegadas = 0,0833333333 Pés (feet)");
    EXPECT_EQ(copiedText("1.000", 24, "1.000.000", "&Litros", kBrazil),
              "1.000 Metros Cúbicos = 1.000.000 Litros");
}

TEST(Converter, CopiesNothingFromASlotWithoutANumber) {
    struct Case {
        const char* label;
        const char* result;
    };
    const Case cases[] = {{"empty slot", ""}, {"blank", " "}, {"no number", "E"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(copiedText("1", 27, c.result, "", kBrazil), std::nullopt);
    }
}

}  // namespace
}  // namespace zv::convert
