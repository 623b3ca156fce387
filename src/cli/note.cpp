#include "cli/arguments.h"
#include "cli/document_options.h"
#include "cli/interest_options.h"
#include "core/common/text_table.h"
#include "core/documents/note_number.h"
#include "platform/user_settings.h"

namespace zv::cli {
namespace {

constexpr std::pair<std::string_view, std::string_view> kLinePairs[] = {{"--creditor", "--creditor2"},
                                                                        {"--issuer", "--issuer2"}};

// A line pair (--creditor and --creditor2): given, it replaces both saved lines.
void readLinePair(const Invocation& call, std::string_view first, std::string_view second, std::string& line1,
                  std::string& line2) {
    if (call.has(first)) {
        line1 = optionValue(call, first);
        line2 = optionValue(call, second);
    }
}

}  // namespace

// The note as the window would print it: the chosen model's layout, the next note number and
// the last parties, place and promise the window printed where no others are given. A note
// written to PDF keeps its number, as a note the window prints does, so that no two notes share
// one; parties, place and promise given here are for this note only.
Outcome runNote(const Invocation& call) {
    double amount = 0;
    int model = 0;
    common::Date due;
    if (auto wrong = readOutputChoice(call, "note")) {
        return *wrong;
    }
    if (auto wrong = readModel(call, model)) {
        return *wrong;
    }
    if (!call.has("--due")) {
        return usageError("note needs --due");
    }
    if (auto wrong = readDateOption(call, "--due", due)) {
        return *wrong;
    }
    for (const auto& [first, second] : kLinePairs) {
        if (call.has(second) && !call.has(first)) {
            return usageError(std::string(second) + " goes with " + std::string(first));
        }
    }
    std::optional<long> number;
    if (call.has("--number")) {
        const Parsed<long long> read = readWhole(optionValue(call, "--number"), 1, 999999);
        if (!read.ok()) {
            return usageError("--number takes 1 to 999999");
        }
        number = static_cast<long>(read.value());
    }
    if (auto wrong = readDocumentAmount(call, "note", amount)) {
        return *wrong;
    }
    const std::unique_ptr<common::SettingsStore> store = platform::makeUserSettingsStore();
    documents::NoteEntry entry = documents::lastNoteEntry(*store);
    readLinePair(call, "--creditor", "--creditor2", entry.creditor, entry.creditor2);
    readLinePair(call, "--issuer", "--issuer2", entry.issuer, entry.issuer2);
    const std::pair<std::string_view, std::string*> texts[] = {
        {"--address", &entry.address}, {"--city", &entry.city}, {"--promise", &entry.promise}};
    for (const auto& [option, target] : texts) {
        if (call.has(option)) {
            *target = optionValue(call, option);
        }
    }
    entry.amount = amount;
    entry.due = due;
    entry.number = number.value_or(entry.number);
    const documents::Layout layout = documents::loadLayout(*store, documents::DocumentKind::Note, model);
    std::vector<documents::FilledField> fields =
        *documents::fillNote(layout, entry, call.regional.separators);
    if (call.has("--fields")) {
        printFields(call, fields);
        return done();
    }
    const bool bold = call.has("--bold") || documents::savedBold(*store, documents::DocumentKind::Note);
    const Outcome written =
        writePdf(call, optionValue(call, "--pdf"), {{std::move(fields), bold}}, common::txt::kNoteTitle);
    if (written.code == ExitCode::Done && !documents::saveNoteNumber(*store, entry.number)) {
        return rejected(common::GetText(call.regional.language, common::txt::kSettingsNotWritten));
    }
    return written;
}

}  // namespace zv::cli
