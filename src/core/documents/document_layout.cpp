#include "core/documents/document_layout.h"

#include <algorithm>

#include "core/common/number_format.h"
#include "core/common/settings_keys.h"
#include "core/common/settings_reader.h"
#include "core/common/text.h"
#include "core/common/text_encoding.h"

namespace zv::documents {
namespace {

namespace keys = common::settings;

// The cheque's design positions are those of the original form; the date stands on the city's
// line, so it follows the city's top.
constexpr FieldSpec kChequeFields[] = {
    {"txtValor", "lblValorT", "lblValorL", 454, 10, 190, {}},
    {"txtExtenso1", "lblExtenso1T", "lblExtenso1L", 68, 38, 584, {}},
    {"txtExtenso2", "lblExtenso2T", "lblExtenso2L", 8, 62, 640, {}},
    {"txtFavorecido", "txtFavorecidoT", "txtFavorecidoL", 18, 86, 620, {}},
    {"txtCidade", "txtCidadeT", "txtCidadeL", 262, 112, 176, {}},
    {"txtDia", {}, "lblDiaL", 444, 112, 32, "txtCidade"},
    {"txtMês", {}, "lblMêsL", 480, 112, 96, "txtCidade"},
    {"txtAno", {}, "lblAnoL", 580, 112, 48, "txtCidade"},
};

// A blank note form about 21 x 10 cm: number, due date and amount on the top line, the due date
// in words, the promise, the creditor, the amount in words, the place, then the issuer's block.
constexpr FieldSpec kNoteFields[] = {
    {"txtDia", "txtDiaT", "lblDiaL", 372, 20, 32, {}},
    {"txtMês", {}, "lblMêsL", 406, 20, 104, "txtDia"},
    {"txtAno", {}, "lblAnoL", 512, 20, 40, "txtDia"},
    {"txtNumero", "txtNumeroT", "txtNumeroL", 80, 20, 64, {}},
    {"txtValor", "lblValorT", "lblValorL", 560, 20, 180, {}},
    {"txtAosDias", "txtAosDiasT", "txtAosDiasL", 24, 52, 696, {}},
    {"txtPagarei", "txtPagareiT", "txtPagareiL", 24, 78, 696, {}},
    {"txtCredor", "txtCredorT", "txtCredorL", 24, 104, 696, {}},
    {"txtCredor2", {}, "txtCredor2L", 24, 124, 696, "txtCredor"},
    {"txtExtenso1", "lblExtenso1T", "lblExtenso1L", 88, 152, 632, {}},
    {"txtExtenso2", "lblExtenso2T", "lblExtenso2L", 24, 176, 696, {}},
    {"txtCidade", "txtCidadeT", "txtCidadeL", 120, 206, 360, {}},
    {"txtEmitente", "txtEmitenteT", "txtEmitenteL", 112, 236, 400, {}},
    {"txtEmitente2", "txtEmitente2T", "txtEmitente2L", 112, 256, 400, {}},
    {"txtEndereço", "txtEndereçoT", "txtEndereçoL", 112, 276, 400, {}},
};

// Far beyond any paper, so a stored position outside it is a damaged value, not a layout.
constexpr int kPositionLimit = 32767;

// Tops of anchored fields keep their design distance below their anchor's top.
void placeAnchored(Layout& layout) {
    for (const FieldSpec& spec : fieldSpecs(layout.kind)) {
        if (spec.anchor.empty()) {
            continue;
        }
        const FieldSpec* anchor = findSpec(layout.kind, spec.anchor);
        layout.find(spec.control)->top = layout.find(spec.anchor)->top + spec.designTop - anchor->designTop;
    }
}

}  // namespace

std::span<const FieldSpec> fieldSpecs(DocumentKind kind) {
    if (kind == DocumentKind::Cheque) {
        return kChequeFields;
    }
    return kNoteFields;
}

const FieldSpec* findSpec(DocumentKind kind, std::string_view control) {
    const std::span<const FieldSpec> specs = fieldSpecs(kind);
    const auto found = std::ranges::find(specs, control, &FieldSpec::control);
    return found == specs.end() ? nullptr : &*found;
}

FieldPlace* Layout::find(std::string_view control) {
    const auto found = std::ranges::find(fields, control, &FieldPlace::control);
    return found == fields.end() ? nullptr : &*found;
}

const FieldPlace* Layout::find(std::string_view control) const {
    const auto found = std::ranges::find(fields, control, &FieldPlace::control);
    return found == fields.end() ? nullptr : &*found;
}

std::string sectionName(DocumentKind kind, int model) {
    std::string name(kind == DocumentKind::Cheque ? keys::kCheque : keys::kPromissoria);
    if (model > 0) {
        name += std::to_string(model);
    }
    return name;
}

std::string_view nameKey(DocumentKind kind) {
    return kind == DocumentKind::Cheque ? keys::kBanco : keys::kModelo;
}

std::string defaultModelName(int model) {
    return "Modelo " + std::to_string(model + 1);
}

Layout designLayout(DocumentKind kind, int model) {
    Layout layout;
    layout.kind = kind;
    layout.model = model;
    layout.name = defaultModelName(model);
    for (const FieldSpec& spec : fieldSpecs(kind)) {
        layout.fields.push_back({spec.control, spec.designLeft, spec.designTop, spec.width});
    }
    return layout;
}

Layout loadLayout(const common::SettingsStore& store, DocumentKind kind, int model) {
    Layout layout = designLayout(kind, model);
    const std::string section = sectionName(kind, model);
    const common::SettingsReader reader(store, section);
    layout.name = common::GetSetting(store, section, nameKey(kind), layout.name);
    for (const FieldSpec& spec : fieldSpecs(kind)) {
        FieldPlace& place = *layout.find(spec.control);
        if (!spec.topKey.empty()) {
            reader.whole(spec.topKey, -kPositionLimit, kPositionLimit, place.top);
        }
        reader.whole(spec.leftKey, -kPositionLimit, kPositionLimit, place.left);
    }
    placeAnchored(layout);
    if (kind == DocumentKind::Cheque) {
        reader.boolean(keys::kChkAno, layout.fourDigitYear);
    }
    return layout;
}

std::array<std::string, kModelCount> modelNames(const common::SettingsStore& store, DocumentKind kind) {
    std::array<std::string, kModelCount> names;
    for (int model = 0; model < kModelCount; ++model) {
        names[static_cast<std::size_t>(model)] =
            common::GetSetting(store, sectionName(kind, model), nameKey(kind), defaultModelName(model));
    }
    return names;
}

SaveOutcome saveLayout(common::SettingsStore& store, Layout& layout, std::string_view answer) {
    const std::string name = common::utf8ToUpper(common::trimBlanks(answer));
    if (name.empty()) {
        return SaveOutcome::Cancelled;
    }
    const std::string section = sectionName(layout.kind, layout.model);
    bool written = common::SaveSetting(store, section, nameKey(layout.kind), name);
    for (const FieldSpec& spec : fieldSpecs(layout.kind)) {
        const FieldPlace& place = *layout.find(spec.control);
        if (!spec.topKey.empty()) {
            written = common::SaveSetting(store, section, spec.topKey, std::to_string(place.top)) && written;
        }
        written = common::SaveSetting(store, section, spec.leftKey, std::to_string(place.left)) && written;
    }
    if (layout.kind == DocumentKind::Cheque) {
        written =
            common::SaveSetting(store, section, keys::kChkAno, layout.fourDigitYear ? "1" : "0") && written;
    }
    if (!written) {
        return SaveOutcome::StoreFailed;
    }
    layout.name = name;
    return SaveOutcome::Saved;
}

std::string positionReadout(int left, int top) {
    const common::NumberSeparators seps;
    return " Posição:  " + common::formatNumber(left, common::pattern::kCounter, seps) + " / " +
           common::formatNumber(top, common::pattern::kCounter, seps);
}

}  // namespace zv::documents
