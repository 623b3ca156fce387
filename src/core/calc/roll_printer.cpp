#include "core/calc/roll_printer.h"

#include "core/calc/tape.h"
#include "core/common/text_encoding.h"

namespace zv::calc {

std::optional<std::string> acceptRollPort(std::string_view answer) {
    std::string port;
    for (const char c : answer) {
        if (c != ' ' && c != '\t') {
            port += (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
        }
    }
    for (const std::string_view known : {"LPT1", "LPT2", "COM1", "COM2", "COM3", "COM4"}) {
        if (port == known) {
            return port;
        }
    }
    return std::nullopt;
}

std::string rollPrinterText(std::string_view tapeText) {
    std::string plain;
    plain.reserve(tapeText.size());
    for (std::size_t i = 0; i < tapeText.size(); ++i) {
        const std::string_view rest = tapeText.substr(i);
        if (rest.starts_with("\u00D7")) {
            plain += '*';
            ++i;
        } else if (rest.starts_with("\u00F7")) {
            plain += '/';
            ++i;
        } else {
            plain += tapeText[i];
        }
    }
    return common::utf8ToCp1252(normaliseLineEnds(plain));
}

}  // namespace zv::calc
