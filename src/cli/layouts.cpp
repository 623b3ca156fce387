#include <iterator>
#include <ostream>
#include <sstream>

#include "cli/command.h"
#include "core/common/text_encoding.h"
#include "core/common/text_file.h"
#include "core/common/text_table.h"
#include "core/documents/layout_backup.h"
#include "platform/user_settings.h"

namespace zv::cli {
namespace {

namespace txt = common::txt;

// What a window that has never been opened stands in for with its size.
constexpr documents::WindowSize kChequeWindow = documents::kChequeWindowDesign;
constexpr int kNoteWindowHeight = documents::kNoteWindowDesignHeight;

Outcome backup(const Invocation& call, const std::string& file) {
    const std::unique_ptr<common::SettingsStore> store = platform::makeUserSettingsStore();
    const std::string text = documents::layoutsBackupText(*store, kChequeWindow, kNoteWindowHeight);
    if (!common::writeFileAtomically(file, common::utf8ToCp1252(text))) {
        return rejected(common::GetText(call.regional.language, txt::kFileNotWritten, file));
    }
    return done();
}

std::string backupErrorText(common::Language language, const documents::BackupError& error,
                            const std::string& file) {
    const std::string line = std::to_string(error.line);
    switch (error.problem) {
        case documents::BackupProblem::NotABackup:
            return common::GetText(language, txt::kNotABackup, file);
        case documents::BackupProblem::ForeignSection:
            return common::GetText(language, txt::kForeignSection, line, error.text);
        case documents::BackupProblem::NoSection:
            return common::GetText(language, txt::kValueBeforeSection, line, error.text);
        case documents::BackupProblem::BadLine:
            break;
    }
    return common::GetText(language, txt::kBackupBadLine, line, error.text);
}

Outcome restore(const Invocation& call, const std::string& file) {
    const common::Language language = call.regional.language;
    std::optional<std::string> bytes;
    if (file == "-") {
        bytes = std::string(std::istreambuf_iterator<char>(call.in), std::istreambuf_iterator<char>());
    } else {
        bytes = common::readFileBytes(file);
    }
    if (!bytes) {
        return rejected(common::GetText(language, txt::kFileNotRead, file));
    }
    const auto parsed = documents::parseBackup(common::decodeTextFile(*bytes));
    if (const auto* error = std::get_if<documents::BackupError>(&parsed)) {
        return rejected(backupErrorText(language, *error, file));
    }
    const auto& values = std::get<std::vector<documents::BackupValue>>(parsed);
    const std::unique_ptr<common::SettingsStore> store = platform::makeUserSettingsStore();
    if (!documents::restoreBackup(*store, values)) {
        return rejected(common::GetText(language, txt::kSettingsNotWritten));
    }
    for (const documents::BackupValue& value : values) {
        call.out << value.section << '\t' << value.key << '\t' << value.value << '\n';
    }
    return done();
}

}  // namespace

// The layouts of both documents, to and from a registry file: the command line's way to keep or
// bring back the models where there is no registry editor.
Outcome runLayouts(const Invocation& call) {
    if (call.operands.size() != 2 || (call.operands[0] != "backup" && call.operands[0] != "restore")) {
        return usageError("layouts takes backup FILE or restore FILE");
    }
    if (call.operands[0] == "backup") {
        return backup(call, call.operands[1]);
    }
    return restore(call, call.operands[1]);
}

}  // namespace zv::cli
