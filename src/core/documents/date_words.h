#pragma once

#include <string>

#include "core/common/date.h"

namespace zv::documents {

// The three date fields of a document: day "dd", the month's full Portuguese name in upper
// case ("MARÇO": these are Brazilian documents, whatever the interface language), the year
// "yyyy" or "yy".
struct DateFields {
    std::string day;
    std::string month;
    std::string year;
};

DateFields dateFields(const common::Date& date, bool fourDigitYear);

// The note's due date in words: "PRIMEIRO DIA DO MÊS DE " on the 1st, otherwise the day's words
// and "DIAS DO MÊS DE "; then the month, " DO ANO DE " and the year's words, which keep their
// trailing space: "DEZ DIAS DO MÊS DE MARÇO DO ANO DE DOIS MIL E QUATRO ".
std::string dueDateWords(const common::Date& date);

}  // namespace zv::documents
