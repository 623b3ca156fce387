#include "core/calc/tape_file.h"

#include <algorithm>
#include <climits>
#include <string>
#include <system_error>

#include "core/calc/tape.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"

namespace zv::calc {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlank = " \t\r\n\v\f";

bool isBlank(std::string_view text) {
    return text.find_first_not_of(kBlank) == std::string_view::npos;
}

// How much of a decoded tape file to keep before its line ends are normalised. A crash can leave
// blanks after the last complete line (the blanked-out end of a longer tail being replaced, or a
// line end cut short); they are not a line of the tape. In a CR LF file that includes a lone LF
// or CR after the final CR LF.
std::size_t keptLength(std::string_view text) {
    const std::size_t lastCrLf = text.rfind(kLineEnd);
    if (lastCrLf != std::string_view::npos && isBlank(text.substr(lastCrLf + kLineEnd.size()))) {
        return lastCrLf + kLineEnd.size();
    }
    const std::size_t lastBreak = text.find_last_of("\r\n");
    const std::size_t fragment = lastBreak == std::string_view::npos ? 0 : lastBreak + 1;
    return isBlank(text.substr(fragment)) ? fragment : text.size();
}

// `line` without a UTF-8 sequence cut short at its very end, as a write interrupted in the
// middle of a character leaves it.
std::string_view withoutCutCharacter(std::string_view line) {
    std::size_t lead = line.size();
    while (lead > 0 && line.size() - lead < 3 &&
           (static_cast<unsigned char>(line[lead - 1]) & 0xC0) == 0x80) {
        --lead;
    }
    if (lead == 0) {
        return line;
    }
    const auto b = static_cast<unsigned char>(line[lead - 1]);
    const std::size_t needed = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
    const std::size_t present = line.size() - lead;
    return b >= 0xC0 && present < needed ? line.substr(0, lead - 1) : line;
}

// Decides the encoding line by line rather than for the whole file: the kernel may cut a write
// at a disk page, and one line damaged that way must not make every accented letter of the
// other lines read as two Windows-1252 letters. Old Windows-1252 tapes still read right, since
// their lines with a "×" or "÷" are not valid UTF-8.
std::string decodeTapeBytes(std::string&& file) {
    // Every mark, not just one: a tape that began with a second one would lose it each time it
    // is written back and read again, and would not read as the tape that was shown.
    std::size_t marks = 0;
    while (std::string_view(file).substr(marks).starts_with("\xEF\xBB\xBF")) {
        marks += 3;
    }
    if (common::isValidUtf8(std::string_view(file).substr(marks))) {
        file.erase(0, marks);
        return std::move(file);  // the usual case: the bytes are the text, not copied
    }
    const std::string_view bytes = std::string_view(file).substr(marks);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 16);
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t lf = bytes.find('\n', start);
        const std::size_t end = lf == std::string_view::npos ? bytes.size() : lf + 1;
        std::string_view line = bytes.substr(start, end - start);
        if (lf == std::string_view::npos && !common::isValidUtf8(line) &&
            common::isValidUtf8(withoutCutCharacter(line))) {
            line = withoutCutCharacter(line);
        }
        text += common::isValidUtf8(line) ? std::string(line) : common::cp1252ToUtf8(line);
        start = end;
    }
    return text;
}

void closeStream(std::FILE*& file) {
    if (file != nullptr) {
        std::fclose(file);
        file = nullptr;
    }
}

std::FILE* openForUpdate(const fs::path& path) {
    return common::openFile(path, "r+b");
}

bool fileHolds(const fs::path& path, std::string_view text) {
    std::error_code ec;
    const std::uintmax_t size = fs::file_size(path, ec);
    if (ec || size != text.size()) {
        return false;
    }
    // Compared a piece at a time: the file is as long as the tape, and reading it whole would
    // hold a second copy of it for nothing.
    std::FILE* file = common::openFile(path, "rb");
    if (file == nullptr) {
        return false;
    }
    char chunk[64 * 1024];
    std::size_t at = 0;
    bool same = true;
    while (same) {
        const std::size_t n = std::fread(chunk, 1, sizeof chunk, file);
        same = n <= text.size() - at && text.compare(at, n, std::string_view(chunk, n)) == 0;
        at += n;
        if (n < sizeof chunk) {
            same = same && !std::ferror(file) && at == text.size();
            break;
        }
    }
    std::fclose(file);
    return same;
}

}  // namespace

