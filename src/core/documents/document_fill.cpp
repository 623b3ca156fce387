#include "core/documents/document_fill.h"

#include <utility>

#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"
#include "core/documents/amount_words.h"
#include "core/documents/date_words.h"
#include "core/documents/note_number.h"

namespace zv::documents {
namespace {

namespace keys = common::settings;

using Texts = std::vector<std::pair<std::string_view, std::string>>;

std::vector<FilledField> placed(const Layout& layout, Texts texts) {
    std::vector<FilledField> fields;
    for (const FieldPlace& place : layout.fields) {
        std::string text;
        for (auto& [control, value] : texts) {
            if (control == place.control) {
                text = std::move(value);
            }
        }
        fields.push_back({place.control, place.left, place.top, place.width, std::move(text)});
    }
    return fields;
}

std::string upper(std::string_view text) {
    return common::utf8ToUpper(common::trimBlanks(text));
}

std::string saved(const common::SettingsStore& store, std::string_view section, std::string_view key) {
    return common::GetSetting(store, section, key, "");
}

std::string_view flag(bool value) {
    return value ? "1" : "0";
}

}  // namespace

std::optional<std::vector<FilledField>> fillCheque(const Layout& layout, const ChequeEntry& entry,
                                                   const common::NumberSeparators& seps) {
    const std::optional<std::string> words = amountWords(entry.amount);
    if (!words) {
        return std::nullopt;
    }
    WordsLines lines = splitWords(*words);
    DateFields date = dateFields(entry.date, layout.fourDigitYear);
    return placed(layout, {{"txtValor", amountText(entry.amount, seps)},
                           {"txtExtenso1", std::move(lines.line1)},
                           {"txtExtenso2", std::move(lines.line2)},
                           {"txtFavorecido", upper(entry.payee)},
                           {"txtCidade", upper(entry.city)},
                           {"txtDia", std::move(date.day)},
                           {"txtMês", std::move(date.month)},
                           {"txtAno", std::move(date.year)}});
}

std::optional<std::vector<FilledField>> fillNote(const Layout& layout, const NoteEntry& entry,
                                                 const common::NumberSeparators& seps) {
    const std::optional<std::string> words = amountWords(entry.amount);
    if (!words) {
        return std::nullopt;
    }
    WordsLines lines = splitWords(*words);
    DateFields due = dateFields(entry.due, true);
    return placed(layout, {{"txtDia", std::move(due.day)},
                           {"txtMês", std::move(due.month)},
                           {"txtAno", std::move(due.year)},
                           {"txtNumero", noteNumberText(entry.number)},
                           {"txtValor", amountText(entry.amount, seps)},
                           {"txtAosDias", dueDateWords(entry.due)},
                           {"txtPagarei", entry.promise},
                           {"txtCredor", upper(entry.creditor)},
                           {"txtCredor2", upper(entry.creditor2)},
                           {"txtExtenso1", std::move(lines.line1)},
                           {"txtExtenso2", std::move(lines.line2)},
                           {"txtCidade", upper(entry.city)},
                           {"txtEmitente", upper(entry.issuer)},
                           {"txtEmitente2", upper(entry.issuer2)},
                           {"txtEndereço", upper(entry.address)}});
}

ChequeEntry lastChequeEntry(const common::SettingsStore& store) {
    ChequeEntry entry;
    entry.payee = saved(store, keys::kCheque, keys::kFavorecido);
    entry.city = saved(store, keys::kCheque, keys::kCidade);
    return entry;
}

NoteEntry lastNoteEntry(const common::SettingsStore& store) {
    const std::string_view section = keys::kPromissoria;
    NoteEntry entry;
    entry.number = nextNoteNumber(store);
    entry.promise = saved(store, section, keys::kPagarei);
    entry.creditor = saved(store, section, keys::kCredor);
    entry.creditor2 = saved(store, section, keys::kCredor2);
    entry.city = saved(store, section, keys::kCidade);
    entry.issuer = saved(store, section, keys::kEmitente);
    entry.issuer2 = saved(store, section, keys::kEmitente2);
    entry.address = saved(store, section, keys::kEndereco);
    return entry;
}

bool savedBold(const common::SettingsStore& store, DocumentKind kind) {
    bool bold = true;
    common::SettingsReader(store, sectionName(kind, 0)).boolean(keys::kNegrito, bold);
    return bold;
}

bool saveChequeEntry(common::SettingsStore& store, const ChequeEntry& entry, bool bold) {
    const std::string_view section = keys::kCheque;
    bool written = common::SaveSetting(store, section, keys::kFavorecido, upper(entry.payee));
    written = common::SaveSetting(store, section, keys::kCidade, upper(entry.city)) && written;
    return common::SaveSetting(store, section, keys::kNegrito, flag(bold)) && written;
}

bool saveNoteEntry(common::SettingsStore& store, const NoteEntry& entry, bool bold) {
    const std::string_view section = keys::kPromissoria;
    const std::pair<std::string_view, std::string> values[] = {
        {keys::kNumero, noteNumberText(entry.number)},
        {keys::kPagarei, entry.promise},
        {keys::kCredor, upper(entry.creditor)},
        {keys::kCredor2, upper(entry.creditor2)},
        {keys::kCidade, upper(entry.city)},
        {keys::kEmitente, upper(entry.issuer)},
        {keys::kEmitente2, upper(entry.issuer2)},
        {keys::kEndereco, upper(entry.address)},
        {keys::kNegrito, std::string(flag(bold))},
    };
    bool written = true;
    for (const auto& [key, value] : values) {
        written = common::SaveSetting(store, section, key, value) && written;
    }
    return written;
}

}  // namespace zv::documents
