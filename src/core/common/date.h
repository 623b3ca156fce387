#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/common/clock.h"
#include "core/common/regional.h"

namespace zv::common {

// A calendar day (proleptic Gregorian). Every date this unit reads or returns lies in the
// years 0001 to 9999, the years a four-digit field can hold.
using Date = std::chrono::year_month_day;

inline constexpr int kFirstYear = 1;
inline constexpr int kLastYear = 9999;

// Why a text is not a date.
enum class DateError {
    Empty,  // nothing but blanks
    Shape,  // not day/month/year: a part missing or extra, a letter, a year not of four digits
    Year,   // the year 0000
    Month,  // month 0 or past 12
    Day,    // day 0 or past the month's last day (31/04, 29/02 of a common year)
};

// Reads a date typed day first: "DD/MM/YYYY", where the day and the month may also be written
// with one digit ("1/2/2026") and the year always has four. Blanks around the text are ignored;
// no other separator than "/" is taken, whatever the user's date order.
std::variant<Date, DateError> parseDate(std::string_view text);

// "21/11/2026".
std::string formatDate(const Date& date);
// The date in the user's order with the user's separator: "21/11/2026", "11/21/2026", "2026/11/21".
std::string formatDate(const Date& date, DateOrder order, std::string_view separator);

// Full names as the regional settings of each language write them: "quarta-feira", "Wednesday",
// "miércoles"; "março", "March", "marzo".
std::string_view weekdayName(const Date& date, Language language);
std::string_view monthName(std::chrono::month month, Language language);
// "quarta-feira, 10 de março de 2004", "Wednesday, March 10, 2004", "miércoles, 10 de marzo de 2004".
std::string longDate(const Date& date, Language language);

bool isLeapYear(int year);

// `days` later (earlier when negative); nullopt when that leaves the years 0001 to 9999.
std::optional<Date> addDays(const Date& date, long long days);
// Calendar months later (earlier when negative); a day the target month lacks becomes its last
// day, so 31/01 plus one month is 28/02 or 29/02. Nullopt outside the years 0001 to 9999.
std::optional<Date> addMonths(const Date& date, int months);
// Days from `from` to `to`: positive when `to` is later.
long long daysBetween(const Date& from, const Date& to);
// How many 29 Februaries lie after `from` and up to `to` included: the leap days a count of
// days from `from` passes through to reach `to`. Zero when `to` is not later than `from`.
int leapDaysBetween(const Date& from, const Date& to);

// The day of a clock reading; a reading that is not a real day gives nullopt.
std::optional<Date> dateOf(const DateTime& time);

}  // namespace zv::common
