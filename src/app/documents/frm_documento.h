#pragma once

#include <QPoint>
#include <QSize>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/common/tool_window.h"
#include "app/documents/document_painter.h"
#include "app/documents/frm_impressora.h"
#include "core/common/date.h"
#include "core/documents/document_layout.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zv::app {

// What the cheque and the promissory-note windows share: a life-size mock-up of the document on
// which every printed field is a text box at its layout position (a layout unit is 1/96 inch;
// the screen's scale is respected), the move mode that drags the fields, the nine models, bold,
// copies, printing with a preview on the documents' printer, PDF, and the close question.
// The window is modal to the calculator that opens it and goes away when closed.
class FrmDocumento : public ToolWindow {
    Q_OBJECT
public:
    // Check2: the move mode.
    void Check2_Click(bool ticked);
    // cbModelo: the fields go to the chosen model's positions.
    void cbModelo_Click(int model);
    // cmdSalvar: the bank's (or the model's) name, then the positions into the model's section.
    void cmdSalvar_Click();
    void chkNegrito_Click(bool ticked);
    // cmdImprimir: the copies through the preview to the documents' printer; text 16 and close.
    void cmdImprimir_Click();
    // cmdPdf: the copies into a PDF file the user names; the window stays open.
    void cmdPdf_Click();
    // cmdConf: the printer choice.
    void cmdConf_Click();

    // The fields as they stand, at their layout positions, with their whole texts.
    PrintedDocument shownDocument() const;
    // Where every field stands now, in layout units.
    const documents::Layout& layout() const { return m_layout; }
    // The printer the documents go to, by "ImpDispo" over the installed printers; empty for the
    // system's default printer.
    QString chosenPrinter() const;
    // Replaces the system's printer list (tests pass their own).
    void setPrinterList(PrinterList printers) { m_printers = std::move(printers); }

protected:
    // Wider or taller than any screen: a stored size beyond it is damaged.
    static constexpr int kLargestWindow = 10000;
    struct Controls {
        const char* name;     // objectName
        int titleCode;        // window title
        int moveCode;         // Check2's caption
        int modelPromptCode;  // the save's prompt
        QSize paper;          // the mock-up's size, in layout units
    };
    FrmDocumento(const AppContext& app, documents::DocumentKind kind, const Controls& controls,
                 QWidget* parent);

    // Fills the fields with their texts (the document's own fill gives them).
    void setTexts(const std::vector<documents::FilledField>& fields);
    QLineEdit* field(std::string_view control) const;
    QWidget* paper() const { return m_paper; }
    // Where a document window adds its own controls, below the shared ones.
    QGridLayout* controlsGrid() const { return m_controls; }
    bool bold() const;
    // Today by the program's clock.
    common::Date today() const;
    int copies() const;

    // Upper-cases what is printed in upper case.
    virtual void prepareToPrint() = 0;
    // Keeps what printing keeps for the next time (entries, payees, number); false on a failure
    // already told to the user.
    virtual bool keepPrinted() = 0;
    // After a field moved.
    virtual void fieldsMoved() {}
    // After a model's positions were put in place.
    virtual void modelLoaded() {}
    // The layout about to be saved gets the window's own layout options.
    virtual void completeLayout(documents::Layout&) const {}
    // Marks the positions as changed and not saved.
    void positionsChanged();
    // The window's size is kept in "Height" (and "Width" for the cheque) of the first section.
    virtual void keepSize() = 0;

    void done(int result) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    QCheckBox* Check2 = nullptr;
    QCheckBox* chkNegrito = nullptr;
    QComboBox* cbModelo = nullptr;
    QComboBox* lstCopias = nullptr;
    QLabel* lblLocal = nullptr;
    QLabel* lblAviso = nullptr;
    QPushButton* cmdImprimir = nullptr;
    QPushButton* cmdPdf = nullptr;
    QPushButton* cmdSalvar = nullptr;
    QPushButton* cmdConf = nullptr;

private:
    void placeFields();
    void placeField(const documents::FieldPlace& place);
    void moveFields(const std::vector<QLineEdit*>& moved, QPoint delta);
    void highlight(QLineEdit* field, bool on);
    bool highlighted(const QLineEdit* field) const;
    std::vector<PrintedDocument> copiesToPrint() const;
    QPoint layoutPoint(QPoint global) const;

    documents::DocumentKind m_kind;
    int m_modelPromptCode;
    documents::Layout m_layout;
    double m_scale = 1;  // screen pixels per layout unit
    QWidget* m_paper = nullptr;
    QGridLayout* m_controls = nullptr;
    std::map<std::string, QLineEdit*, std::less<>> m_fields;
    PrinterList m_printers = installedPrinters;
    // The drag in move mode: the cursor's last place in layout units, and what it carries.
    bool m_dragging = false;
    QPoint m_last;
    QLineEdit* m_dragged = nullptr;
    bool m_closing = false;
};

}  // namespace zv::app
