#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/date.h"
#include "core/common/regional.h"
#include "core/common/settings_store.h"
#include "core/documents/document_layout.h"

namespace zv::documents {

// What the user fills in on a cheque.
struct ChequeEntry {
    double amount = 0;
    std::string payee;
    std::string city;
    common::Date date;
};

// What the user fills in on a promissory note.
struct NoteEntry {
    double amount = 0;
    common::Date due;
    long number = 1;
    std::string promise;  // the "Pagarei" line, printed as typed
    std::string creditor;
    std::string creditor2;
    std::string city;
    std::string issuer;
    std::string issuer2;
    std::string address;
};

// A field as printed: where, how wide, and its whole text (the painter prints what fits).
struct FilledField {
    std::string_view control;
    int left = 0;
    int top = 0;
    int width = 0;
    std::string text;
};

// Every field of the layout filled in, in the layout's order; payee, city, creditor, issuer
// and address upper-cased. Nullopt when the amount is outside 0,01 to 999.999.999.999,99.
std::optional<std::vector<FilledField>> fillCheque(const Layout& layout, const ChequeEntry& entry,
                                                   const common::NumberSeparators& seps);
std::optional<std::vector<FilledField>> fillNote(const Layout& layout, const NoteEntry& entry,
                                                 const common::NumberSeparators& seps);

// The last entries kept in "Cheque" / "Promissoria" (empty texts on a first start); the amount,
// the dates and, for a cheque, nothing else are left for the caller. A note's number is the next one.
ChequeEntry lastChequeEntry(const common::SettingsStore& store);
NoteEntry lastNoteEntry(const common::SettingsStore& store);
// "Negrito" of the document's first section; bold unless saved otherwise.
bool savedBold(const common::SettingsStore& store, DocumentKind kind);

// What printing keeps for the next time: the cheque's "Favorecido", "Cidade" and "Negrito"
// (upper-cased as printed); the note's "Numero", "Pagarei", "Credor", "Credor2", "Cidade",
// "Emitente", "Emitente2", "Endereço" and "Negrito". False when the store could not be written.
bool saveChequeEntry(common::SettingsStore& store, const ChequeEntry& entry, bool bold);
bool saveNoteEntry(common::SettingsStore& store, const NoteEntry& entry, bool bold);

}  // namespace zv::documents
