#include "core/words/amount_in_words.h"

#include <array>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/text_encoding.h"

namespace zv::words {

namespace {

// Every word carries its own trailing space: the spaces between words come only from here.
constexpr std::array<std::string_view, 20> kUnits = {
    "",          "um ",     "dois ",      "três ",      "quatro ",  "cinco ",    "seis ",
    "sete ",     "oito ",   "nove ",      "dez ",       "onze ",    "doze ",     "treze ",
    "quatorze ", "quinze ", "dezesseis ", "dezessete ", "dezoito ", "dezenove ",
};
constexpr std::array<std::string_view, 10> kTens = {
    "",           "dez ",      "vinte ",   "trinta ",  "quarenta ",
    "cinquenta ", "sessenta ", "setenta ", "oitenta ", "noventa ",
};
constexpr std::array<std::string_view, 10> kHundreds = {
    "",
    "cento ",
    "duzentos ",
    "trezentos ",
    "quatrocentos ",
    "quinhentos ",
    "seiscentos ",
    "setecentos ",
    "oitocentos ",
    "novecentos ",
};

constexpr double kMinimum = 0.01;
constexpr double kMaximum = 999999999999.99;

int digitAt(std::string_view digits, std::size_t i) {
    return digits[i] - '0';
}

long long valueOf(std::string_view digits) {
    long long v = 0;
    for (char c : digits) {
        v = v * 10 + (c - '0');
    }
    return v;
}

// The words of one three-digit group ("000" gives nothing).
std::string groupWords(std::string_view group) {
    const long long value = valueOf(group);
    int width = value < 10 ? 1 : value < 100 ? 2 : 3;
    std::string words;
    if (width == 3) {
        if (group.substr(1) == "00") {
            return std::string(group[0] == '1' ? "cem " : kHundreds[digitAt(group, 0)]);
        }
        words += kHundreds[digitAt(group, 0)];
        words += "e ";
        width = 2;
    }
    if (width == 2) {
        const long long lastTwo = valueOf(group.substr(1));
        if (lastTwo < 20) {
            words += kUnits[lastTwo];
        } else {
            words += kTens[digitAt(group, 1)];
            if (group[2] != '0') {
                words += "e ";
                width = 1;
            }
        }
    }
    if (width == 1) {
        words += kUnits[digitAt(group, 2)];
    }
    return words;
}

}  // namespace

std::optional<std::string> ConverterExtenso(double value, bool withCurrency) {
    if (!std::isfinite(value) || value < kMinimum || value > kMaximum) {
        return std::nullopt;
    }

    // Fixed positions are read, so the separator is a private choice of one byte.
    const common::NumberSeparators fixed{".", ""};
    const std::string text = common::formatNumber(value, common::pattern::kWordsFixed, fixed);
    if (text.size() != 15) {
        return std::nullopt;
    }
    const std::string_view all = text;
    const std::string cents = std::string("0") + text.substr(13, 2);
    const std::array<std::string_view, 5> groups = {all.substr(0, 3), all.substr(3, 3), all.substr(6, 3),
                                                    all.substr(9, 3), cents};
    std::array<std::string, 5> words;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        words[i] = groupWords(groups[i]);
    }

    const long long whole = valueOf(all.substr(0, 12));
    const long long billions = valueOf(groups[0]);
    const long long millions = valueOf(groups[1]);
    const long long thousands = valueOf(groups[2]);
    const long long units = valueOf(groups[3]);
    const long long centavos = valueOf(groups[4]);
    auto centavoWord = [&] { return centavos == 1 ? "centavo" : "centavos"; };

    std::string f;
    if (whole == 0 && centavos != 0) {
        f += words[4];
        if (withCurrency) {
            f += centavoWord();
        }
        return common::utf8ToUpper(f);
    }

    if (billions != 0) {
        f += words[0];
        f += billions > 1 ? "bilhões " : "bilhão ";
    }
    if (valueOf(all.substr(3, 9)) == 0) {
        // A round billion: "de" is written even when the currency words are left out.
        f += "de ";
    } else {
        if (!f.empty() && millions > 0) {
            f += "e ";
        }
        if (millions != 0) {
            f += words[1];
            f += millions > 1 ? "milhões " : "milhão ";
        }
        if (millions > 0 && valueOf(all.substr(6, 6)) == 0) {
            f += "de ";
        } else {
            if (!f.empty() && thousands > 0) {
                f += "e ";
            }
            if (thousands != 0) {
                f += words[2];
                f += "mil ";
            }
        }
    }
    if (units != 0 && !f.empty()) {
        f += "e ";
    }
    f += words[3];
    if (withCurrency) {
        f += whole == 1 ? "real" : "reais";
    }
    if (centavos != 0) {
        f += " e ";
        f += words[4];
        if (withCurrency) {
            f += centavoWord();
        }
    }
    return common::utf8ToUpper(f);
}

std::optional<std::string> ConverterExtenso(std::string_view text, bool withCurrency,
                                            const common::NumberSeparators& seps) {
    const std::optional<double> value = common::parseNumber(text, seps);
    if (!value) {
        return std::nullopt;
    }
    return ConverterExtenso(*value, withCurrency);
}

}  // namespace zv::words
