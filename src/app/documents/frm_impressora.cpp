#include "app/documents/frm_impressora.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/common/dialogs.h"
#include "core/common/settings_keys.h"
#include "core/common/text_table.h"

namespace zv::app {

namespace txt = common::txt;

std::vector<documents::PrinterInfo> installedPrinters() {
    std::vector<documents::PrinterInfo> printers;
    for (const QPrinterInfo& info : QPrinterInfo::availablePrinters()) {
        // Qt has no port of its own to show; the printer's location is the nearest thing.
        printers.push_back({info.printerName().toStdString(), info.location().toStdString()});
    }
    return printers;
}

FrmImpressora::FrmImpressora(const AppContext& app, std::vector<documents::PrinterInfo> installed,
                             QWidget* parent)
    : ToolWindow(app, "frmImpressora", txt::kPrinterChoiceTitle, parent), m_installed(std::move(installed)) {
    auto* column = new QVBoxLayout(this);
    auto* heading = new QLabel(this);
    heading->setWordWrap(true);
    captions().add(heading, txt::kPrinterHeading);
    column->addWidget(heading);

    cbImpressora = new QComboBox(this);
    cbImpressora->setObjectName(QStringLiteral("cbImpressora"));
    // Editable so that a stale saved name can stand in it; only the list chooses.
    cbImpressora->setEditable(true);
    cbImpressora->lineEdit()->setReadOnly(true);
    cbImpressora->setInsertPolicy(QComboBox::NoInsert);
    for (const documents::PrinterInfo& printer : m_installed) {
        cbImpressora->addItem(QString::fromStdString(printer.name));
    }
    column->addWidget(cbImpressora);
    heading->setBuddy(cbImpressora);

    auto* form = new QFormLayout;
    txtEndereco = new QLineEdit(this);
    txtEndereco->setObjectName(QStringLiteral("txtEndereco"));
    txtEndereco->setReadOnly(true);
    auto* portLabel = new QLabel(this);
    captions().add(portLabel, txt::kPrinterPort);
    form->addRow(portLabel, txtEndereco);
    column->addLayout(form);

    optPadrao = new QCheckBox(this);
    optPadrao->setObjectName(QStringLiteral("optPadrão"));
    captions().add(optPadrao, txt::kUseDefaultPrinter);
    column->addWidget(optPadrao);

    auto* lblDica = new QLabel(this);
    lblDica->setObjectName(QStringLiteral("lblDica"));
    lblDica->setWordWrap(true);
    lblDica->setFrameShape(QFrame::StyledPanel);
    captions().add(lblDica, txt::kPrinterHint);
    column->addWidget(lblDica);

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    column->addWidget(cmdOK, 0, Qt::AlignRight);
    setMinimumWidth(460);

    showChoice(documents::openPrinterChoice(
        common::GetSetting(*app.store, common::settings::kConfigura, common::settings::kImpDispo, ""),
        m_installed));
    connect(cbImpressora, &QComboBox::textActivated, this, &FrmImpressora::cbImpressora_Click);
    connect(optPadrao, &QCheckBox::toggled, this, &FrmImpressora::optPadrao_Click);
    connect(cmdOK, &QPushButton::clicked, this, &FrmImpressora::cmdOK_Click);
}

void FrmImpressora::showChoice(const documents::PrinterChoice& choice) {
    m_choice = choice;
    m_showing = true;
    cbImpressora->setEditText(QString::fromStdString(choice.chosen));
    txtEndereco->setText(QString::fromStdString(choice.port));
    optPadrao->setChecked(choice.useDefault);
    m_showing = false;
}

void FrmImpressora::cbImpressora_Click(const QString& name) {
    documents::PrinterChoice choice = m_choice;
    documents::choosePrinter(choice, name.toStdString(), m_installed);
    showChoice(choice);
}

void FrmImpressora::optPadrao_Click(bool ticked) {
    if (m_showing) {
        return;
    }
    documents::PrinterChoice choice = m_choice;
    documents::setUseDefault(choice, ticked);
    showChoice(choice);
}

void FrmImpressora::cmdOK_Click() {
    switch (documents::confirmPrinterChoice(m_choice, *app().store)) {
        case documents::ConfirmOutcome::Saved:
            accept();
            break;
        case documents::ConfirmOutcome::NothingChosen:
            app().dialogs->message(this, Dialogs::Icon::Information, text(txt::kNoPrinterChosen));
            break;
        case documents::ConfirmOutcome::StoreFailed:
            app().dialogs->message(this, Dialogs::Icon::Critical, text(txt::kSettingsNotWritten));
            break;
    }
}

}  // namespace zv::app
