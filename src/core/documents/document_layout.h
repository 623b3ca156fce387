#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/settings_store.h"

namespace zv::documents {

// Layout units are 1/96 inch, measured from the top-left corner of the paper: the window's
// pixels at 100 % scale, and what the printed page reproduces life-size.

enum class DocumentKind { Cheque, Note };

inline constexpr int kModelCount = 9;  // model 0 in "Cheque"/"Promissoria", 1..8 in "Cheque1".. "Cheque8"

// One printed field as designed. A field without a top key of its own (the cheque's date, the
// note's month, year and second creditor line) keeps its design distance below its anchor.
struct FieldSpec {
    std::string_view control;  // the window's field, and the name the command line prints
    std::string_view topKey;   // empty: the top follows `anchor`
    std::string_view leftKey;
    int designLeft;
    int designTop;
    int width;  // what fits in it is printed; the fields are sized for 10 pt fixed-pitch letters
    std::string_view anchor;
};

// The document's fields in the order their keys are written (top before left).
std::span<const FieldSpec> fieldSpecs(DocumentKind kind);
const FieldSpec* findSpec(DocumentKind kind, std::string_view control);

// Where a field stands in one layout.
struct FieldPlace {
    std::string_view control;
    int left = 0;
    int top = 0;
    int width = 0;
};

// One of the nine models of a document.
struct Layout {
    DocumentKind kind = DocumentKind::Cheque;
    int model = 0;  // 0..8
    std::string name;
    std::vector<FieldPlace> fields;  // in fieldSpecs() order
    bool fourDigitYear = false;      // the cheque's "chkAno"; the note always writes four digits

    FieldPlace* find(std::string_view control);
    const FieldPlace* find(std::string_view control) const;
};

// "Cheque", "Cheque3", "Promissoria", "Promissoria8".
std::string sectionName(DocumentKind kind, int model);
// "Banco" for cheques, "Modelo" for notes.
std::string_view nameKey(DocumentKind kind);
// "Modelo 1" .. "Modelo 9".
std::string defaultModelName(int model);

Layout designLayout(DocumentKind kind, int model);
// The model as saved; a key not saved, or not a whole number, leaves the design position.
Layout loadLayout(const common::SettingsStore& store, DocumentKind kind, int model);
// The names the model list shows, model 0 first.
std::array<std::string, kModelCount> modelNames(const common::SettingsStore& store, DocumentKind kind);

enum class SaveOutcome { Saved, Cancelled, StoreFailed };

// Saves the layout under the name the user answered (trimmed, upper-cased; it becomes the
// layout's name). A blank answer saves nothing and gives Cancelled (text 944).
SaveOutcome saveLayout(common::SettingsStore& store, Layout& layout, std::string_view answer);

// The move-mode read-out: " Posição:  " + left "000" + " / " + top "000".
std::string positionReadout(int left, int top);

}  // namespace zv::documents
