#include "core/documents/date_words.h"

#include "core/common/text_encoding.h"
#include "core/words/amount_in_words.h"

namespace zv::documents {
namespace {

std::string twoDigits(unsigned value) {
    return std::string(1, static_cast<char>('0' + value / 10 % 10)) + static_cast<char>('0' + value % 10);
}

std::string monthUpper(const common::Date& date) {
    return common::utf8ToUpper(common::monthName(date.month(), common::Language::Portuguese));
}

// Whole numbers of 1 to 9999 always have words.
std::string wordsOf(int number) {
    return words::ConverterExtenso(static_cast<double>(number), false).value_or(std::string{});
}

}  // namespace

DateFields dateFields(const common::Date& date, bool fourDigitYear) {
    const int year = static_cast<int>(date.year());
    std::string yearText = std::to_string(year);
    yearText.insert(0, yearText.size() < 4 ? 4 - yearText.size() : 0, '0');
    if (!fourDigitYear) {
        yearText = yearText.substr(2);
    }
    return {twoDigits(static_cast<unsigned>(date.day())), monthUpper(date), yearText};
}

std::string dueDateWords(const common::Date& date) {
    const unsigned day = static_cast<unsigned>(date.day());
    std::string text = day == 1 ? std::string("PRIMEIRO DIA DO MÊS DE ")
                                : wordsOf(static_cast<int>(day)) + "DIAS DO MÊS DE ";
    return text + monthUpper(date) + " DO ANO DE " + wordsOf(static_cast<int>(date.year()));
}

}  // namespace zv::documents
