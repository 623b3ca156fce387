#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/common/settings_store.h"

namespace zv::documents {

// An installed printer as the system lists it.
struct PrinterInfo {
    std::string name;  // device name
    std::string port;
};

// The printer documents go to, given "ImpDispo": the index of the first installed printer whose
// device name equals it, or nullopt for the system's default printer (an empty name, or a name
// no installed printer has any longer).
std::optional<std::size_t> documentPrinter(std::string_view impDispo,
                                           const std::vector<PrinterInfo>& installed);

// The printer choice window's state: the list's text, the port shown and the default option.
struct PrinterChoice {
    std::string chosen;
    std::string port;
    bool useDefault = false;
};

// Opening: the stored name stands in the list's text even when no installed printer has it
// (a stale name shows until another is chosen); an empty one ticks the default option.
PrinterChoice openPrinterChoice(std::string_view impDispo, const std::vector<PrinterInfo>& installed);

// Choosing a name in the list: its port (the first printer of that name), and the default
// option unticked unless the name is empty.
void choosePrinter(PrinterChoice& choice, std::string_view name, const std::vector<PrinterInfo>& installed);

// Ticking the default option clears the chosen name and its port; unticking changes nothing else.
void setUseDefault(PrinterChoice& choice, bool useDefault);

enum class ConfirmOutcome { Saved, NothingChosen, StoreFailed };

// Confirming: NothingChosen (the window tells the user and stays open) when neither a printer
// nor the default option is chosen; otherwise "ImpDispo" gets the name, empty for the default.
ConfirmOutcome confirmPrinterChoice(const PrinterChoice& choice, common::SettingsStore& store);

}  // namespace zv::documents
