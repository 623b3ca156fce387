#include "core/calc/backup_file.h"

#include <string>
#include <system_error>

#include "core/common/text_encoding.h"
#include "core/common/text_file.h"

namespace zv::calc {

std::optional<std::uintmax_t> BackupFile::append(std::string_view record) {
    // A backup begun by an older Windows program is Windows-1252; mixing in UTF-8 records would
    // leave a file that no program reads back whole.
    std::string converted;
    std::string_view bytes = record;
    std::error_code ec;
    const std::uintmax_t size = std::filesystem::file_size(m_path, ec);
    if (!ec && size > 0) {
        const std::optional<std::string> existing = common::readFileBytes(m_path);
        if (existing && !common::isValidUtf8(*existing)) {
            converted = common::utf8ToCp1252(record);
            bytes = converted;
        }
    }
    return common::appendToFile(m_path, bytes);
}

}  // namespace zv::calc
