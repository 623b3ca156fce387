#pragma once

#include "app/documents/frm_documento.h"

class QLineEdit;

namespace zv::app {

// frmPromissoria: a promissory note filled in with the calculator's amount and printed on a blank
// note form. Adds to the shared window the due date (typed or picked from a calendar, its words
// rebuilt as it changes), the number counting up from one note to the next, and the parties kept
// from the last note.
class FrmPromissoria final : public FrmDocumento {
    Q_OBJECT
public:
    // `amount` is within 0,01 .. 999.999.999.999,99 (the calculator checks it).
    FrmPromissoria(const AppContext& app, double amount, QWidget* parent);

    // txtVencimento: a whole date puts its day, month, year and words into the note.
    void txtVencimento_Change(const QString& typed);
    void pickDueDate();

protected:
    void prepareToPrint() override;
    bool keepPrinted() override;
    void keepSize() override;
    void showEvent(QShowEvent* event) override;

private:
    void showDueDate(const common::Date& due);

    QLineEdit* txtVencimento = nullptr;
    long m_number = 1;
    bool m_warned = false;
};

}  // namespace zv::app
