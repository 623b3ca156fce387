#pragma once

#include "app/documents/frm_documento.h"

class QListWidget;
class QPushButton;

namespace zv::app {

// frmCheque: a bank cheque filled in with the calculator's amount and printed on a blank cheque.
// Adds to the shared window the payee list kept in "favorecidos.txt", the year option and the
// backup of the nine layouts as a registry file.
class FrmCheque final : public FrmDocumento {
    Q_OBJECT
public:
    // `amount` is within 0,01 .. 999.999.999.999,99 (the calculator checks it).
    FrmCheque(const AppContext& app, double amount, QWidget* parent);

    void chkAno_Click(bool ticked);
    void lstFavorecido_Click(const QString& payee);
    // cmdBackup: the layouts into a registry file the user names.
    void cmdBackup_Click();

protected:
    void prepareToPrint() override;
    bool keepPrinted() override;
    void fieldsMoved() override;
    void modelLoaded() override;
    void completeLayout(documents::Layout& layout) const override;
    void keepSize() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placePayeeList();

    QCheckBox* chkAno = nullptr;
    QListWidget* lstFavorecido = nullptr;
    QPushButton* cmdBackup = nullptr;
    bool m_loading = false;
};

}  // namespace zv::app
