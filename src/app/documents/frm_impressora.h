#pragma once

#include <functional>
#include <vector>

#include "app/common/tool_window.h"
#include "core/documents/printer_choice.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace zv::app {

// The installed printers as the system lists them; tests hand the windows a list of their own.
using PrinterList = std::function<std::vector<documents::PrinterInfo>()>;
std::vector<documents::PrinterInfo> installedPrinters();

// frmImpressora: the printer cheques and promissory notes go to, kept in "ImpDispo", or the
// system's default printer. The rest of the system keeps the default printer.
class FrmImpressora final : public ToolWindow {
    Q_OBJECT
public:
    FrmImpressora(const AppContext& app, std::vector<documents::PrinterInfo> installed, QWidget* parent);

    void cbImpressora_Click(const QString& name);
    void optPadrao_Click(bool ticked);
    // cmdOK: saves the choice and closes, or says that nothing is chosen and stays open.
    void cmdOK_Click();

private:
    void showChoice(const documents::PrinterChoice& choice);

    std::vector<documents::PrinterInfo> m_installed;
    documents::PrinterChoice m_choice;
    QComboBox* cbImpressora = nullptr;
    QLineEdit* txtEndereco = nullptr;
    QCheckBox* optPadrao = nullptr;
    QPushButton* cmdOK = nullptr;
    bool m_showing = false;
};

}  // namespace zv::app
