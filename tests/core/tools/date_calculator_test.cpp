#include "core/tools/date_calculator.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/rows.h"

namespace zv::tools {
namespace {

using common::Date;
using common::Language;
using fakes::expectRows;

Date day(std::string_view text) {
    return std::get<Date>(common::parseDate(text));
}

// A result as the rows write it: "10/05/2004 leap 1 total 366 span 1 0 0 0", or the refusal
// "refused 34 Years".
std::string summary(const std::variant<DateResult, DateRefusal>& outcome) {
    constexpr const char* kFields[] = {"Initial", "Final", "Years", "Months", "Weeks", "Days"};
    if (const auto* refusal = std::get_if<DateRefusal>(&outcome)) {
        return "refused " + std::to_string(messageCode(refusal->problem)) + " " +
               kFields[static_cast<int>(refusal->field)];
    }
    const DateResult& r = std::get<DateResult>(outcome);
    return common::formatDate(r.final) + " leap " + std::to_string(r.leapDays) + " total " +
           std::to_string(r.totalDays) + " span " + std::to_string(r.span.years) + " " +
           std::to_string(r.span.months) + " " + std::to_string(r.span.weeks) + " " +
           std::to_string(r.span.days);
}

std::string finalDate(std::string_view from, SpanFields fields) {
    return summary(calculateFinalDate(from, fields));
}

std::string spanOf(std::string_view from, std::string_view to) {
    return summary(calculateSpan(from, to));
}

// Expected dates and day counts are calendar facts (the civil calendar, day counts between dates).
TEST(DateCalculator, AddsYearsAsCalendarYearsAndEverythingElseInPlainDays) {
    expectRows({
        {"one month is always 30 days", finalDate("31/01/2003", {"", "1", "", ""}),
         "02/03/2003 leap 0 total 30 span 0 1 0 0"},
        {"a year crossing 29/02 counts it", finalDate("01/01/2004", {"1", "", "", ""}),
         "01/01/2005 leap 1 total 366 span 1 0 0 0"},
        {"a year ending after 29/02", finalDate("10/05/2003", {"1", "0", "0", "0"}),
         "10/05/2004 leap 1 total 366 span 1 0 0 0"},
        {"a year with no 29/02", finalDate("10/05/2004", {"1", "", "", ""}),
         "10/05/2005 leap 0 total 365 span 1 0 0 0"},
        {"a year ending on 29/02", finalDate("01/03/2003", {"1", "", "", ""}),
         "01/03/2004 leap 1 total 366 span 1 0 0 0"},
        {"a year ending before 29/02", finalDate("28/02/2003", {"1", "", "", ""}),
         "28/02/2004 leap 0 total 365 span 1 0 0 0"},
        {"a year from 29/02", finalDate("29/02/2004", {"1", "", "", ""}),
         "28/02/2005 leap 0 total 365 span 1 0 0 0"},
        {"ten years, three 29/02", finalDate("10/05/2003", {"10", "", "", ""}),
         "10/05/2013 leap 3 total 3653 span 10 0 0 0"},
        {"months crossing 29/02 are not lengthened", finalDate("01/01/2004", {"", "2", "", ""}),
         "01/03/2004 leap 1 total 60 span 0 2 0 0"},
        {"years then months", finalDate("10/05/2003", {"1", "1", "", ""}),
         "09/06/2004 leap 1 total 396 span 1 1 0 0"},
        {"weeks and days", finalDate("01/01/2000", {"", "", "1", "3"}),
         "11/01/2000 leap 0 total 10 span 0 0 1 3"},
        {"nothing typed", finalDate("01/01/2000", {"", "", "", ""}),
         "01/01/2000 leap 0 total 0 span 0 0 0 0"},
        {"blanks around the numbers", finalDate(" 1/1/2000 ", {" 0 ", "", "", " 1"}),
         "02/01/2000 leap 0 total 1 span 0 0 0 1"},
    });
}

TEST(DateCalculator, BreaksTheSpanDownAsTheAdditionCountsIt) {
    expectRows({
        {"one year over 29/02", spanOf("10/05/2003", "10/05/2004"),
         "10/05/2004 leap 1 total 366 span 1 0 0 0"},
        {"a day short of that year", spanOf("10/05/2003", "09/05/2004"),
         "09/05/2004 leap 1 total 365 span 0 12 0 5"},
        {"the whole of a leap year", spanOf("01/01/2004", "31/12/2004"),
         "31/12/2004 leap 1 total 365 span 0 12 0 5"},
        {"a common year", spanOf("01/01/2001", "01/01/2002"), "01/01/2002 leap 0 total 365 span 1 0 0 0"},
        {"months, weeks and days", spanOf("15/03/2020", "26/04/2020"),
         "26/04/2020 leap 0 total 42 span 0 1 1 5"},
        {"from 29/02 to 29/02", spanOf("29/02/2004", "29/02/2008"),
         "29/02/2008 leap 1 total 1461 span 4 0 0 1"},
        {"a century without 29/02/1900", spanOf("01/01/1900", "01/01/2000"),
         "01/01/2000 leap 24 total 36524 span 100 0 0 0"},
        {"one day over the year's end", spanOf("31/12/1999", "01/01/2000"),
         "01/01/2000 leap 0 total 1 span 0 0 0 1"},
    });
}

TEST(DateCalculator, BreakDownIsTheExactInverseOfTheAddition) {
    std::mt19937 random(20261123);
    std::uniform_int_distribution<long long> offset(0, 200000);
    std::uniform_int_distribution<long long> length(1, 20000);
    const Date origin = day("01/01/1800");
    for (int i = 0; i < 2000; ++i) {
        const Date from = *common::addDays(origin, offset(random));
        const Date to = *common::addDays(from, length(random));
        const DateSpan span = spanBetween(from, to);
        SCOPED_TRACE(common::formatDate(from) + " to " + common::formatDate(to));
        ASSERT_EQ(addSpan(from, span), std::optional<Date>(to));
        EXPECT_LT(span.months * 30 + span.weeks * 7 + span.days, 366) << "years left in the rest";
        EXPECT_LT(span.weeks * 7 + span.days, 30) << "a month left in the weeks and days";
        EXPECT_LT(span.days, 7) << "a week left in the days";
    }
}

TEST(DateCalculator, RefusesWhatIsNoDateOrNoWholeNumberInTheFieldsOrder) {
    expectRows({
        {"31/02 is no date", finalDate("31/02/2004", {"1", "", "", ""}), "refused 32 Initial"},
        {"the empty mask", finalDate("__/__/____", {"", "", "", ""}), "refused 32 Initial"},
        {"the date before the numbers", finalDate("31/02/2004", {"x", "", "", ""}), "refused 32 Initial"},
        {"letters in years", finalDate("01/01/2004", {"um", "", "", ""}), "refused 34 Years"},
        {"a fraction of a month", finalDate("01/01/2004", {"", "1,5", "", ""}), "refused 34 Months"},
        {"negative weeks", finalDate("01/01/2004", {"", "", "-1", ""}), "refused 34 Weeks"},
        {"a sign on days", finalDate("01/01/2004", {"", "", "", "+3"}), "refused 34 Days"},
        {"first bad field wins", finalDate("01/01/2004", {"", "a", "b", ""}), "refused 34 Months"},
        {"past 31/12/9999", finalDate("31/12/9999", {"", "", "", "1"}), "refused 34 Days"},
        {"pushed past by the last field", finalDate("31/12/9998", {"1", "", "", "1"}), "refused 34 Days"},
        {"a huge count of years", finalDate("01/01/2000", {"999999999", "", "", ""}), "refused 34 Years"},
        {"too many digits", finalDate("01/01/2000", {"", "", "", "0000000001"}), "refused 34 Days"},
        {"the last day reached", finalDate("30/12/9999", {"", "", "", "1"}),
         "31/12/9999 leap 0 total 1 span 0 0 0 1"},
        {"span: bad initial date", spanOf("29/02/2003", "01/01/2004"), "refused 32 Initial"},
        {"span: bad final date", spanOf("01/01/2004", "32/01/2004"), "refused 32 Final"},
        {"span: equal dates", spanOf("01/01/2004", "01/01/2004"), "refused 33 Initial"},
        {"span: dates the wrong way round", spanOf("02/01/2004", "01/01/2004"), "refused 33 Initial"},
    });
}

TEST(DateCalculator, NamesTheWeekdayOnlyOfAValidDate) {
    auto weekday = [](std::string_view text, Language language) {
        return weekdayOf(text, language).value_or("none");
    };
    expectRows({
        {"01/01/2000 was a Saturday", weekday("01/01/2000", Language::Portuguese), "s\u00E1bado"},
        {"11/09/2001 was a Tuesday", weekday("11/09/2001", Language::English), "Tuesday"},
        {"10/05/2004 was a Monday", weekday("10/05/2004", Language::Spanish), "lunes"},
        {"half typed", weekday("10/05/20__", Language::Portuguese), "none"},
        {"29/02 of a common year", weekday("29/02/2003", Language::Portuguese), "none"},
    });
}

TEST(DateCalculator, TapeBlockShowsTheDatesAndTheSpanInTheTapeColumns) {
    const DateResult result = std::get<DateResult>(calculateSpan("10/05/2003", "09/05/2004"));
    expectRows({
        {"Portuguese", tapeBlock(result, Language::Portuguese),
         "            [10/05/2003] - \r\n"  // the date in the amount column, "-" in the operator column
         "            [09/05/2004] = \r\n"
         "                 anos: 0\r\n"  // numbers end in the amount column (24)
         "               meses: 12\r\n"
         "              semanas: 0\r\n"
         "                 dias: 5\r\n"
         " =========================\r\n"},
        {"English", tapeBlock(result, Language::English),
         "            [10/05/2003] - \r\n"
         "            [09/05/2004] = \r\n"
         "                years: 0\r\n"
         "              months: 12\r\n"
         "                weeks: 0\r\n"
         "                 days: 5\r\n"
         " =========================\r\n"},
        {"Spanish (two-byte letters count as one column)", tapeBlock(result, Language::Spanish),
         "            [10/05/2003] - \r\n"
         "            [09/05/2004] = \r\n"
         "                 a\u00F1os: 0\r\n"
         "               meses: 12\r\n"
         "              semanas: 0\r\n"
         "                 d\u00EDas: 5\r\n"
         " =========================\r\n"},
    });
}

}  // namespace
}  // namespace zv::tools
