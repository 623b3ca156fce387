#include "core/documents/date_words.h"

#include <gtest/gtest.h>

namespace zv::documents {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

common::Date on(int d, unsigned m, int y) {
    return common::Date{year{y}, month{m}, day{static_cast<unsigned>(d)}};
}

TEST(DueDateWords, DayMonthAndYearInWords) {
    struct Case {
        const char* label;
        common::Date date;
        const char* words;
    };
    const Case cases[] = {
        {"the worked example", on(10, 3, 2004), "DEZ DIAS DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO "},
        {"the first of the month has no number words", on(1, 3, 2004),
         "PRIMEIRO DIA DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO "},
        {"day 2", on(2, 1, 2026), "DOIS DIAS DO MÊS DE JANEIRO DO ANO DE DOIS MIL E VINTE E SEIS "},
        {"year 2000", on(15, 6, 2000), "QUINZE DIAS DO MÊS DE JUNHO DO ANO DE DOIS MIL "},
        {"year 1000", on(31, 12, 1000), "TRINTA E UM DIAS DO MÊS DE DEZEMBRO DO ANO DE UM MIL "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(dueDateWords(c.date), c.words);
    }
}

TEST(DateFields, DayMonthInCapitalsAndTheYearAsTheLayoutSays) {
    const DateFields two = dateFields(on(5, 3, 2004), false);
    EXPECT_EQ(two.day, "05");
    EXPECT_EQ(two.month, "MARÇO");
    EXPECT_EQ(two.year, "04");
    EXPECT_EQ(dateFields(on(5, 3, 2004), true).year, "2004");
    EXPECT_EQ(dateFields(on(9, 2, 2009), false).year, "09");
}

}  // namespace
}  // namespace zv::documents
