#include "core/common/date.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <random>
#include <vector>

#include "fakes/rows.h"

namespace zv::common {
namespace {

using fakes::expectRows;
using std::chrono::sys_days;

constexpr Date ymd(int y, unsigned m, unsigned d) {
    return Date{std::chrono::year{y}, std::chrono::month{m}, std::chrono::day{d}};
}

// The day's numbers in `pattern`, day first: "%02u/%02u/%04d".
std::string printed(const char* pattern, const Date& date) {
    char text[40];
    std::snprintf(text, sizeof text, pattern, static_cast<unsigned>(date.day()),
                  static_cast<unsigned>(date.month()), static_cast<int>(date.year()));
    return text;
}

// A day as the rows write it: "29/02/2024", or "none".
std::string shown(const std::optional<Date>& date) {
    return date ? printed("%02u/%02u/%04d", *date) : "none";
}

// What parseDate makes of `text`: the day as the rows write it, or the name of its error.
std::string parsed(const std::string& text) {
    constexpr const char* kErrors[] = {"Empty", "Shape", "Year", "Month", "Day"};
    const auto got = parseDate(text);
    const Date* date = std::get_if<Date>(&got);
    return date != nullptr ? shown(*date) : kErrors[static_cast<int>(std::get<DateError>(got))];
}

// Days spread over the years 0001 to 9999, the same on every run, with the last and the first day
// next to each other in the middle.
std::vector<Date> sampleDays() {
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> pick(sys_days{ymd(1, 1, 1)}.time_since_epoch().count(),
                                            sys_days{ymd(9999, 12, 31)}.time_since_epoch().count());
    std::vector<Date> days;
    for (int i = 0; i < 500; ++i) {
        days.emplace_back(sys_days{std::chrono::days{pick(random)}});
    }
    days[250] = ymd(9999, 12, 31);
    days[251] = ymd(1, 1, 1);
    return days;
}

TEST(Date, EveryDayIsWrittenAndReadBackAndDaysBetweenIsWhatAddDaysAdds) {
    EXPECT_EQ(daysBetween(ymd(2000, 1, 1), ymd(2026, 1, 1)), 9497);
    const std::vector<Date> days = sampleDays();
    for (std::size_t i = 1; i < days.size(); ++i) {
        const Date& date = days[i];
        SCOPED_TRACE(shown(days[i - 1]) + " to " + shown(date));
        EXPECT_EQ(formatDate(date), printed("%02u/%02u/%04d", date));
        EXPECT_EQ(parsed(printed("%02u/%02u/%04d", date)), shown(date));
        EXPECT_EQ(parsed(printed("%u/%u/%04d", date)), shown(date));
        EXPECT_EQ(addDays(days[i - 1], daysBetween(days[i - 1], date)), date);
    }
}

TEST(Date, ReadsOnlyRealDaysAndSaysWhyNot) {
    auto day = [](int y, int m, int d) { return shown(dateOf(DateTime{y, m, d})); };
    expectRows({
        {"leap day of a leap year", parsed("29/02/2024"), "29/02/2024"},
        {"leap day of a century divisible by 400", parsed("29/02/2000"), "29/02/2000"},
        {"blanks around", parsed("  5/06/2007\t"), "05/06/2007"},
        {"blanks", parsed("   "), "Empty"},
        {"29 February of a century not divisible by 400", parsed("29/02/2100"), "Day"},
        {"month 0", parsed("10/00/2026"), "Month"},
        {"month 13", parsed("10/13/2026"), "Month"},
        {"year 0000", parsed("10/10/0000"), "Year"},
        {"two-digit year", parsed("10/10/26"), "Shape"},
        {"five-digit year", parsed("10/10/20266"), "Shape"},
        {"a letter in the year", parsed("10/10/20x6"), "Shape"},
        {"three-digit day", parsed("010/10/2026"), "Shape"},
        {"three-digit month", parsed("10/010/2026"), "Shape"},
        {"empty day", parsed("/10/2026"), "Shape"},
        {"blank inside", parsed("10/ 10/2026"), "Shape"},
        {"other separator", parsed("10-10-2026"), "Shape"},
        {"a real clock reading", shown(dateOf(DateTime{2026, 11, 21, 14, 5, 9})), "21/11/2026"},
        {"31 February", day(2026, 2, 31), "none"},
        {"a month that wraps to January as a byte", day(2026, 257, 1), "none"},
        {"a negative month", day(2026, -255, 1), "none"},
        {"a day that wraps as a byte", day(2026, 1, 257), "none"},
        {"a negative day", day(2026, 1, -255), "none"},
        {"year past 9999", day(10000, 1, 1), "none"},
        {"a year that wraps as a short", day(65536 + 2026, 1, 1), "none"},
    });
}

TEST(Date, WritesEachOrderAndLanguage) {
    const Date day = ymd(2007, 6, 5);
    expectRows({
        {"month first", formatDate(day, DateOrder::MonthDayYear, "/"), "06/05/2007"},
        {"year first", formatDate(day, DateOrder::YearMonthDay, "-"), "2007-06-05"},
        {"two-character separator", formatDate(day, DateOrder::DayMonthYear, ". "), "05. 06. 2007"},
        {"2000 began on a Saturday", longDate(ymd(2000, 1, 1), Language::Portuguese),
         "s\u00E1bado, 1 de janeiro de 2000"},
        {"leap day 2024", longDate(ymd(2024, 2, 29), Language::English), "Thursday, February 29, 2024"},
        {"cedilla", longDate(ymd(2004, 3, 10), Language::Portuguese),
         "quarta-feira, 10 de mar\u00E7o de 2004"},
        {"accent", longDate(ymd(2004, 3, 10), Language::Spanish), "mi\u00E9rcoles, 10 de marzo de 2004"},
        {"no 13th month", std::string(monthName(std::chrono::month{13}, Language::English)), ""},
    });
}

TEST(Date, AYearIsLeapWhenItHasA29February) {
    for (int year = kFirstYear; year <= kLastYear; ++year) {
        const bool has29February =
            std::holds_alternative<Date>(parseDate("29/02/" + std::to_string(year + 10000).substr(1)));
        ASSERT_EQ(isLeapYear(year), has29February) << year;
    }
}

TEST(Date, AddsDaysAndCalendarMonthsAndCountsLeapDays) {
    auto later = [](const Date& from, long long days) { return shown(addDays(from, days)); };
    auto monthsLater = [](const Date& from, int months) { return shown(addMonths(from, months)); };
    auto leapDays = [](Date from, Date to) { return std::to_string(leapDaysBetween(from, to)); };
    expectRows({
        {"a million days from the first day", later(ymd(1, 1, 1), 1000000), "29/11/2738"},
        {"past the last day", later(ymd(9999, 12, 31), 1), "none"},
        {"before the first day", later(ymd(1, 1, 1), -1), "none"},
        {"the largest count", later(ymd(2026, 1, 1), LLONG_MAX), "none"},
        {"the smallest count", later(ymd(2026, 1, 1), LLONG_MIN), "none"},
        {"31 January to a common February", monthsLater(ymd(2026, 1, 31), 1), "28/02/2026"},
        {"31 January to a leap February", monthsLater(ymd(2024, 1, 31), 1), "29/02/2024"},
        {"over the year's end", monthsLater(ymd(2026, 11, 30), 2), "30/01/2027"},
        {"back over the year's start", monthsLater(ymd(2026, 1, 31), -2), "30/11/2025"},
        {"a leap day four years later", monthsLater(ymd(2024, 2, 29), 48), "29/02/2028"},
        {"to the last month", monthsLater(ymd(9999, 11, 30), 1), "30/12/9999"},
        {"back to the first month", monthsLater(ymd(1, 2, 28), -1), "28/01/0001"},
        {"past the last month", monthsLater(ymd(9999, 12, 1), 1), "none"},
        {"before the first month", monthsLater(ymd(1, 1, 1), -1), "none"},
        {"the largest count of months", monthsLater(ymd(2026, 1, 1), INT_MAX), "none"},
        {"the smallest count of months", monthsLater(ymd(2026, 1, 1), INT_MIN), "none"},
        {"ending on the leap day", leapDays(ymd(2024, 2, 1), ymd(2024, 2, 29)), "1"},
        {"starting on the leap day", leapDays(ymd(2024, 2, 29), ymd(2024, 12, 31)), "0"},
        {"2100 has none", leapDays(ymd(2100, 1, 1), ymd(2100, 12, 31)), "0"},
        {"2000 has one", leapDays(ymd(1999, 12, 31), ymd(2000, 12, 31)), "1"},
        {"across several", leapDays(ymd(2000, 1, 1), ymd(2026, 1, 1)), "7"},
        {"no leap days backwards", leapDays(ymd(2025, 1, 1), ymd(2024, 1, 1)), "0"},
    });
}

}  // namespace
}  // namespace zv::common
