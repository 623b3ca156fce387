#include "core/documents/layout_backup.h"

#include <optional>

#include "core/common/settings_keys.h"
#include "core/common/text.h"

namespace zv::documents {
namespace {

namespace keys = common::settings;

constexpr std::string_view kHeader = "REGEDIT4";
constexpr std::string_view kLineEnd = "\r\n";

std::string escaped(std::string_view value) {
    std::string out;
    for (const char c : value) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            out += ' ';
        } else {
            out += c;
        }
    }
    return out;
}

void addValue(std::string& text, std::string_view key, std::string_view value) {
    text += "\"" + std::string(key) + "\"=\"" + escaped(value) + "\"" + std::string(kLineEnd);
}

void addSections(std::string& text, const common::SettingsStore& store, DocumentKind kind,
                 WindowSize window) {
    for (int model = 0; model < kModelCount; ++model) {
        const std::string section = sectionName(kind, model);
        auto value = [&](std::string_view key, std::string_view fallback) {
            return common::GetSetting(store, section, key, fallback);
        };
        text +=
            std::string(kLineEnd) + "[" + std::string(kRegistryRoot) + section + "]" + std::string(kLineEnd);
        addValue(text, keys::kHeight, value(keys::kHeight, std::to_string(window.height)));
        if (kind == DocumentKind::Cheque) {
            addValue(text, keys::kWidth, value(keys::kWidth, std::to_string(window.width)));
        }
        addValue(text, nameKey(kind), value(nameKey(kind), defaultModelName(model)));
        for (const FieldSpec& spec : fieldSpecs(kind)) {
            if (!spec.topKey.empty()) {
                addValue(text, spec.topKey, value(spec.topKey, std::to_string(spec.designTop)));
            }
            const std::string designLeft = std::to_string(spec.designLeft);
            // The cheque program reads this one key under another application name, where it is
            // never found: its backups always carry the design position.
            const bool chequeDay = kind == DocumentKind::Cheque && spec.control == "txtDia";
            addValue(text, spec.leftKey, chequeDay ? designLeft : value(spec.leftKey, designLeft));
        }
        if (kind == DocumentKind::Cheque) {
            addValue(text, keys::kChkAno, value(keys::kChkAno, "0"));
        }
    }
}

// The document section a registry path names, or nullopt. Registry paths ignore case.
std::optional<std::string> documentSection(std::string_view path) {
    if (path.size() <= kRegistryRoot.size() ||
        !common::equalsIgnoringCase(path.substr(0, kRegistryRoot.size()), kRegistryRoot)) {
        return std::nullopt;
    }
    const std::string_view name = path.substr(kRegistryRoot.size());
    for (const DocumentKind kind : {DocumentKind::Cheque, DocumentKind::Note}) {
        for (int model = 0; model < kModelCount; ++model) {
            const std::string section = sectionName(kind, model);
            if (common::equalsIgnoringCase(name, section)) {
                return section;
            }
        }
    }
    return std::nullopt;
}

// A quoted string at the start of `rest`, its escapes undone; `rest` moves past it.
std::optional<std::string> quoted(std::string_view& rest) {
    if (rest.empty() || rest.front() != '"') {
        return std::nullopt;
    }
    std::string out;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return out;
        }
        if (rest[i] == '\\') {
            if (++i == rest.size() || (rest[i] != '\\' && rest[i] != '"')) {
                return std::nullopt;
            }
        }
        out += rest[i];
    }
    return std::nullopt;
}

// "key"="value" and nothing else on the line.
std::optional<std::pair<std::string, std::string>> valueLine(std::string_view line) {
    std::string_view rest = line;
    std::optional<std::string> key = quoted(rest);
    rest = common::trimBlanks(rest);
    if (!key || key->empty() || rest.empty() || rest.front() != '=') {
        return std::nullopt;
    }
    rest = common::trimBlanks(rest.substr(1));
    std::optional<std::string> value = quoted(rest);
    if (!value || !common::trimBlanks(rest).empty()) {
        return std::nullopt;
    }
    return std::pair{std::move(*key), std::move(*value)};
}

}  // namespace

std::string chequeBackupText(const common::SettingsStore& store, WindowSize chequeWindow) {
    std::string text(kHeader);
    text += kLineEnd;
    addSections(text, store, DocumentKind::Cheque, chequeWindow);
    return text;
}

std::string layoutsBackupText(const common::SettingsStore& store, WindowSize chequeWindow,
                              int noteWindowHeight) {
    std::string text = chequeBackupText(store, chequeWindow);
    addSections(text, store, DocumentKind::Note, {0, noteWindowHeight});
    return text;
}

std::variant<std::vector<BackupValue>, BackupError> parseBackup(std::string_view text) {
    std::vector<BackupValue> values;
    std::optional<std::string> section;
    bool headerSeen = false;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        ++number;
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        const std::string_view trimmed = common::trimBlanks(line);
        if (!headerSeen) {
            if (trimmed != kHeader) {
                return BackupError{BackupProblem::NotABackup, number, std::string(line)};
            }
            headerSeen = true;
            continue;
        }
        if (trimmed.empty() || trimmed.front() == ';') {
            continue;
        }
        if (trimmed.front() == '[') {
            if (trimmed.back() != ']' ||
                !(section = documentSection(trimmed.substr(1, trimmed.size() - 2)))) {
                return BackupError{BackupProblem::ForeignSection, number, std::string(trimmed)};
            }
            continue;
        }
        std::optional<std::pair<std::string, std::string>> pair = valueLine(trimmed);
        if (!pair) {
            return BackupError{BackupProblem::BadLine, number, std::string(trimmed)};
        }
        if (!section) {
            return BackupError{BackupProblem::NoSection, number, std::string(trimmed)};
        }
        values.push_back({*section, std::move(pair->first), std::move(pair->second)});
    }
    if (!headerSeen) {
        return BackupError{BackupProblem::NotABackup, 1, {}};
    }
    return values;
}

bool restoreBackup(common::SettingsStore& store, const std::vector<BackupValue>& values) {
    bool written = true;
    for (const BackupValue& value : values) {
        written = common::SaveSetting(store, value.section, value.key, value.value) && written;
    }
    return written;
}

}  // namespace zv::documents
