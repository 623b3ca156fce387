#include "core/documents/printer_choice.h"

#include <algorithm>

#include "core/common/settings_keys.h"

namespace zv::documents {
namespace {

const PrinterInfo* findPrinter(std::string_view name, const std::vector<PrinterInfo>& installed) {
    const auto found = std::ranges::find(installed, name, &PrinterInfo::name);
    return found == installed.end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::size_t> documentPrinter(std::string_view impDispo,
                                           const std::vector<PrinterInfo>& installed) {
    if (impDispo.empty()) {
        return std::nullopt;
    }
    const PrinterInfo* printer = findPrinter(impDispo, installed);
    if (printer == nullptr) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(printer - installed.data());
}

PrinterChoice openPrinterChoice(std::string_view impDispo, const std::vector<PrinterInfo>& installed) {
    PrinterChoice choice;
    choice.chosen = std::string(impDispo);
    if (const PrinterInfo* printer = findPrinter(impDispo, installed)) {
        choice.port = printer->port;
    }
    choice.useDefault = impDispo.empty();
    return choice;
}

void choosePrinter(PrinterChoice& choice, std::string_view name, const std::vector<PrinterInfo>& installed) {
    choice.chosen = std::string(name);
    const PrinterInfo* printer = findPrinter(name, installed);
    choice.port = printer != nullptr ? printer->port : std::string{};
    if (!name.empty()) {
        choice.useDefault = false;
    }
}

void setUseDefault(PrinterChoice& choice, bool useDefault) {
    choice.useDefault = useDefault;
    if (useDefault) {
        choice.chosen.clear();
        choice.port.clear();
    }
}

ConfirmOutcome confirmPrinterChoice(const PrinterChoice& choice, common::SettingsStore& store) {
    if (!choice.useDefault && choice.chosen.empty()) {
        return ConfirmOutcome::NothingChosen;
    }
    const std::string name = choice.useDefault ? std::string{} : choice.chosen;
    return common::SaveSetting(store, common::settings::kConfigura, common::settings::kImpDispo, name)
               ? ConfirmOutcome::Saved
               : ConfirmOutcome::StoreFailed;
}

}  // namespace zv::documents
