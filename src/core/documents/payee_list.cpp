#include "core/documents/payee_list.h"

#include <algorithm>
#include <optional>

#include "core/common/text.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"

namespace zv::documents {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Lines as they stand in the decoded text, CR LF, LF or CR ending them.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            lines.emplace_back(text.substr(start, i - start));
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
            start = i + 1;
        }
    }
    if (start < text.size()) {
        lines.emplace_back(text.substr(start));
    }
    return lines;
}

bool isUtf8File(const std::optional<std::string>& bytes) {
    return !bytes || common::isValidUtf8(*bytes);
}

std::string encoded(std::string_view text, bool utf8) {
    return utf8 ? std::string(text) : common::utf8ToCp1252(text);
}

}  // namespace

std::filesystem::path payeeFile(const std::filesystem::path& dataFolder) {
    return dataFolder / kPayeeFileName;
}

std::vector<std::string> readPayees(const std::filesystem::path& file) {
    const std::optional<std::string> bytes = common::readFileBytes(file);
    if (!bytes) {
        return {};
    }
    std::vector<std::string> payees = linesOf(common::decodeTextFile(*bytes));
    std::erase_if(payees, [](const std::string& line) { return common::trimBlanks(line).empty(); });
    return payees;
}

PayeeOutcome addPayee(const std::filesystem::path& file, std::string_view payee) {
    const std::string name = common::utf8ToUpper(common::trimBlanks(payee));
    if (name.empty()) {
        return PayeeOutcome::Blank;
    }
    const std::optional<std::string> bytes = common::readFileBytes(file);
    std::string text;
    if (bytes) {
        const std::vector<std::string> lines = linesOf(common::decodeTextFile(*bytes));
        if (std::ranges::find(lines, name) != lines.end()) {
            return PayeeOutcome::AlreadyListed;
        }
        // A last line without its line end gets one before the new line.
        if (!bytes->empty() && bytes->back() != '\n' && bytes->back() != '\r') {
            text += kLineEnd;
        }
    }
    text += name;
    text += kLineEnd;
    return common::appendToFile(file, encoded(text, isUtf8File(bytes))) ? PayeeOutcome::Added
                                                                        : PayeeOutcome::WriteFailed;
}

bool removePayee(const std::filesystem::path& file, std::string_view payee) {
    const std::optional<std::string> bytes = common::readFileBytes(file);
    if (!bytes) {
        return false;
    }
    std::vector<std::string> lines = linesOf(common::decodeTextFile(*bytes));
    const std::string name = common::utf8ToUpper(common::trimBlanks(payee));
    if (std::erase(lines, name) == 0) {
        return false;
    }
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += kLineEnd;
    }
    return common::writeFileAtomically(file, encoded(text, isUtf8File(bytes)));
}

}  // namespace zv::documents
