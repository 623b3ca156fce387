#include "core/common/date.h"

#include <array>
#include <charconv>

#include "core/common/text.h"

namespace zv::common {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;

constexpr std::array<std::string_view, 7> kWeekdaysPt = {"domingo",      "segunda-feira", "ter\u00E7a-feira",
                                                         "quarta-feira", "quinta-feira",  "sexta-feira",
                                                         "s\u00E1bado"};
constexpr std::array<std::string_view, 7> kWeekdaysEn = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                         "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 7> kWeekdaysEs = {"domingo", "lunes",   "martes",     "mi\u00E9rcoles",
                                                         "jueves",  "viernes", "s\u00E1bado"};

constexpr std::array<std::string_view, 12> kMonthsPt = {"janeiro",  "fevereiro", "mar\u00E7o", "abril",
                                                        "maio",     "junho",     "julho",      "agosto",
                                                        "setembro", "outubro",   "novembro",   "dezembro"};
constexpr std::array<std::string_view, 12> kMonthsEn = {"January",   "February", "March",    "April",
                                                        "May",       "June",     "July",     "August",
                                                        "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 12> kMonthsEs = {"enero",      "febrero", "marzo",     "abril",
                                                        "mayo",       "junio",   "julio",     "agosto",
                                                        "septiembre", "octubre", "noviembre", "diciembre"};

template <typename Names>
const Names& inLanguage(Language language, const Names& pt, const Names& en, const Names& es) {
    return language == Language::English ? en : language == Language::Spanish ? es : pt;
}

bool inRange(const year& y) {
    return y >= year{kFirstYear} && y <= year{kLastYear};
}

std::string zeroPadded(unsigned value, std::size_t width) {
    return padLeft(std::to_string(value), width, '0');
}

unsigned toNumber(std::string_view digits) {
    unsigned value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

}  // namespace

std::variant<Date, DateError> parseDate(std::string_view text) {
    text = trimBlanks(text);
    if (text.empty()) {
        return DateError::Empty;
    }
    const std::size_t first = text.find('/');
    const std::size_t second = first == std::string_view::npos ? first : text.find('/', first + 1);
    if (second == std::string_view::npos) {
        return DateError::Shape;
    }
    const std::string_view d = text.substr(0, first);
    const std::string_view m = text.substr(first + 1, second - first - 1);
    const std::string_view y = text.substr(second + 1);
    if (!allDigits(d) || d.size() > 2 || !allDigits(m) || m.size() > 2 || !allDigits(y) || y.size() != 4) {
        return DateError::Shape;
    }
    const year yy{static_cast<int>(toNumber(y))};
    const month mm{toNumber(m)};
    const day dd{toNumber(d)};
    if (!inRange(yy)) {
        return DateError::Year;
    }
    if (!mm.ok()) {
        return DateError::Month;
    }
    const Date date{yy, mm, dd};
    if (!date.ok()) {
        return DateError::Day;
    }
    return date;
}

std::string formatDate(const Date& date) {
    return formatDate(date, DateOrder::DayMonthYear, "/");
}

std::string formatDate(const Date& date, DateOrder order, std::string_view separator) {
    const std::string d = zeroPadded(static_cast<unsigned>(date.day()), 2);
    const std::string m = zeroPadded(static_cast<unsigned>(date.month()), 2);
    const std::string y = zeroPadded(static_cast<unsigned>(static_cast<int>(date.year())), 4);
    const std::string sep(separator);
    switch (order) {
        case DateOrder::MonthDayYear:
            return m + sep + d + sep + y;
        case DateOrder::YearMonthDay:
            return y + sep + m + sep + d;
        case DateOrder::DayMonthYear:
            break;
    }
    return d + sep + m + sep + y;
}

std::string_view weekdayName(const Date& date, Language language) {
    const unsigned index = std::chrono::weekday{sys_days{date}}.c_encoding();  // 0 is Sunday
    return inLanguage(language, kWeekdaysPt, kWeekdaysEn, kWeekdaysEs)[index];
}

std::string_view monthName(month m, Language language) {
    const unsigned index = static_cast<unsigned>(m) - 1;
    return index < 12 ? inLanguage(language, kMonthsPt, kMonthsEn, kMonthsEs)[index] : std::string_view{};
}

std::string longDate(const Date& date, Language language) {
    const std::string weekday(weekdayName(date, language));
    const std::string monthText(monthName(date.month(), language));
    const std::string d = std::to_string(static_cast<unsigned>(date.day()));
    const std::string y = zeroPadded(static_cast<unsigned>(static_cast<int>(date.year())), 4);
    if (language == Language::English) {
        return weekday + ", " + monthText + " " + d + ", " + y;
    }
    return weekday + ", " + d + " de " + monthText + " de " + y;
}

bool isLeapYear(int y) {
    return year{y}.is_leap();
}

std::optional<Date> addDays(const Date& date, long long days) {
    // Checked on the day numbers, so that no count of days can wrap the calendar's year.
    const long long from = sys_days{date}.time_since_epoch().count();
    const long long first =
        sys_days{Date{year{kFirstYear}, std::chrono::January, day{1}}}.time_since_epoch().count();
    const long long last =
        sys_days{Date{year{kLastYear}, std::chrono::December, day{31}}}.time_since_epoch().count();
    if (days < first - from || days > last - from) {
        return std::nullopt;
    }
    return Date{sys_days{std::chrono::days{from + days}}};
}

std::optional<Date> addMonths(const Date& date, int months) {
    // Counted in months since January of the year 0, so that no count can wrap the calendar's year.
    const long long index = static_cast<long long>(static_cast<int>(date.year())) * 12 +
                            static_cast<long long>(static_cast<unsigned>(date.month())) - 1 + months;
    const long long targetYear = index >= 0 ? index / 12 : -1;
    if (targetYear < kFirstYear || targetYear > kLastYear) {
        return std::nullopt;
    }
    const year y{static_cast<int>(targetYear)};
    const month m{static_cast<unsigned>(index % 12) + 1};
    const day last = std::chrono::year_month_day_last{y, std::chrono::month_day_last{m}}.day();
    return Date{y, m, date.day() > last ? last : date.day()};
}

long long daysBetween(const Date& from, const Date& to) {
    return (sys_days{to} - sys_days{from}).count();
}

int leapDaysBetween(const Date& from, const Date& to) {
    int count = 0;
    for (year y = from.year(); y <= to.year(); ++y) {
        const Date leapDay{y, std::chrono::February, day{29}};
        if (y.is_leap() && leapDay > from && leapDay <= to) {
            ++count;
        }
    }
    return count;
}

std::optional<Date> dateOf(const DateTime& time) {
    if (time.year < kFirstYear || time.year > kLastYear || time.month < 1 || time.month > 12 ||
        time.day < 1 || time.day > 31) {
        return std::nullopt;
    }
    const Date date{year{time.year}, month{static_cast<unsigned>(time.month)},
                    day{static_cast<unsigned>(time.day)}};
    if (!date.ok()) {
        return std::nullopt;
    }
    return date;
}

}  // namespace zv::common
