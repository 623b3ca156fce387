#include "core/common/date.h"

#include <gtest/gtest.h>

#include <limits>

namespace zv::common {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

constexpr Date ymd(int y, unsigned m, unsigned d) {
    return Date{year{y}, month{m}, day{d}};
}

TEST(Date, ReadsRealDaysWrittenDayFirst) {
    struct Case {
        const char* label;
        const char* text;
        Date date;
    };
    const Case cases[] = {
        {"two-digit day and month", "21/11/2026", ymd(2026, 11, 21)},
        {"one-digit day and month", "1/2/2026", ymd(2026, 2, 1)},
        {"leading zeros", "01/02/2026", ymd(2026, 2, 1)},
        {"leap day of a leap year", "29/02/2024", ymd(2024, 2, 29)},
        {"leap day of a century divisible by 400", "29/02/2000", ymd(2000, 2, 29)},
        {"last day of a 31-day month", "31/12/2026", ymd(2026, 12, 31)},
        {"blanks around", "  05/06/2007\t", ymd(2007, 6, 5)},
        {"first year", "01/01/0001", ymd(1, 1, 1)},
        {"last year", "31/12/9999", ymd(9999, 12, 31)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const auto got = parseDate(c.text);
        ASSERT_TRUE(std::holds_alternative<Date>(got));
        EXPECT_EQ(std::get<Date>(got), c.date);
    }
}

TEST(Date, RefusesTextThatIsNoDayAndSaysWhy) {
    struct Case {
        const char* label;
        const char* text;
        DateError error;
    };
    const Case cases[] = {
        {"empty", "", DateError::Empty},
        {"blanks", "   ", DateError::Empty},
        {"31 February", "31/02/2026", DateError::Day},
        {"29 February of a common year", "29/02/2026", DateError::Day},
        {"29 February of a century not divisible by 400", "29/02/2100", DateError::Day},
        {"31 April", "31/04/2026", DateError::Day},
        {"day 0", "00/05/2026", DateError::Day},
        {"month 0", "10/00/2026", DateError::Month},
        {"month 13", "10/13/2026", DateError::Month},
        {"year 0000", "10/10/0000", DateError::Year},
        {"two-digit year", "10/10/26", DateError::Shape},
        {"five-digit year", "10/10/20266", DateError::Shape},
        {"three-digit day", "010/10/2026", DateError::Shape},
        {"missing part", "10/2026", DateError::Shape},
        {"extra part", "10/10/2026/1", DateError::Shape},
        {"other separator", "10-10-2026", DateError::Shape},
        {"empty day", "/10/2026", DateError::Shape},
        {"trailing junk", "10/10/2026x", DateError::Shape},
        {"sign", "+1/10/2026", DateError::Shape},
        {"blank inside", "10/ 10/2026", DateError::Shape},
        {"empty mask", "__/__/____", DateError::Shape},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const auto got = parseDate(c.text);
        ASSERT_TRUE(std::holds_alternative<DateError>(got));
        EXPECT_EQ(std::get<DateError>(got), c.error);
    }
}

TEST(Date, FormatsInEachOrderWithZeros) {
    struct Case {
        const char* label;
        Date date;
        DateOrder order;
        const char* separator;
        const char* text;
    };
    const Case cases[] = {
        {"day first", ymd(2026, 11, 21), DateOrder::DayMonthYear, "/", "21/11/2026"},
        {"month first", ymd(2026, 11, 21), DateOrder::MonthDayYear, "/", "11/21/2026"},
        {"year first", ymd(2026, 11, 21), DateOrder::YearMonthDay, "/", "2026/11/21"},
        {"small numbers padded", ymd(2007, 6, 5), DateOrder::DayMonthYear, "/", "05/06/2007"},
        {"another separator", ymd(2007, 6, 5), DateOrder::YearMonthDay, "-", "2007-06-05"},
        {"separator of two characters", ymd(2007, 6, 5), DateOrder::MonthDayYear, ". ", "06. 05. 2007"},
        {"early year padded", ymd(33, 1, 2), DateOrder::DayMonthYear, "/", "02/01/0033"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(formatDate(c.date, c.order, c.separator), c.text);
    }
    EXPECT_EQ(formatDate(ymd(2024, 2, 9)), "09/02/2024");
}

TEST(Date, NamesWeekdaysAndMonthsInTheThreeLanguages) {
    struct Case {
        const char* label;
        Date date;
        Language language;
        const char* weekday;
        const char* month;
    };
    const Case cases[] = {
        {"2000 began on a Saturday", ymd(2000, 1, 1), Language::Portuguese, "s\u00E1bado", "janeiro"},
        {"leap day 2024", ymd(2024, 2, 29), Language::English, "Thursday", "February"},
        {"2100 begins on a Friday", ymd(2100, 1, 1), Language::Spanish, "viernes", "enero"},
        {"March with cedilla", ymd(2004, 3, 10), Language::Portuguese, "quarta-feira", "mar\u00E7o"},
        {"Wednesday with accent", ymd(2004, 3, 10), Language::Spanish, "mi\u00E9rcoles", "marzo"},
        {"Sunday", ymd(2026, 11, 22), Language::Portuguese, "domingo", "novembro"},
        {"last month", ymd(2026, 12, 31), Language::English, "Thursday", "December"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(weekdayName(c.date, c.language), c.weekday);
        EXPECT_EQ(monthName(c.date.month(), c.language), c.month);
    }
    EXPECT_EQ(monthName(month{13}, Language::English), "");
}

TEST(Date, LongDateFollowsEachLanguage) {
    EXPECT_EQ(longDate(ymd(2004, 3, 10), Language::Portuguese), "quarta-feira, 10 de mar\u00E7o de 2004");
    EXPECT_EQ(longDate(ymd(2004, 3, 1), Language::English), "Monday, March 1, 2004");
    EXPECT_EQ(longDate(ymd(2004, 3, 10), Language::Spanish), "mi\u00E9rcoles, 10 de marzo de 2004");
}

TEST(Date, LeapYearsFollowTheGregorianRule) {
    struct Case {
        int year;
        bool leap;
    };
    const Case cases[] = {{2024, true},  {2026, false}, {2000, true},
                          {2100, false}, {1900, false}, {2400, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.year);
        EXPECT_EQ(isLeapYear(c.year), c.leap);
    }
}

TEST(Date, AddsDaysAcrossMonthsYearsAndLeapDays) {
    struct Case {
        const char* label;
        Date from;
        long long days;
        Date to;
    };
    const Case cases[] = {
        {"into the leap day", ymd(2024, 2, 28), 1, ymd(2024, 2, 29)},
        {"past 28 February of a common century", ymd(2100, 2, 28), 1, ymd(2100, 3, 1)},
        {"past 28 February of 2000", ymd(2000, 2, 28), 2, ymd(2000, 3, 1)},
        {"over the year's end", ymd(2024, 12, 31), 1, ymd(2025, 1, 1)},
        {"back over the year's start", ymd(2025, 1, 1), -1, ymd(2024, 12, 31)},
        {"a year of 365 days from 1 January of a leap year", ymd(2004, 1, 1), 365, ymd(2004, 12, 31)},
        {"thirty days from 31 January", ymd(2026, 1, 31), 30, ymd(2026, 3, 2)},
        {"nothing", ymd(2026, 5, 17), 0, ymd(2026, 5, 17)},
        {"to the last day there is", ymd(9999, 12, 30), 1, ymd(9999, 12, 31)},
        {"a million days", ymd(1, 1, 1), 1000000, ymd(2738, 11, 29)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::optional<Date> got = addDays(c.from, c.days);
        ASSERT_TRUE(got.has_value());
        EXPECT_EQ(*got, c.to);
        EXPECT_EQ(daysBetween(c.from, c.to), c.days);
    }
}

TEST(Date, DaysBetweenCountsLeapDays) {
    EXPECT_EQ(daysBetween(ymd(2000, 1, 1), ymd(2026, 1, 1)), 9497);
    EXPECT_EQ(daysBetween(ymd(2024, 1, 1), ymd(2025, 1, 1)), 366);
    EXPECT_EQ(daysBetween(ymd(2100, 1, 1), ymd(2101, 1, 1)), 365);
    EXPECT_EQ(daysBetween(ymd(2026, 3, 1), ymd(2026, 2, 1)), -28);
}

TEST(Date, ArithmeticNeverLeavesTheFourDigitYears) {
    struct Case {
        const char* label;
        Date from;
        long long days;
    };
    const Case cases[] = {
        {"past the last day", ymd(9999, 12, 31), 1},
        {"before the first day", ymd(1, 1, 1), -1},
        {"a count that would wrap the year", ymd(2026, 1, 1), 1LL << 40},
        {"the largest count", ymd(2026, 1, 1), std::numeric_limits<long long>::max()},
        {"the smallest count", ymd(2026, 1, 1), std::numeric_limits<long long>::min()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(addDays(c.from, c.days), std::nullopt);
    }
    EXPECT_EQ(addMonths(ymd(9999, 12, 1), 1), std::nullopt);
    EXPECT_EQ(addMonths(ymd(1, 1, 1), -1), std::nullopt);
    EXPECT_EQ(addMonths(ymd(2026, 1, 1), std::numeric_limits<int>::max()), std::nullopt);
    EXPECT_EQ(addMonths(ymd(2026, 1, 1), std::numeric_limits<int>::min()), std::nullopt);
}

TEST(Date, AddsCalendarMonthsKeepingToTheMonthsLastDay) {
    struct Case {
        const char* label;
        Date from;
        int months;
        Date to;
    };
    const Case cases[] = {
        {"31 January to a common February", ymd(2026, 1, 31), 1, ymd(2026, 2, 28)},
        {"31 January to a leap February", ymd(2024, 1, 31), 1, ymd(2024, 2, 29)},
        {"31 January of 2100", ymd(2100, 1, 31), 1, ymd(2100, 2, 28)},
        {"31 March to April", ymd(2026, 3, 31), 1, ymd(2026, 4, 30)},
        {"a day every month has", ymd(2026, 1, 15), 1, ymd(2026, 2, 15)},
        {"over the year's end", ymd(2026, 11, 30), 2, ymd(2027, 1, 30)},
        {"back over the year's start", ymd(2026, 1, 31), -2, ymd(2025, 11, 30)},
        {"a leap day a year later", ymd(2024, 2, 29), 12, ymd(2025, 2, 28)},
        {"a leap day four years later", ymd(2024, 2, 29), 48, ymd(2028, 2, 29)},
        {"nothing", ymd(2026, 5, 31), 0, ymd(2026, 5, 31)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const std::optional<Date> got = addMonths(c.from, c.months);
        ASSERT_TRUE(got.has_value());
        EXPECT_EQ(*got, c.to);
    }
}

TEST(Date, CountsTheLeapDaysASpanPassesThrough) {
    struct Case {
        const char* label;
        Date from;
        Date to;
        int leapDays;
    };
    const Case cases[] = {
        {"a year from 1 January 2004", ymd(2004, 1, 1), ymd(2004, 12, 31), 1},
        {"ending on the leap day", ymd(2024, 2, 1), ymd(2024, 2, 29), 1},
        {"starting on the leap day", ymd(2024, 2, 29), ymd(2024, 12, 31), 0},
        {"ending the day before", ymd(2024, 1, 1), ymd(2024, 2, 28), 0},
        {"2100 has none", ymd(2100, 1, 1), ymd(2100, 12, 31), 0},
        {"2000 has one", ymd(1999, 12, 31), ymd(2000, 12, 31), 1},
        {"across several", ymd(2000, 1, 1), ymd(2026, 1, 1), 7},
        {"backwards", ymd(2025, 1, 1), ymd(2024, 1, 1), 0},
        {"the same day", ymd(2024, 2, 29), ymd(2024, 2, 29), 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(leapDaysBetween(c.from, c.to), c.leapDays);
    }
}

TEST(Date, ClockReadingsBecomeDaysOnlyWhenReal) {
    EXPECT_EQ(dateOf(DateTime{2026, 11, 21, 14, 5, 9}), ymd(2026, 11, 21));
    struct Case {
        const char* label;
        DateTime time;
    };
    const Case cases[] = {
        {"31 February", {2026, 2, 31}},
        {"month 0", {2026, 0, 1}},
        {"a month that wraps to January as a byte", {2026, 257, 1}},
        {"a negative month", {2026, -255, 1}},
        {"day 0", {2026, 1, 0}},
        {"a day that wraps as a byte", {2026, 1, 257}},
        {"year past 9999", {10000, 1, 1}},
        {"a year that wraps as a short", {65536 + 2026, 1, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(dateOf(c.time), std::nullopt);
    }
}

}  // namespace
}  // namespace zv::common