fs::path tapeFilePath(const fs::path& dataFolder, std::string_view suffix) {
    std::string name = "calc";
    name.append(suffix).append(".fita");
    return dataFolder / name;
}

std::optional<std::string> loadTape(const fs::path& path) {
    std::optional<std::string> bytes = common::readFileBytes(path);
    if (!bytes) {
        std::error_code ec;
        if (fs::status(path, ec).type() == fs::file_type::not_found) {
            return std::string{};
        }
        return std::nullopt;
    }
    std::string text = decodeTapeBytes(std::move(*bytes));
    text.resize(keptLength(text));
    normaliseLineEndsInPlace(text);
    return text;
}

TapeFile::TapeFile(fs::path path) : m_path(std::move(path)) {}

TapeFile::~TapeFile() {
    closeStream(m_file);
}

bool TapeFile::open(std::string_view currentText) {
    // Rewriting an identical file would only widen the window in which a crash could hurt it.
    if (!fileHolds(m_path, currentText)) {
        reset(currentText);
        return m_healthy;
    }
    closeStream(m_file);
    m_file = openForUpdate(m_path);
    m_healthy = m_file != nullptr;
    m_size = m_healthy ? currentText.size() : 0;
    return m_healthy;
}

void TapeFile::replaceTail(std::size_t offset, std::string_view text) {
    const std::size_t newSize = offset + text.size();
    // After a failure the file's length is unknown; only a reset or open makes it whole again.
    if (!m_healthy || m_file == nullptr || offset > m_size ||
        std::max(newSize, m_size) > static_cast<std::size_t>(LONG_MAX)) {
        m_healthy = false;
        return;
    }
    // A shorter replacement also blanks the old bytes beyond it, in the same write, so that a
    // crash before the cut leaves only blanks after the last line, which loadTape drops.
    std::string padded;
    std::string_view bytes = text;
    if (newSize < m_size && !text.empty()) {
        padded.reserve(m_size - offset);
        padded.append(text).append(m_size - newSize, ' ');
        bytes = padded;
    }
    // Bytes the file already holds are not written again: rewriting a line's operator touches
    // only the operator and the line end, so a write cut short by a crash never reaches the amount.
    std::size_t same = 0;
    if (offset < m_size && !bytes.empty()) {
        std::string old(std::min(m_size - offset, bytes.size()), '\0');
        if (std::fseek(m_file, static_cast<long>(offset), SEEK_SET) != 0 ||
            std::fread(old.data(), 1, old.size(), m_file) != old.size()) {
            m_healthy = false;
            return;
        }
        same = static_cast<std::size_t>(std::mismatch(old.begin(), old.end(), bytes.begin()).first -
                                        old.begin());
    }
    bytes.remove_prefix(same);
    if (!bytes.empty()) {
        const bool written = std::fseek(m_file, static_cast<long>(offset + same), SEEK_SET) == 0 &&
                             std::fwrite(bytes.data(), 1, bytes.size(), m_file) == bytes.size() &&
                             std::fflush(m_file) == 0;
        if (!written) {
            m_healthy = false;
            return;
        }
    }
    if (newSize < m_size) {
        std::error_code ec;
        fs::resize_file(m_path, newSize, ec);
        if (ec) {
            m_healthy = false;
            return;
        }
    }
    m_size = newSize;
}

void TapeFile::reset(std::string_view wholeText) {
    // Closed first: some systems refuse to rename over a file that is held open.
    closeStream(m_file);
    m_size = 0;
    m_healthy = common::writeFileAtomically(m_path, wholeText);
    if (m_healthy) {
        m_file = openForUpdate(m_path);
        m_healthy = m_file != nullptr;
        m_size = m_healthy ? wholeText.size() : 0;
    }
}

}  // namespace zv::calc
